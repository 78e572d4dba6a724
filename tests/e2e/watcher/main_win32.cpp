// The program that the user was working with before the launcher started: a window that tells when
// it is activated. It ends with its standard input.
//
// Each line of its output is "active N" or "inactive N", N being the system's performance counter,
// which is the same for all processes.

#include <cstdio>

#include "platform/win32/WindowsApi.h"

namespace {

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_ACTIVATE) {
        LARGE_INTEGER now;
        QueryPerformanceCounter(&now);
        std::printf("%s %lld\n", LOWORD(first) == WA_INACTIVE ? "inactive" : "active",
                    static_cast<long long>(now.QuadPart));
        std::fflush(stdout);
    }
    if (message == WM_DESTROY) {
        PostQuitMessage(0);
    }
    return DefWindowProcW(window, message, first, second);
}

DWORD CALLBACK CloseAtEndOfInput(void* window) {
    while (std::getchar() != EOF) {
    }
    PostMessageW(static_cast<HWND>(window), WM_CLOSE, 0, 0);
    return 0;
}

}  // namespace

int main() {
    WNDCLASSW description{};
    description.lpfnWndProc = Procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = L"Watcher";
    description.hbrBackground = GetSysColorBrush(COLOR_WINDOW);
    RegisterClassW(&description);
    const HWND window =
        CreateWindowExW(0, L"Watcher", L"Watcher", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20, 300,
                        200, nullptr, nullptr, description.hInstance, nullptr);
    const HANDLE thread = CreateThread(nullptr, 0, CloseAtEndOfInput, window, 0, nullptr);
    if (window == nullptr || thread == nullptr) {
        return 1;
    }
    CloseHandle(thread);
    SetForegroundWindow(window);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return 0;
}
