#include "tests/support/FakeDllSearch_win32.h"

#include <string_view>

#include "platform/win32/WideText.h"
#include "text/Text.h"

namespace tarvex {

namespace {

FakeDllSearch::System current;

BOOL WINAPI SetDefault(DWORD folders) {
    FakeDllSearch::Calls().push_back("default " + std::to_string(folders));
    return current.refuses ? FALSE : TRUE;
}

BOOL WINAPI SetFolder(const wchar_t* folder) {
    FakeDllSearch::Calls().push_back(
        folder == nullptr ? "folder none" : "folder '" + text::ToUtf8(FromWide(folder)) + "'");
    return TRUE;
}

decltype(GetProcAddress)* realAddressOf = nullptr;

FARPROC WINAPI AddressOf(HMODULE library, const char* name) {
    const bool byName = HIWORD(name) != 0;
    if (byName && name == std::string_view("SetDefaultDllDirectories")) {
        return current.hasDefault ? reinterpret_cast<FARPROC>(reinterpret_cast<void*>(SetDefault))
                                  : nullptr;
    }
    if (byName && name == std::string_view("SetDllDirectoryW")) {
        return current.hasFolder ? reinterpret_cast<FARPROC>(reinterpret_cast<void*>(SetFolder))
                                 : nullptr;
    }
    return realAddressOf(library, name);
}

/// Keeps what the program imports before another function takes its place.
decltype(AddressOf)* Replacement() {
    realAddressOf = GetProcAddress;
    return AddressOf;
}

}  // namespace

FakeDllSearch::FakeDllSearch(const System& system) : hook_("GetProcAddress", Replacement()) {
    current = system;
    Calls().clear();
}

std::vector<std::string>& FakeDllSearch::Calls() {
    static std::vector<std::string> calls;
    return calls;
}

}  // namespace tarvex
