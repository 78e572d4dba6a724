#pragma once

#include <memory>
#include <string>

#include "platform/FileStore.h"
#include "text/TextCodec.h"
#include "window/document/Document.h"
#include "window/files/ProgramStarter.h"
#include "window/form/UserDialogs.h"
#include "window/main/UserSettings.h"

namespace tarvex {

/// What the commands for files work with. It owns none of it.
struct FileServices {
    FileStore& store;
    const TextCodec& codec;  ///< of the settings: one byte per character
    UserDialogs& dialogs;
    UserSettings& settings;
    ProgramStarter& starter;
    std::u16string program;  ///< full path of this program; the template stands beside it
};

/// What became of a command.
struct FileResult {
    bool done = false;         ///< false: the user has cancelled, or was told why it failed
    std::u16string line = {};  ///< German, for the status line; empty: it stays as it is
    std::unique_ptr<Document> document = {};  ///< to be shown in this window from now on; or null
};

inline constexpr std::u16string_view kLauncherFilter = u"Startprogramme|*.exe|Alle Dateien|*.*";
inline constexpr std::u16string_view kSettingsFilter =
    u"Einstellungsdateien|*.ini|Alle Dateien|*.*";
inline constexpr std::u16string_view kBothFilter =
    u"Startprogramme und Einstellungsdateien|*.exe;*.ini|Alle Dateien|*.*";

}  // namespace tarvex
