#include "platform/BitmapFile.h"

#include <cstddef>
#include <cstdint>

namespace tarvex {

namespace {

constexpr std::size_t kHeaderBytes = 54;  // BITMAPFILEHEADER and BITMAPINFOHEADER
constexpr std::uint32_t kInfoHeaderBytes = 40;
constexpr std::uint32_t kUncompressed = 0;

std::uint32_t Number(std::string_view file, std::size_t offset, std::size_t bytes) {
    std::uint32_t number = 0;
    for (std::size_t i = bytes; i-- > 0;) {
        number = number << 8U | static_cast<unsigned char>(file[offset + i]);
    }
    return number;
}

}  // namespace

bool IsTruncatedBitmap(std::string_view file) {
    if (!file.starts_with("BM")) {
        return false;
    }
    if (file.size() < kHeaderBytes) {
        return true;
    }
    if (Number(file, 14, 4) < kInfoHeaderBytes) {
        return false;  // the older header has its sizes elsewhere
    }
    const std::uint64_t pixels = Number(file, 10, 4);
    const std::uint64_t width = Number(file, 18, 4);
    const auto signedHeight = static_cast<std::int32_t>(Number(file, 22, 4));
    const std::uint64_t bitsPerPixel = Number(file, 28, 2);
    if (Number(file, 30, 4) != kUncompressed) {
        return false;
    }
    // A negative height means rows from the top down; each row fills whole 4-byte words.
    const std::int64_t height = signedHeight;
    const auto rows = static_cast<std::uint64_t>(height < 0 ? -height : height);
    const std::uint64_t rowBytes = (width * bitsPerPixel + 31) / 32 * 4;
    // Divided, because the numbers of a damaged header may be too large to be multiplied.
    const std::uint64_t room = pixels < file.size() ? file.size() - pixels : 0;
    return rows > 0 && rowBytes > room / rows;
}

}  // namespace tarvex
