#include "tests/support/MessageTable.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace tarvex {

namespace {

struct Message {
    std::int32_t id;
    std::u16string_view text;
};

constexpr Message kMessages[] = {
#define TARVEX_MESSAGE(id, text) {id, u"" text},
#include "resources/Messages.inc"
#undef TARVEX_MESSAGE
};

}  // namespace

std::u16string MessageTable::Load(std::int32_t id) const {
    const auto* const found =
        std::find_if(std::begin(kMessages), std::end(kMessages),
                     [id](const Message& message) { return message.id == id; });
    return found == std::end(kMessages) ? std::u16string() : std::u16string(found->text);
}

}  // namespace tarvex
