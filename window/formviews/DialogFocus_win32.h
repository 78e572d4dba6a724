#pragma once

#include "platform/win32/WindowsApi.h"

namespace tarvex {

/// What a window of the class of dialogs does by itself for IsDialogMessageW, for windows of other
/// classes with controls: access keys of labels move the focus, and the control with the focus has
/// it again when the user comes back to the window.
class DialogFocus {
public:
    /// Handles WM_NEXTDLGCTL and WM_ACTIVATE; true: the message is done with.
    bool OnMessage(HWND window, UINT message, WPARAM first, LPARAM second);

private:
    HWND focus_ = nullptr;  // while another window is active
};

}  // namespace tarvex
