#include "launch/Quoting.h"

#include "text/Text.h"

namespace tarvex {

std::u16string Quote(std::u16string_view text, bool force, bool trim) {
    if (trim) {
        text = text::Trim(text);
    }
    if (!force && text.starts_with(u'"') && text.ends_with(u'"')) {
        return std::u16string(text);
    }
    return std::u16string(u"\"").append(text).append(u"\"");
}

std::u16string EscapeCredential(std::u16string_view text) {
    return text::Replace(text::Replace(text, u"/", u"//"), u";", u";;");
}

}  // namespace tarvex
