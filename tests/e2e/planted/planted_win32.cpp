// Takes the place of a DLL of the system in tests. What happens to it is written to a file beside
// it that has its name and ".trace", one line each:
//   start   it was loaded together with the program, before any of the program's own instructions
//   load    it was loaded later, by a call
//   NAME    its function of that name was called
// The functions are those that the programs under test, or Wine itself at their start, call.

#include <string>

#include "platform/win32/WindowsApi.h"

namespace {

HINSTANCE library = nullptr;

void Trace(const std::string& line) {
    std::wstring file(MAX_PATH, L'\0');
    file.resize(GetModuleFileNameW(library, file.data(), MAX_PATH));
    const HANDLE trace = CreateFileW((file + L".trace").c_str(), FILE_APPEND_DATA,
                                     FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS,
                                     FILE_ATTRIBUTE_NORMAL, nullptr);
    const std::string text = line + "\r\n";
    DWORD written = 0;
    WriteFile(trace, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    CloseHandle(trace);
}

}  // namespace

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID atStart) {
    if (reason == DLL_PROCESS_ATTACH) {
        library = instance;
        Trace(atStart != nullptr ? "start" : "load");
    }
    return TRUE;
}

// NOLINTNEXTLINE(cppcoreguidelines-macro-usage): a function that knows its name
#define TARVEX_PLANTED(result, name, ...)                              \
    extern "C" __declspec(dllexport) result WINAPI name(__VA_ARGS__) { \
        Trace(#name);                                                  \
        return 0;                                                      \
    }

TARVEX_PLANTED(BOOL, GetFileVersionInfoA, LPCSTR, DWORD, DWORD, LPVOID)
TARVEX_PLANTED(BOOL, GetFileVersionInfoW, LPCWSTR, DWORD, DWORD, LPVOID)
TARVEX_PLANTED(DWORD, GetFileVersionInfoSizeA, LPCSTR, LPDWORD)
TARVEX_PLANTED(DWORD, GetFileVersionInfoSizeW, LPCWSTR, LPDWORD)
TARVEX_PLANTED(BOOL, VerQueryValueA, LPCVOID, LPCSTR, LPVOID*, PUINT)
TARVEX_PLANTED(BOOL, VerQueryValueW, LPCVOID, LPCWSTR, LPVOID*, PUINT)
TARVEX_PLANTED(DWORD, VerLanguageNameA, DWORD, LPSTR, DWORD)
