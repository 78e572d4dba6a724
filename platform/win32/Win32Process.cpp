#include "platform/win32/Win32System.h"

#include <string>

#include "platform/win32/Handles.h"
#include "platform/win32/SystemLibrary.h"
#include "platform/win32/WideText.h"

namespace tarvex {

std::uint32_t Win32Process::StartMaximised(std::u16string_view commandLine) {
    std::u16string line(commandLine);  // CreateProcessW writes to it
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = SW_SHOWMAXIMIZED;
    PROCESS_INFORMATION information{};
    // The new program gets the system's error mode and DLL search, else it would inherit ours.
    RestoreDllSearchForChild();
    const BOOL started =
        CreateProcessW(nullptr, Wide(line), nullptr, nullptr, FALSE, CREATE_DEFAULT_ERROR_MODE,
                       nullptr, nullptr, &startup, &information);
    RestrictDllSearch();
    if (started == FALSE) {
        return 0;
    }
    const UniqueProcess process(information.hProcess);
    const UniqueProcess thread(information.hThread);
    // Only the program with the focus may hand it on; without this the window may open behind
    // others.
    AllowSetForegroundWindow(information.dwProcessId);
    return information.dwProcessId;
}

}  // namespace tarvex
