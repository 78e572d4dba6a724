#pragma once

#include <string>
#include <string_view>

namespace tarvex {

/// A text as a JSON string, quotes included.
std::u16string JsonString(std::u16string_view text);

}  // namespace tarvex
