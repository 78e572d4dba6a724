#include "tests/support/IconBytes.h"

namespace tarvex {
namespace {

std::string Little(std::uint32_t number, int size) {
    std::string bytes;
    for (; size > 0; --size, number >>= 8U) {
        bytes += static_cast<char>(number & 0xffU);
    }
    return bytes;
}

std::string Big(std::uint32_t number) {
    const std::string little = Little(number, 4);
    return {little.rbegin(), little.rend()};
}

std::uint32_t Checksum(std::string_view bytes) {
    std::uint32_t sum = 0xffffffff;
    for (const char byte : bytes) {
        for (unsigned bit = 0; bit < 8; ++bit) {
            const bool differs = ((sum ^ static_cast<std::uint8_t>(byte) >> bit) & 1U) != 0;
            sum = sum >> 1U ^ (differs ? 0xedb88320U : 0);
        }
    }
    return sum ^ 0xffffffff;
}

}  // namespace

std::string BitmapImage(std::uint32_t width, std::uint32_t height, std::uint32_t bits, char fill) {
    const std::size_t palette = bits <= 8 ? std::size_t{4} << bits : 0;
    const std::size_t pixels = std::size_t{height} * ((width * bits + 31) / 32) * 4;
    const std::size_t mask = std::size_t{height} * ((width + 31) / 32) * 4;
    return Little(40, 4) + Little(width, 4) + Little(2 * height, 4) + Little(1, 2) +
           Little(bits, 2) + std::string(24, '\0') + std::string(palette, '\x22') +
           std::string(pixels, fill) + std::string(mask, '\0');
}

std::string PngChunk(std::string_view name, std::string_view content) {
    const std::string summed = std::string(name) + std::string(content);
    return Big(static_cast<std::uint32_t>(content.size())) + summed + Big(Checksum(summed));
}

std::string PngImage(std::uint32_t width, std::uint32_t height, char kind) {
    return "\x89PNG\r\n\x1a\n" +
           PngChunk("IHDR", Big(width) + Big(height) + '\x08' + kind + std::string(3, '\0')) +
           PngChunk("IDAT", "xy") + PngChunk("IEND", "");
}

std::string IconBytes(const std::vector<std::string>& images) {
    const auto count = static_cast<std::uint32_t>(images.size());
    std::string bytes = Little(0, 2) + Little(1, 2) + Little(count, 2);
    std::uint32_t place = 6 + 16 * count;
    for (const std::string& image : images) {
        const auto size = static_cast<std::uint32_t>(image.size());
        bytes += std::string(8, '\0') + Little(size, 4) + Little(place, 4);
        place += size;
    }
    for (const std::string& image : images) {
        bytes += image;
    }
    return bytes;
}

}  // namespace tarvex
