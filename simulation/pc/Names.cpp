#include "simulation/pc/Names.h"

#include <algorithm>

#include "text/Text.h"

namespace tarvex {

std::u16string FoldedName(std::u16string_view name) {
    std::u16string folded(name);
    std::transform(folded.begin(), folded.end(), folded.begin(), text::Fold);
    return folded;
}

bool IsAtOrBelow(std::u16string_view name, std::u16string_view top) {
    return text::StartsWithIgnoreCase(name, top) &&
           (name.size() == top.size() || name[top.size()] == u'\\');
}

}  // namespace tarvex
