#include "configurator/program/ProgramResources.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "branding/BrandMark.h"
#include "configurator/program/ProgramFields.h"
#include "text/Text.h"

namespace tarvex {
namespace {

constexpr std::size_t kImageAlignment = 8;
constexpr std::size_t kListHeader = 6;
constexpr std::size_t kListEntry = 14;
constexpr std::size_t kContentEntry = 8;  // address and size of a content, which are what changes

constexpr std::u16string_view kUnreadable =
    u"Symbol oder Versionstexte des Startprogramms sind beschädigt oder von einem anderen Programm "
    u"verändert.";

std::uint32_t BitOf(std::int32_t number) {
    return ProgramRoom::kIconBit << static_cast<std::uint32_t>(number - kFieldIconFile);
}

/// Whether a search for marks would find one that begins anywhere in the bytes.
bool HoldsMark(std::string_view bytes) {
    for (const std::size_t start : {std::size_t{0}, std::size_t{1}}) {
        const std::u16string units = FromUtf16Bytes(bytes.substr(std::min(start, bytes.size())));
        for (const std::u16string& mark : {MarkStart(), MarkerText(false), MarkerText(true)}) {
            if (text::FindIgnoreCase(units, mark) != std::u16string_view::npos) {
                return true;
            }
        }
    }
    return false;
}

/// The images that the list names; none when it does not say what they are.
IconImages ReadImages(std::string_view bytes, const ProgramRoom& room) {
    const std::string_view list = bytes.substr(room.list.start, room.listSize);
    const std::size_t count = NumberAt(list, 4, 2).value_or(0);
    if (count > ProgramRoom::kImages || list.size() != kListHeader + kListEntry * count) {
        return {};
    }
    IconImages images;
    for (std::size_t i = 0; i < count; ++i) {
        const FileRange& place = room.images.at(i);
        images.push_back(ReadIconImage(bytes.substr(place.start, place.size)));
        if (images.back().bytes.size() != place.size) {
            return {};
        }
    }
    return IconList(images) == list ? images : IconImages();
}

void PutBytes(std::string& bytes, const FileRange& room, std::string content) {
    content.resize(room.size);
    bytes.replace(room.start, room.size, content);
}

void PutImages(std::string& bytes, const ProgramRoom& room, const IconImages& images) {
    std::string pool;
    std::vector<FileRange> places;
    for (const IconImage& image : images) {
        PadTo(pool, kImageAlignment);
        places.push_back({room.pool.start + pool.size(), image.bytes.size()});
        pool += image.bytes;
    }
    PutBytes(bytes, room.pool, std::move(pool));
    for (std::size_t i = 0; i < room.imageEntries.size(); ++i) {
        // Some readers complain of an entry that leads nowhere.
        const FileRange& place = i < places.size() ? places[i] : places.front();
        const auto offset = static_cast<std::uint32_t>(place.start);
        PutNumber(bytes, room.imageEntries[i], offset + room.addressDelta, 4);
        PutNumber(bytes, room.imageEntries[i] + 4, static_cast<std::uint32_t>(place.size), 4);
    }
    const std::string list = IconList(images);
    PutBytes(bytes, room.list, list);
    PutNumber(bytes, room.listEntry + 4, static_cast<std::uint32_t>(list.size()), 4);
}

std::u16string SizesText(const IconImages& images) {
    std::u16string sizes;
    for (const IconImage& image : images) {
        text::AppendWithSeparator(
            sizes, text::Decimal(image.width) + u" x " + text::Decimal(image.height), u", ");
    }
    return sizes;
}

/// Puts fields into one file's bytes.
class Putting {
public:
    Putting(std::string& bytes, const Settings& settings, std::u16string_view name)
        : bytes_(bytes), settings_(settings), name_(name) {}

    PutResult Put() {
        const ProgramResources resources = ProgramResources::Read(bytes_);
        const ProgramRoom& room = resources.Room();
        VersionBlock version = resources.Version();
        IconImages images = resources.Images();
        std::uint32_t vendors = room.vendors;
        bool isAnySet = false;
        for (const BrandField& field : kProgramFields) {
            if (!settings_.Has(field.number) || IsTemplatesIcon(field, resources)) {
                continue;
            }
            isAnySet = true;
            if (!resources.Problem().empty()) {
                Refuse(field, resources.Problem());
            } else if (field.number == kFieldIconFile) {
                images = ChosenImages(field);
            } else {
                PutText(field, version);
            }
            vendors |= BitOf(field.number);
        }
        if (isAnySet && result_.problems.empty()) {
            PutAll(room, images, version.Build(), vendors);
        }
        return std::move(result_);
    }

private:
    /// No icon for a program that has still the template's. Another one cannot get that back.
    bool IsTemplatesIcon(const BrandField& field, const ProgramResources& resources) {
        if (field.number != kFieldIconFile || !settings_.Value(field.number).empty()) {
            return false;
        }
        if (resources.IsVendors(field.number)) {
            Refuse(field,
                   u"Das Symbol der Vorlage ist nicht mehr im Programm und kann nicht "
                   u"wieder eingesetzt werden; nennen Sie eine Symboldatei.");
        }
        return true;
    }

