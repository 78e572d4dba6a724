#pragma once

#include "platform/win32/WindowsApi.h"

namespace tarvex {

/// The line between page and preview in the main window, which the mouse can drag.
class Splitter {
public:
    /// Where it is in the window, in pixels; an empty one cannot be dragged.
    void Place(const RECT& bounds) { bounds_ = bounds; }

    /// For WM_SETCURSOR: true when the pointer is on the line and has its shape now.
    bool ShowPointer(HWND window, WPARAM first, LPARAM second) const;

    /// For WM_LBUTTONDOWN: true when dragging begins.
    bool Begin(HWND window, LPARAM position);

    bool IsDragged() const { return dragged_; }

    /// For WM_MOUSEMOVE while it is dragged: the new upper edge of the line.
    int Top(LPARAM position) const { return static_cast<short>(HIWORD(position)) - grip_; }

    /// For WM_LBUTTONUP and WM_CAPTURECHANGED.
    void End();

private:
    RECT bounds_{};
    int grip_ = 0;  // from the upper edge to where the mouse holds it
    bool dragged_ = false;
};

}  // namespace tarvex
