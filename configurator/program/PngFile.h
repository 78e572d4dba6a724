#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarvex {

/// What a PNG file says of its image.
struct PngFile {
    std::u16string problem;  ///< German, "ist ..."; empty for a whole file
    std::int64_t width = 0;
    std::int64_t height = 0;
    bool hasColoursAndAlpha8 = false;  ///< 8 bits each of red, green, blue and opacity
    std::size_t size = 0;              ///< in bytes, without what follows its last chunk
};

/// Whether the bytes begin as a PNG file does.
bool IsPngFile(std::string_view bytes);

/// Reads the chunks, whose checksums must be right; the packed pixels themselves are not looked at.
PngFile ReadPngFile(std::string_view bytes);

}  // namespace tarvex