    void PutText(const BrandField& field, VersionBlock& version) {
        const AcceptedValue accepted = AcceptProgramValue(field, settings_.Value(field.number));
        if (!accepted.problem.empty()) {
            Refuse(field, accepted.problem);
            return;
        }
        version.SetText(field.name, accepted.value);
        if (field.number == kFieldFileVersion) {
            version.SetFileNumbers(ReadVersionNumbers(accepted.value).numbers);
        } else if (field.number == kFieldProductVersion) {
            version.SetProductNumbers(ReadVersionNumbers(accepted.value).numbers);
        }
    }

    void PutAll(const ProgramRoom& room, const IconImages& images, const std::string& version,
                std::uint32_t vendors) {
        if (version.size() > room.version.size) {
            const std::size_t tooMany = (version.size() - room.version.size + 1) / 2;
            result_.problems.push_back({name_, 0, std::u16string(kProgramSection),
                                        u"Die Texte sind zusammen um " +
                                            text::Decimal(static_cast<std::int64_t>(tooMany)) +
                                            u" Zeichen zu lang."});
            return;
        }
        PutImages(bytes_, room, images);
        PutBytes(bytes_, room.version, version);
        PutNumber(bytes_, room.versionEntry + 4, static_cast<std::uint32_t>(version.size()), 4);
        PutNumber(bytes_, room.vendorsPlace, vendors, 4);
    }

    IconImages ChosenImages(const BrandField& field) {
        ReadIcon icon = ReadIconForProgram(settings_.Icon());
        if (!icon.problem.empty()) {
            Refuse(field, icon.problem);
            return {};
        }
        result_.leftOut = std::move(icon.leftOut);
        for (const IconImage& image : icon.images) {
            if (HoldsMark(image.bytes)) {
                Refuse(field,
                       u"Ein Bild der Symboldatei enthält Bytes, an denen die Einstellungen "
                       u"im Programm erkannt werden.");
            }
        }
        return std::move(icon.images);
    }

    void Refuse(const BrandField& field, std::u16string_view text) {
        result_.problems.push_back({name_, 0, std::u16string(field.name), std::u16string(text)});
    }

    std::string& bytes_;
    const Settings& settings_;
    std::u16string name_;
    PutResult result_;
};

}  // namespace

ReadIcon ReadIconForProgram(std::string_view bytes) {
    ReadIcon icon = ReadIconFile(bytes);
    if (icon.problem.empty()) {
        icon.images =
            ChooseImages(icon.images, ProgramRoom::kPoolSize, ProgramRoom::kImages, icon.leftOut);
        if (icon.images.empty()) {
            icon.problem = u"Kein Bild der Symboldatei hat im Programm Platz.";
        }
    }
    return icon;
}

ProgramResources ProgramResources::Read(std::string_view bytes) {
    ProgramResources resources;
    resources.room_ = ProgramRoom::Read(bytes);
    if (!resources.Problem().empty()) {
        return resources;
    }
    const ProgramRoom& room = resources.room_;
    std::optional<VersionBlock> version =
        VersionBlock::Read(bytes.substr(room.version.start, room.versionSize));
    IconImages images = ReadImages(bytes, room);
    if (!version || images.empty()) {
        resources.room_.problem = kUnreadable;
        return resources;
    }
    resources.version_ = std::move(*version);
    resources.images_ = std::move(images);
    return resources;
}

bool ProgramResources::IsVendors(std::int32_t number) const {
    return Problem().empty() && (room_.vendors & BitOf(number)) != 0;
}

std::vector<FileRange> ProgramResources::ChangeableRanges() const {
    if (!Problem().empty()) {
        return {};
    }
    std::vector<FileRange> ranges = {room_.pool,
                                     room_.list,
                                     room_.version,
                                     {room_.vendorsPlace, 4},
                                     {room_.listEntry + 4, 4},
                                     {room_.versionEntry + 4, 4}};
    for (const std::size_t entry : room_.imageEntries) {
        ranges.push_back({entry, kContentEntry});
    }
    return ranges;
}

PutResult PutProgramResources(std::string& bytes, const Settings& settings,
                              std::u16string_view name) {
    return Putting(bytes, settings, name).Put();
}

void AddProgramSettings(const ProgramResources& resources, Settings& settings) {
    for (const BrandField& field : kProgramFields) {
        if (!resources.IsVendors(field.number)) {
            continue;
        }
        if (field.number == kFieldIconFile) {
            settings.Set(field.number, SizesText(resources.Images()));
            settings.SetIcon(WriteIconFile(resources.Images()));
        } else {
            settings.Set(field.number, resources.Version().Text(field.name));
        }
    }
}

}  // namespace tarvex
