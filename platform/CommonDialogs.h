#pragma once

#include <cstdint>
#include <string>

#include "platform/Ui.h"

namespace tarvex {

/// One call of the system's open or save dialog. All texts are bytes in the system's ANSI code
/// page.
struct FileDialogCall {
    WindowHandle owner = nullptr;
    std::string title;
    std::string folder;            ///< the dialog starts here
    std::string filter;            ///< description, zero, pattern, zero, ..., closed by a zero more
    std::string defaultExtension;  ///< without ".", added to a name without one; empty: none
    std::uint32_t flags = 0;       ///< OFN_... flags
    std::string file;       ///< buffer, proposed name first; receives the chosen path and a zero
    std::string fileTitle;  ///< buffer; receives the chosen file's bare name and a zero
};

/// How a file dialog ended.
struct FileDialogEnd {
    bool chosen = false;
    std::uint32_t failure = 0;  ///< the system's error number; 0 when the user cancelled
};

/// The system's dialogs for choosing files and folders. Failures show in the results.
class CommonDialogs {
public:
    virtual ~CommonDialogs() = default;

    virtual FileDialogEnd ShowOpen(FileDialogCall& call) = 0;
    virtual FileDialogEnd ShowSave(FileDialogCall& call) = 0;

    /// The folder chosen in the system's folder browser, which starts at `startFolder`; empty when
    /// cancelled. Texts are in the ANSI code page, flags are the system's BIF_... flags.
    virtual std::string BrowseForFolder(WindowHandle owner, const std::string& title,
                                        const std::string& startFolder, std::uint32_t flags) = 0;
};

}  // namespace tarvex
