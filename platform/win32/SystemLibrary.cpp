#include "platform/win32/SystemLibrary.h"

#include "platform/win32/WideText.h"
#include "platform/win32/WindowsApi.h"

namespace tarvex {

namespace {

std::u16string SystemFolder() {
    return ReadGrowing([](wchar_t* buffer, DWORD size) {
        const UINT length = GetSystemDirectoryW(buffer, size);
        return length < size ? GrowingRead{length, false} : GrowingRead{0, true};
    });
}

/// Null when this system does not have it.
template <class Signature>
Signature* KernelFunction(const char* name) {
    return reinterpret_cast<Signature*>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), name)));
}

/// Puts a folder in the place of the current one in the search for DLLs: none for an empty text,
/// the current one again for null.
void SetSearchedFolder(const wchar_t* folder) {
    // Windows XP has it from its first service pack on.
    auto* const setFolder = KernelFunction<BOOL WINAPI(LPCWSTR)>("SetDllDirectoryW");
    if (setFolder != nullptr) {
        setFolder(folder);
    }
}

template <DWORD classes>
void PrepareClasses() {
    // By its name alone, because with a path the manifest would not be asked which version it is.
    // The name is among those that Windows never looks for beside the program.
    const HMODULE library = LoadLibraryW(L"comctl32.dll");
    auto* const prepare = reinterpret_cast<decltype(InitCommonControlsEx)*>(
        reinterpret_cast<void*>(GetProcAddress(library, "InitCommonControlsEx")));
    if (prepare != nullptr) {
        constexpr INITCOMMONCONTROLSEX kWanted = {sizeof kWanted, classes};
        prepare(&kWanted);
    }
}

}  // namespace

SystemLibrary::SystemLibrary(std::u16string_view name) : module_(nullptr) {
    std::u16string path = SystemFolder();
    if (path.empty()) {
        return;
    }
    path.append(u"\\").append(name);
    // With the altered search path the library's own needs are looked for in the system folder too.
    module_ = LoadLibraryExW(Wide(path), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
}

void* SystemLibrary::Address(const char* name) const {
    if (module_ == nullptr) {
        return nullptr;
    }
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(module_), name));
}

void RestrictDllSearch() {
    constexpr DWORD kSystemFolder = 0x800;  // LOAD_LIBRARY_SEARCH_SYSTEM32
    // What the manifest names is found all the same: it is looked up before any folder is searched.
    // A path with LOAD_WITH_ALTERED_SEARCH_PATH keeps its own search, too.
    auto* const setDefault = KernelFunction<BOOL WINAPI(DWORD)>("SetDefaultDllDirectories");
    if (setDefault == nullptr || setDefault(kSystemFolder) == FALSE) {
        SetSearchedFolder(L"");
    }
}

void RestoreDllSearchForChild() {
    SetSearchedFolder(nullptr);
}

void PrepareCommonControls() {
    PrepareClasses<ICC_STANDARD_CLASSES>();
}

void PrepareListsAndBars() {
    PrepareClasses<ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES>();
}

}  // namespace tarvex
