#include "util/FileVersionInfo.h"

#include <span>

#include "text/Text.h"

namespace tarvex {

namespace {

/// Offsets of the 32-bit fields in the fixed record.
namespace field {
constexpr std::size_t kFileVersionHigh = 8;
constexpr std::size_t kFileVersionLow = 12;
constexpr std::size_t kProductVersionHigh = 16;
constexpr std::size_t kProductVersionLow = 20;
constexpr std::size_t kFlags = 28;
constexpr std::size_t kSystem = 32;
constexpr std::size_t kType = 36;
constexpr std::size_t kSubType = 40;
constexpr std::size_t kRecordSize = 52;
}  // namespace field

constexpr std::uint32_t kTypeDriver = 3;
constexpr std::uint32_t kTypeFont = 4;

std::uint32_t LittleEndian(std::string_view bytes, std::size_t at, std::size_t count) {
    std::uint32_t value = 0;
    for (std::size_t i = count; i-- > 0;) {
        value = value << 8U | static_cast<std::uint8_t>(bytes[at + i]);
    }
    return value;
}

std::uint32_t Field(std::string_view record, std::size_t at) {
    return LittleEndian(record, at, 4);
}

std::int32_t High(std::uint32_t value) {
    return static_cast<std::int32_t>(value >> 16U);
}
std::int32_t Low(std::uint32_t value) {
    return static_cast<std::int32_t>(value & 0xFFFFU);
}

std::u16string DottedVersion(std::uint32_t high, std::uint32_t low) {
    return text::Decimal(High(high)) + u"." + text::Decimal(Low(high), 2) + u"." +
           text::Decimal(High(low), 2) + u"." + text::Decimal(Low(low), 4);
}

std::u16string FlagNames(std::uint32_t flags) {
    constexpr std::u16string_view kNames[] = {u"Debug ",   u"PreRel ", u"Patched ",
                                              u"Private ", u"Info ",   u"Special "};
    std::u16string names;
    std::uint32_t bit = 1;
    for (const std::u16string_view name : kNames) {
        if ((flags & bit) != 0) {
            names += name;
        }
        bit <<= 1U;
    }
    return names;
}

std::u16string_view SystemName(std::uint32_t system) {
    switch (system) {
        case 0x10001:
            return u"DOS-Win16";
        case 0x10004:
            return u"DOS-Win32";
        case 0x20002:
            return u"OS/2-16 PM-16";
        case 0x30003:
            return u"OS/2-16 PM-32";
        case 0x40004:
            return u"NT-Win32";
        default:
            return u"Unknown";
    }
}

std::u16string_view NameAt(std::span<const std::u16string_view> names, std::uint32_t index,
                           std::u16string_view otherwise) {
    return index < names.size() ? names[index] : otherwise;
}

std::u16string_view TypeName(std::uint32_t type) {
    constexpr std::u16string_view kNames[] = {u"Unknown", u"Application", u"DLL",     u"Driver",
                                              u"Font",    u"VxD",         u"Unknown", u"Lib"};
    return NameAt(kNames, type, u"Unknown");
}

std::u16string_view SubTypeName(std::uint32_t type, std::uint32_t subType) {
    constexpr std::u16string_view kDrivers[] = {u"Unknown",      u"Printer drv", u"Keyboard drv",
                                                u"Language drv", u"Display drv", u"Mouse drv",
                                                u"Network drv",  u"System drv",  u"Installable",
                                                u"Sound drv",    u"Comm drv"};
    constexpr std::u16string_view kFonts[] = {u"", u"Raster Font", u"Vector Font",
                                              u"TrueType Font"};
    switch (type) {
        case kTypeDriver:
            return NameAt(kDrivers, subType, u"");
        case kTypeFont:
            return NameAt(kFonts, subType, u"");
        default:
            return u"";
    }
}

}  // namespace

void FileVersionInfo::SetFullPathName(std::u16string_view path) {
    std::u16string full = resource_.FullPathName(path);
    if (!full.empty()) {
        fullPathName_ = std::move(full);
        Refresh();
    }
}

void FileVersionInfo::Refresh() {
    data_ = {};
    std::string block = resource_.ReadBlock(fullPathName_);
    if (!block.empty()) {
        data_.available = true;
        ReadFixedData(block);
        ReadTexts(block);
    }
}

void FileVersionInfo::ReadFixedData(std::string& block) {
    const auto found = resource_.QueryBytes(block, u"\\");
    if (!found || found->size() < field::kRecordSize) {
        return;
    }
    const std::string& record = *found;
    const std::uint32_t high = Field(record, field::kFileVersionHigh);
    data_.fileVersionMajor = High(high);
    data_.fileVersionMinor = Low(high);
    data_.fileVersion = DottedVersion(high, Field(record, field::kFileVersionLow));
    data_.productVersion = DottedVersion(Field(record, field::kProductVersionHigh),
                                         Field(record, field::kProductVersionLow));
    data_.fileFlags = FlagNames(Field(record, field::kFlags));
    data_.fileOS = SystemName(Field(record, field::kSystem));
    const std::uint32_t type = Field(record, field::kType);
    data_.fileType = TypeName(type);
    data_.fileSubType = SubTypeName(type, Field(record, field::kSubType));
}

void FileVersionInfo::ReadTexts(std::string& block) {
    const auto translation = resource_.QueryBytes(block, u"\\VarFileInfo\\Translation");
    if (!translation || translation->size() < 4) {
        return;
    }
    const std::uint32_t language = LittleEndian(*translation, 0, 2);
    const std::uint32_t codePage = LittleEndian(*translation, 2, 2);
    data_.language = resource_.LanguageName(static_cast<std::uint16_t>(language));

    const std::u16string table = u"\\StringFileInfo\\" + text::Hexadecimal(language, 4) +
                                 text::Hexadecimal(codePage, 4) + u"\\";
    const auto read = [&](std::u16string_view name, std::u16string& target) {
        if (auto value = resource_.QueryText(block, table + std::u16string(name))) {
            target = std::move(*value);
        }
    };
    // A blank version text does not take the place of the one made from the fixed data.
    const auto readVersion = [&](std::u16string_view name, std::u16string& target) {
        std::u16string value;
        read(name, value);
        if (!text::Trim(value).empty()) {
            target = std::move(value);
        }
    };
    read(u"CompanyName", data_.companyName);
    read(u"FileDescription", data_.fileDescription);
    readVersion(u"FileVersion", data_.fileVersion);
    read(u"InternalName", data_.internalName);
    read(u"LegalCopyright", data_.legalCopyright);
    read(u"LegalTrademarks", data_.legalTrademarks);
    read(u"OriginalFilename", data_.originalFilename);
    read(u"ProductName", data_.productName);
    readVersion(u"ProductVersion", data_.productVersion);
    read(u"Comments", data_.comments);
}

}  // namespace tarvex
