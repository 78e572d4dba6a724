#include "branding/StoredValue.h"

#include <algorithm>
#include <utility>

#include "branding/Scrambling.h"
#include "text/Text.h"

namespace tarvex {

namespace {

constexpr char16_t kBlank = u' ';

bool IsCredential(const BrandField& field) {
    return field.kind == FieldKind::Credential;
}

std::u16string Quoted(char16_t unit) {
    if (unit < 0x20 || unit == 0x7F || (unit >= 0xD800 && unit <= 0xDFFF)) {
        return u"mit dem Code " + text::Decimal(unit);
    }
    return std::u16string(u"'") + unit + u"'";
}

std::u16string CannotStore(char16_t unit) {
    return u"Das Zeichen " + Quoted(unit) + u" kann nicht gespeichert werden.";
}

/// About the first character that no value can hold; empty when there is none.
std::u16string CharacterProblem(std::u16string_view plain, const TextCodec& codec) {
    for (const char16_t unit : plain) {
        const std::u16string_view character(&unit, 1);
        if (codec.FromAnsi(codec.ToAnsi(character)) != character) {
            return u"Das Zeichen " + Quoted(unit) +
                   u" gibt es in der Codepage der Einstellungen nicht.";
        }
        if (unit == u'\0') {
            return CannotStore(unit);
        }
    }
    return {};
}

/// About the first character that was not read back as it had been stored.
std::u16string LostCharacterProblem(std::u16string_view plain, std::u16string_view readBack) {
    return CannotStore(
        *std::mismatch(plain.begin(), plain.end(), readBack.begin(), readBack.end()).first);
}

/// Kept: the loader drops blanks at the ends of a stored value, as every launcher in use does. A
/// character at the end of the value that comes out as one is kept by a plain blank beside it,
/// which is dropped again when it is read.
std::u16string ScrambleKeepingEnds(std::u16string plain, const TextCodec& codec) {
    std::u16string stored = ScrambleBrandValue(plain, codec);
    if (!stored.empty() && stored.front() == kBlank) {
        plain.insert(plain.begin(), kBlank);
        stored = ScrambleBrandValue(plain, codec);
    }
    if (!stored.empty() && stored.back() == kBlank) {
        stored = ScrambleBrandValue(plain + kBlank, codec);
    }
    return stored;
}

std::u16string LengthProblem(const BrandField& field, std::size_t needed) {
    return u"Der Wert ist zu lang: Er braucht " + text::Decimal(static_cast<std::int64_t>(needed)) +
           (IsCredential(field) ? u" Zeichen in verschlüsselter Form" : u" Zeichen") +
           u", das Feld fasst " + text::Decimal(field.width) + u".";
}

}  // namespace

StoredValue MakeStoredValue(const BrandField& field, std::u16string_view plain,
                            const TextCodec& codec) {
    if (!IsCredential(field)) {
        plain = text::Trim(plain);
    }
    if (std::u16string problem = CharacterProblem(plain, codec); !problem.empty()) {
        return {.stored = {}, .problem = std::move(problem)};
    }
    std::u16string stored = ScrambleKeepingEnds(
        IsCredential(field) ? EncodeNumberList(plain, codec) : std::u16string(plain), codec);
    if (const std::u16string readBack = PlainValue(field, stored, codec); readBack != plain) {
        return {.stored = {}, .problem = LostCharacterProblem(plain, readBack)};
    }
    if (stored.size() > static_cast<std::size_t>(field.width)) {
        return {
            .stored = {}, .problem = LengthProblem(field, stored.size()), .length = stored.size()};
    }
    const std::size_t length = stored.size();
    return {.stored = std::move(stored), .problem = {}, .length = length};
}

std::u16string PlainValue(const BrandField& field, std::u16string_view stored,
                          const TextCodec& codec) {
    const std::u16string scrambled = ScrambleBrandValue(text::Trim(stored), codec);
    const std::u16string_view plain = text::Trim(scrambled);
    return IsCredential(field) ? DecodeNumberList(plain, codec) : std::u16string(plain);
}

}  // namespace tarvex
