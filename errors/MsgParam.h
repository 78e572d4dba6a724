#pragma once

#include <concepts>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "text/Text.h"

namespace tarvex {

/// A value inserted into a message text: nothing, a text, or a whole number in decimal digits.
/// Nothing differs from an empty text: the marker stays, or is replaced by an empty text.
class MsgParam {
public:
    MsgParam() = default;
    MsgParam(std::nullopt_t /*null*/) {}
    MsgParam(std::u16string text) : text_(std::move(text)) {}
    MsgParam(std::u16string_view text) : text_(text) {}
    MsgParam(const char16_t* text) : text_(text) {}
    template <std::integral Number>
    MsgParam(Number number) : text_(text::Decimal(number)) {}
    MsgParam(bool) = delete;
    MsgParam(char16_t) = delete;

    bool IsNull() const { return !text_.has_value(); }

    /// Empty when null.
    std::u16string_view Text() const { return text_ ? std::u16string_view(*text_) : u""; }

private:
    std::optional<std::u16string> text_;
};

}  // namespace tarvex
