#include "text/Text.h"

#include <algorithm>

namespace tarvex::text {

namespace {

bool IsEvenUpper(char16_t unit, char16_t first, char16_t last) {
    return unit >= first && unit <= last && (unit - first) % 2 == 0;
}

}  // namespace

char16_t Fold(char16_t unit) {
    const auto plus = [unit](int offset) { return static_cast<char16_t>(unit + offset); };
    if (unit >= u'A' && unit <= u'Z') {
        return plus(32);
    }
    if (unit < 0xC0) {
        return unit;
    }
    if (unit <= 0xDE) {
        return unit == 0xD7 ? unit : plus(32);
    }
    if (IsEvenUpper(unit, 0x100, 0x12E) || IsEvenUpper(unit, 0x132, 0x136) ||
        IsEvenUpper(unit, 0x139, 0x147) || IsEvenUpper(unit, 0x14A, 0x176) ||
        IsEvenUpper(unit, 0x179, 0x17D) || IsEvenUpper(unit, 0x490, 0x490)) {
        return plus(1);
    }
    switch (unit) {
        case 0x178:
            return 0xFF;
        case 0x18F:
            return 0x259;
        case 0x1A0:
        case 0x1AF:
            return plus(1);
        case 0x386:
            return 0x3AC;
        case 0x388:
        case 0x389:
        case 0x38A:
            return plus(0x25);
        case 0x38C:
            return 0x3CC;
        case 0x38E:
        case 0x38F:
            return plus(0x3F);
        default:
            break;
    }
    if (unit >= 0x391 && unit <= 0x3AB && unit != 0x3A2) {
        return plus(32);
    }
    if (unit >= 0x400 && unit <= 0x40F) {
        return plus(80);
    }
    if (unit >= 0x410 && unit <= 0x42F) {
        return plus(32);
    }
    return unit;
}

bool EqualsIgnoreCase(std::u16string_view a, std::u16string_view b) {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(),
                      [](char16_t x, char16_t y) { return Fold(x) == Fold(y); });
}

bool StartsWithIgnoreCase(std::u16string_view text, std::u16string_view start) {
    return EqualsIgnoreCase(Left(text, start.size()), start);
}

bool EndsWithIgnoreCase(std::u16string_view text, std::u16string_view end) {
    return text.size() >= end.size() && EqualsIgnoreCase(Drop(text, text.size() - end.size()), end);
}

std::size_t FindIgnoreCase(std::u16string_view text, std::u16string_view find, std::size_t from) {
    if (find.empty() || from > text.size()) {
        return std::u16string_view::npos;
    }
    const auto found =
        std::search(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), find.begin(),
                    find.end(), [](char16_t x, char16_t y) { return Fold(x) == Fold(y); });
    return found == text.end() ? std::u16string_view::npos
                               : static_cast<std::size_t>(found - text.begin());
}

std::u16string_view Trim(std::u16string_view text) {
    while (!text.empty() && text.front() == u' ') {
        text.remove_prefix(1);
    }
    while (!text.empty() && text.back() == u' ') {
        text.remove_suffix(1);
    }
    return text;
}

std::u16string_view Left(std::u16string_view text, std::size_t count) {
    return text.substr(0, count);
}

std::u16string_view Drop(std::u16string_view text, std::size_t count) {
    return text.substr(std::min(count, text.size()));
}

std::u16string Replace(std::u16string_view text, std::u16string_view find,
                       std::u16string_view replacement, std::size_t most) {
    std::u16string result;
    while (most > 0 && !find.empty()) {
        const std::size_t position = text.find(find);
        if (position == std::u16string_view::npos) {
            break;
        }
        result.append(Left(text, position)).append(replacement);
        text = Drop(text, position + find.size());
        --most;
    }
    return result.append(text);
}

std::vector<std::u16string_view> Split(std::u16string_view text, char16_t separator) {
    std::vector<std::u16string_view> pieces;
    for (;;) {
        const std::size_t position = text.find(separator);
        pieces.push_back(Left(text, position));
        if (position == std::u16string_view::npos) {
            return pieces;
        }
        text = Drop(text, position + 1);
    }
}

void AppendWithSeparator(std::u16string& target, std::u16string_view item,
                         std::u16string_view separator, bool skipEmpty) {
    if (skipEmpty && item.empty()) {
        return;
    }
    if (target.empty()) {
        target = item;
    } else {
        target.append(separator).append(item);
    }
}

std::vector<std::u16string> SplitList(std::u16string_view text, std::u16string_view marker) {
    std::vector<std::u16string> pieces;
    if (text.empty() || marker.empty()) {
        return pieces;
    }
    if (EqualsIgnoreCase(Left(text, 1), marker)) {
        text.remove_prefix(1);
    }
    std::size_t position = FindIgnoreCase(text, marker);
    if (position == std::u16string_view::npos) {
        pieces.emplace_back(Trim(text));
        return pieces;
    }
    while (position != std::u16string_view::npos) {
        pieces.emplace_back(Trim(Left(text, position)));
        text.remove_prefix(position + marker.size());
        position = FindIgnoreCase(text, marker);
    }
    if (const std::u16string_view rest = Trim(text); !rest.empty()) {
        pieces.emplace_back(rest);
    }
    return pieces;
}

namespace {

std::u16string Digits(std::uint64_t number, unsigned base, std::size_t minDigits) {
    std::u16string digits;
    while (number > 0 || digits.size() < std::max<std::size_t>(minDigits, 1)) {
        digits.push_back(u"0123456789ABCDEF"[number % base]);
        number /= base;
    }
    std::reverse(digits.begin(), digits.end());
    return digits;
}

}  // namespace

std::u16string Decimal(std::int64_t number, std::size_t minDigits) {
    // Negated as an unsigned number, since the lowest number has no positive counterpart.
    const auto magnitude =
        number < 0 ? 0 - static_cast<std::uint64_t>(number) : static_cast<std::uint64_t>(number);
    return (number < 0 ? u"-" : u"") + Digits(magnitude, 10, minDigits);
}

std::u16string Hexadecimal(std::uint64_t number, std::size_t minDigits) {
    return Digits(number, 16, minDigits);
}

std::optional<std::int32_t> ParseInt32(std::u16string_view text) {
    text = Trim(text);
    const bool negative = !text.empty() && text.front() == u'-';
    if (negative || (!text.empty() && text.front() == u'+')) {
        text.remove_prefix(1);
    }
    if (!IsDigits(text)) {
        return std::nullopt;
    }
    std::int64_t value = 0;
    for (const char16_t digit : text) {
        value = value * 10 + (digit - u'0');
        if (value > std::int64_t{INT32_MAX} + 1) {
            return std::nullopt;
        }
    }
    value = negative ? -value : value;
    if (value > INT32_MAX) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(value);
}

bool IsDigits(std::u16string_view text) {
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](char16_t c) { return c >= u'0' && c <= u'9'; });
}

}  // namespace tarvex::text
