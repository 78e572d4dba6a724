#include <gtest/gtest.h>

#include "configurator/BrandWriter.h"
#include "configurator/SettingsDifference.h"
#include "configurator/SettingsFile.h"
#include "configurator/SettingsSource.h"
#include "configurator/program/ProgramFields.h"
#include "configurator/program/ProgramResources.h"
#include "tests/configurator/ConfiguratorWorld.h"
#include "tests/support/IconBytes.h"
#include "text/Text.h"

namespace tarvex {
namespace {

using Texts = std::vector<std::u16string>;

Texts Lines(const Problems& problems) {
    Texts lines;
    for (const Problem& problem : problems) {
        lines.push_back(ProblemLine(problem));
    }
    return lines;
}

std::string Icon() {
    return IconBytes({BitmapImage(16, 16, 32, '\x55'), BitmapImage(48, 48, 8),
                      BitmapImage(32, 32, 32, '\x66'), PngImage(256, 256)});
}

/// Brands and changes R.exe, a launcher with room for icon and version texts.
class BrandProgramTest : public testing::Test {
protected:
    BrandProgramTest() {
        SyntheticLauncher launcher;
        launcher.hasRoom = true;
        world_.files.AddFile(u"R.exe", launcher.Build());
        own_.Set(kFieldAppName, u"Kunden");
        program_.Set(kFieldIconFile, u"a.ico");
        program_.SetIcon(Icon());
        program_.Set(kFieldCompanyName, u"Müller & Söhne");
        program_.Set(kFieldFileVersion, u"2.5");
        all_ = own_;
        all_.SetAll(program_);
    }

    Texts Brand(std::u16string_view output, const Settings& settings) {
        return Lines(Writer().Brand(u"R.exe", output, settings, {}));
    }

    LoadedSettings Load(std::u16string_view file) {
        return LoadSettings(world_.files.Bytes(file), file, world_.codec);
    }

    BrandWriter Writer() { return {world_.store, world_.codec}; }

