#include "platform/win32/Win32System.h"

#include <string>

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
    started_ = UniqueProcess(information.hProcess);
    const UniqueProcess thread(information.hThread);
    return information.dwProcessId;
}

bool Win32Process::AllowForeground(std::uint32_t processId) {
    return AllowSetForegroundWindow(processId) != FALSE;
}

bool Win32Process::OtherInForeground() const {
    DWORD owner = 0;
    return GetWindowThreadProcessId(GetForegroundWindow(), &owner) != 0 &&
           owner != GetCurrentProcessId();
}

bool Win32Process::HandleMessages(std::uint32_t milliseconds) {
    const HANDLE process = started_.Get();
    const DWORD woken = MsgWaitForMultipleObjects(1, &process, FALSE, milliseconds, QS_ALLINPUT);
    for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE;) {
        DispatchMessageW(&message);
    }
    // A wait that fails must not become one without pauses.
    return woken != WAIT_TIMEOUT && woken != WAIT_OBJECT_0 + 1;
}

}  // namespace tarvex
