#include "configurator/program/ProgramRoom.h"

#include <gtest/gtest.h>

#include "configurator/program/PeResources.h"
#include "tests/support/SyntheticLauncher.h"
#include "tests/support/SyntheticRoom.h"

namespace tarvex {
namespace {

constexpr std::u16string_view kNoRoom =
    u"Das Startprogramm hat keinen Platz für Symbol und Versionstexte des Herstellers.";
constexpr std::u16string_view kMoved =
    u"Symbol oder Versionstexte liegen nicht mehr da, wo das Startprogramm seinen Platz für sie "
    u"hat; ein anderes Programm hat seine Ressourcen verändert.";

std::string Launcher() {
    SyntheticLauncher launcher;
    launcher.hasRoom = true;
    return launcher.Build();
}

std::string Changed(std::string bytes, std::size_t at, std::string_view with) {
    return bytes.replace(at, with.size(), with);
}

std::size_t Entry(const std::string& bytes, std::uint32_t type, std::uint32_t number) {
    return PeResources::Read(bytes).Find(type, number)->entry;
}

TEST(ProgramRoomTest, TableSaysWhereEverythingIs) {
    const std::string bytes = Launcher();
    const PeResources resources = PeResources::Read(bytes);
    const ProgramRoom room = ProgramRoom::Read(bytes);
    EXPECT_EQ(room.problem, u"");
    EXPECT_EQ(room.pool, (FileRange{resources.Find(3, 1)->content.start, 32768}));
    EXPECT_EQ(room.list, (FileRange{resources.Find(14, 1)->content.start, 174}));
    EXPECT_EQ(room.version, (FileRange{resources.Find(16, 1)->content.start, 4096}));
    EXPECT_EQ(room.listSize, 34U);
    EXPECT_EQ(room.versionSize, resources.Find(16, 1)->content.size);
    EXPECT_EQ(room.images[1], resources.Find(3, 2)->content);
    EXPECT_EQ(room.images[11], resources.Find(3, 1)->content);
    EXPECT_EQ(room.imageEntries[11], resources.Find(3, 12)->entry);
    EXPECT_EQ(room.listEntry, resources.Find(14, 1)->entry);
    EXPECT_EQ(room.versionEntry, resources.Find(16, 1)->entry);
    EXPECT_EQ(room.vendorsPlace, resources.Find(10, 3)->content.start + 12);
    EXPECT_EQ(room.vendors, 0U);
    EXPECT_EQ(room.pool.start + room.addressDelta, resources.Address(room.pool.start));
}

TEST(ProgramRoomTest, LauncherWithoutTheTableHasNoRoom) {
    EXPECT_EQ(ProgramRoom::Read(SyntheticLauncher().Build()).problem,
              u"Die Datei hat keine Ressourcen.");
    const std::string bytes = Launcher();
    const std::size_t table = PeResources::Read(bytes).Find(10, 3)->content.start;
    EXPECT_EQ(ProgramRoom::Read(Changed(bytes, table + 7, "2")).problem, kNoRoom);
    std::vector<SyntheticResource> others = {{16, 1, 0x407, "x"}};
    const std::string section = BuildResources(others, SyntheticLauncher::kResources);
    const std::size_t start = PeResources::Read(bytes).Section().start;
    EXPECT_EQ(ProgramRoom::Read(Changed(bytes, start, section)).problem, kNoRoom);
}

TEST(ProgramRoomTest, EveryWrongNumberOfTheTableIsFound) {
    const std::string bytes = Launcher();
    const std::size_t table = PeResources::Read(bytes).Find(10, 3)->content.start;
    for (std::size_t at = 8; at < 44; at += 4) {
        if (at == 12) {
            continue;  // what is the vendor's
        }
        for (const char* wrong : {"\x01\x01\x01\x01", "\xff\xff\xff\xff"}) {
            EXPECT_EQ(ProgramRoom::Read(Changed(bytes, table + at, {wrong, 4})).problem, kMoved)
                << at;
        }
    }
    EXPECT_EQ(ProgramRoom::Read(Changed(bytes, table + 12, "\xff\x07")).problem, u"");
    EXPECT_EQ(ProgramRoom::Read(Changed(bytes, table + 12, "\xff\x08")).problem, kMoved);
}

TEST(ProgramRoomTest, TableOfAnotherLengthIsNotTrusted) {
    const std::string bytes = Launcher();
    EXPECT_EQ(ProgramRoom::Read(Changed(bytes, Entry(bytes, 10, 3) + 4, "\x2b")).problem, kMoved);
}

TEST(ProgramRoomTest, MovedResourcesAreFound) {
    const std::string bytes = Launcher();
    const PeResources resources = PeResources::Read(bytes);
    const std::uint32_t elsewhere = resources.Address(resources.Find(24, 1)->content.start);
    const std::string address = {static_cast<char>(elsewhere & 0xffU),
                                 static_cast<char>(elsewhere >> 8U & 0xffU),
                                 static_cast<char>(elsewhere >> 16U)};
    for (const auto& [type, number] : {std::pair{3U, 1U}, {3U, 12U}, {14U, 1U}, {16U, 1U}}) {
        std::string moved = Changed(bytes, Entry(bytes, type, number), address);
        // So short that it lies inside the section there.
        moved.replace(Entry(bytes, type, number) + 4, 4, std::string("\x08\0\0\0", 4));
        EXPECT_EQ(ProgramRoom::Read(moved).problem, kMoved) << type << ' ' << number;
    }
}

TEST(ProgramRoomTest, SizesBeyondTheRoomAreFound) {
    const std::string bytes = Launcher();
    EXPECT_EQ(ProgramRoom::Read(Changed(bytes, Entry(bytes, 14, 1) + 4, "\xaf")).problem, kMoved);
    EXPECT_EQ(ProgramRoom::Read(Changed(bytes, Entry(bytes, 14, 1) + 4, "\xae")).problem, u"");
    const std::string_view tooLarge("\x01\x10", 2);
    EXPECT_EQ(ProgramRoom::Read(Changed(bytes, Entry(bytes, 16, 1) + 4, tooLarge)).problem, kMoved);
}

TEST(ProgramRoomTest, MissingImageEntryIsFound) {
    const std::string bytes = Launcher();
    const std::size_t root = PeResources::Read(bytes).Section().start;
    // The directory of the icons, whose last number becomes 13.
    const std::size_t numbers = root + 16 + std::size_t{8} * 5;
    ASSERT_EQ(bytes[numbers + 14], 12);
    EXPECT_EQ(ProgramRoom::Read(Changed(bytes, numbers + 16 + std::size_t{8} * 11, "\x0d")).problem,
              kMoved);
}

TEST(ProgramRoomTest, OtherResourceInTheRoomIsFound) {
    const std::string bytes = Launcher();
    const PeResources resources = PeResources::Read(bytes);
    for (const std::uint32_t type : {3U, 14U, 16U}) {
        const std::uint32_t address =
            resources.Address(resources.Find(type, 1)->content.start + 100);
        const std::string inside = {static_cast<char>(address & 0xffU),
                                    static_cast<char>(address >> 8U & 0xffU),
                                    static_cast<char>(address >> 16U)};
        EXPECT_EQ(ProgramRoom::Read(Changed(bytes, Entry(bytes, 24, 1), inside)).problem, kMoved)
            << type;
    }
}

}  // namespace
}  // namespace tarvex
