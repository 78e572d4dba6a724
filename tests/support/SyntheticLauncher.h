#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

/// One mark of a made-up launcher file.
struct SyntheticMark {
    std::int32_t number = 0;
    std::int32_t width = 0;
    std::u16string name;
    std::u16string value;   ///< stored form, without padding
    std::size_t start = 0;  ///< byte offset at which its text must stand; 0: wherever there is room
};

/// A file that looks like a launcher: the headers of a 32-bit program, the markers and the marks as
/// stored constants. Put together here from the format, not with the code that reads it.
struct SyntheticLauncher {
    /// All fields, empty, in the order of the program.
    SyntheticLauncher();

    std::vector<SyntheticMark> marks;
    std::uint16_t machine = 0x14c;
    std::uint16_t flags = 0x0102;  ///< a program, 32 bits
    std::uint16_t magic = 0x10b;
    std::uint32_t signatureSize = 0;
    std::u16string marker = u"@#BRANDED0#@";
    std::size_t markerStart = 1024;
    std::u16string comparison = u"@#BRANDED1#@";  ///< what the program compares the marker with
    std::size_t comparisonStart = 1280;
    std::size_t multiple = 32768;  ///< of which the length is one
    bool hasRoom = false;          ///< resources as SyntheticRoom makes them, loaded at kResources
    static constexpr std::uint32_t kResources = 0x41000;

    SyntheticMark& Mark(std::u16string_view name);
    std::string Build() const;
};

/// Writes UTF-16LE at an offset.
void PutText(std::string& bytes, std::size_t at, std::u16string_view text);

}  // namespace tarvex
