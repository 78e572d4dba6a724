#include "configurator/checks/PictureSize.h"

#include <cstddef>

namespace tarvex {
namespace {

constexpr std::uint32_t kOldBitmapHeader = 12;

std::uint32_t Byte(std::string_view bytes, std::size_t at) {
    return at < bytes.size() ? static_cast<std::uint8_t>(bytes[at]) : 0;
}

std::uint32_t LittleEndian(std::string_view bytes, std::size_t at, std::size_t size) {
    std::uint32_t number = 0;
    for (std::size_t i = size; i-- > 0;) {
        number = number << 8U | Byte(bytes, at + i);
    }
    return number;
}

std::uint32_t BigEndian16(std::string_view bytes, std::size_t at) {
    return Byte(bytes, at) << 8U | Byte(bytes, at + 1);
}

PictureSize BitmapSize(std::string_view bytes) {
    if (LittleEndian(bytes, 14, 4) == kOldBitmapHeader) {
        return {LittleEndian(bytes, 18, 2), LittleEndian(bytes, 20, 2)};
    }
    const std::uint32_t height = LittleEndian(bytes, 22, 4);
    // A negative height means rows from the top down.
    return {LittleEndian(bytes, 18, 4), height > INT32_MAX ? 0U - height : height};
}

/// Frames begin with C0 to CF; three of these codes are something else.
bool IsFrame(std::uint32_t code) {
    return code >= 0xC0 && code <= 0xCF && code != 0xC4 && code != 0xC8 && code != 0xCC;
}

std::optional<PictureSize> JpegSize(std::string_view bytes) {
    std::size_t at = 2;
    while (at + 9 <= bytes.size() && Byte(bytes, at) == 0xFF) {
        const std::uint32_t code = Byte(bytes, at + 1);
        if (code == 0xFF) {
            ++at;  // fill byte
            continue;
        }
        if (IsFrame(code)) {
            return PictureSize{BigEndian16(bytes, at + 7), BigEndian16(bytes, at + 5)};
        }
        at += 2 + BigEndian16(bytes, at + 2);
    }
    return std::nullopt;
}

}  // namespace

std::optional<PictureSize> ReadPictureSize(std::string_view bytes) {
    if (bytes.starts_with("BM") && bytes.size() >= 26) {
        return BitmapSize(bytes);
    }
    return bytes.starts_with("\xFF\xD8") ? JpegSize(bytes) : std::nullopt;
}

}  // namespace tarvex
