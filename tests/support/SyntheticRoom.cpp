#include "tests/support/SyntheticRoom.h"

#include <algorithm>
#include <stdexcept>

#include "tests/support/IconBytes.h"

namespace tarvex {
namespace {

void Put(std::string& bytes, std::size_t at, std::size_t number, std::size_t size) {
    if (bytes.size() < at + size) {
        bytes.resize(at + size, '\0');
    }
    for (std::size_t i = 0; i < size; ++i, number >>= 8U) {
        bytes[at + i] = static_cast<char>(number & 0xffU);
    }
}

void Align(std::string& bytes, std::size_t unit) {
    bytes.resize((bytes.size() + unit - 1) / unit * unit, '\0');
}

std::string Wide(std::u16string_view text) {
    std::string bytes;
    for (const char16_t unit : text) {
        bytes += {static_cast<char>(unit & 0xffU), static_cast<char>(unit >> 8U)};
    }
    return bytes + std::string(2, '\0');
}

std::string Record(std::u16string_view key, bool isText, std::string_view value, std::size_t count,
                   const std::vector<std::string>& children) {
    std::string bytes(4, '\0');
    Put(bytes, 2, count, 2);
    Put(bytes, 4, isText ? 1 : 0, 2);
    bytes += Wide(key);
    if (!value.empty()) {
        Align(bytes, 4);
        bytes += value;
    }
    for (const std::string& child : children) {
        Align(bytes, 4);
        bytes += child;
    }
    Put(bytes, 0, bytes.size(), 2);
    return bytes;
}

std::string FixedRecord() {
    std::string bytes(52, '\0');
    Put(bytes, 0, 0xfeef04bd, 4);
    Put(bytes, 4, 0x10000, 4);
    Put(bytes, 8, 0x10002, 4);
    Put(bytes, 12, 0x30004, 4);
    Put(bytes, 16, 0x50006, 4);
    Put(bytes, 20, 0x7ffff, 4);
    Put(bytes, 32, 0x40004, 4);
    Put(bytes, 36, 1, 4);
    return bytes;
}

std::u16string TemplateText(std::u16string_view name) {
    return name == u"FileVersion"      ? u"1.2.3"
           : name == u"ProductVersion" ? u"5.6"
                                       : u"Vorlage " + std::u16string(name);
}

}  // namespace

std::string SyntheticVersion(const SyntheticTexts& texts) {
    std::vector<std::string> strings;
    for (const auto& [name, value] : texts) {
        strings.push_back(Record(name, true, Wide(value), value.size() + 1, {}));
    }
    const std::string table = Record(u"040704B0", true, {}, 0, strings);
    const std::string translation = Record(u"Translation", false, "\x07\x04\xb0\x04", 4, {});
    return Record(u"VS_VERSION_INFO", false, FixedRecord(), 52,
                  {Record(u"StringFileInfo", true, {}, 0, {table}),
                   Record(u"VarFileInfo", true, {}, 0, {translation})});
}

std::string BuildResources(std::vector<SyntheticResource>& resources, std::uint32_t address) {
    std::string bytes;
    const auto directory = [&bytes](std::size_t entries) {
        const std::size_t at = bytes.size();
        bytes.resize(at + 16 + 8 * entries, '\0');
        Put(bytes, at + 14, entries, 2);
        return at + 16;
    };
    const auto sameType = [](const auto& a, const auto& b) { return a.type == b.type; };
    const auto sameNumber = [](const auto& a, const auto& b) {
        return a.type == b.type && a.number == b.number;
    };
    const auto count = [&resources](auto first, const auto& same) {
        return std::count_if(first, resources.end(),
                             [&](const auto& other) { return same(*first, other); });
    };
    std::size_t types = 0;
    for (auto i = resources.begin(); i != resources.end(); i += count(i, sameType)) {
        ++types;
    }
    std::size_t typeEntry = directory(types);
    for (auto i = resources.begin(); i != resources.end();) {
        const auto typeEnd = i + count(i, sameType);
        std::size_t numbers = 0;
        for (auto j = i; j != typeEnd; j += count(j, sameNumber)) {
            ++numbers;
        }
        Put(bytes, typeEntry, i->type, 4);
        Put(bytes, typeEntry + 4, 0x80000000U | bytes.size(), 4);
        typeEntry += 8;
        std::size_t numberEntry = directory(numbers);
        while (i != typeEnd) {
            const auto numberEnd = i + count(i, sameNumber);
            Put(bytes, numberEntry, i->number, 4);
            Put(bytes, numberEntry + 4, 0x80000000U | bytes.size(), 4);
            numberEntry += 8;
            std::size_t entry = directory(static_cast<std::size_t>(numberEnd - i));
            for (; i != numberEnd; ++i, entry += 8) {
                Put(bytes, entry, i->language, 4);
                i->entry = entry + 4;  // where the offset of its data entry stands, for now
            }
        }
    }
    for (SyntheticResource& resource : resources) {
        Put(bytes, resource.entry, bytes.size(), 4);
        resource.entry = bytes.size();
        bytes.resize(bytes.size() + 16, '\0');
    }
    for (SyntheticResource& resource : resources) {
        Align(bytes, 8);
        resource.place = bytes.size();
        Put(bytes, resource.entry, address + resource.place, 4);
        Put(bytes, resource.entry + 4, resource.content.size(), 4);
        bytes += resource.content;
    }
    Align(bytes, 512);
    return bytes;
}

std::string SyntheticRoom::Build(std::size_t start, std::uint32_t address) {
    resources.clear();
    for (std::uint32_t number = 1; number <= 12; ++number) {
        resources.push_back({3, number, 0x409, std::string(number == 1 ? kPool : 8, '\0')});
    }
    resources.push_back({10, 3, 0x409, std::string(44, '\0')});
    resources.push_back({14, 1, 0x409, std::string(kList, '\0')});
    resources.push_back({16, 1, 0x407, std::string(kVersion, '\0')});
    resources.push_back({24, 1, 0x409, "<manifest/>"});
    std::string bytes = BuildResources(resources, address);

    const std::size_t pool = Find(3, 1).place;
    const std::size_t list = Find(14, 1).place;
    const std::size_t version = Find(16, 1).place;
    const std::string small = BitmapImage(16, 16);
    const std::string large = BitmapImage(32, 32);
    bytes.replace(pool, small.size(), small);
    bytes.replace(pool + small.size(), large.size(), large);
    for (std::uint32_t number = 1; number <= 12; ++number) {
        const bool isLarge = number == 2;
        const std::size_t entry = Find(3, number).entry;
        Put(bytes, entry, address + pool + (isLarge ? small.size() : 0), 4);
        Put(bytes, entry + 4, (isLarge ? large : small).size(), 4);
    }
    const std::string_view images(
        "\0\0\1\0\2\0"
        "\x10\x10\0\0\1\0\x20\0\x68\x04\0\0\1\0"
        "\x20\x20\0\0\1\0\x20\0\xa8\x10\0\0\2\0",
        34);
    bytes.replace(list, images.size(), images);
    Put(bytes, Find(14, 1).entry + 4, images.size(), 4);
    SyntheticTexts texts;
    for (const char16_t* name :
         {u"CompanyName", u"FileDescription", u"FileVersion", u"InternalName", u"LegalCopyright",
          u"LegalTrademarks", u"OriginalFilename", u"ProductName", u"ProductVersion",
          u"Comments"}) {
        texts.emplace_back(name, TemplateText(name));
    }
    const std::string block = SyntheticVersion(texts);
    bytes.replace(version, block.size(), block);
    Put(bytes, Find(16, 1).entry + 4, block.size(), 4);
    const std::size_t table = Find(10, 3).place;
    bytes.replace(table, 8, "TVXROOM1");
    std::size_t at = table + 8;
    for (const std::size_t number :
         {std::size_t{44}, std::size_t{0}, start + pool, kPool, start + list, kList,
          start + version, kVersion, std::size_t{12}}) {
        Put(bytes, at, number, 4);
        at += 4;
    }
    return bytes;
}

const SyntheticResource& SyntheticRoom::Find(std::uint32_t type, std::uint32_t number) const {
    const auto found = std::find_if(resources.begin(), resources.end(), [&](const auto& resource) {
        return resource.type == type && resource.number == number;
    });
    if (found == resources.end()) {
        throw std::logic_error("no such resource");
    }
    return *found;
}

}  // namespace tarvex
