#pragma once

#include <string_view>

namespace tarvex {

/// True when the bytes are the beginning of a .bmp file whose pixels are not all there:
/// uncompressed ones (also with bit fields) that end before the last pixel, run-length codes that
/// do not come to their end. The system's picture loader takes such a file and shows what happens
/// to lie in memory. Bytes that only fill the last row may be missing. False for every other
/// content.
bool IsTruncatedBitmap(std::string_view file);

}  // namespace tarvex
