#include "platform/win32/Win32System.h"

#include "platform/win32/Handles.h"
#include "platform/win32/SystemLibrary.h"

namespace tarvex {

namespace {

/// Opens for reading values only, so that nothing can be written and users without further rights
/// succeed. Empty when the root is none, the key is missing or may not be read.
UniqueRegistryKey OpenKey(std::int32_t root, const std::string& key, REGSAM view = 0) {
    UniqueRegistryKey result;
    if (root >= 0 || root == kNoHKey) {
        return result;  // no number of a root key: it could be any other handle
    }
    const auto rootKey = reinterpret_cast<HKEY>(static_cast<LONG_PTR>(root));
    HKEY opened = nullptr;
    if (RegOpenKeyExA(rootKey, key.c_str(), 0, KEY_QUERY_VALUE | view, &opened) == ERROR_SUCCESS) {
        result = UniqueRegistryKey(opened);
    }
    return result;
}

BYTE* Bytes(std::string& buffer) {
    return reinterpret_cast<BYTE*>(buffer.data());
}

}  // namespace

std::optional<std::string> Win32Registry::ReadTextInView(View view, std::int32_t root,
                                                         std::u16string_view key,
                                                         std::u16string_view valueName) const {
    const UniqueRegistryKey opened =
        OpenKey(root, ansi_.ToAnsi(key), view == View::k64Bit ? KEY_WOW64_64KEY : 0);
    if (!opened) {
        return std::nullopt;
    }
    const std::string name = ansi_.ToAnsi(valueName);
    std::string data(512, '\0');
    for (;;) {
        DWORD type = REG_NONE;
        auto size = static_cast<DWORD>(data.size());
        const LONG result =
            RegQueryValueExA(opened.Get(), name.c_str(), nullptr, &type, Bytes(data), &size);
        if (result == ERROR_MORE_DATA && size > data.size()) {
            data.resize(size);
            continue;
        }
        if (result != ERROR_SUCCESS || type != REG_SZ) {
            return std::nullopt;
        }
        data.resize(size);
        return data;
    }
}

std::vector<std::u16string> Win32Registry::ListValueNames(std::int32_t root,
                                                          std::u16string_view key,
                                                          std::size_t maxNameChars,
                                                          std::size_t maxDataBytes) const {
    std::vector<std::u16string> names;
    const UniqueRegistryKey opened = OpenKey(root, ansi_.ToAnsi(key));
    if (!opened) {
        return names;
    }
    std::string name(maxNameChars + 1, '\0');
    // The data are read, though nobody wants them, since only then their size is limited.
    std::string data(maxDataBytes, '\0');
    for (DWORD index = 0;; ++index) {
        auto nameSize = static_cast<DWORD>(name.size());
        auto dataSize = static_cast<DWORD>(data.size());
        if (RegEnumValueA(opened.Get(), index, name.data(), &nameSize, nullptr, nullptr,
                          Bytes(data), &dataSize) != ERROR_SUCCESS) {
            return names;
        }
        names.push_back(ansi_.FromAnsi(std::string_view(name).substr(0, nameSize)));
    }
}

bool Win32Registry::Has64BitView() const {
    // Windows XP has the function from Service Pack 2 on; a 64-bit Windows always has it.
    const SystemLibrary kernel(u"kernel32.dll");
    auto* const isWow64 = kernel.Function<decltype(IsWow64Process)>("IsWow64Process");
    BOOL result = FALSE;
    return isWow64 != nullptr && isWow64(GetCurrentProcess(), &result) != 0 && result != 0;
}

}  // namespace tarvex
