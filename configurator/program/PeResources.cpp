#include "configurator/program/PeResources.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "configurator/program/PeHeader.h"

namespace tarvex {
namespace {

constexpr std::size_t kResourceDirectory = 2;  // among the directories of the optional header
constexpr std::size_t kDirectoryHeader = 16;
constexpr std::size_t kDirectoryEntry = 8;
constexpr std::size_t kContentEntry = 16;
constexpr std::uint32_t kHighBit = 0x80000000;  // the entry has a name, or leads to a directory
constexpr std::size_t kMostEntries = 4096;

constexpr std::u16string_view kDamaged = u"Das Verzeichnis der Ressourcen ist beschädigt.";

/// Thrown inside this file for a number that lies outside of the bytes.
struct Damaged {};

std::uint32_t Require(std::string_view bytes, std::size_t at, std::size_t size) {
    const auto number = NumberAt(bytes, at, size);
    if (!number) {
        throw Damaged{};
    }
    return *number;
}

}  // namespace

class PeResources::Reader {
public:
    explicit Reader(std::string_view bytes) : bytes_(bytes) {}

    PeResources Read() {
        try {
            if (!ReadPeHeader(bytes_).isProgram32 || !FindSection()) {
                result_.problem_ = u"Die Datei hat keine Ressourcen.";
                return std::move(result_);
            }
            ReadDirectory(0, 0, {});
            result_.directory_ = {result_.section_.start + root_, directoryEnd_};
        } catch (const Damaged&) {
            result_.problem_ = kDamaged;
            result_.all_.clear();
        }
        return std::move(result_);
    }

private:
    /// The section that the resources lie in; false when the program has none.
    bool FindSection() {
        const std::size_t header = Require(bytes_, 0x3c, 4);
        const std::size_t count = Require(bytes_, header + 6, 2);
        const std::size_t optionalHeader = header + 24;
        const std::size_t sections = optionalHeader + Require(bytes_, header + 20, 2);
        if (Require(bytes_, optionalHeader + 92, 4) <= kResourceDirectory) {
            return false;
        }
        const std::uint32_t address =
            Require(bytes_, optionalHeader + 96 + 8 * kResourceDirectory, 4);
        if (address == 0) {
            return false;
        }
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t section = sections + 40 * i;
            const std::uint32_t start = Require(bytes_, section + 12, 4);
            const std::size_t size = Require(bytes_, section + 16, 4);
            const std::size_t raw = Require(bytes_, section + 20, 4);
            if (address < start || address - start >= size) {
                continue;
            }
            if (raw > bytes_.size() || bytes_.size() - raw < size) {
                throw Damaged{};
            }
            result_.section_ = {raw, size};
            result_.sectionAddress_ = start;
            root_ = address - start;
            resources_ = bytes_.substr(raw + root_, size - root_);
            return true;
        }
        throw Damaged{};
    }

    /// Three levels: types, numbers, languages. `at` counts from the root, as the entries do.
    void ReadDirectory(std::size_t at, std::size_t level, PeResource resource) {
        const std::size_t count =
            std::size_t{Require(resources_, at + 12, 2)} + Require(resources_, at + 14, 2);
        entries_ += count;
        if (entries_ > kMostEntries) {
            throw Damaged{};
        }
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t entry = at + kDirectoryHeader + kDirectoryEntry * i;
            const std::uint32_t number = Require(resources_, entry, 4);
            const std::uint32_t next = Require(resources_, entry + 4, 4);
            directoryEnd_ = std::max(directoryEnd_, entry + kDirectoryEntry);
            if (((next & kHighBit) != 0) != (level < 2)) {
                throw Damaged{};
            }
            if ((number & kHighBit) != 0) {
                continue;
            }
            (level == 0   ? resource.type
             : level == 1 ? resource.number
                          : resource.language) = number;
            if (level < 2) {
                ReadDirectory(next & ~kHighBit, level + 1, resource);
            } else {
                ReadContent(next, resource);
            }
        }
    }

    void ReadContent(std::size_t entry, PeResource resource) {
        const std::uint32_t address = Require(resources_, entry, 4);
        const std::size_t size = Require(resources_, entry + 4, 4);
        Require(resources_, entry + 12, 4);
        directoryEnd_ = std::max(directoryEnd_, entry + kContentEntry);
        const FileRange& section = result_.section_;
        if (address < result_.sectionAddress_ || address - result_.sectionAddress_ > section.size ||
            section.size - (address - result_.sectionAddress_) < size) {
            throw Damaged{};
        }
        resource.entry = section.start + root_ + entry;
        resource.content = {section.start + (address - result_.sectionAddress_), size};
        result_.all_.push_back(resource);
    }

    std::string_view bytes_;
    std::string_view resources_;  // from the root of the directory to the end of the section
    std::size_t root_ = 0;        // within the section
    std::size_t entries_ = 0;
    std::size_t directoryEnd_ = 0;  // from the root
    PeResources result_;
};

PeResources PeResources::Read(std::string_view bytes) {
    return Reader(bytes).Read();
}

const PeResource* PeResources::Find(std::uint32_t type, std::uint32_t number) const {
    const auto matches = [type, number](const PeResource& resource) {
        return resource.type == type && resource.number == number;
    };
    const auto found = std::find_if(all_.begin(), all_.end(), matches);
    if (found == all_.end() || std::any_of(std::next(found), all_.end(), matches)) {
        return nullptr;
    }
    return &*found;
}

}  // namespace tarvex
