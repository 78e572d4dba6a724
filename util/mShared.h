#pragma once

#include <string>
#include <string_view>

namespace tarvex {

/// Appends separator and item to a text, or makes the item the text when the text is empty. With
/// `skipEmpty` an empty item is not appended.
void AppendWithSeparator(std::u16string& target, std::u16string_view item,
                         std::u16string_view separator, bool skipEmpty = false);

}  // namespace tarvex
