#include "configurator/program/PeResources.h"

#include <gtest/gtest.h>

#include "tests/support/SyntheticLauncher.h"
#include "tests/support/SyntheticRoom.h"

namespace tarvex {
namespace {

constexpr std::u16string_view kDamaged = u"Das Verzeichnis der Ressourcen ist beschädigt.";
constexpr std::size_t kDirectoryCount = 0x80 + 24 + 92;  // in the headers of SyntheticLauncher
constexpr std::size_t kDirectoryAddress = 0x80 + 24 + 112;
constexpr std::size_t kSection = 0x80 + 24 + 224;

std::string Launcher() {
    SyntheticLauncher launcher;
    launcher.hasRoom = true;
    return launcher.Build();
}

std::size_t Number(const std::string& bytes, std::size_t at) {
    std::size_t number = 0;
    for (std::size_t i = 4; i-- > 0;) {
        number = number << 8U | static_cast<unsigned char>(bytes.at(at + i));
    }
    return number;
}

std::string Changed(std::string bytes, std::size_t at, std::string_view with) {
    return bytes.replace(at, with.size(), with);
}

TEST(PeResourcesTest, EveryResourceIsFoundWithItsContent) {
    const std::string bytes = Launcher();
    const PeResources resources = PeResources::Read(bytes);
    EXPECT_EQ(resources.Problem(), u"");
    EXPECT_EQ(resources.All().size(), 16U);
    const PeResource* version = resources.Find(16, 1);
    ASSERT_NE(version, nullptr);
    EXPECT_EQ(version->language, 0x407U);
    EXPECT_EQ(bytes.substr(version->content.start + 6, 4), std::string("V\0S\0", 4));
    EXPECT_EQ(Number(bytes, version->entry + 4), version->content.size);
    EXPECT_EQ(Number(bytes, version->entry), resources.Address(version->content.start));
    EXPECT_EQ(resources.Section().start, Number(bytes, kSection + 20));
    EXPECT_EQ(resources.Section().size, Number(bytes, kSection + 16));
    EXPECT_EQ(resources.Directory().start, resources.Section().start);
    EXPECT_EQ(resources.Find(24, 1)->entry + 16, resources.Directory().End());
    EXPECT_EQ(resources.Find(24, 2), nullptr);
}

TEST(PeResourcesTest, ResourceInTwoLanguagesIsNotTheOnlyOne) {
    std::vector<SyntheticResource> two = {
        {16, 1, 0x407, "a"}, {16, 1, 0x409, "b"}, {16, 2, 0x407, "c"}};
    const std::string section = BuildResources(two, SyntheticLauncher::kResources);
    std::string bytes = Launcher();
    bytes.replace(Number(bytes, kSection + 20), section.size(), section);
    const PeResources resources = PeResources::Read(bytes);
    EXPECT_EQ(resources.All().size(), 3U);
    EXPECT_EQ(resources.Find(16, 1), nullptr);
    EXPECT_NE(resources.Find(16, 2), nullptr);
}

TEST(PeResourcesTest, ResourcesWithNamesArePassedOver) {
    const std::string bytes = Launcher();
    const std::size_t root = Number(bytes, kSection + 20);
    const PeResources resources = PeResources::Read(Changed(bytes, root + 16 + 3, "\x80"));
    EXPECT_EQ(resources.Problem(), u"");
    EXPECT_EQ(resources.All().size(), 4U);
}

TEST(PeResourcesTest, ProgramWithoutResourcesHasNone) {
    const std::u16string none = u"Die Datei hat keine Ressourcen.";
    EXPECT_EQ(PeResources::Read(SyntheticLauncher().Build()).Problem(), none);
    EXPECT_EQ(PeResources::Read("").Problem(), none);
    const std::string bytes = Launcher();
    EXPECT_EQ(PeResources::Read(Changed(bytes, kDirectoryCount, "\x02")).Problem(), none);
}

TEST(PeResourcesTest, DirectoryThatLeadsOutOfItsSectionIsNotRead) {
    const std::string bytes = Launcher();
    const std::size_t root = Number(bytes, kSection + 20);
    const std::size_t entry = PeResources::Read(bytes).Find(16, 1)->entry;
    const std::string_view cases[] = {"\xff\xff\xff\x7f", "\xff\xff\xff\xff"};
    for (const std::string_view wrong : cases) {
        for (const std::size_t at :
             {entry, entry + 4, root + 20, kSection + 20, kSection + 12, kDirectoryAddress}) {
            const PeResources resources = PeResources::Read(Changed(bytes, at, wrong));
            EXPECT_EQ(resources.Problem(), kDamaged) << at;
            EXPECT_TRUE(resources.All().empty()) << at;
        }
    }
}

TEST(PeResourcesTest, ContentMustEndInsideTheSection) {
    const std::string bytes = Launcher();
    const PeResources resources = PeResources::Read(bytes);
    const PeResource& last = *resources.Find(24, 1);
    const std::size_t room = resources.Section().End() - last.content.start;
    const auto withSize = [&](std::size_t size) {
        const std::string two = {static_cast<char>(size & 0xffU), static_cast<char>(size >> 8U)};
        return PeResources::Read(Changed(bytes, last.entry + 4, two));
    };
    EXPECT_EQ(withSize(room).Problem(), u"");
    EXPECT_EQ(withSize(room + 1).Problem(), kDamaged);
}

TEST(PeResourcesTest, DirectoryHasThreeLevels) {
    const std::string bytes = Launcher();
    const std::size_t root = Number(bytes, kSection + 20);
    // The first type leads to its content at once.
    EXPECT_EQ(PeResources::Read(Changed(bytes, root + 23, std::string(1, '\0'))).Problem(),
              kDamaged);
    // A language leads to one more directory, the root.
    const std::size_t numbers = root + (Number(bytes, root + 20) & 0x7fffffffU);
    const std::size_t languages = root + (Number(bytes, numbers + 20) & 0x7fffffffU);
    EXPECT_EQ(
        PeResources::Read(Changed(bytes, languages + 20, std::string("\0\0\0\x80", 4))).Problem(),
        kDamaged);
}

/// A launcher whose directory names so many types, all with the same so many numbers.
std::string WithManyEntries(std::uint32_t count) {
    std::string directory;
    const auto add = [&directory](std::uint32_t entries, std::uint32_t leadsTo) {
        directory.append(12, '\0');
        AppendNumber(directory, entries << 16U, 4);
        for (std::uint32_t i = 0; i < entries; ++i) {
            AppendNumber(directory, i, 4);
            AppendNumber(directory, leadsTo, 4);
        }
    };
    const std::uint32_t size = 16 + 8 * count;
    add(count, 0x80000000 | size);
    add(count, 0x80000000 | (2 * size));
    add(1, 2 * size + 24);
    AppendNumber(directory, SyntheticLauncher::kResources, 4);
    directory.append(12, '\0');
    const std::string bytes = Launcher();
    return Changed(bytes, Number(bytes, kSection + 20), directory);
}

TEST(PeResourcesTest, DirectoryThatNamesOneThingEndlesslyIsNotRead) {
    EXPECT_EQ(PeResources::Read(WithManyEntries(45)).All().size(), 45U * 45U);
    EXPECT_EQ(PeResources::Read(WithManyEntries(46)).Problem(), kDamaged);
}

TEST(PeResourcesTest, EveryShorterFileIsReadWithoutFailing) {
    const std::string bytes = Launcher();
    for (std::size_t size = 0; size < bytes.size(); size += size < 1024 ? 3 : 811) {
        EXPECT_NE(PeResources::Read(std::string(bytes, 0, size)).Problem().empty(),
                  size < Number(bytes, kSection + 20) + Number(bytes, kSection + 16))
            << size;
    }
}

}  // namespace
}  // namespace tarvex
