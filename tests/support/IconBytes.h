#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

// Pieces of icons, put together here from the formats, not with the code that reads them.

/// An image as it stands in an .ico file: header of 40 bytes, palette, pixels, mask. All pixels are
/// `fill`.
std::string BitmapImage(std::uint32_t width, std::uint32_t height, std::uint32_t bits = 32,
                        char fill = '\x11');

/// A chunk of a PNG file with its checksum.
std::string PngChunk(std::string_view name, std::string_view content);

/// A PNG file whose pixels are not there: two bytes stand for them. `kind` 6 has an opacity, 3 a
/// palette.
std::string PngImage(std::uint32_t width, std::uint32_t height, char kind = 6);

/// An .ico file. Its directory says nothing of the images but where they are.
std::string IconBytes(const std::vector<std::string>& images);

}  // namespace tarvex
