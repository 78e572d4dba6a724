// Stands in for the system's engine of .hlp files in tests. Makes the file winhlp32.rec beside
// itself when it is ready, writes the first request into it and ends; also after half a minute.
//   file=     the help file
//   command=  what to do with it (1: show a topic)
//   data=     the topic's number
// UTF-8, lines end in CR LF.

#include <cstddef>
#include <cstring>
#include <string>

#include "platform/win32/WindowsApi.h"

namespace {

/// How the system hands a request on; `file` and `data` are places in it.
struct Request {
    WORD size;
    WORD command;
    LONG data;
    LONG reserved;
    WORD file;
    WORD moreData;
};

HANDLE record = INVALID_HANDLE_VALUE;

void Write(const std::string& text) {
    DWORD written = 0;
    WriteFile(record, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    switch (message) {
        case WM_COPYDATA: {
            const auto* const bytes =
                static_cast<const char*>(reinterpret_cast<const COPYDATASTRUCT*>(second)->lpData);
            Request request{};
            std::memcpy(&request, bytes, sizeof request);
            Write("file=" + std::string(bytes + request.file) +
                  "\r\ncommand=" + std::to_string(request.command) +
                  "\r\ndata=" + std::to_string(request.data) + "\r\n");
            PostQuitMessage(0);
            return TRUE;
        }
        case WM_TIMER:
            PostQuitMessage(1);
            return 0;
        default:
            return DefWindowProcW(window, message, first, second);
    }
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE /*previous*/, LPSTR /*arguments*/, int /*show*/) {
    WNDCLASSW description{};
    description.lpfnWndProc = Procedure;
    description.hInstance = instance;
    description.lpszClassName = L"MS_WINHELP";
    RegisterClassW(&description);
    const HWND window = CreateWindowExW(0, description.lpszClassName, L"", WS_POPUP, 0, 0, 0, 0,
                                        nullptr, nullptr, instance, nullptr);
    SetTimer(window, 1, 30000, nullptr);
    std::wstring file(MAX_PATH, L'\0');
    file.resize(GetModuleFileNameW(nullptr, file.data(), MAX_PATH));
    file.replace(file.rfind(L'.'), std::wstring::npos, L".rec");
    record = CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                         FILE_ATTRIBUTE_NORMAL, nullptr);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        DispatchMessageW(&message);
    }
    CloseHandle(record);
    return static_cast<int>(message.wParam);
}
