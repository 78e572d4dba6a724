#pragma once

#include <string_view>

namespace tarvex {

/// True when the bytes are the beginning of an uncompressed .bmp file whose pixels are not all
/// there. The system's picture loader takes such a file and shows what happens to lie in memory.
/// False for every other content.
bool IsTruncatedBitmap(std::string_view file);

}  // namespace tarvex
