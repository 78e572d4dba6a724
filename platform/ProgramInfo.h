#pragma once

#include <string>

namespace tarvex {

/// What a program knows about itself from the system.
struct ProgramInfo {
    std::u16string folder;   ///< of the executable, without a closing "\" except at a drive's root
    std::u16string exeName;  ///< file name without its last extension: "Kunden" for Kunden.exe
    std::u16string arguments;  ///< command line behind the program name, as it was typed
};

}  // namespace tarvex
