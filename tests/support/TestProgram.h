#pragma once

#include <string>
#include <utility>

#include "platform/ProgramInfo.h"

namespace tarvex {

/// C:\Prog\Start.exe, started with these arguments.
inline ProgramInfo TestProgram(std::u16string arguments = {}) {
    return {u"C:\\Prog", u"Start", std::move(arguments)};
}

}  // namespace tarvex
