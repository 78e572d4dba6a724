#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "errors/cuAppErrorFormatter.h"
#include "text/Text.h"

namespace tarvex {
namespace {

/// The characters that wrapping never touches.
std::u16string WithoutBlanks(std::u16string text) {
    text.erase(std::remove_if(
                   text.begin(), text.end(),
                   [](char16_t unit) { return unit == u' ' || unit == u'\r' || unit == u'\n'; }),
               text.end());
    return text;
}

bool HasWordLongerThan(std::size_t width, std::u16string_view text) {
    std::size_t length = 0;
    for (const char16_t unit : text) {
        length = unit == u' ' || unit == u'\r' || unit == u'\n' ? 0 : length + 1;
        if (length > width) {
            return true;
        }
    }
    return false;
}

/// No character but blanks is lost, and no line is too long unless one of its words is.
bool IsWrapped(const std::u16string& text, std::size_t width) {
    const std::u16string wrapped = cuAppErrorFormatter::WordWrap(text, width);
    if (WithoutBlanks(wrapped) != WithoutBlanks(text)) {
        return false;
    }
    if (HasWordLongerThan(width, text)) {
        return true;
    }
    const std::vector<std::u16string_view> lines = text::Split(wrapped, u'\n');
    return std::all_of(lines.begin(), lines.end(), [width](std::u16string_view line) {
        return line.size() <= width + (text::EndsWithIgnoreCase(line, u"\r") ? 1 : 0);
    });
}

}  // namespace
}  // namespace tarvex

/// The first byte is the width, the others are the text in UTF-8.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const std::string_view bytes(reinterpret_cast<const char*>(data + 1), size - 1);
    if (!tarvex::IsWrapped(tarvex::text::FromUtf8(bytes), data[0])) {
        std::abort();
    }
    return 0;
}
