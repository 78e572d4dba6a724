#include "errors/MessageTable.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace tarvex {

namespace {

struct Entry {
    std::int32_t number;
    std::u16string_view text;
};

constexpr Entry kEntries[] = {
#define TARVEX_MESSAGE(number, name, text) {number, u"" text},
#include "resources/Messages.inc"
#undef TARVEX_MESSAGE
};

}  // namespace

std::u16string MessageTable::Load(std::int32_t id) const {
    const auto* const found = std::find_if(std::begin(kEntries), std::end(kEntries),
                                           [id](const Entry& entry) { return entry.number == id; });
    return found == std::end(kEntries) ? std::u16string() : std::u16string(found->text);
}

}  // namespace tarvex
