#include "tests/support/SyntheticLauncher.h"

#include <algorithm>
#include <stdexcept>

#include "branding/BrandFields.h"
#include "tests/support/SyntheticRoom.h"
#include "text/Text.h"

namespace tarvex {
namespace {

constexpr std::size_t kHeaderOffset = 0x80;

void PutNumber(std::string& bytes, std::size_t at, std::uint32_t number, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i, number >>= 8U) {
        bytes.at(at + i) = static_cast<char>(number & 0xffU);
    }
}

void PutConstant(std::string& bytes, std::size_t start, std::u16string_view text) {
    const std::size_t end = start + 2 * text.size() + 2;
    if (bytes.size() < end) {
        bytes.resize(end, '\0');
    }
    PutNumber(bytes, start - 4, static_cast<std::uint32_t>(2 * text.size()), 4);
    PutText(bytes, start, text);
    PutNumber(bytes, end - 2, 0, 2);
}

std::u16string MarkText(const SyntheticMark& mark) {
    std::u16string value = mark.value;
    value.resize(static_cast<std::size_t>(mark.width), u' ');
    return u"@#BRD#@|" + text::Decimal(mark.number, 3) + u"|" + text::Decimal(mark.width, 4) +
           u"|" + mark.name + u"|" + value;
}

void AddResources(std::string& bytes) {
    bytes.resize((bytes.size() + 511) / 512 * 512, '\0');
    const std::string resources =
        SyntheticRoom().Build(bytes.size(), SyntheticLauncher::kResources);
    constexpr std::size_t optionalHeader = kHeaderOffset + 24;
    constexpr std::uint32_t optionalSize = 224;
    PutNumber(bytes, kHeaderOffset + 6, 1, 2);  // sections
    PutNumber(bytes, kHeaderOffset + 20, optionalSize, 2);
    PutNumber(bytes, optionalHeader + 112, SyntheticLauncher::kResources, 4);
    constexpr std::size_t section = optionalHeader + optionalSize;
    bytes.replace(section, 5, ".rsrc");
    PutNumber(bytes, section + 8, static_cast<std::uint32_t>(resources.size()), 4);
    PutNumber(bytes, section + 12, SyntheticLauncher::kResources, 4);
    PutNumber(bytes, section + 16, static_cast<std::uint32_t>(resources.size()), 4);
    PutNumber(bytes, section + 20, static_cast<std::uint32_t>(bytes.size()), 4);
    bytes += resources;
}

}  // namespace

void PutText(std::string& bytes, std::size_t at, std::u16string_view text) {
    for (const char16_t unit : text) {
        PutNumber(bytes, at, unit, 2);
        at += 2;
    }
}

SyntheticLauncher::SyntheticLauncher() {
    for (const BrandField& field : kBrandFields) {
        marks.push_back({field.number, field.width, std::u16string(field.name), {}, 0});
    }
}

SyntheticMark& SyntheticLauncher::Mark(std::u16string_view name) {
    const auto found = std::find_if(marks.begin(), marks.end(), [name](const SyntheticMark& mark) {
        return mark.name == name;
    });
    if (found == marks.end()) {
        throw std::logic_error("no such mark");
    }
    return *found;
}

std::string SyntheticLauncher::Build() const {
    std::string bytes(2048, '\0');
    bytes.replace(0, 2, "MZ");
    PutNumber(bytes, 0x3c, kHeaderOffset, 4);
    bytes.replace(kHeaderOffset, 2, "PE");
    PutNumber(bytes, kHeaderOffset + 4, machine, 2);
    PutNumber(bytes, kHeaderOffset + 22, flags, 2);
    const std::size_t optionalHeader = kHeaderOffset + 24;
    PutNumber(bytes, optionalHeader, magic, 2);
    PutNumber(bytes, optionalHeader + 92, 16, 4);
    PutNumber(bytes, optionalHeader + 132, signatureSize, 4);  // of the fifth directory
    PutConstant(bytes, markerStart, marker);
    PutConstant(bytes, comparisonStart, comparison);
    std::size_t next = 2048;
    for (const SyntheticMark& mark : marks) {
        const std::u16string text = MarkText(mark);
        if (mark.start != 0) {
            PutConstant(bytes, mark.start, text);
            continue;
        }
        next = (next + 4 + 15) / 16 * 16;  // texts on 16-byte boundaries: no prefix is split
        PutConstant(bytes, next, text);
        next += 2 * text.size() + 2;
    }
    if (hasRoom) {
        AddResources(bytes);
    }
    bytes.resize((bytes.size() + multiple - 1) / multiple * multiple, '\0');
    return bytes;
}

}  // namespace tarvex
