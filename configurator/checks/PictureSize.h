#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace tarvex {

struct PictureSize {
    std::uint32_t width = 0;  ///< in pixels
    std::uint32_t height = 0;
};

/// The size that a .bmp or .jpg file states in its header; nothing for any other content.
std::optional<PictureSize> ReadPictureSize(std::string_view bytes);

}  // namespace tarvex
