#include "platform/win32/ModalWindow.h"

#include <algorithm>

#include "resources/ResourceIds.h"

namespace tarvex {

ModalWindow::~ModalWindow() {
    Close();
}

bool ModalWindow::Create(const Layout& layout) {
    const HINSTANCE program = GetModuleHandleW(nullptr);
    WNDCLASSEXW description{};
    description.cbSize = sizeof(description);
    description.lpfnWndProc = Procedure;
    description.hInstance = program;
    description.hIcon = LoadIconW(program, MAKEINTRESOURCEW(IDI_TARVEX));
    description.hIconSm = static_cast<HICON>(LoadImageW(program, MAKEINTRESOURCEW(IDI_TARVEX),
                                                        IMAGE_ICON, GetSystemMetrics(SM_CXSMICON),
                                                        GetSystemMetrics(SM_CYSMICON), LR_SHARED));
    description.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    description.lpszClassName = layout.className;
    // A second window of the same class finds it registered.
    RegisterClassExW(&description);
    const RECT& bounds = layout.bounds;
    CreateWindowExW(layout.extendedStyle, layout.className, layout.title, layout.style, bounds.left,
                    bounds.top, bounds.right - bounds.left, bounds.bottom - bounds.top,
                    layout.owner, layout.menu, program, this);
    return window_ != nullptr;
}

void ModalWindow::RunUntilClosed(HACCEL accelerators) {
    ShowInFront();
    MSG message;
    while (window_ != nullptr && GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (accelerators == nullptr ||
            TranslateAcceleratorW(window_, accelerators, &message) == 0) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    RaiseFailure();
}

void ModalWindow::RaiseFailure() {
    Close();
    if (failure_ != nullptr) {
        std::rethrow_exception(failure_);
    }
}

void ModalWindow::Close() {
    if (window_ != nullptr) {
        DestroyWindow(window_);
    }
}

LRESULT ModalWindow::OnMessage(UINT message, WPARAM first, LPARAM second) {
    return DefWindowProcW(window_, message, first, second);
}

LRESULT CALLBACK ModalWindow::Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_NCCREATE) {
        auto* const self = static_cast<ModalWindow*>(
            reinterpret_cast<const CREATESTRUCTW*>(second)->lpCreateParams);
        self->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    auto* const self = reinterpret_cast<ModalWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr) {
        return DefWindowProcW(window, message, first, second);
    }
    const LRESULT result = self->OnMessageGuarded(message, first, second);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        self->window_ = nullptr;
        // A window that another program's sent message closes goes while the loop waits for a
        // posted one: this wakes it.
        PostMessageW(nullptr, WM_NULL, 0, 0);
    }
    return result;
}

// No exception passes through a frame of the system: it is kept for RunUntilClosed.
LRESULT ModalWindow::OnMessageGuarded(UINT message, WPARAM first, LPARAM second) {
    try {
        return OnMessage(message, first, second);
    } catch (...) {
        if (failure_ == nullptr) {
            failure_ = std::current_exception();
        }
        PostMessageW(window_, WM_CLOSE, 0, 0);
        return 0;
    }
}

// Windows may refuse the foreground to a program that the user did not start himself, and would
// leave the window behind others. Being topmost for a moment brings it up in any case. A window
// above one that shows already comes up without that, and might stay topmost.
void ModalWindow::ShowInFront() {
    constexpr UINT kInPlace = SWP_NOMOVE | SWP_NOSIZE;
    const bool raise = IsWindowVisible(GetWindow(window_, GW_OWNER)) == FALSE;
    SetWindowPos(window_, raise ? HWND_TOPMOST : HWND_TOP, 0, 0, 0, 0, kInPlace | SWP_SHOWWINDOW);
    UpdateWindow(window_);
    OnShown();
    if (raise) {
        SetWindowPos(window_, HWND_NOTOPMOST, 0, 0, 0, 0, kInPlace);
    }
    SetForegroundWindow(window_);
}

RECT WorkAreaAtPointer() {
    POINT pointer{};
    GetCursorPos(&pointer);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    if (GetMonitorInfoW(MonitorFromPoint(pointer, MONITOR_DEFAULTTONEAREST), &monitor) != FALSE) {
        return monitor.rcWork;
    }
    return {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

RECT Centred(SIZE size, const RECT& area) {
    const LONG left = std::max(area.left, (area.left + area.right - size.cx) / 2);
    const LONG top = std::max(area.top, (area.top + area.bottom - size.cy) / 2);
    return {left, top, left + size.cx, top + size.cy};
}

}  // namespace tarvex
