#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/FakeUserDialogs.h"
#include "text/Text.h"
#include "text/TextCodec1252.h"
#include "window/document/Document.h"

namespace tarvex {

/// A document with a key list of the database, and dialogs that a test answers.
class KeyListTest : public testing::Test {
protected:
    static constexpr std::u16string_view kA = u"HKLM\\SOFTWARE\\Firma\\A%|Filename%|a.mdb";
    static constexpr std::u16string_view kB = u"HKCU\\SOFTWARE\\Firma\\B%|Filename%|b.mdb";
    static constexpr std::u16string_view kC = u"HKU\\SOFTWARE\\Firma\\C%|Filename%|c.mdb";

    void Put(std::int32_t position, std::u16string_view text,
             const KeyListFields& list = kDBRegList) {
        document_.SetText(list.Field(position), text);
    }

    /// "01=... 02=...", only fields with a text, in UTF-8.
    std::string Fields(const KeyListFields& list = kDBRegList) const {
        std::u16string fields;
        for (std::int32_t position = 1; position <= KeyListFields::kCount; ++position) {
            if (const auto text = document_.Text(list.Field(position)); !text.empty()) {
                text::AppendWithSeparator(
                    fields, text::Decimal(position, 2) + u"=" + std::u16string(text), u" ");
            }
        }
        return text::ToUtf8(fields);
    }

    TextCodec1252 codec_;
    Document document_{{u"C:\\Prog\\Kunden.exe", {}, false, {}}, {}, codec_};
    FakeUserDialogs dialogs_;
};

}  // namespace tarvex
