#include "util/mShared.h"

namespace tarvex {

void AppendWithSeparator(std::u16string& target, std::u16string_view item,
                         std::u16string_view separator, bool skipEmpty) {
    if (skipEmpty && item.empty()) {
        return;
    }
    if (target.empty()) {
        target = item;
    } else {
        target.append(separator).append(item);
    }
}

}  // namespace tarvex
