#include "configurator/program/PngFile.h"

#include <optional>

namespace tarvex {
namespace {

constexpr std::string_view kSignature = "\x89PNG\r\n\x1a\n";
constexpr std::size_t kAroundContent = 12;  // length and name before it, checksum after it
constexpr std::size_t kHeaderContent = 13;

/// Big-endian, as everything in this format; the bytes must be there.
std::uint32_t Number(std::string_view bytes, std::size_t at) {
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        number = number << 8U | static_cast<std::uint8_t>(bytes[at + i]);
    }
    return number;
}

std::uint32_t Checksum(std::string_view bytes) {
    std::uint32_t sum = 0xffffffff;
    for (const char byte : bytes) {
        sum ^= static_cast<std::uint8_t>(byte);
        for (int bit = 0; bit < 8; ++bit) {
            sum = sum >> 1U ^ ((sum & 1U) != 0 ? 0xedb88320U : 0U);
        }
    }
    return ~sum;
}

/// The chunk at the beginning of the bytes, nothing when it is cut off or damaged.
std::optional<std::string_view> Chunk(std::string_view bytes) {
    if (bytes.size() < kAroundContent || Number(bytes, 0) > bytes.size() - kAroundContent) {
        return std::nullopt;
    }
    const std::size_t content = Number(bytes, 0);
    if (Number(bytes, 8 + content) != Checksum(bytes.substr(4, 4 + content))) {
        return std::nullopt;
    }
    return bytes.substr(0, content + kAroundContent);
}

}  // namespace

bool IsPngFile(std::string_view bytes) {
    return bytes.starts_with(kSignature);
}

PngFile ReadPngFile(std::string_view bytes) {
    PngFile png;
    bool hasPixels = false;
    for (std::size_t at = kSignature.size();;) {
        const auto chunk = Chunk(bytes.substr(at));
        const bool isFirst = at == kSignature.size();
        const std::string_view name = chunk ? chunk->substr(4, 4) : std::string_view();
        if (!chunk || (name == "IHDR") != isFirst ||
            (isFirst && chunk->size() != kHeaderContent + kAroundContent)) {
            png.problem = u"ist ein beschädigtes oder abgeschnittenes PNG-Bild";
            return png;
        }
        if (isFirst) {
            png.width = Number(*chunk, 8);
            png.height = Number(*chunk, 12);
            png.hasColoursAndAlpha8 = (*chunk)[16] == 8 && (*chunk)[17] == 6;
        }
        hasPixels = hasPixels || name == "IDAT";
        at += chunk->size();
        if (name == "IEND") {
            png.size = at;
            break;
        }
    }
    if (png.width == 0 || png.height == 0 || !hasPixels) {
        png.problem = u"ist ein PNG-Bild ohne Inhalt";
    }
    return png;
}

}  // namespace tarvex
