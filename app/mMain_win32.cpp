#include "app/Application.h"
#include "app/Win32AppWindows_win32.h"
#include "branding/BrandImage.h"
#include "platform/win32/SystemLibrary.h"
#include "platform/win32/Win32Dialogs.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/Win32System.h"
#include "platform/win32/Win32TextCodec.h"
#include "platform/win32/WindowsApi.h"

// Takes the place of the C++ library's handler, which would bring 60 KB of name decoding and
// printing into the program.
namespace __gnu_cxx {
void __verbose_terminate_handler() {
    ExitProcess(3);
}
}  // namespace __gnu_cxx

namespace tarvex {
namespace {

void RunLauncher() {
    RestrictDllSearch();
    const ProgramInfo program = ReadProgramInfo();
    const SystemTextCodec codec;
    const SingleByteTextCodec settingsCodec;
    const Win32StringTable texts;
    const Win32Registry registry(codec);
    const Win32Clock clock;
    const Win32VersionResource versions(codec);
    const BrandImage image;
    Win32FileSystem files;
    Win32Process process;
    Win32Ui ui;

    ui.SetPointerBusy();
    {
        cuAppError appError(ui, texts, program);
        LogFile log(files, clock, codec, program);
        Win32AppWindows windows(appError, ui, files, codec);
        ui.SetHelpOpener([&windows](const std::u16string& file, std::int32_t context) {
            windows.ShowHelp(file, context);
        });
        const LaunchEnvironment environment{registry, files, codec, settingsCodec, ui, program};
        Application application(
            {environment, appError, image, windows, process, clock, log, versions});
        application.Init();
    }
    ui.SetPointerDefault();
}

}  // namespace
}  // namespace tarvex

// The exit code is always 0: nothing that starts the launcher learns more than the user does.
int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    // No box of the system's own about an empty drive or a damaged program: the launcher tells.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    try {
        tarvex::RunLauncher();
    } catch (...) {
        tarvex::Win32AppWindows::ShowLastResort();
    }
    return 0;
}
