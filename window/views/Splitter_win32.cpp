#include "window/views/Splitter_win32.h"

#include <utility>

namespace tarvex {

bool Splitter::ShowPointer(HWND window, WPARAM first, LPARAM second) const {
    POINT pointer{};
    GetCursorPos(&pointer);
    ScreenToClient(window, &pointer);
    if (reinterpret_cast<HWND>(first) != window || LOWORD(second) != HTCLIENT ||
        PtInRect(&bounds_, pointer) == FALSE) {
        return false;
    }
    SetCursor(LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_SIZENS)));
    return true;
}

bool Splitter::Begin(HWND window, LPARAM position) {
    const POINT pointer = {static_cast<short>(LOWORD(position)),
                           static_cast<short>(HIWORD(position))};
    if (PtInRect(&bounds_, pointer) == FALSE) {
        return false;
    }
    grip_ = static_cast<int>(pointer.y - bounds_.top);
    dragged_ = true;
    SetCapture(window);
    return true;
}

void Splitter::End() {
    if (std::exchange(dragged_, false)) {
        ReleaseCapture();
    }
}

}  // namespace tarvex
