#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace tarvex {

/// The bytes of a .bmp file of that size in pixels, 24 bits each: red above, blue in the lower
/// half.
inline std::string BitmapFile(std::uint32_t width, std::uint32_t height) {
    const std::uint32_t stride = (width * 3 + 3) / 4 * 4;
    std::string bytes = "BM";
    const auto put = [&](std::uint32_t value, unsigned count) {
        for (unsigned i = 0; i < count; ++i) {
            bytes += static_cast<char>(value >> 8 * i & 0xFFU);
        }
    };
    put(54 + stride * height, 4);
    put(0, 4);
    put(54, 4);
    put(40, 4);
    put(width, 4);
    put(height, 4);
    put(1, 2);
    put(24, 2);
    put(0, 4);
    put(stride * height, 4);
    put(0, 16);
    for (std::uint32_t row = 0; row < height; ++row) {
        std::string line;
        for (std::uint32_t column = 0; column < width; ++column) {
            line +=
                row < height / 2 ? std::string("\xFF\x00\x00", 3) : std::string("\x00\x00\xFF", 3);
        }
        line.resize(stride);
        bytes += line;
    }
    return bytes;
}

}  // namespace tarvex
