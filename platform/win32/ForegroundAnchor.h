#pragma once

#include "platform/win32/ModalWindow.h"

namespace tarvex {

/// Keeps the foreground in this program while it shows nothing. When the only window of a program
/// closes, Windows brings another program to the front at once, and only the program in front may
/// start one that comes to the front. The anchor is a window of one pixel. It goes with the object
/// or when a window of this program that it does not own has taken its place.
class ForegroundAnchor {
public:
    /// Makes the anchor and brings it to the front; to be called once. The window that shows next
    /// should cover its place on the screen.
    void Show(POINT place);

    /// The anchor, to own the window that shows next and to be brought to the front before that
    /// window closes; null when there is none.
    HWND Window() const { return anchor_.Window(); }

private:
    class AnchorWindow : public ModalWindow {
    public:
        using ModalWindow::Create;
        using ModalWindow::Layout;
        using ModalWindow::ShowInFront;
        using ModalWindow::Window;

    protected:
        LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;
    };

    // A window whose owner is never shown is in no taskbar. A tool window would not be either, but
    // does not hold the foreground.
    AnchorWindow root_;
    AnchorWindow anchor_;
};

}  // namespace tarvex
