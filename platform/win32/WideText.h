#pragma once

#include <string>
#include <string_view>

namespace tarvex {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

/// Text as the wide functions of Windows take it, without a copy; valid as long as the text is.
inline const wchar_t* Wide(const std::u16string& text) {
    return reinterpret_cast<const wchar_t*>(text.c_str());
}

inline wchar_t* Wide(std::u16string& text) {
    return reinterpret_cast<wchar_t*>(text.data());
}

/// Text that Windows returned.
inline std::u16string_view FromWide(std::wstring_view text) {
    return {reinterpret_cast<const char16_t*>(text.data()), text.size()};
}

}  // namespace tarvex
