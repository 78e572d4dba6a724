// As little as a program with a dialog can be: what the start of one costs at least. It ends when
// its dialog is closed.

#include "platform/win32/WindowsApi.h"
#include "tests/e2e/baredialog/resource.h"

namespace {

INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM first, LPARAM) {
    if (message == WM_COMMAND && (LOWORD(first) == IDOK || LOWORD(first) == IDCANCEL)) {
        EndDialog(dialog, 0);
        return TRUE;
    }
    return FALSE;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    constexpr INITCOMMONCONTROLSEX kClasses = {sizeof kClasses, ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&kClasses);
    DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_BARE), nullptr, Procedure, 0);
    return 0;
}
