#pragma once

#include <string>
#include <string_view>

#include "configurator/Model.h"
#include "configurator/OutputFile.h"
#include "platform/FileStore.h"

namespace tarvex {

/// Settings ready to be written to a settings file.
struct ExportedSettings {
    std::string bytes;       ///< of the settings file
    std::string icon = {};   ///< of the icon file beside it; empty: there is none
    bool isSecret = false;   ///< users or passwords are among them
    Problems problems = {};  ///< the values that a settings file cannot hold; nothing to write then
};

/// True when there are users or passwords among the settings.
bool HasSecrets(const Settings& settings);

/// Puts the settings of the launcher `source` into the form of a settings file; users and passwords
/// only `withSecrets`. The icon gets a file of its own beside `output` and is left out when that is
/// empty, because the text goes elsewhere.
ExportedSettings ExportSettings(Settings settings, std::u16string_view source,
                                std::u16string_view output, bool withSecrets,
                                const TextCodec& codec);

/// The icon file beside an exported settings file: "C:\Kunden.ini" has "C:\Kunden.ico".
std::u16string IconBeside(std::u16string_view output);

/// Why the settings file, and with `hasIcon` the icon file beside it, must not be written.
Problems CheckExport(const FileStore& store, std::u16string_view output, bool hasIcon,
                     const OutputRules& rules);

/// Writes the settings file, and before it the icon that it names. With secrets it is its owner's
/// alone.
Problems WriteExport(FileStore& store, const ExportedSettings& exported, std::u16string_view output,
                     const OutputRules& rules, Problems& notes);

}  // namespace tarvex
