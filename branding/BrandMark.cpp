#include "branding/BrandMark.h"

#include <algorithm>

#include "text/Text.h"

namespace tarvex {

namespace {

constexpr char16_t kSeparator = u'|';
constexpr std::size_t kNumberDigits = 3;
constexpr std::size_t kWidthDigits = 4;
constexpr std::size_t kLongestNameEnd = 9999;

constexpr char kPrefix[] = "@#BRD#@";
constexpr char kMarker[] = "@#BRANDED?#@";

// The prefix with its bar fills one vector register: a compiler that sees the characters stores
// them in the program as one constant, which is then one mark too many. Volatile reads keep it from
// seeing them.
std::u16string Widen(const volatile char* narrow) {
    std::u16string wide;
    for (; *narrow != '\0'; ++narrow) {
        wide.push_back(static_cast<char16_t>(*narrow));
    }
    return wide;
}

/// Takes pieces off the front of a mark.
class MarkReader {
public:
    explicit MarkReader(std::u16string_view text) : text_(text) {}

    bool SkipSeparator() {
        const bool found = !text_.empty() && text_.front() == kSeparator;
        text_ = text::Drop(text_, 1);
        return found;
    }

    bool TakeNumber(std::size_t digits, std::int32_t& number) {
        const std::u16string_view piece = Take(digits);
        if (!text::IsDigits(piece)) {
            return false;
        }
        number = text::ParseInt32(piece).value_or(0);
        return true;
    }

    std::u16string_view Take(std::size_t count) {
        const std::u16string_view piece = text::Left(text_, count);
        text_ = text::Drop(text_, count);
        return piece;
    }

    std::size_t FindSeparator() const { return text_.find(kSeparator); }

    std::u16string_view Rest() const { return text_; }

private:
    std::u16string_view text_;
};

}  // namespace

std::optional<BrandMark> brdParseConstant(std::u16string_view text) {
    const std::size_t first = text.find(kSeparator);
    if (first == std::u16string_view::npos || !text::StartsWithIgnoreCase(text, Widen(kPrefix))) {
        return std::nullopt;
    }
    MarkReader reader(text::Drop(text, first));
    BrandMark mark;
    if (!reader.SkipSeparator() || !reader.TakeNumber(kNumberDigits, mark.number) ||
        !reader.SkipSeparator() || !reader.TakeNumber(kWidthDigits, mark.width) ||
        !reader.SkipSeparator()) {
        return std::nullopt;
    }
    const std::size_t nameLength = reader.FindSeparator();
    if (nameLength >= kLongestNameEnd) {
        return std::nullopt;
    }
    mark.name = reader.Take(nameLength);
    reader.SkipSeparator();
    mark.value = text::Trim(reader.Take(static_cast<std::size_t>(mark.width)));
    mark.rest = reader.Rest();
    return mark;
}

std::u16string MarkStart() {
    return Widen(kPrefix) + kSeparator;
}

std::u16string MarkHeader(std::int32_t number, std::int32_t width, std::u16string_view name) {
    std::u16string header = MarkStart();
    header.append(text::Decimal(number, kNumberDigits)).push_back(kSeparator);
    header.append(text::Decimal(width, kWidthDigits)).push_back(kSeparator);
    header.append(name).push_back(kSeparator);
    return header;
}

std::u16string MarkerText(bool branded) {
    return text::Replace(Widen(kMarker), u"?", branded ? u"1" : u"0");
}

std::u16string FitToWidth(std::u16string_view text, std::int32_t width) {
    std::u16string fitted(text);
    fitted.resize(static_cast<std::size_t>(std::max(width, 0)), u' ');
    return fitted;
}

std::string ToUtf16Bytes(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(2 * text.size());
    for (const char16_t unit : text) {
        bytes.push_back(static_cast<char>(unit & 0xFF));
        bytes.push_back(static_cast<char>(unit >> 8));
    }
    return bytes;
}

std::u16string FromUtf16Bytes(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size() / 2);
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto low = static_cast<unsigned char>(bytes[i]);
        const auto high = static_cast<unsigned char>(bytes[i + 1]);
        text.push_back(static_cast<char16_t>(low | (high << 8)));
    }
    return text;
}

}  // namespace tarvex
