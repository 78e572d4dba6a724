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

}  // namespace tarvex
