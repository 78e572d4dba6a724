#pragma once

#include <string>
#include <string_view>

#include "configurator/checks/Finding.h"
#include "platform/FileStore.h"

namespace tarvex {

/// Settings from a launcher or from a settings file, whichever it is.
struct LoadedSettings {
    Settings settings;  ///< what could be read
    Problems problems;  ///< what could not
    /// Of a settings file: what was read but is probably not meant; of a launcher: fields that it
    /// or this program does not have.
    Findings warnings;
    bool isProgram = false;
    bool branded = false;  ///< a settings file always is
};

/// True when a file of that name and content is meant to be a program, not a settings file.
bool IsProgram(std::u16string_view name, std::string_view bytes);

/// Reads the settings of a file's bytes; of a program's icon and version texts only those that its
/// vendor gave it. `name` names the file in the problems.
LoadedSettings LoadSettings(std::string_view bytes, std::u16string_view name,
                            const TextCodec& codec);

/// Reads the icon file that settings name into them, when they name one and have no icon yet. A
/// relative path starts at `folder`, "/" or "\\" between its parts; an empty one is the current
/// folder. The problem that is returned names `place`, where the settings are from.
Problems LoadIconFile(FileStore& store, std::u16string_view folder, std::u16string_view place,
                      Settings& settings);

/// The path of such a file as this system knows it.
std::u16string IconPath(std::u16string_view folder, std::u16string_view given);

}  // namespace tarvex