    ConfiguratorWorld world_;
    Settings own_;
    Settings program_;
    Settings all_;
};

TEST_F(BrandProgramTest, IconAndTextsAreWrittenWithTheOtherSettings) {
    BrandWriter writer = Writer();
    EXPECT_EQ(Lines(writer.Brand(u"R.exe", u"K.exe", all_, {})), Texts());
    EXPECT_EQ(Lines(writer.Notes()),
              Texts({u"K.exe, IconFile: Nicht im Programm ist Bild 2: 48 x 48 mit 8 Bit Farbtiefe "
                     u"statt 32."}));
    const LoadedSettings loaded = Load(u"K.exe");
    EXPECT_EQ(Lines(loaded.problems), Texts());
    EXPECT_EQ(loaded.settings.Value(kFieldAppName), u"Kunden");
    EXPECT_EQ(loaded.settings.Value(kFieldCompanyName), u"Müller & Söhne");
    EXPECT_EQ(loaded.settings.Value(kFieldFileVersion), u"2.5");
    EXPECT_EQ(loaded.settings.Value(kFieldIconFile), u"16 x 16, 32 x 32, 256 x 256");
    EXPECT_EQ(loaded.settings.Icon(), WriteIconFile(ReadIconFile(Icon()).images));
    EXPECT_EQ(world_.files.Bytes(u"K.exe").size(), world_.files.Bytes(u"R.exe").size());
}

TEST_F(BrandProgramTest, OnlyWhatTheVendorGaveIsRead) {
    EXPECT_EQ(Brand(u"K.exe", own_), Texts());
    const LoadedSettings loaded = Load(u"K.exe");
    for (const BrandField& field : kProgramFields) {
        EXPECT_FALSE(loaded.settings.Has(field.number));
    }
    EXPECT_EQ(loaded.settings.Icon(), "");
}

TEST_F(BrandProgramTest, OrderOfTheStepsDoesNotMatter) {
    EXPECT_EQ(Brand(u"K.exe", all_), Texts());
    EXPECT_EQ(Brand(u"A.exe", own_), Texts());
    EXPECT_EQ(Lines(Writer().Change(u"A.exe", program_)), Texts());
    EXPECT_EQ(world_.files.Bytes(u"A.exe"), world_.files.Bytes(u"K.exe"));
    EXPECT_EQ(Brand(u"B.exe", program_), Texts());
    EXPECT_EQ(Lines(Writer().Change(u"B.exe", own_)), Texts());
    EXPECT_EQ(world_.files.Bytes(u"B.exe"), world_.files.Bytes(u"K.exe"));
}

TEST_F(BrandProgramTest, LauncherWithoutRoomRefusesTheseFieldsAndTakesTheOthers) {
    EXPECT_EQ(Lines(Writer().Brand(u"T.exe", u"K.exe", program_, {})),
              Texts({u"K.exe, IconFile: Die Datei hat keine Ressourcen.",
                     u"K.exe, CompanyName: Die Datei hat keine Ressourcen.",
                     u"K.exe, FileVersion: Die Datei hat keine Ressourcen."}));
    EXPECT_FALSE(world_.files.FileExists(u"K.exe"));
    EXPECT_EQ(Lines(Writer().CheckBrand(u"T.exe", program_)).size(), 3U);
    EXPECT_EQ(Lines(Writer().CheckBrand(u"T.exe", own_)), Texts());
    EXPECT_EQ(Lines(Writer().Brand(u"T.exe", u"K.exe", own_, {})), Texts());
    EXPECT_EQ(Lines(Writer().CheckChange(u"K.exe", program_)).size(), 3U);
}

TEST_F(BrandProgramTest, RefusedIconLeavesTheFileAlone) {
    EXPECT_EQ(Brand(u"K.exe", all_), Texts());
    const std::string before = world_.files.Bytes(u"K.exe");
    Settings broken;
    broken.Set(kFieldIconFile, u"x.ico");
    broken.SetIcon("GIF89a");
    EXPECT_EQ(Lines(Writer().Change(u"K.exe", broken)),
              Texts({u"K.exe, IconFile: Die Datei ist keine Symboldatei (.ico)."}));
    EXPECT_EQ(world_.files.Bytes(u"K.exe"), before);
}

TEST_F(BrandProgramTest, ComparisonFindsEveryOtherByteInTheRoom) {
    const std::string before = world_.files.Bytes(u"R.exe");
    EXPECT_EQ(Brand(u"K.exe", all_), Texts());
    const std::string after = world_.files.Bytes(u"K.exe");
    const auto compare = [&](const std::string& bytes, const Settings& settings) {
        return Lines(CompareBranded(before, bytes, settings, u"K.exe", world_.codec));
    };
    Settings complete = all_;
    EXPECT_EQ(compare(after, complete), Texts());
    for (const FileRange& range : ProgramResources::Read(before).ChangeableRanges()) {
        std::string damaged = after;
        damaged[range.End() - 1] = static_cast<char>(damaged[range.End() - 1] ^ 1);
        EXPECT_FALSE(compare(damaged, complete).empty()) << range.start;
    }
    // Where nothing was asked for, nothing may have changed.
    EXPECT_EQ(compare(after, own_),
              Texts({u"K.exe: Außerhalb der Werte hat sich die Datei beim Schreiben geändert."}));
    // What was asked for must be there.
    complete.Set(kFieldComments, u"fehlt");
    EXPECT_EQ(compare(after, complete),
              Texts({u"K.exe, Comments: Der geschriebene Wert wird nicht so zurückgelesen.",
                     u"K.exe: Außerhalb der Werte hat sich die Datei beim Schreiben geändert."}));
}

TEST_F(BrandProgramTest, IconsAreComparedAsAProgramHasThem) {
    EXPECT_EQ(Brand(u"K.exe", all_), Texts());
    const Settings stored = Load(u"K.exe").settings;
    EXPECT_TRUE(CompareSettings(program_, stored).size() == 1);  // AppName
    Settings other = stored;
    other.SetIcon(IconBytes(
        {BitmapImage(16, 16, 32, '\x01'), BitmapImage(32, 32, 32, '\x66'), PngImage(256, 256)}));
    const std::vector<Difference> differences = CompareSettings(stored, other);
    ASSERT_EQ(differences.size(), 1U);
    EXPECT_EQ(differences[0].before, u"16 x 16, 32 x 32, 256 x 256");
    EXPECT_EQ(differences[0].after, u"16 x 16, 32 x 32, 256 x 256 (andere Bilder)");
}

TEST_F(BrandProgramTest, EmptyTextIsAnotherThanNoneInASettingsFile) {
    Settings settings;
    settings.Set(kFieldLegalTrademarks, u"");
    settings.Set(kFieldComments, u"日本 & Größe");
    const std::string file = WriteSettings(settings, u"x");
    EXPECT_NE(file.find("\r\nLegalTrademarks =\r\n"), std::string::npos);
    EXPECT_NE(file.find("\r\n;CompanyName =\r\n"), std::string::npos);
    const ParsedSettings parsed = ParseSettings(file, u"K.ini", world_.codec);
    EXPECT_TRUE(parsed.settings.Has(kFieldLegalTrademarks));
    EXPECT_FALSE(parsed.settings.Has(kFieldCompanyName));
    EXPECT_EQ(parsed.settings.Value(kFieldComments), u"日本 & Größe");
}

TEST_F(BrandProgramTest, TextOfSeveralLinesIsRefusedWithItsLine) {
    const ParsedSettings parsed =
        ParseSettings("[Programmdatei]\nComments = a\n b\n", u"K.ini", world_.codec);
    EXPECT_EQ(Lines(parsed.problems),
              Texts({u"K.ini, Zeile 2, Comments: Der Text muss in einer Zeile stehen und darf "
                     u"keine Steuerzeichen enthalten."}));
}

TEST_F(BrandProgramTest, IconIsReadRelativeToTheSettingsFile) {
    EXPECT_EQ(IconPath(u"", u"a.ico"), u"a.ico");
    EXPECT_EQ(IconPath(u"/v", u"bilder\\a.ico"), u"/v/bilder/a.ico");
    EXPECT_EQ(IconPath(u"/", u"a.ico"), u"/a.ico");
    EXPECT_EQ(IconPath(u"/v", u"/w/a.ico"), u"/w/a.ico");
    EXPECT_EQ(IconPath(u"C:\\v", u"D:\\a.ico"), u"D:/a.ico");
    world_.files.AddFile(u"v/a.ico", Icon());
    Settings settings;
    settings.Set(kFieldIconFile, u"a.ico", 7);
    EXPECT_EQ(Lines(LoadIconFile(world_.store, u"v", u"v/K.ini", settings)), Texts());
    EXPECT_EQ(settings.Icon(), Icon());
    Settings none;
    EXPECT_EQ(Lines(LoadIconFile(world_.store, u"v", u"v/K.ini", none)), Texts());
}

TEST_F(BrandProgramTest, IconThatCannotBeUsedIsNamedWithItsFile) {
    Settings settings;
    settings.Set(kFieldIconFile, u"a.ico", 7);
    EXPECT_EQ(Lines(LoadIconFile(world_.store, u"v", u"v/K.ini", settings)),
              Texts({u"v/K.ini, Zeile 7, IconFile: v/a.ico: Die Datei ist nicht vorhanden."}));
    world_.files.AddFile(u"v/a.ico", "GIF89a");
    EXPECT_EQ(Lines(LoadIconFile(world_.store, u"v", u"v/K.ini", settings)),
              Texts({u"v/K.ini, Zeile 7, IconFile: v/a.ico: Die Datei ist keine Symboldatei "
                     u"(.ico)."}));
}

}  // namespace
}  // namespace tarvex
