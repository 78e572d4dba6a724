#pragma once

#include <string>
#include <string_view>

#include "platform/FileStore.h"

namespace tarvex {

/// The German sentence for what is wrong with a file; the file's name stands before it.
std::u16string_view FileProblemText(FileProblem problem);

/// The German text of the exception that is being handled: a file failure's sentence, else what
/// CurrentError says of it. Call it inside a catch block only.
std::u16string CaughtText();

}  // namespace tarvex
