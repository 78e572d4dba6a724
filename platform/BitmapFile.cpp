#include "platform/BitmapFile.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace tarvex {

namespace {

constexpr std::size_t kHeaderBytes = 54;  // BITMAPFILEHEADER and BITMAPINFOHEADER
constexpr std::uint32_t kInfoHeaderBytes = 40;

enum Compression : std::uint32_t { None, RunLength8, RunLength4, BitFields };

std::uint32_t Number(std::string_view file, std::size_t offset, std::size_t bytes) {
    std::uint32_t number = 0;
    for (std::size_t i = bytes; i-- > 0;) {
        number = number << 8U | static_cast<unsigned char>(file[offset + i]);
    }
    return number;
}

/// True when the run-length codes come to the one that ends the bitmap. Each has two bytes: a
/// number of pixels and their colour, or a zero and what is to be done.
bool ReachesEnd(std::string_view codes, std::size_t bitsPerPixel) {
    for (std::size_t at = 0; at + 2 <= codes.size(); at += 2) {
        const std::size_t pixels = Number(codes, at, 1);
        const std::size_t order = Number(codes, at + 1, 1);
        if (pixels != 0 || order == 0) {
            continue;  // a run, or the end of a row
        }
        if (order == 1) {
            return true;
        }
        // The order is a number of single pixels that follow, filled up to words. Only 2 is none:
        // two bytes tell how far to move on, as many as two pixels take.
        at += (order * bitsPerPixel + 15) / 16 * 2;
    }
    return false;
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
    const std::string_view pixels =
        file.substr(std::min<std::size_t>(Number(file, 10, 4), file.size()));
    const std::uint64_t width = Number(file, 18, 4);
    const auto signedHeight = static_cast<std::int32_t>(Number(file, 22, 4));
    const std::uint64_t bitsPerPixel = Number(file, 28, 2);
    const std::uint32_t compression = Number(file, 30, 4);
    if (compression == RunLength8 || compression == RunLength4) {
        return !ReachesEnd(pixels, compression == RunLength8 ? 8 : 4);
    }
    const bool hasBitFields =
        compression == BitFields && (bitsPerPixel == 16 || bitsPerPixel == 32);
    if (compression != None && !hasBitFields) {
        return false;
    }
    // A negative height means rows from the top down; each row fills whole 4-byte words, but nobody
    // misses what only fills the last one.
    const std::int64_t height = signedHeight;
    const auto rows = static_cast<std::uint64_t>(height < 0 ? -height : height);
    const std::uint64_t rowBytes = (width * bitsPerPixel + 31) / 32 * 4;
    const std::uint64_t padding = rowBytes - (width * bitsPerPixel + 7) / 8;
    // Divided, because the numbers of a damaged header may be too large to be multiplied.
    return rows > 0 && rowBytes > (pixels.size() + padding) / rows;
}

}  // namespace tarvex
