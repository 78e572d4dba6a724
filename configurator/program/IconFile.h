#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

/// One image of an icon, 32 bits deep: uncompressed, or, 256 x 256, a PNG file. Windows XP and
/// every later one shows each of them or leaves it out in favour of a smaller one.
struct IconImage {
    std::int32_t width = 0;   ///< 1 to 256
    std::int32_t height = 0;  ///< 1 to 256
    std::string bytes;        ///< as they stand in a program, exactly what belongs to the image

    bool operator==(const IconImage&) const = default;
};

using IconImages = std::vector<IconImage>;

/// What an .ico file holds.
struct ReadIcon {
    IconImages images;                    ///< those that a program can have, in the file's order
    std::vector<std::u16string> leftOut;  ///< German, one line for each of the others
    std::u16string problem;               ///< German; empty unless the file cannot be used at all
};

/// Reads an .ico file. What an image is like is taken from the image itself: the file's directory
/// often says 0. With one damaged image the whole file is refused.
ReadIcon ReadIconFile(std::string_view bytes);

/// Those of the images that fit into `room` bytes, each beginning at a multiple of 8, and into
/// `entries` entries. All in the given order when they do; otherwise first 16 x 16, 32, 48, 24 and
/// 256, then the others. Names the rest in `leftOut`.
IconImages ChooseImages(const IconImages& images, std::size_t room, std::size_t entries,
                        std::vector<std::u16string>& leftOut);

/// The images as an .ico file; the same ones always give the same bytes.
std::string WriteIconFile(const IconImages& images);

/// The list by which Windows finds the images of an icon, which have the numbers 1, 2, ...
std::string IconList(const IconImages& images);

/// The image that the bytes hold from their beginning on, without what follows it. Not one (empty
/// bytes) when they hold anything else.
IconImage ReadIconImage(std::string_view bytes);

}  // namespace tarvex
