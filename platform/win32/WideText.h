#pragma once

#include <cstddef>
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

/// How a function of Windows filled a buffer.
struct GrowingRead {
    std::size_t length;  ///< characters of the text; 0 with `tooSmall` false: it failed or is empty
    bool tooSmall;       ///< the text did not fit
};

/// Text from a function of Windows that fills a buffer, called with a larger one until it fits:
/// paths may be far longer than MAX_PATH. `read(wchar_t* buffer, size in characters)` returns a
/// GrowingRead.
template <class Read>
std::u16string ReadGrowing(const Read& read) {
    constexpr std::size_t kLongestText = std::size_t{1} << 20;
    std::u16string text(260, u'\0');
    while (text.size() <= kLongestText) {
        const GrowingRead result = read(Wide(text), static_cast<unsigned long>(text.size()));
        if (!result.tooSmall) {
            text.resize(result.length);
            return text;
        }
        text.resize(text.size() * 2);
    }
    return {};
}

}  // namespace tarvex
