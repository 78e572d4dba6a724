#include "window/formviews/DialogFocus_win32.h"

namespace tarvex {

bool DialogFocus::OnMessage(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_NEXTDLGCTL) {
        auto* const next = LOWORD(second) != 0
                               ? reinterpret_cast<HWND>(first)
                               : GetNextDlgTabItem(window, GetFocus(), first != 0 ? TRUE : FALSE);
        if (next != nullptr) {
            SetFocus(next);
            if ((SendMessageW(next, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0) {
                SendMessageW(next, EM_SETSEL, 0, -1);
            }
        }
        return true;
    }
    if (message == WM_ACTIVATE) {
        if (LOWORD(first) == WA_INACTIVE) {
            focus_ = GetFocus();
        } else if (focus_ != nullptr && IsChild(window, focus_) != FALSE) {
            SetFocus(focus_);
        }
        return true;
    }
    return false;
}

}  // namespace tarvex
