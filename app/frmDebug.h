#pragma once

#include <functional>

#include "app/AppWindows.h"
#include "platform/CommonDialogs.h"
#include "platform/FileSystem.h"
#include "platform/Ui.h"
#include "text/TextCodec.h"

namespace tarvex {

/// What the log window works with. It refers to objects that outlive the window.
struct DebugServices {
    CommonDialogs& dialogs;
    FileSystem& files;
    const TextCodec& ansi;
    Ui& ui;
    std::function<void()> help;  ///< what F1 does
};

/// The log window: a text in a fixed-pitch font that can be read, copied and saved.
class frmDebug {
public:
    /// Shows the window and returns when the user has closed it. A zero character in the text is
    /// shown, and saved, as a blank. When the system has no window left, its message box shows the
    /// beginning of the text.
    static void ShowModal(const DebugWindow& content, const DebugServices& services);
};

}  // namespace tarvex
