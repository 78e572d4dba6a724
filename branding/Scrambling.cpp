#include "branding/Scrambling.h"

#include <algorithm>

#include "branding/BrandErrors.h"
#include "errors/RuntimeErrors.h"
#include "text/Text.h"

namespace tarvex {

namespace {

constexpr std::uint8_t kBlank = 32;
constexpr std::uint8_t kBlankSubstitute = 255;

constexpr char16_t kListSeparator = u'#';
constexpr std::int32_t kHighestCode = 255;

// A key character can get lost in a value, and so can the character that it turns into a blank at a
// value's end. For code 127 these are DEL, which nobody can type, and code 128; a blank is stored
// as code 128, which is a single byte in every code page. No other code does as little harm.
constexpr std::uint8_t kKeyPiece1[] = {127, 127, 127, 127, 127, 127, 127};
constexpr std::uint8_t kKeyPiece2[] = {127, 127};
constexpr std::uint8_t kKeyPiece3[] = {127, 127};
constexpr std::uint8_t kKeyPiece4[] = {127, 127};

std::uint8_t SwapBlank(std::uint8_t code) {
    switch (code) {
        case kBlank:
            return kBlankSubstitute;
        case kBlankSubstitute:
            return kBlank;
        default:
            return code;
    }
}

std::uint8_t KeyAt(ScrambleKey key, std::size_t position) {
    return key[position % key.size()];
}

std::uint8_t ParseCode(std::u16string_view part) {
    part = text::Trim(part);
    if (!text::IsDigits(part)) {
        throw MakeError(RuntimeError::TypeMismatch);
    }
    const std::int32_t code = text::ParseInt32(part).value_or(kHighestCode + 1);
    if (code > kHighestCode) {
        throw MakeError(RuntimeError::InvalidCall);
    }
    return static_cast<std::uint8_t>(code);
}

}  // namespace

std::array<std::uint8_t, 13> SettingsKey() {
    std::array<std::uint8_t, 13> key{};
    auto* end = std::copy(std::begin(kKeyPiece1), std::end(kKeyPiece1), key.data());
    end = std::copy(std::begin(kKeyPiece2), std::end(kKeyPiece2), end);
    end = std::copy(std::begin(kKeyPiece3), std::end(kKeyPiece3), end);
    std::copy(std::begin(kKeyPiece4), std::end(kKeyPiece4), end);
    return key;
}

std::u16string ScrambleBrandValue(std::u16string_view value, const TextCodec& codec) {
    return ScrambleBrandValue(value, codec, SettingsKey());
}

std::u16string ScrambleBrandValue(std::u16string_view value, const TextCodec& codec,
                                  ScrambleKey key) {
    std::string codes = codec.ToAnsi(value);
    if (codes.size() != value.size()) {
        throw MakeError(BrandError::WrongLength);
    }
    for (std::size_t i = 0; i < codes.size(); ++i) {
        const std::uint8_t code = SwapBlank(static_cast<std::uint8_t>(codes[i]));
        codes[i] = static_cast<char>(SwapBlank(code ^ KeyAt(key, i)));
    }
    std::erase(codes, '\0');
    return codec.FromAnsi(codes);
}

std::u16string DecodeNumberList(std::u16string_view list, const TextCodec& codec) {
    return DecodeNumberList(list, codec, SettingsKey());
}

std::u16string DecodeNumberList(std::u16string_view list, const TextCodec& codec, ScrambleKey key) {
    std::string codes;
    for (const std::u16string_view part : text::Split(list, kListSeparator)) {
        if (!part.empty()) {
            codes.push_back(static_cast<char>(ParseCode(part) ^ KeyAt(key, codes.size())));
        }
    }
    return codec.FromAnsi(codes);
}

std::u16string EncodeNumberList(std::u16string_view plain, const TextCodec& codec) {
    return EncodeNumberList(plain, codec, SettingsKey());
}

std::u16string EncodeNumberList(std::u16string_view plain, const TextCodec& codec,
                                ScrambleKey key) {
    const std::string codes = codec.ToAnsi(plain);
    std::u16string list;
    for (std::size_t i = 0; i < codes.size(); ++i) {
        if (i > 0) {
            list.push_back(kListSeparator);
        }
        list += text::Decimal(static_cast<std::uint8_t>(codes[i]) ^ KeyAt(key, i));
    }
    return list;
}

}  // namespace tarvex
