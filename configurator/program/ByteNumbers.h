#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarvex {

/// A piece of a file, as 0-based byte offsets.
struct FileRange {
    std::size_t start = 0;
    std::size_t size = 0;

    std::size_t End() const { return start + size; }
    bool Holds(const FileRange& other) const {
        return other.start >= start && other.start <= End() && End() - other.start >= other.size;
    }
    bool Overlaps(const FileRange& other) const {
        return start < other.End() && other.start < End();
    }
    bool operator==(const FileRange&) const = default;
};

/// A little-endian number of `size` bytes, at most 4; nothing when it does not lie in the bytes.
inline std::optional<std::uint32_t> NumberAt(std::string_view bytes, std::size_t at,
                                             std::size_t size) {
    if (at > bytes.size() || bytes.size() - at < size) {
        return std::nullopt;
    }
    std::uint32_t number = 0;
    for (std::size_t i = size; i-- > 0;) {
        number = number << 8U | static_cast<std::uint8_t>(bytes[at + i]);
    }
    return number;
}

/// Writes a little-endian number over `size` bytes that must be there.
inline void PutNumber(std::string& bytes, std::size_t at, std::uint32_t number, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i, number >>= 8U) {
        bytes.at(at + i) = static_cast<char>(number & 0xffU);
    }
}

/// Adds a little-endian number of `size` bytes at the end.
inline void AppendNumber(std::string& bytes, std::uint32_t number, std::size_t size) {
    bytes.resize(bytes.size() + size);
    PutNumber(bytes, bytes.size() - size, number, size);
}

/// Adds zeros at the end until the length is a multiple of `unit`.
inline void PadTo(std::string& bytes, std::size_t unit) {
    bytes.resize((bytes.size() + unit - 1) / unit * unit);
}

}  // namespace tarvex
