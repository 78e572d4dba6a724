#include "commands/Commands.h"
#include "commands/SystemConsole.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32Cleanup.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/Win32FolderListing.h"
#include "platform/win32/Win32TextCodec.h"
#include "platform/win32/WindowsApi.h"

int main() {
    // A refused file or an empty drive is reported on the console, never in a box of the system.
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    tarvex::PrepareWin32Program();
    int count = 0;
    wchar_t** list = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::u16string> arguments;
    for (int i = 1; list != nullptr && i < count; ++i) {
        arguments.emplace_back(tarvex::FromWide(list[i]));
    }
    LocalFree(list);
    tarvex::Win32FileStore store;
    const tarvex::SingleByteTextCodec codec;
    tarvex::SystemConsole console;
    const tarvex::Win32FolderListing folders;
    return tarvex::RunCommand(arguments, {store, codec, console, folders});
}
