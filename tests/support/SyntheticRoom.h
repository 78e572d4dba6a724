#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarvex {

// The resources of a made-up launcher, put together here from the formats, not with the code that
// reads them.

/// Names and values of version texts.
using SyntheticTexts = std::vector<std::pair<std::u16string, std::u16string>>;

/// A version resource in German with the file version 1.2.3.4 and the product version 5.6.7.65535.
std::string SyntheticVersion(const SyntheticTexts& texts);

/// One resource, in the order of the directory.
struct SyntheticResource {
    std::uint32_t type = 0;
    std::uint32_t number = 0;
    std::uint32_t language = 0;
    std::string content;
    std::size_t entry = 0;  ///< set by BuildResources: offset in the section of its address
    std::size_t place = 0;  ///< set by BuildResources: offset in the section of its content
};

/// A section of resources that is loaded at an address. Types, numbers and languages ascend.
std::string BuildResources(std::vector<SyntheticResource>& resources, std::uint32_t address);

/// Resources with the room of a launcher: an icon of 16 x 16 and 32 x 32 in the pool, and the ten
/// version texts, each "Vorlage " and its name, version texts "1.2.3" and "5.6".
struct SyntheticRoom {
    static constexpr std::size_t kPool = 32768;
    static constexpr std::size_t kList = 174;
    static constexpr std::size_t kVersion = 4096;

    /// The section for a file in which it stands at `start`.
    std::string Build(std::size_t start, std::uint32_t address);

    /// What Build made, the room table included; places count in the section.
    std::vector<SyntheticResource> resources;
    const SyntheticResource& Find(std::uint32_t type, std::uint32_t number) const;
};

}  // namespace tarvex
