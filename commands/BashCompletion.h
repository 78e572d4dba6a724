#pragma once

#include <string>

namespace tarvex {

/// A script that makes bash complete the commands, options, field names and files of a tarvexcf
/// command line, lines with "\n".
std::u16string BashCompletion();

}  // namespace tarvex
