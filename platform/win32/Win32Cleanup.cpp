#include "platform/win32/Win32Cleanup.h"

#include "platform/win32/WindowsApi.h"

namespace tarvex {

namespace {

TemporaryGate gate;
HANDLE console = nullptr;
DWORD consoleMode = 0;

long Read(volatile long& value) {
    return InterlockedCompareExchange(&value, 0, 0);
}

BOOL WINAPI HandleInterrupt(DWORD /*event*/) {
    gate.Close();
    if (console != nullptr) {
        SetConsoleMode(console, consoleMode);
    }
    return FALSE;  // the next handler, which is the system's, ends the program
}

}  // namespace

void TemporaryGate::Enter() {
    InterlockedIncrement(&inside_);
    if (Read(closed_) != 0) {
        InterlockedDecrement(&inside_);
        Sleep(INFINITE);
    }
}

void TemporaryGate::Leave() {
    InterlockedDecrement(&inside_);
}

bool TemporaryGate::Close() {
    constexpr DWORD kPause = 10;
    constexpr int kMostPauses = 400;
    InterlockedExchange(&closed_, 1);
    for (int i = 0; i < kMostPauses && Read(inside_) > 0; ++i) {
        Sleep(kPause);
    }
    return Read(inside_) == 0;
}

TemporaryGate& ProgramGate() {
    return gate;
}

void PrepareWin32Program() {
    SetConsoleCtrlHandler(HandleInterrupt, TRUE);
}

void RestoreConsoleOnInterrupt(void* input, unsigned long mode) {
    consoleMode = mode;
    console = input;
}

}  // namespace tarvex
