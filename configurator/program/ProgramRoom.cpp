#include "configurator/program/ProgramRoom.h"

#include <algorithm>
#include <optional>

#include "configurator/program/PeResources.h"
#include "resources/ResourceIds.h"

namespace tarvex {
namespace {

constexpr std::uint32_t kIconType = 3;
constexpr std::uint32_t kDataType = 10;
constexpr std::uint32_t kIconListType = 14;
constexpr std::uint32_t kVersionType = 16;
constexpr std::uint32_t kVersionNumber = 1;

constexpr std::string_view kTableName = "TVXROOM1";
constexpr std::size_t kTableSize = 44;
constexpr std::size_t kVendorsInTable = 12;
constexpr std::size_t kRangesInTable = 16;
constexpr std::uint32_t kAllVendors = (1U << 11U) - 1;  // the icon and ten texts

constexpr std::u16string_view kNoRoom =
    u"Das Startprogramm hat keinen Platz für Symbol und Versionstexte des Herstellers.";
constexpr std::u16string_view kMoved =
    u"Symbol oder Versionstexte liegen nicht mehr da, wo das Startprogramm seinen Platz für sie "
    u"hat; ein anderes Programm hat seine Ressourcen verändert.";

FileRange RangeAt(std::string_view table, std::size_t at) {
    return {NumberAt(table, at, 4).value_or(0), NumberAt(table, at + 4, 4).value_or(0)};
}

/// Fills the room from the resources; false when they are not where the table says.
bool FindResources(const PeResources& resources, ProgramRoom& room) {
    const PeResource* list = resources.Find(kIconListType, IDI_TARVEX);
    const PeResource* version = resources.Find(kVersionType, kVersionNumber);
    if (list == nullptr || version == nullptr) {
        return false;
    }
    room.listEntry = list->entry;
    room.listSize = list->content.size;
    room.versionEntry = version->entry;
    room.versionSize = version->content.size;
    for (std::size_t i = 0; i < ProgramRoom::kImages; ++i) {
        const PeResource* image = resources.Find(kIconType, static_cast<std::uint32_t>(i + 1));
        if (image == nullptr || !room.pool.Holds(image->content)) {
            return false;
        }
        room.imageEntries[i] = image->entry;
        room.images[i] = image->content;
    }
    return list->content.start == room.list.start && room.list.Holds(list->content) &&
           version->content.start == room.version.start && room.version.Holds(version->content);
}

/// Nothing else lies where the room is, and no part of it on another part.
bool IsAlone(const PeResources& resources, const ProgramRoom& room) {
    const FileRange* const parts[] = {&room.pool, &room.list, &room.version};
    for (const FileRange* part : parts) {
        if (!resources.Section().Holds(*part) || part->Overlaps(resources.Directory())) {
            return false;
        }
        for (const FileRange* other : parts) {
            if (other != part && other->Overlaps(*part)) {
                return false;
            }
        }
    }
    const auto isOurs = [&room](const PeResource& resource) {
        return resource.entry == room.listEntry || resource.entry == room.versionEntry ||
               std::find(room.imageEntries.begin(), room.imageEntries.end(), resource.entry) !=
                   room.imageEntries.end();
    };
    return std::none_of(
        resources.All().begin(), resources.All().end(), [&](const PeResource& resource) {
            return !isOurs(resource) &&
                   (resource.content.Overlaps(room.pool) || resource.content.Overlaps(room.list) ||
                    resource.content.Overlaps(room.version));
        });
}

}  // namespace

ProgramRoom ProgramRoom::Read(std::string_view bytes) {
    ProgramRoom room;
    const PeResources resources = PeResources::Read(bytes);
    const PeResource* found = resources.Find(kDataType, IDR_ROOM);
    if (found == nullptr) {
        room.problem = resources.Problem().empty() ? kNoRoom : resources.Problem();
        return room;
    }
    const std::string_view table = bytes.substr(found->content.start, found->content.size);
    if (!table.starts_with(kTableName)) {
        room.problem = kNoRoom;
        return room;
    }
    room.vendorsPlace = found->content.start + kVendorsInTable;
    room.vendors = NumberAt(table, kVendorsInTable, 4).value_or(0);
    room.pool = RangeAt(table, kRangesInTable);
    room.list = RangeAt(table, kRangesInTable + 8);
    room.version = RangeAt(table, kRangesInTable + 16);
    const bool whole = table.size() == kTableSize &&
                       NumberAt(table, kTableName.size(), 4) == kTableSize &&
                       NumberAt(table, kRangesInTable + 24, 4) == kImages &&
                       room.pool.size == kPoolSize && (room.vendors & ~kAllVendors) == 0;
    if (!whole || !FindResources(resources, room) || !IsAlone(resources, room)) {
        room.problem = kMoved;
    }
    room.addressDelta = resources.Address(resources.Section().start) -
                        static_cast<std::uint32_t>(resources.Section().start);
    return room;
}

}  // namespace tarvex
