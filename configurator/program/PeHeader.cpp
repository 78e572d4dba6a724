#include "configurator/program/PeHeader.h"

#include <cstddef>
#include <cstdint>

#include "configurator/program/ByteNumbers.h"

namespace tarvex {
namespace {

constexpr std::uint32_t kMachineI386 = 0x14c;
constexpr std::uint32_t kFileIsExecutable = 0x0002;
constexpr std::uint32_t kFileIsLibrary = 0x2000;
constexpr std::uint32_t kOptionalHeader32 = 0x10b;
constexpr std::size_t kDirectoryCountOffset = 92;  // within the optional header
constexpr std::size_t kDirectoriesOffset = 96;
constexpr std::size_t kSecurityDirectory = 4;

bool IsSigned(std::string_view bytes, std::size_t optionalHeader) {
    const auto count = NumberAt(bytes, optionalHeader + kDirectoryCountOffset, 4);
    if (!count || *count <= kSecurityDirectory) {
        return false;
    }
    const std::size_t entry = optionalHeader + kDirectoriesOffset + 8 * kSecurityDirectory;
    return NumberAt(bytes, entry, 4).value_or(0) != 0 ||
           NumberAt(bytes, entry + 4, 4).value_or(0) != 0;
}

}  // namespace

PeHeader ReadPeHeader(std::string_view bytes) {
    const auto start = NumberAt(bytes, 0x3c, 4);
    if (!bytes.starts_with("MZ") || !start || *start > bytes.size() ||
        !bytes.substr(*start).starts_with(std::string_view("PE\0\0", 4))) {
        return {};
    }
    const std::size_t fileHeader = std::size_t{*start} + 4;
    const std::size_t optionalHeader = fileHeader + 20;
    const std::uint32_t flags = NumberAt(bytes, fileHeader + 18, 2).value_or(0);
    PeHeader header;
    header.isProgram32 = NumberAt(bytes, fileHeader, 2) == kMachineI386 &&
                         NumberAt(bytes, optionalHeader, 2) == kOptionalHeader32 &&
                         (flags & kFileIsExecutable) != 0 && (flags & kFileIsLibrary) == 0;
    header.isSigned = header.isProgram32 && IsSigned(bytes, optionalHeader);
    return header;
}

}  // namespace tarvex
