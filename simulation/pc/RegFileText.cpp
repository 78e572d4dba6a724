#include "simulation/pc/RegFileText.h"

#include <algorithm>

#include "branding/BrandMark.h"
#include "text/Text.h"

namespace tarvex {

namespace {

std::u16string Quoted(std::u16string_view text) {
    return u"\"" + text::Replace(text::Replace(text, u"\\", u"\\\\"), u"\"", u"\\\"") + u"\"";
}

/// Whether the text can stand between quotes: it ends in its only zero and has no other control
/// characters.
bool IsPlain(std::u16string_view text) {
    return text.ends_with(u'\0') &&
           std::all_of(text.begin(), text.end() - 1, [](char16_t unit) { return unit >= u' '; });
}

std::u16string Bytes(std::string_view data) {
    std::u16string list;
    for (const char byte : data) {
        text::AppendWithSeparator(list, text::Hexadecimal(static_cast<unsigned char>(byte), 2),
                                  u",");
    }
    return list;
}

std::u16string Data(const RegFileValue& value) {
    if (!value.data) {
        return u"-";
    }
    if (value.type == kRegTypeText) {
        const std::u16string text = FromUtf16Bytes(*value.data);
        if (IsPlain(text)) {
            return Quoted(text::Left(text, text.size() - 1));
        }
    }
    return u"hex(" + text::Hexadecimal(value.type) + u"):" + Bytes(*value.data);
}

}  // namespace

std::string WriteRegFile(const std::vector<RegFileKey>& keys) {
    std::u16string lines = u"\uFEFFWindows Registry Editor Version 5.00\r\n";
    for (const RegFileKey& key : keys) {
        lines += u"\r\n[" + std::u16string(key.deleted ? u"-" : u"") + key.path + u"]\r\n";
        for (const RegFileValue& value : key.values) {
            lines +=
                (value.name.empty() ? u"@" : Quoted(value.name)) + u"=" + Data(value) + u"\r\n";
        }
    }
    return ToUtf16Bytes(lines + u"\r\n");
}

}  // namespace tarvex
