#pragma once

#include <string>
#include <string_view>

namespace tarvex {

/// UTF-16 text as the system's functions take it. The pointer lives as long as the text.
inline const wchar_t* Wide(const std::u16string& text) {
    return reinterpret_cast<const wchar_t*>(text.c_str());
}

inline std::u16string FromWide(const wchar_t* text, std::size_t length) {
    return {reinterpret_cast<const char16_t*>(text), length};
}

inline std::u16string FromWide(std::wstring_view text) {
    return FromWide(text.data(), text.size());
}

}  // namespace tarvex
