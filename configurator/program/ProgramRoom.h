#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "configurator/program/ByteNumbers.h"

namespace tarvex {

/// The room that a launcher keeps in its resources for icon and version texts of its vendor. The
/// room table, a resource of the launcher, says where it is; cmake/fill_room.py describes it.
struct ProgramRoom {
    /// As many images as a program can have.
    static constexpr std::size_t kImages = 12;

    /// Bytes of the pool of every launcher.
    static constexpr std::size_t kPoolSize = 32768;

    /// Bit of `vendors` for the icon; the texts have the bits after it.
    static constexpr std::uint32_t kIconBit = 1;

    /// Reads the room table and holds it against the directory of the resources; never fails.
    static ProgramRoom Read(std::string_view bytes);

    /// German, why nothing can be put into this file; empty when everything below is true.
    std::u16string problem;

    FileRange pool;            ///< of the images, in which they begin at multiples of 8 bytes
    FileRange list;            ///< of the list that names the images
    FileRange version;         ///< of the version texts
    std::size_t listSize = 0;  ///< of the list as it is now
    std::size_t versionSize = 0;
    std::array<FileRange, kImages> images;  ///< what the entries lead to now

    std::size_t vendorsPlace = 0;  ///< offset of the 4 bytes of `vendors`
    std::uint32_t vendors = 0;     ///< bits for what is the vendor's

    /// Offsets of address and size, 4 bytes each, of these resources.
    std::array<std::size_t, kImages> imageEntries{};
    std::size_t listEntry = 0;
    std::size_t versionEntry = 0;

    /// Added to an offset inside the room this gives its address for an entry.
    std::uint32_t addressDelta = 0;
};

}  // namespace tarvex
