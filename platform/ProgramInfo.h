#pragma once

#include <string>
#include <string_view>

namespace tarvex {

/// What a program knows about itself from the system.
struct ProgramInfo {
    std::u16string folder;   ///< of the executable, without a closing "\" except at a drive's root
    std::u16string exeName;  ///< file name without its last extension: "Kunden" for Kunden.exe
    std::u16string arguments;  ///< command line after the program name, as it was typed
};

/// From the executable's path and the whole command line, whose program name is cut off as the
/// system does: a name in quotation marks, or up to the first blank or tab. Blanks and tabs before
/// the arguments go with it.
ProgramInfo MakeProgramInfo(std::u16string_view executable, std::u16string_view commandLine);

}  // namespace tarvex
