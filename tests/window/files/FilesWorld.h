#pragma once

#include <string>

#include "branding/BrandFields.h"
#include "branding/Scrambling.h"
#include "tests/commands/CommandsWorld.h"
#include "tests/support/FakeProgramStarter.h"
#include "tests/support/FakeUserDialogs.h"
#include "tests/support/FakeUserSettings.h"
#include "window/files/FileCommands.h"

namespace tarvex {

/// The commands for files with everything in memory: beside the program stands a template, and in
/// C:\Daten a configured launcher.
struct FilesWorld : CommandsWorld {
    FilesWorld() {
        SyntheticLauncher program;
        program.hasRoom = true;
        files.AddFile(kTemplate, program.Build());
        files.AddFolder(u"C:\\Daten");
        Settings settings;
        settings.Set(kFieldAppName, u"Kunden");
        settings.Set(kFieldDBFilename, u"Kunden.mdb");
        BrandWriter(store, codec).Brand(kTemplate, kLauncher, settings, {});
        store.log.clear();
    }

    /// Opens the launcher, which must succeed.
    std::unique_ptr<Document> Opened() { return commands.Open(kLauncher, nullptr).document; }

    /// Fills the form of a new launcher in and accepts it.
    static FakeUserDialogs::FormUser NewLauncher(std::u16string_view name) {
        return [name = std::u16string(name)](FormModel& form) {
            form.SetText(NewLauncherForm::kName, name);
            form.SetText(NewLauncherForm::kFolder, u"C:\\Daten");
            return true;
        };
    }

    /// The settings that stand in a file.
    Settings Stored(std::u16string_view path) {
        return LoadSettings(files.Bytes(path), path, codec).settings;
    }

    static constexpr const char16_t* kTemplate = u"C:\\Tarvex\\tarvex.exe";
    static constexpr const char16_t* kLauncher = u"C:\\Daten\\Kunden.exe";

    FakeUserDialogs dialogs;
    FakeUserSettings userSettings;
    FakeProgramStarter starter;
    FileCommands commands{
        {store, codec, dialogs, userSettings, starter, u"C:\\Tarvex\\tarvexcf.exe"}};
};

}  // namespace tarvex
