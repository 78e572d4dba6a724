#include <array>

#include "text/Text.h"

namespace tarvex::text {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

void AppendUtf16(std::u16string& text, char32_t point) {
    if (point < 0x10000) {
        text.push_back(static_cast<char16_t>(point));
        return;
    }
    point -= 0x10000;
    text.push_back(static_cast<char16_t>(0xD800 + (point >> 10)));
    text.push_back(static_cast<char16_t>(0xDC00 + (point & 0x3FF)));
}

void AppendUtf8(std::string& utf8, char32_t point) {
    const auto put = [&utf8](char32_t byte) { utf8.push_back(static_cast<char>(byte)); };
    if (point < 0x80) {
        put(point);
    } else if (point < 0x800) {
        put(0xC0 | (point >> 6));
        put(0x80 | (point & 0x3F));
    } else if (point < 0x10000) {
        put(0xE0 | (point >> 12));
        put(0x80 | ((point >> 6) & 0x3F));
        put(0x80 | (point & 0x3F));
    } else {
        put(0xF0 | (point >> 18));
        put(0x80 | ((point >> 12) & 0x3F));
        put(0x80 | ((point >> 6) & 0x3F));
        put(0x80 | (point & 0x3F));
    }
}

bool IsSurrogate(char32_t point) {
    return point >= 0xD800 && point <= 0xDFFF;
}

/// Reads one character and moves `position` to what follows it, by one byte at least.
char32_t NextPoint(std::string_view utf8, std::size_t& position) {
    const auto byte = [utf8](std::size_t i) { return static_cast<unsigned char>(utf8[i]); };
    const unsigned first = byte(position++);
    if (first < 0x80) {
        return first;
    }
    const unsigned following = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
    if (first < 0xC2 || first > 0xF4) {
        return kReplacement;
    }
    char32_t point = first & (0x3Fu >> following);
    for (unsigned i = 0; i < following; ++i) {
        if (position >= utf8.size() || (byte(position) & 0xC0) != 0x80) {
            return kReplacement;
        }
        point = (point << 6) | (byte(position++) & 0x3Fu);
    }
    static constexpr std::array<char32_t, 4> kLowest = {0, 0x80, 0x800, 0x10000};
    const bool valid = point >= kLowest[following] && point <= 0x10FFFF && !IsSurrogate(point);
    return valid ? point : kReplacement;
}

}  // namespace

std::u16string FromUtf8(std::string_view utf8) {
    std::u16string text;
    text.reserve(utf8.size());
    for (std::size_t position = 0; position < utf8.size();) {
        AppendUtf16(text, NextPoint(utf8, position));
    }
    return text;
}

std::string ToUtf8(std::u16string_view text) {
    std::string utf8;
    utf8.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t point = text[i];
        const bool high = point >= 0xD800 && point <= 0xDBFF;
        if (high && i + 1 < text.size() && text[i + 1] >= 0xDC00 && text[i + 1] <= 0xDFFF) {
            point = 0x10000 + ((point - 0xD800) << 10) + (text[++i] - 0xDC00u);
        } else if (IsSurrogate(point)) {
            point = kReplacement;
        }
        AppendUtf8(utf8, point);
    }
    return utf8;
}

}  // namespace tarvex::text
