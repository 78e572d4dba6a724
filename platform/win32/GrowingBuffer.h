#pragma once

#include <cstddef>
#include <string>

#include "platform/win32/WideText.h"

namespace tarvex {

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
