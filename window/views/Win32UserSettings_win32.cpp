#include "window/views/Win32UserSettings_win32.h"

#include "platform/win32/Handles.h"
#include "platform/win32/WideText.h"

namespace tarvex {

namespace {

constexpr const wchar_t* kKey = L"Software\\Tarvex\\Konfiguration";

/// No path of Windows is longer.
constexpr DWORD kMostChars = 32768;

}  // namespace

std::u16string Win32UserSettings::Read(std::u16string_view name) const {
    UniqueRegistryKey key;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, kKey, 0, KEY_QUERY_VALUE, key.Receive()) !=
        ERROR_SUCCESS) {
        return {};
    }
    std::u16string text(kMostChars, u'\0');
    DWORD type = REG_NONE;
    DWORD size = kMostChars * sizeof(char16_t);
    const std::u16string value(name);
    const LONG result = RegQueryValueExW(key.Get(), Wide(value), nullptr, &type,
                                         reinterpret_cast<BYTE*>(text.data()), &size);
    if (result != ERROR_SUCCESS || type != REG_SZ) {
        return {};
    }
    text.resize(size / sizeof(char16_t));
    return text.substr(0, text.find(u'\0'));
}

void Win32UserSettings::Write(std::u16string_view name, std::u16string_view text) {
    UniqueRegistryKey key;
    if (RegCreateKeyExW(HKEY_CURRENT_USER, kKey, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_SET_VALUE,
                        nullptr, key.Receive(), nullptr) != ERROR_SUCCESS) {
        return;
    }
    const std::u16string value(name);
    if (text.empty()) {
        RegDeleteValueW(key.Get(), Wide(value));
    } else {
        const std::u16string stored(text);
        const std::size_t bytes = (stored.size() + 1) * sizeof(char16_t);
        RegSetValueExW(key.Get(), Wide(value), 0, REG_SZ,
                       reinterpret_cast<const BYTE*>(stored.c_str()), static_cast<DWORD>(bytes));
    }
}

}  // namespace tarvex
