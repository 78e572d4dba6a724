// Stands in for the database program in tests: records what it was started with and ends.
//
// One record is appended in one piece to the file named by the environment variable STUB_RECORD,
// else to msaccess.rec beside the program (its own name with another extension). UTF-8, lines end
// in CR LF, an empty line ends the record:
//   line=      the command line as it was passed
//   arg=       each argument after the program name, as the system splits the line
//   show=      show state asked for by the starting program (3: maximised), "none" when not set
//   nCmdShow=  the same as WinMain gets it
//   dir=       current folder
//   ticks=     the system's performance counter at the first instruction
//   bits=      32 or 64, what the stand-in was compiled for
//   errorMode= which boxes the system does not show for the program (0: it shows all)
//   foreground=  class and process id of the window in the foreground then; empty: none
// STUB_STAY_MS keeps the program running for that many milliseconds afterwards.
//
// STUB_WINDOW_MS makes it open a window after that many milliseconds, as its starting program wants
// it shown. The record is then written when the time of STUB_STAY_MS is over, with these lines
// added:
//   active=    performance counter when the window was activated first; 0 when it never was
//   zoomed=    1 when it was maximised at the end, else 0
//   front=     1 when it was in the foreground at the end, else 0

#include <cstdint>
#include <optional>
#include <string>

#include "platform/win32/WideText.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/WindowsApi.h"
#include "text/Text.h"

namespace tarvex {

namespace {

std::u16string Environment(const wchar_t* name) {
    return ReadGrowing([name](wchar_t* buffer, DWORD size) {
        const DWORD length = GetEnvironmentVariableW(name, buffer, size);
        return length < size ? GrowingRead{length, false} : GrowingRead{0, true};
    });
}

std::u16string RecordFile() {
    if (std::u16string file = Environment(L"STUB_RECORD"); !file.empty()) {
        return file;
    }
    const std::u16string program = ReadGrowing([](wchar_t* buffer, DWORD size) {
        const DWORD length = GetModuleFileNameW(nullptr, buffer, size);
        return length < size ? GrowingRead{length, false} : GrowingRead{0, true};
    });
    return program.substr(0, program.rfind(u'.')) + u".rec";
}

std::u16string CurrentFolder() {
    return ReadGrowing([](wchar_t* buffer, DWORD size) {
        const DWORD length = GetCurrentDirectoryW(size, buffer);
        return length < size ? GrowingRead{length, false} : GrowingRead{0, true};
    });
}

std::int64_t Counter() {
    LARGE_INTEGER now;
    QueryPerformanceCounter(&now);
    return now.QuadPart;
}

std::string Foreground() {
    const HWND window = GetForegroundWindow();
    if (window == nullptr) {
        return {};
    }
    wchar_t name[257];
    const int length = GetClassNameW(window, name, 257);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return text::ToUtf8(FromWide({name, static_cast<std::size_t>(length)})) + " " +
           std::to_string(process);
}

/// When the window was activated first; 0: never.
std::int64_t activated = 0;

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_ACTIVATE && LOWORD(first) != WA_INACTIVE && activated == 0) {
        activated = Counter();
    }
    return DefWindowProcW(window, message, first, second);
}

HWND OpenWindow(int show) {
    WNDCLASSW description{};
    description.lpfnWndProc = Procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = L"OMain";
    description.hbrBackground = GetSysColorBrush(COLOR_APPWORKSPACE);
    RegisterClassW(&description);
    const HWND window = CreateWindowExW(0, L"OMain", L"Access", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                                        CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr,
                                        nullptr, description.hInstance, nullptr);
    ShowWindow(window, show);
    return window;
}

void HandleMessages(DWORD milliseconds) {
    const DWORD start = GetTickCount();
    while (GetTickCount() - start < milliseconds) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
        for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE;) {
            DispatchMessageW(&message);
        }
    }
}

void AddLine(std::string& record, const char* name, const std::string& value) {
    record.append(name).append("=").append(value).append("\r\n");
}

std::string Record(int show, std::int64_t ticks, const std::string& foreground) {
    std::string record;
    const auto add = [&record](const char* name, const std::string& value) {
        AddLine(record, name, value);
    };
    add("line", text::ToUtf8(FromWide(GetCommandLineW())));
    int count = 0;
    wchar_t** arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 1; i < count; ++i) {
        add("arg", text::ToUtf8(FromWide(arguments[i])));
    }
    LocalFree(arguments);
    STARTUPINFOW startup;
    GetStartupInfoW(&startup);
    const bool given = (startup.dwFlags & STARTF_USESHOWWINDOW) != 0;
    add("show", given ? std::to_string(startup.wShowWindow) : "none");
    add("nCmdShow", std::to_string(show));
    add("dir", text::ToUtf8(CurrentFolder()));
    add("ticks", std::to_string(ticks));
    add("bits", std::to_string(8 * sizeof(void*)));
    add("errorMode", std::to_string(SetErrorMode(0)));
    add("foreground", foreground);
    return record;
}

/// A limit of time from the environment; nothing when it is not set.
std::optional<DWORD> Milliseconds(const wchar_t* name) {
    const auto value = text::ParseInt32(Environment(name));
    return value ? std::optional<DWORD>(static_cast<DWORD>(*value)) : std::nullopt;
}

}  // namespace

}  // namespace tarvex

int WINAPI WinMain(HINSTANCE /*instance*/, HINSTANCE /*previous*/, LPSTR /*arguments*/, int show) {
    using namespace tarvex;
    const std::int64_t ticks = Counter();
    std::string record = Record(show, ticks, Foreground());
    const auto finish = [&record] {
        return Win32FileSystem().Append(RecordFile(), record.append("\r\n"));
    };
    const DWORD stay = Milliseconds(L"STUB_STAY_MS").value_or(0);
    const auto untilWindow = Milliseconds(L"STUB_WINDOW_MS");
    if (!untilWindow) {
        if (!finish()) {
            return 1;
        }
        Sleep(stay);
        return 0;
    }
    Sleep(*untilWindow);
    const HWND window = OpenWindow(show);
    HandleMessages(stay);
    AddLine(record, "active", std::to_string(activated));
    AddLine(record, "zoomed", std::to_string(IsZoomed(window) != FALSE ? 1 : 0));
    AddLine(record, "front", std::to_string(GetForegroundWindow() == window ? 1 : 0));
    return finish() ? 0 : 1;
}
