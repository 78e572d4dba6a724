#include "text/TextCodec1252.h"

#include <algorithm>
#include <array>

namespace tarvex {

namespace {

/// Characters of the bytes 80 to 9F; all other bytes stand for the character of their own number.
constexpr std::array<char16_t, 32> kSpecial = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr unsigned kFirstSpecial = 0x80;

bool IsSpecial(unsigned code) {
    return code >= kFirstSpecial && code < kFirstSpecial + kSpecial.size();
}

char ToByte(char16_t unit) {
    if (unit <= 0xFF && !IsSpecial(unit)) {
        return static_cast<char>(unit);
    }
    const auto* const found = std::find(kSpecial.begin(), kSpecial.end(), unit);
    if (found == kSpecial.end()) {
        return '?';
    }
    return static_cast<char>(kFirstSpecial + static_cast<unsigned>(found - kSpecial.begin()));
}

}  // namespace

std::string TextCodec1252::ToAnsi(std::u16string_view text) const {
    std::string bytes(text.size(), '\0');
    std::transform(text.begin(), text.end(), bytes.begin(), ToByte);
    return bytes;
}

std::u16string TextCodec1252::FromAnsi(std::string_view bytes) const {
    std::u16string text(bytes.size(), u'\0');
    std::transform(bytes.begin(), bytes.end(), text.begin(), [](char byte) {
        const unsigned code = static_cast<unsigned char>(byte);
        return IsSpecial(code) ? kSpecial[code - kFirstSpecial] : static_cast<char16_t>(code);
    });
    return text;
}

}  // namespace tarvex
