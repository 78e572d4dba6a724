#include <memory>
#include <string>
#include <vector>

#include "platform/win32/Handles.h"
#include "platform/win32/SystemLibrary.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32Cleanup.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/Win32FolderListing.h"
#include "platform/win32/Win32System.h"
#include "platform/win32/Win32TextCodec.h"
#include "simulation/ThisPc.h"
#include "window/formviews/Win32UserDialogs_win32.h"
#include "window/main/MainModel.h"
#include "window/views/EntryAsker_win32.h"
#include "window/views/MainWindow_win32.h"
#include "window/views/Win32ProgramStarter_win32.h"
#include "window/views/Win32UserSettings_win32.h"

namespace tarvex {
namespace {

std::u16string PathOfProgram() {
    return ReadGrowing([](wchar_t* buffer, unsigned long size) {
        const DWORD length = GetModuleFileNameW(nullptr, buffer, size);
        return GrowingRead{length, length >= size};
    });
}

/// What the program was started with: a file by its full path, or kNewArgument.
std::u16string FileToOpen(const ThisPc& pc) {
    const SystemLibrary shell(u"shell32.dll");
    auto* const split = shell.Function<decltype(CommandLineToArgvW)>("CommandLineToArgvW");
    int count = 0;
    wchar_t** list = split != nullptr ? split(GetCommandLineW(), &count) : nullptr;
    std::u16string argument;
    if (list != nullptr && count > 1) {
        argument = FromWide(list[1]);
    }
    LocalFree(list);
    return argument.empty() || argument == kNewArgument ? argument : pc.FullPath(argument);
}

/// Without arguments the shell's library, which takes long to load, is not needed.
void RunWindow(bool hasArguments) {
    Win32FileStore store;
    const SingleByteTextCodec codec;
    const Win32FolderListing folders;
    Win32UserSettings settings;
    Win32ProgramStarter starter;
    const SystemTextCodec ansi;
    Win32UserDialogs dialogs(u"Tarvex-Konfiguration", ansi);
    const std::unique_ptr<ThisPc> thisPc = OpenThisPc();
    EntryAsker entries;
    MainModel model(
        {{store, codec, dialogs, settings, starter, PathOfProgram()},
         folders,
         thisPc.get(),
         [&entries](const PreviewRequest& about, const KeyListFields& list,
                    const std::u16string& entry) { return entries.Answer(about, list, entry); }});
    MainWindow window(model, settings);
    if (window.Make()) {
        window.Run(hasArguments ? FileToOpen(*thisPc) : std::u16string());
    }
}

}  // namespace
}  // namespace tarvex

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    // A refused file or an empty drive is told by the window, never in a box of the system.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    tarvex::PrepareWin32Program();
    tarvex::RestrictDllSearch();
    tarvex::RunWindow(!tarvex::ReadProgramInfo().arguments.empty());
    // A preview may still be worked out, or wait for a path that does not answer: it ends here, and
    // not among objects of the program that are going already.
    ExitProcess(0);
}
