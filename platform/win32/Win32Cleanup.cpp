#include "platform/win32/Win32Cleanup.h"

#include "platform/win32/WindowsApi.h"

namespace tarvex {

namespace {

// The system calls the handler in a thread of its own.
volatile LONG temporaries = 0;
volatile LONG interrupted = 0;
HANDLE console = nullptr;
DWORD consoleMode = 0;

BOOL WINAPI HandleInterrupt(DWORD /*event*/) {
    CleanUpAfterInterrupt();
    return FALSE;  // the next handler, which is the system's, ends the program
}

}  // namespace

void PrepareWin32Program() {
    SetConsoleCtrlHandler(HandleInterrupt, TRUE);
}

void BeginTemporary() {
    InterlockedIncrement(&temporaries);
    if (InterlockedCompareExchange(&interrupted, 0, 0) != 0) {
        InterlockedDecrement(&temporaries);
        Sleep(INFINITE);
    }
}

void EndTemporary() {
    InterlockedDecrement(&temporaries);
}

void RestoreConsoleOnInterrupt(void* input, unsigned long mode) {
    consoleMode = mode;
    console = input;
}

void CleanUpAfterInterrupt() {
    constexpr DWORD kPause = 10;
    constexpr int kMostPauses = 400;
    InterlockedExchange(&interrupted, 1);
    // The file that another thread writes cannot be deleted under it, but that work ends soon.
    for (int i = 0; i < kMostPauses && InterlockedCompareExchange(&temporaries, 0, 0) > 0; ++i) {
        Sleep(kPause);
    }
    if (console != nullptr) {
        SetConsoleMode(console, consoleMode);
    }
}

}  // namespace tarvex
