#include "platform/win32/ForegroundAnchor.h"

namespace tarvex {

void ForegroundAnchor::Show(POINT place) {
    AnchorWindow::Layout layout{
        L"ForegroundAnchor", L"", WS_POPUP, {place.x, place.y, place.x + 1, place.y + 1}};
    root_.Create(layout);
    // Wine would leave a window topmost for good whose owner comes next in the stack.
    SetWindowPos(root_.Window(), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    layout.owner = root_.Window();
    if (anchor_.Create(layout)) {
        anchor_.ShowInFront();
    }
}

LRESULT ForegroundAnchor::AnchorWindow::OnMessage(UINT message, WPARAM first, LPARAM second) {
    // Windows names the other window only when it belongs to this program.
    const auto other = reinterpret_cast<HWND>(second);
    if (message == WM_ACTIVATE && LOWORD(first) == WA_INACTIVE && other != nullptr &&
        GetWindow(other, GW_OWNER) != Window()) {
        PostMessageW(Window(), WM_CLOSE, 0, 0);
    }
    return ModalWindow::OnMessage(message, first, second);
}

}  // namespace tarvex
