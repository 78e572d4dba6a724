#include "platform/win32/SystemLibrary.h"
#include "platform/win32/Win32Cleanup.h"
#include "platform/win32/WindowsApi.h"
#include "window/views/MainWindow_win32.h"

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    // A refused file or an empty drive is told by the window, never in a box of the system.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    tarvex::PrepareWin32Program();
    tarvex::RestrictDllSearch();
    tarvex::MainWindow().Run();
    return 0;
}
