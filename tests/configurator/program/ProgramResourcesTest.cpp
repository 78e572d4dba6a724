#include "configurator/program/ProgramResources.h"

#include <gtest/gtest.h>

#include "configurator/program/PeResources.h"
#include "configurator/program/ProgramFields.h"
#include "tests/support/IconBytes.h"
#include "tests/support/SyntheticLauncher.h"
#include "tests/support/SyntheticRoom.h"

namespace tarvex {
namespace {

using Texts = std::vector<std::u16string>;

std::string Launcher() {
    SyntheticLauncher launcher;
    launcher.hasRoom = true;
    return launcher.Build();
}

Settings With(std::initializer_list<std::pair<std::int32_t, std::u16string>> values,
              std::string icon = {}) {
    Settings settings;
    for (const auto& [number, value] : values) {
        settings.Set(number, value);
    }
    settings.SetIcon(std::move(icon));
    return settings;
}

std::string Small() {
    return IconBytes({BitmapImage(16, 16, 32, '\x55'), BitmapImage(32, 32, 32, '\x66'),
                      BitmapImage(48, 48), PngImage(256, 256)});
}

/// What was put, when nothing is wrong with it.
std::string Put(std::string bytes, const Settings& settings) {
    const PutResult result = PutProgramResources(bytes, settings, u"T.exe");
    EXPECT_TRUE(result.problems.empty())
        << testing::PrintToString(result.problems.empty() ? u"" : ProblemLine(result.problems[0]));
    return bytes;
}

/// The problems, when nothing was changed.
Texts Refused(const std::string& before, const Settings& settings) {
    std::string bytes = before;
    Texts lines;
    for (const Problem& problem : PutProgramResources(bytes, settings, u"T.exe").problems) {
        lines.push_back(ProblemLine(problem));
    }
    EXPECT_EQ(bytes, before);
    return lines;
}

std::string Blanked(std::string bytes, const ProgramResources& resources) {
    for (const FileRange& range : resources.ChangeableRanges()) {
        bytes.replace(range.start, range.size, range.size, ' ');
    }
    return bytes;
}

TEST(ProgramResourcesTest, TemplateHasIconAndTextsThatAreNotTheVendors) {
    const ProgramResources resources = ProgramResources::Read(Launcher());
    EXPECT_EQ(resources.Problem(), u"");
    EXPECT_EQ(resources.Version().Text(u"CompanyName"), u"Vorlage CompanyName");
    EXPECT_EQ(resources.Images(),
              IconImages({{16, 16, BitmapImage(16, 16)}, {32, 32, BitmapImage(32, 32)}}));
    for (const BrandField& field : kProgramFields) {
        EXPECT_FALSE(resources.IsVendors(field.number));
    }
    Settings settings;
    AddProgramSettings(resources, settings);
    EXPECT_TRUE(settings.Entries().empty());
    EXPECT_EQ(settings.Icon(), "");
}

TEST(ProgramResourcesTest, NothingSetChangesNothing) {
    const std::string bytes = Launcher();
    EXPECT_EQ(Put(bytes, With({{1, u"Kunden"}})), bytes);
}

TEST(ProgramResourcesTest, TextsThatAreSetAreReplacedAndBecomeTheVendors) {
    const std::string before = Launcher();
    const std::string after = Put(before, With({{kFieldCompanyName, u"Müller & Söhne"},
                                                {kFieldLegalTrademarks, u""},
                                                {kFieldComments, u"日本 🙂"}}));
    const ProgramResources resources = ProgramResources::Read(after);
    ASSERT_EQ(resources.Problem(), u"");
    EXPECT_EQ(resources.Version().Text(u"CompanyName"), u"Müller & Söhne");
    EXPECT_EQ(resources.Version().Text(u"LegalTrademarks"), u"");
    EXPECT_EQ(resources.Version().Text(u"Comments"), u"日本 🙂");
    EXPECT_EQ(resources.Version().Text(u"ProductName"), u"Vorlage ProductName");
    EXPECT_EQ(resources.Version().FileNumbers(), VersionBlock::Numbers({1, 2, 3, 4}));
    EXPECT_EQ(resources.Images(), ProgramResources::Read(before).Images());
    EXPECT_TRUE(resources.IsVendors(kFieldCompanyName));
    EXPECT_TRUE(resources.IsVendors(kFieldLegalTrademarks));
    EXPECT_TRUE(resources.IsVendors(kFieldComments));
    EXPECT_FALSE(resources.IsVendors(kFieldProductName));
    EXPECT_FALSE(resources.IsVendors(kFieldIconFile));
    Settings settings;
    AddProgramSettings(resources, settings);
    EXPECT_EQ(settings.Entries().size(), 3U);
    EXPECT_EQ(settings.Value(kFieldComments), u"日本 🙂");
    EXPECT_TRUE(settings.Has(kFieldLegalTrademarks));
}

TEST(ProgramResourcesTest, EveryTextHasItsPlace) {
    Settings settings;
    for (const BrandField& field : kProgramFields) {
        if (field.number != kFieldIconFile) {
            settings.Set(field.number, u"9 " + std::u16string(field.name));
        }
    }
    const std::string after = Put(Launcher(), settings);
    Settings read;
    AddProgramSettings(ProgramResources::Read(after), read);
    EXPECT_EQ(read.Entries().size(), 10U);
    for (const auto& [number, entry] : settings.Entries()) {
        EXPECT_EQ(read.Value(number), entry.value);
    }
}

TEST(ProgramResourcesTest, VersionTextsBringTheirNumbers) {
    const ProgramResources resources = ProgramResources::Read(
        Put(Launcher(),
            With({{kFieldFileVersion, u"2026.11.0.65535"}, {kFieldProductVersion, u"7 Beta"}})));
    EXPECT_EQ(resources.Version().FileNumbers(), VersionBlock::Numbers({2026, 11, 0, 65535}));
    EXPECT_EQ(resources.Version().ProductNumbers(), VersionBlock::Numbers({7, 0, 0, 0}));
    EXPECT_EQ(resources.Version().Text(u"ProductVersion"), u"7 Beta");
}

TEST(ProgramResourcesTest, IconIsReplacedAndReadBack) {
    const std::string after = Put(Launcher(), With({{kFieldIconFile, u"a.ico"}}, Small()));
    const ProgramResources resources = ProgramResources::Read(after);
    ASSERT_EQ(resources.Problem(), u"");
    EXPECT_TRUE(resources.IsVendors(kFieldIconFile));
    EXPECT_EQ(resources.Images(), ReadIconFile(Small()).images);
    EXPECT_EQ(resources.Version().Text(u"CompanyName"), u"Vorlage CompanyName");
    Settings settings;
    AddProgramSettings(resources, settings);
    EXPECT_EQ(settings.Value(kFieldIconFile), u"16 x 16, 32 x 32, 48 x 48, 256 x 256");
    EXPECT_EQ(settings.Icon(), WriteIconFile(resources.Images()));
}

TEST(ProgramResourcesTest, ImagesLieInThePoolAndUnusedEntriesLeadToTheFirst) {
    const std::string png = PngImage(256, 256);
    const std::string small = BitmapImage(16, 16);
    const std::string after =
        Put(Launcher(), With({{kFieldIconFile, u"a.ico"}}, IconBytes({png, small})));
    const PeResources resources = PeResources::Read(after);
    const FileRange pool = ProgramRoom::Read(after).pool;
    const FileRange first = {pool.start, png.size()};
    EXPECT_EQ(resources.Find(3, 1)->content, first);
    EXPECT_EQ(resources.Find(3, 2)->content,
              (FileRange{pool.start + (png.size() + 7) / 8 * 8, small.size()}));
    for (std::uint32_t number = 3; number <= 12; ++number) {
        EXPECT_EQ(resources.Find(3, number)->content, first);
    }
    EXPECT_EQ(resources.Find(14, 1)->content.size, 6U + 2 * 14U);
    const std::string rest = after.substr(resources.Find(3, 2)->content.End(),
                                          pool.End() - resources.Find(3, 2)->content.End());
    EXPECT_EQ(rest, std::string(rest.size(), '\0'));
}

TEST(ProgramResourcesTest, WhatDoesNotFitIsLeftOutAndNamed) {
    std::string bytes = Launcher();
    const PutResult result = PutProgramResources(
        bytes,
        With({{kFieldIconFile, u"a.ico"}},
             IconBytes({BitmapImage(96, 96), BitmapImage(16, 16), BitmapImage(32, 32, 8),
                        BitmapImage(64, 64), BitmapImage(48, 48)})),
        u"T.exe");
    EXPECT_TRUE(result.problems.empty());
    EXPECT_EQ(result.leftOut, Texts({u"Bild 3: 32 x 32 mit 8 Bit Farbtiefe statt 32",
                                     u"96 x 96: kein Platz im Programm"}));
    Settings settings;
    AddProgramSettings(ProgramResources::Read(bytes), settings);
    EXPECT_EQ(settings.Value(kFieldIconFile), u"16 x 16, 64 x 64, 48 x 48");
}

TEST(ProgramResourcesTest, FullRoomIsUsedToItsLastByte) {
    const std::string before = Launcher();
    const ProgramRoom room = ProgramRoom::Read(before);
    // What remains for this text when all others have one character.
    Settings settings;
    for (const BrandField& field : kProgramFields) {
        if (field.number != kFieldIconFile) {
            settings.Set(field.number, u"1");
        }
    }
    for (const std::int32_t number :
         {kFieldFileDescription, kFieldCompanyName, kFieldProductName}) {
        settings.Set(number, std::u16string(500, u'x'));
    }
    const std::size_t used = ProgramResources::Read(Put(before, settings)).Room().versionSize;
    const std::size_t free = (room.version.size - used) / 2;
    ASSERT_LT(free, 499U);
    settings.Set(kFieldLegalCopyright, std::u16string(1 + free, u'y'));
    EXPECT_EQ(ProgramResources::Read(Put(before, settings)).Room().versionSize, 4096U);
    settings.Set(kFieldLegalCopyright, std::u16string(1 + free + 7, u'y'));
    EXPECT_EQ(Refused(before, settings),
              Texts({u"T.exe, Programmdatei: Die Texte sind zusammen um 8 Zeichen zu lang."}));
}

TEST(ProgramResourcesTest, ResultDoesNotDependOnWhatStoodThere) {
    const std::string before = Launcher();
    const Settings icon = With({{kFieldIconFile, u"a.ico"}}, Small());
    const Settings texts = With({{kFieldCompanyName, u"Müller"}, {kFieldComments, u"x"}});
    Settings both = texts;
    both.Set(kFieldIconFile, u"a.ico");
    both.SetIcon(Small());
    const std::string expected = Put(before, both);
    EXPECT_EQ(Put(Put(before, icon), texts), expected);
    EXPECT_EQ(Put(Put(before, texts), icon), expected);
    EXPECT_EQ(Put(expected, both), expected);
    const Settings longer =
        With({{kFieldIconFile, u"b.ico"}, {kFieldCompanyName, std::u16string(400, u'z')}},
             IconBytes({BitmapImage(64, 64), BitmapImage(20, 20)}));
    EXPECT_EQ(Put(Put(before, longer), both), expected);
}

TEST(ProgramResourcesTest, OnlyTheNamedRangesChange) {
    const std::string before = Launcher();
    const ProgramResources resources = ProgramResources::Read(before);
    Settings settings = With({{kFieldIconFile, u"a.ico"}}, Small());
    for (const BrandField& field : kProgramFields) {
        if (field.number != kFieldIconFile) {
            settings.Set(field.number, u"99 Neu");
        }
    }
    const std::string after = Put(before, settings);
    EXPECT_EQ(after.size(), before.size());
    EXPECT_NE(after, before);
    EXPECT_EQ(Blanked(after, resources), Blanked(before, resources));
    // No larger than they have to be.
    std::size_t changeable = 0;
    for (const FileRange& range : resources.ChangeableRanges()) {
        changeable += range.size;
    }
    EXPECT_EQ(changeable, 32768U + 174U + 4096U + 4U + 4U + 4U + 12U * 8U);
}

TEST(ProgramResourcesTest, TextOrImageThatLooksLikeAMarkIsRefused) {
    const std::string before = Launcher();
    for (const char16_t* text : {u"a @#BRD#@| b", u"@#brd#@|", u"@#Branded0#@", u"@#BRANDED1#@"}) {
        EXPECT_EQ(Refused(before, With({{kFieldComments, text}})).size(), 1U);
    }
    EXPECT_EQ(Refused(before, With({{kFieldComments, u"x@#brd#@|"}})),
              Texts({u"T.exe, Comments: Der Text darf '@#BRD#@|' nicht enthalten; daran werden die "
                     u"Einstellungen im Programm erkannt."}));
    for (const char16_t* mark : {u"@#BRD#@|", u"@#branded1#@", u"@#BRANDED0#@"}) {
        for (const std::size_t at : {40U, 101U}) {
            std::string image = BitmapImage(16, 16);
            PutText(image, at, mark);
            EXPECT_EQ(Refused(before, With({{kFieldIconFile, u"a.ico"}}, IconBytes({image}))),
                      Texts({u"T.exe, IconFile: Ein Bild der Symboldatei enthält Bytes, an denen "
                             u"die Einstellungen im Programm erkannt werden."}));
        }
    }
}

TEST(ProgramResourcesTest, UnusableIconIsRefusedWithItsReason) {
    const std::string before = Launcher();
    const auto refused = [&before](const std::string& icon) {
        return Refused(before, With({{kFieldIconFile, u"a.ico"}, {kFieldComments, u"x"}}, icon));
    };
    EXPECT_EQ(refused("GIF89a"),
              Texts({u"T.exe, IconFile: Die Datei ist keine Symboldatei (.ico)."}));
    EXPECT_EQ(refused(IconBytes({BitmapImage(128, 128)})),
              Texts({u"T.exe, IconFile: Kein Bild der Symboldatei hat im Programm Platz."}));
}

TEST(ProgramResourcesTest, IconOfTheTemplateCannotComeBack) {
    const Settings none = With({{kFieldIconFile, u""}});
    EXPECT_EQ(Put(Launcher(), none), Launcher());
    EXPECT_EQ(Refused(Put(Launcher(), With({{kFieldIconFile, u"a.ico"}}, Small())), none),
              Texts({u"T.exe, IconFile: Das Symbol der Vorlage ist nicht mehr im Programm und kann "
                     u"nicht wieder eingesetzt werden; nennen Sie eine Symboldatei."}));
}

TEST(ProgramResourcesTest, LauncherWithoutRoomRefusesTheseFieldsOnly) {
    const std::string before = SyntheticLauncher().Build();
    EXPECT_EQ(Refused(before, With({{kFieldComments, u"x"}})),
              Texts({u"T.exe, Comments: Die Datei hat keine Ressourcen."}));
    EXPECT_EQ(Refused(before, With({{1, u"x"}})), Texts());
    EXPECT_TRUE(ProgramResources::Read(before).ChangeableRanges().empty());
    Settings settings;
    AddProgramSettings(ProgramResources::Read(before), settings);
    EXPECT_TRUE(settings.Entries().empty());
}

TEST(ProgramResourcesTest, ContentThatAnotherProgramChangedInPlaceIsNotTouched) {
    const Texts refused(
        {u"T.exe, Comments: Symbol oder Versionstexte des Startprogramms sind "
         u"beschädigt oder von einem anderen Programm verändert."});
    const std::string before = Launcher();
    const ProgramRoom room = ProgramRoom::Read(before);
    const Settings settings = With({{kFieldComments, u"x"}});
    for (const std::size_t at :
         {room.version.start, room.version.start + 40, room.list.start + 2, room.list.start + 4,
          room.list.start + 6, room.list.start + 18, room.pool.start, room.pool.start + 14}) {
        std::string changed = before;
        changed[at] = static_cast<char>(changed[at] ^ 9);
        EXPECT_EQ(Refused(changed, settings), refused) << at;
    }
}

}  // namespace
}  // namespace tarvex
