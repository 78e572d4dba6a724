#pragma once

#include <string>
#include <string_view>

namespace tarvex {

/// Bytes of the code page 850, in which a German console writes.
std::u16string FromCodePage850(std::string_view bytes);

}  // namespace tarvex
