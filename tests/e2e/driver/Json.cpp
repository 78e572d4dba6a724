#include "tests/e2e/driver/Json.h"

#include "text/Text.h"

namespace tarvex {

void Json::Separate() {
    if (!first_) {
        text_ += ',';
    }
    first_ = false;
}

Json& Json::Begin(char bracket) {
    Separate();
    text_ += bracket;
    open_ += bracket == '{' ? '}' : ']';
    first_ = true;
    return *this;
}

Json& Json::End() {
    text_ += open_.back();
    open_.pop_back();
    first_ = false;
    return *this;
}

Json& Json::Key(std::string_view key) {
    Separate();
    text_ += '"';
    text_ += key;
    text_ += "\":";
    first_ = true;  // no comma between key and value
    return *this;
}

Json& Json::Value(std::u16string_view text) {
    Separate();
    text_ += '"';
    for (const char16_t unit : text) {
        const bool surrogate = unit >= 0xD800 && unit <= 0xDFFF;
        if (unit < 0x20 || unit == u'"' || unit == u'\\' || surrogate) {
            // Halves of pairs as well: one that stands alone has no form in UTF-8.
            text_ += "\\u" + text::ToUtf8(text::Hexadecimal(unit, 4));
        } else {
            text_ += text::ToUtf8(std::u16string_view(&unit, 1));
        }
    }
    text_ += '"';
    return *this;
}

Json& Json::Value(std::int64_t number) {
    Separate();
    text_ += std::to_string(number);
    return *this;
}

Json& Json::Word(std::string_view word) {
    Separate();
    text_ += word;
    return *this;
}

}  // namespace tarvex
