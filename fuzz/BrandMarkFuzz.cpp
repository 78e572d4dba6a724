#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "branding/BrandMark.h"
#include "text/Text.h"

namespace {

void Require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tarvex;
    const std::string bytes(data, data + size);
    // Half of the inputs need not find out how a mark begins.
    const bool helped = size > 0 && data[0] % 2 == 0;
    const std::u16string text =
        (helped ? MarkStart() : std::u16string()) + FromUtf16Bytes(bytes.substr(helped ? 1 : 0));
    const auto mark = brdParseConstant(text);
    if (!mark) {
        return 0;
    }
    Require(mark->number >= 0 && mark->number <= 999 && mark->width >= 0 && mark->width <= 9999);
    Require(mark->name.size() <= 9998 && mark->name.find(u'|') == std::u16string::npos);
    Require(mark->value.size() <= static_cast<std::size_t>(mark->width));
    Require(text::Trim(mark->value) == mark->value);
    Require(mark->rest.size() < text.size());
    // Written again, the mark reads the same.
    const auto again = brdParseConstant(MarkHeader(mark->number, mark->width, mark->name) +
                                        FitToWidth(mark->value, mark->width) + mark->rest);
    Require(again && again->number == mark->number && again->width == mark->width &&
            again->name == mark->name && again->value == mark->value && again->rest == mark->rest);
    return 0;
}
