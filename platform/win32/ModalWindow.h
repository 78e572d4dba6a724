#pragma once

#include <exception>

#include "platform/win32/WindowsApi.h"

namespace tarvex {

/// A top-level window that blocks its caller until it is closed. It ends its message loop by itself
/// and posts no quit message, which would end the next window's loop before that window shows.
class ModalWindow {
public:
    ModalWindow(const ModalWindow&) = delete;
    ModalWindow& operator=(const ModalWindow&) = delete;

protected:
    struct Layout {
        const wchar_t* className;
        const wchar_t* title;
        DWORD style;
        RECT bounds;           ///< outer bounds on the screen
        HMENU menu = nullptr;  ///< the window becomes its owner
        HWND owner = nullptr;
        DWORD extendedStyle = 0;
    };

    ModalWindow() = default;
    virtual ~ModalWindow();

    HWND Window() const { return window_; }

    /// Creates the window, hidden. False when the system refuses.
    bool Create(const Layout& layout);

    /// Shows the window in front of all others and returns when it has closed. Raises what a
    /// message handler raised: the window closes then.
    void RunUntilClosed(HACCEL accelerators = nullptr);

    /// The first step of RunUntilClosed, and the last one, for windows with a loop of their own
    /// between them, which goes on while there is a Window().
    void ShowInFront();
    void RaiseFailure();

    void Close();

    /// Called once when the user sees the window.
    virtual void OnShown() {}

    /// Handles a message; everything not handled goes to the default implementation.
    virtual LRESULT OnMessage(UINT message, WPARAM first, LPARAM second);

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    LRESULT OnMessageGuarded(UINT message, WPARAM first, LPARAM second);

    HWND window_ = nullptr;
    std::exception_ptr failure_;
};

/// The part of the monitor with the mouse pointer that no taskbar covers.
RECT WorkAreaAtPointer();

/// Bounds of that size in pixels, centred in `area` but never beginning left of or above it.
RECT Centred(SIZE size, const RECT& area);

}  // namespace tarvex
