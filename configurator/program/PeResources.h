#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "configurator/program/ByteNumbers.h"

namespace tarvex {

/// One resource of a Windows program.
struct PeResource {
    std::uint32_t type = 0;
    std::uint32_t number = 0;
    std::uint32_t language = 0;
    std::size_t entry = 0;  ///< offset in the file of address and size of the content, 4 bytes each
    FileRange content;
};

/// The directory of a program's resources. Everything that it names lies inside the file; a
/// directory of which that is not true is not read at all.
class PeResources {
public:
    /// Reads the directory of a 32-bit program; never fails.
    static PeResources Read(std::string_view bytes);

    /// German, why there is nothing to find; empty when the directory was read.
    const std::u16string& Problem() const { return problem_; }

    /// All resources that have numbers for type and name, in the order of the directory.
    const std::vector<PeResource>& All() const { return all_; }

    /// The resource of this type and number; null when there is none, or one for each of several
    /// languages.
    const PeResource* Find(std::uint32_t type, std::uint32_t number) const;

    /// The directory itself, without the contents that it names.
    const FileRange& Directory() const { return directory_; }

    /// The part of the file that directory and contents lie in.
    const FileRange& Section() const { return section_; }

    /// The address that the content at an offset inside Section() has for an entry.
    std::uint32_t Address(std::size_t offset) const {
        return sectionAddress_ + static_cast<std::uint32_t>(offset - section_.start);
    }

private:
    class Reader;

    std::u16string problem_;
    std::vector<PeResource> all_;
    FileRange section_;
    FileRange directory_;
    std::uint32_t sectionAddress_ = 0;
};

}  // namespace tarvex
