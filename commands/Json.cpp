#include "commands/Json.h"

#include "text/Text.h"

namespace tarvex {

std::u16string JsonString(std::u16string_view text) {
    std::u16string json = u"\"";
    for (const char16_t unit : text) {
        if (unit == u'"' || unit == u'\\') {
            json += u'\\';
            json += unit;
        } else if (unit < u' ' || unit == 0x7f) {
            json += u"\\u" + text::Hexadecimal(unit, 4);
        } else {
            json += unit;
        }
    }
    return json + u'"';
}

}  // namespace tarvex
