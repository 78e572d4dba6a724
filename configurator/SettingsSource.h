#pragma once

#include <string>
#include <string_view>

#include "configurator/Finding.h"

namespace tarvex {

/// Settings from a launcher or from a settings file, whichever it is.
struct LoadedSettings {
    Settings settings;  ///< what could be read
    Problems problems;  ///< what could not
    Findings warnings;  ///< of a settings file: what was read but is probably not meant
    bool isProgram = false;
    bool branded = false;  ///< a settings file always is
};

/// True when a file of that name and content is meant to be a program, not a settings file.
bool IsProgram(std::u16string_view name, std::string_view bytes);

/// Reads the settings of a file's bytes. `name` names the file in the problems.
LoadedSettings LoadSettings(std::string_view bytes, std::u16string_view name,
                            const TextCodec& codec);

}  // namespace tarvex
