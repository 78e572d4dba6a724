#include "configurator/program/ProgramFields.h"

#include <utility>

#include "branding/BrandMark.h"
#include "configurator/program/VersionBlock.h"
#include "text/Text.h"

namespace tarvex {
namespace {

bool IsHighSurrogate(char16_t unit) {
    return unit >= 0xd800 && unit < 0xdc00;
}

bool IsLowSurrogate(char16_t unit) {
    return unit >= 0xdc00 && unit < 0xe000;
}

/// A character that no line of a window or list shows, or half of one.
bool HasUnusable(std::u16string_view value) {
    for (std::size_t i = 0; i < value.size(); ++i) {
        const char16_t unit = value[i];
        if (IsHighSurrogate(unit) && i + 1 < value.size() && IsLowSurrogate(value[i + 1])) {
            ++i;
        } else if (unit < u' ' || (unit >= 0x7f && unit < 0xa0) || unit == 0x2028 ||
                   unit == 0x2029 || IsHighSurrogate(unit) || IsLowSurrogate(unit)) {
            return true;
        }
    }
    return false;
}

std::u16string TextProblem(const BrandField& field, std::u16string_view value) {
    if (HasUnusable(value)) {
        return u"Der Text muss in einer Zeile stehen und darf keine Steuerzeichen enthalten.";
    }
    if (value.size() > static_cast<std::size_t>(field.width)) {
        return u"Der Text hat " + text::Decimal(static_cast<std::int64_t>(value.size())) +
               u" Zeichen, höchstens " + text::Decimal(field.width) + u" sind möglich.";
    }
    for (const std::u16string& mark : {MarkStart(), MarkerText(false), MarkerText(true)}) {
        if (text::FindIgnoreCase(value, mark) != std::u16string_view::npos) {
            return u"Der Text darf '" + mark +
                   u"' nicht enthalten; daran werden die Einstellungen im Programm erkannt.";
        }
    }
    if (field.number == kFieldFileVersion || field.number == kFieldProductVersion) {
        return ReadVersionNumbers(value).problem;
    }
    return {};
}

}  // namespace

AcceptedValue AcceptProgramValue(const BrandField& field, std::u16string_view entered) {
    const std::u16string_view value = text::Trim(entered);
    if (std::u16string problem = TextProblem(field, value); !problem.empty()) {
        return {{}, std::move(problem)};
    }
    return {std::u16string(value), {}};
}

}  // namespace tarvex
