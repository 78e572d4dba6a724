#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/CommonDialogs.h"
#include "platform/Ui.h"
#include "text/TextCodec.h"

namespace tarvex {

/// What a file dialog starts with. Empty texts become the defaults of the method called.
struct FileDialogOptions {
    std::u16string title;
    std::u16string startFolder;
    std::u16string filter;            ///< "description|pattern|...", for example "Texte|*.txt"
    std::u16string defaultName;       ///< proposed file name
    std::u16string defaultExtension;  ///< without "."; added to a name typed without one
    WindowHandle owner = nullptr;
};

/// What the user chose; empty when the dialog was cancelled or failed.
struct ChosenFile {
    std::u16string path;
    std::u16string name;  ///< the bare file name
};

/// The system's dialogs for choosing a file to open, a file name to save under, and a folder.
/// Failures are shown to the user in a message box; no method raises. The objects handed to the
/// constructor must outlive it.
class QvFileDialog {
public:
    /// Characters of the buffer for a path, a closing zero included.
    static constexpr std::size_t kFileBufferSize = 512;

    QvFileDialog(CommonDialogs& dialogs, const TextCodec& ansi, Ui& ui)
        : dialogs_(dialogs), ansi_(ansi), ui_(ui) {}

    /// Empty title: "Ordner wählen", empty start folder: "c:\". Returns the folder's path, empty
    /// when cancelled.
    std::u16string BrowseForFolder(std::u16string title = {}, std::u16string startFolder = {},
                                   WindowHandle owner = nullptr);

    /// Asks for an existing file. Empty title: "Datei öffnen", empty start folder: "c:\", empty
    /// filter: all files.
    ChosenFile GetOpenFileName(FileDialogOptions options = {});

    /// Asks for a name to save under; an existing file has to be confirmed. Empty title: "Datei
    /// speichern", empty start folder and filter as for GetOpenFileName.
    ChosenFile GetSaveFileName(FileDialogOptions options = {});

    /// The dialogs themselves: as above, but an empty title becomes "Datei öffnen" and "Datei
    /// speichern unter", an empty start folder is left to the system.
    ChosenFile ShowOpen(const FileDialogOptions& options);
    ChosenFile ShowSave(const FileDialogOptions& options);

    /// The dialog's flags for the intention "Open" or "Save" in any case. Another intention is
    /// shown to the user as an error and gives 0.
    std::uint32_t CheckFlags(std::u16string_view intention);

private:
    using Show = FileDialogEnd (CommonDialogs::*)(FileDialogCall&);

    ChosenFile ShowDialog(const FileDialogOptions& options, std::u16string_view intention,
                          std::u16string_view defaultTitle, Show show);
    std::u16string RunDialog(const FileDialogOptions& options, FileDialogCall& call, Show show);
    std::string Filter(std::u16string_view filter) const;

    CommonDialogs& dialogs_;
    const TextCodec& ansi_;
    Ui& ui_;
};

}  // namespace tarvex
