#pragma once

#include "platform/CommonDialogs.h"

namespace tarvex {

/// The dialogs of Windows. Their libraries are loaded by the first call, since loading them takes
/// longer than the rest of a launch.
class Win32CommonDialogs : public CommonDialogs {
public:
    FileDialogEnd ShowOpen(FileDialogCall& call) override;
    FileDialogEnd ShowSave(FileDialogCall& call) override;
    std::string BrowseForFolder(WindowHandle owner, const std::string& title,
                                const std::string& startFolder, std::uint32_t flags) override;
};

}  // namespace tarvex
