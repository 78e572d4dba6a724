#include "branding/pSettings.h"

#include <gtest/gtest.h>

#include "branding/BrandFields.h"
#include "branding/Scrambling.h"
#include "errors/MessageTable.h"
#include "errors/cuAppError.h"
#include "launch/cuTarvex.h"
#include "resources/Version.h"
#include "tests/branding/BrandTesting.h"
#include "tests/support/FakeBrandConstants.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/FakeRegistry.h"
#include "tests/support/FakeUi.h"
#include "tests/support/FakeVersionResource.h"
#include "tests/support/TestProgram.h"
#include "text/Text.h"
#include "text/TextCodec1252.h"

namespace tarvex {
namespace {

class pSettingsTest : public testing::Test {
protected:
    void Load(const FakeBrandConstants::Values& values) {
        constants = FakeBrandConstants(values);
        settings.LoadSettings();
    }

    void RemoveMark(std::u16string_view part) {
        std::erase_if(constants.marks, [part](const std::u16string& mark) {
            return mark.find(part) != std::u16string::npos;
        });
    }

    FakeUi ui;
    FakeRegistry registry;
    FakeFileSystem files;
    TextCodec1252 codec;
    MessageTable texts;
    FakeVersionResource versions;
    ProgramInfo program = TestProgram();
    FakeBrandConstants constants;
    cuAppError appError{ui, texts, program};
    pSettings settings{constants, appError, {registry, files, codec, codec, ui, program}};
};

TEST_F(pSettingsTest, BeforeLoadingEveryValueIsEmptyOrTheDefault) {
    EXPECT_EQ(settings.Brand().Brandings().Count(), 0U);
    EXPECT_EQ(settings.Value(kFieldAppName), u"");
    EXPECT_EQ(settings.Value(kFieldPicDelay, u"0"), u"0");
    EXPECT_FALSE(settings.Flag(kFieldLog));
}

TEST_F(pSettingsTest, UnbrandedProgramIsReportedWithItsPath) {
    constants = FakeBrandConstants({{kFieldAppName, u"Kunden"}});
    constants.marker = u"@#BRANDED0#@";
    ExpectError(ErrorOf([&] { settings.LoadSettings(); }), -2147221621,
                u"Im Startprogramm 'C:\\Prog\\Start.exe' wurden keine Parameter gesetzt.\r\n"
                u"Verwenden Sie das Tarvex-Konfigurationsprogramm, um die Parameter für die zu "
                u"ladende Access-Datenbank einzustellen.",
                u"pSettings: LoadSettings");
    EXPECT_EQ(settings.Value(kFieldAppName), ScrambleBrandValue(u"Kunden", codec));
    EXPECT_EQ(appError.AppName(), u"Tarvex");
}

TEST_F(pSettingsTest, PathAtADrivesRootHasOneBackslash) {
    program.folder = u"C:\\";
    constants.marker = u"@#BRANDED0#@";
    EXPECT_NE(ErrorOf([&] { settings.LoadSettings(); }).description.find(u"'C:\\Start.exe'"),
              std::u16string::npos);
}

TEST_F(pSettingsTest, ValuesAreUnscrambledOnce) {
    Load({{kFieldDBPath, u"C:\\Daten für_Kunden"}, {kFieldDBFilename, u"Daten.mdt"}});
    EXPECT_EQ(settings.Value(kFieldDBPath), u"C:\\Daten für_Kunden");
    EXPECT_EQ(settings.Value(kFieldDBFilename), u"Daten.mdt");
    EXPECT_EQ(settings.Value(kFieldCmd), u"");
    settings.LoadSettings();
    EXPECT_EQ(settings.Value(kFieldDBPath), u"C:\\Daten für_Kunden");
}

TEST_F(pSettingsTest, UnscrambledItemsAreDirty) {
    Load({{kFieldCmd, u"x"}});
    EXPECT_TRUE(settings.Brand().Brandings().Item(kFieldCmd).Dirty());
    EXPECT_FALSE(settings.Brand().Brandings().Item(kFieldMacro).Dirty());
}

TEST_F(pSettingsTest, ApplicationNameReachesTheErrorObject) {
    Load({{kFieldCmd, u"x"}});
    EXPECT_EQ(appError.AppName(), u"Tarvex");
    Load({{kFieldAppName, u"Kundenverwaltung"}});
    EXPECT_EQ(appError.AppName(), u"Kundenverwaltung");
    EXPECT_EQ(appError.Projectname(), u"Tarvex");
}

TEST_F(pSettingsTest, ValueIsTrimmedBeforeTheDefaultApplies) {
    // A value of blanks and one with a blank that keeps its end.
    constants.marks = {Mark(1, 50, u"AppName"), Mark(27, 4, u"PicDelay", u"€€"),
                       Mark(48, 100, u"Cmd", u"€ N")};
    settings.LoadSettings();
    EXPECT_EQ(settings.Brand().Brandings().Item(kFieldPicDelay).Value(), u"  ");
    EXPECT_EQ(settings.Value(kFieldPicDelay, u"0"), u"0");
    EXPECT_EQ(settings.Value(kFieldPicDelay), u"");
    EXPECT_EQ(settings.Value(kFieldCmd, u"0"), u"€1");
}

TEST_F(pSettingsTest, FieldThatIsNoMarkIsAnError) {
    Load({});
    ExpectError(ErrorOf([&] { settings.Value(50); }), 5,
                u"Ungültiger Prozeduraufruf oder ungültiges Argument",
                u"cuBrandings: Item | pSettings: Value");
}

TEST_F(pSettingsTest, MarkThatCannotBeReadIsMissing) {
    constants = FakeBrandConstants(FakeBrandConstants::Values{{kFieldCmd, u"x"}});
    for (std::u16string& mark : constants.marks) {
        if (mark.find(u"|068|") != std::u16string::npos) {
            mark[8] = u'x';
        }
    }
    settings.LoadSettings();
    EXPECT_EQ(settings.Value(kFieldCmd), u"x");
    EXPECT_EQ(ErrorOf([&] { settings.Value(kFieldErrBoxText); }).number, 5);
}

TEST_F(pSettingsTest, OnlyOneIsTrue) {
    Load({{kFieldRuntime, u"1"},
          {kFieldExclusive, u"0"},
          {kFieldReadOnly, u"j"},
          {kFieldCompact, u"x"},
          {kFieldErrBoxText, u"11"}});
    EXPECT_TRUE(settings.Flag(kFieldRuntime));
    for (const std::int32_t field :
         {kFieldExclusive, kFieldReadOnly, kFieldCompact, kFieldRepair, kFieldErrBoxText}) {
        EXPECT_FALSE(settings.Flag(field)) << field;
    }
}

TEST_F(pSettingsTest, TextsReachTheLaunchObject) {
    Load({{kFieldAccPath, u"C:\\Office"},
          {kFieldDBFilename, u"Kunden.mdb"},
          {kFieldDBPath, u"Daten"},
          {kFieldSysDBFilename, u"System.mdw"},
          {kFieldSysDBPath, u"..\\System"},
          {kFieldCmd, u"los"},
          {kFieldMacro, u"Anfang"},
          {kFieldProfile, u"Büro"}});
    const auto tarvex = settings.InitTarvex();
    EXPECT_EQ(tarvex->Properties().accPath, u"C:\\Office");
    EXPECT_EQ(tarvex->Properties().dbFilename, u"Kunden.mdb");
    EXPECT_EQ(tarvex->Properties().dbPath, u"Daten");
    EXPECT_EQ(tarvex->Properties().systemDBFilename, u"System.mdw");
    EXPECT_EQ(tarvex->Properties().systemDBPath, u"..\\System");
    EXPECT_EQ(tarvex->Properties().cmd, u"los");
    EXPECT_EQ(tarvex->Properties().macro, u"Anfang");
    EXPECT_EQ(tarvex->Properties().profile, u"Büro");
    EXPECT_EQ(tarvex->AccVersion(), 0);
    EXPECT_FALSE(tarvex->Properties().verifyProfile);
    EXPECT_FALSE(tarvex->Properties().testMode);
}

TEST_F(pSettingsTest, EachFlagSetsItsOwnOption) {
    const struct {
        std::int32_t field;
        bool LaunchProperties::*option;
    } flags[] = {{kFieldExclusive, &LaunchProperties::optionExclusive},
                 {kFieldRuntime, &LaunchProperties::optionRuntime},
                 {kFieldDecompile, &LaunchProperties::optionDecompile},
                 {kFieldCompact, &LaunchProperties::optionCompact},
                 {kFieldNoStartup, &LaunchProperties::optionNoStartup},
                 {kFieldReadOnly, &LaunchProperties::optionReadOnly},
                 {kFieldRepair, &LaunchProperties::optionRepair}};
    for (const auto& set : flags) {
        Load({{set.field, u"1"}});
        const auto tarvex = settings.InitTarvex();
        for (const auto& asked : flags) {
            EXPECT_EQ(tarvex->Properties().*asked.option, asked.field == set.field)
                << set.field << " " << asked.field;
        }
    }
}

TEST_F(pSettingsTest, CredentialsAreDecoded) {
    Load({{kFieldUser, u"Meier"}, {kFieldPwd, u"a/b #€"}});
    const auto tarvex = settings.InitTarvex();
    EXPECT_EQ(tarvex->Properties().systemDBUser, u"Meier");
    EXPECT_EQ(tarvex->Properties().systemDBPwd, u"a/b #€");
}

TEST_F(pSettingsTest, PasswordWithoutUserIsPassedOn) {
    Load({{kFieldPwd, u"geheim"}});
    const auto tarvex = settings.InitTarvex();
    EXPECT_EQ(tarvex->Properties().systemDBUser, u"");
    EXPECT_EQ(tarvex->Properties().systemDBPwd, u"geheim");
}

TEST_F(pSettingsTest, CredentialThatCannotBeReadIsAnError) {
    // The stored form of "42#x".
    constants = FakeBrandConstants(FakeBrandConstants::Values{});
    const std::u16string header = MarkHeader(40, 100, u"Pwd");
    for (std::u16string& mark : constants.marks) {
        if (mark.starts_with(header)) {
            mark = header + FitToWidth(u"KM\\\a", 100);
        }
    }
    settings.LoadSettings();
    EXPECT_EQ(settings.Value(kFieldPwd), u"42#x");
    ExpectError(ErrorOf([&] { settings.InitTarvex(); }), 13, u"Typen unverträglich",
                u"pSettings: InitTarvex");
}

TEST_F(pSettingsTest, KeyListsAreAddedInOrderWithoutGaps) {
    Load({{kAccRegList.Field(10), u"HKLM\\A\\10"},
          {kAccRegList.Field(1), u"HKLM\\A\\1"},
          {kDBRegList.Field(5), u"HKLM\\D\\5"},
          {kSysDBRegList.Field(2), u"HKLM\\S\\2"},
          {kSysDBRegList.Field(3), u"HKLM\\S\\3"},
          {kPicRegList.Field(1), u"HKLM\\P\\1"}});
    const auto tarvex = settings.InitTarvex();
    EXPECT_EQ(tarvex->Properties().accRegListString, u"HKLM\\A\\1%|%HKLM\\A\\10");
    EXPECT_EQ(tarvex->Properties().dbRegListString, u"HKLM\\D\\5");
    EXPECT_EQ(tarvex->Properties().systemDBRegListString, u"HKLM\\S\\2%|%HKLM\\S\\3");
    EXPECT_EQ(tarvex->RegListArray(1), std::vector<std::u16string>{u"HKLM\\D\\5"});
}

TEST_F(pSettingsTest, FieldWithTwoEntriesActsAsTwo) {
    Load({{kDBRegList.Field(1), u"HKLM\\D\\1%|%HKLM\\D\\2"}, {kDBRegList.Field(2), u"HKLM\\D\\3"}});
    EXPECT_EQ(settings.InitTarvex()->RegListArray(1),
              (std::vector<std::u16string>{u"HKLM\\D\\1", u"HKLM\\D\\2", u"HKLM\\D\\3"}));
}

TEST_F(pSettingsTest, MissingKeyListNamesEveryPlaceOnTheWay) {
    constants = FakeBrandConstants(FakeBrandConstants::Values{});
    RemoveMark(u"|003|");
    settings.LoadSettings();
    ExpectError(ErrorOf([&] { settings.InitTarvex(); }), 5,
                u"Ungültiger Prozeduraufruf oder ungültiges Argument",
                u"cuBrandings: Item | pSettings: Value | pSettings: BuildRegLists | pSettings: "
                u"InitTarvex");
}

TEST_F(pSettingsTest, EachLaunchObjectIsNew) {
    Load({});
    const auto first = settings.InitTarvex();
    first->Properties().cmd = u"geändert";
    EXPECT_EQ(settings.InitTarvex()->Properties().cmd, u"");
}

class DebugInfoTest : public pSettingsTest {
protected:
    static std::u16string Rule() { return std::u16string(50, u'-'); }

    std::vector<std::u16string> Lines() const {
        std::vector<std::u16string> lines;
        const std::u16string report = text::Replace(settings.DebugInfo(versions), u"\r\n", u"\n");
        for (const std::u16string_view line : text::Split(report, u'\n')) {
            lines.emplace_back(line);
        }
        return lines;
    }
};

TEST_F(DebugInfoTest, EmptyCollectionStartsWithTheRule) {
    EXPECT_EQ(settings.DebugInfo(versions),
              Rule() + u"\r\nVersion = " + std::u16string(u"" TARVEX_VERSION_TEXT) +
                  u"\r\nFileID = \r\n" + Rule() +
                  u"\r\nBeschreibung = \r\nFirmenname = \r\nCopyright = \r\nMarken = \r\n"
                  u"Produktname = \r\nProduktversion = ");
}

TEST_F(DebugInfoTest, EveryFieldButFileIDHasALineInTheOrderOfTheMarks) {
    Load({{kFieldAppName, u"Kunden"}, {kFieldFileID, u"4711"}, {kFieldDBPath, u"C:\\Daten"}});
    const std::vector<std::u16string> lines = Lines();
    ASSERT_EQ(lines.size(), 66U + 10U);
    std::size_t line = 0;
    for (const BrandField& field : kBrandFields) {
        if (field.number == kFieldFileID) {
            continue;
        }
        const std::u16string_view value = field.number == kFieldAppName  ? u"Kunden"
                                          : field.number == kFieldDBPath ? u"C:\\Daten"
                                                                         : u"";
        EXPECT_EQ(lines[line++], std::u16string(field.name) + u" = " + std::u16string(value));
    }
    EXPECT_EQ(lines[66], Rule());
    EXPECT_EQ(lines[68], u"FileID = 4711");
    EXPECT_EQ(lines[69], Rule());
}

TEST_F(DebugInfoTest, UserAndPasswordsAreNotShown) {
    Load({{kFieldUser, u"Meier"}, {kFieldEditPwd, u"geheim"}});
    const std::u16string report = settings.DebugInfo(versions);
    EXPECT_NE(report.find(u"\r\nUser = <nicht angezeigt>\r\n"), std::u16string::npos);
    EXPECT_NE(report.find(u"\r\nEditPwd = <nicht angezeigt>\r\n"), std::u16string::npos);
    EXPECT_NE(report.find(u"\r\nPwd = \r\n"), std::u16string::npos);
    EXPECT_EQ(report.find(u"Meier"), std::u16string::npos);
    EXPECT_EQ(report.find(u"geheim"), std::u16string::npos);
    EXPECT_EQ(report.find(u'#'), std::u16string::npos);
}

TEST_F(DebugInfoTest, MissingFileIDNamesEveryPlaceOnTheWay) {
    constants = FakeBrandConstants(FakeBrandConstants::Values{});
    RemoveMark(u"|FileID|");
    settings.LoadSettings();
    ExpectError(ErrorOf([&] { settings.DebugInfo(versions); }), 5,
                u"Ungültiger Prozeduraufruf oder ungültiges Argument",
                u"cuBrandings: Item | pSettings: Value | pSettings: DebugInfo");
}

TEST_F(DebugInfoTest, TextsComeFromTheVersionResourceOfTheLauncher) {
    const std::u16string path = u"C:\\Prog\\Start.exe";
    versions.SetText(path, u"FileDescription", u"Startprogramm");
    versions.SetText(path, u"CompanyName", u"Firma");
    versions.SetText(path, u"LegalCopyright", u"(c) Firma");
    versions.SetText(path, u"LegalTrademarks", u"Keine");
    versions.SetText(path, u"ProductName", u"Kunden");
    versions.SetText(path, u"ProductVersion", u"2.5");
    const std::vector<std::u16string> lines = Lines();
    EXPECT_EQ(std::vector<std::u16string>(lines.end() - 6, lines.end()),
              (std::vector<std::u16string>{u"Beschreibung = Startprogramm", u"Firmenname = Firma",
                                           u"Copyright = (c) Firma", u"Marken = Keine",
                                           u"Produktname = Kunden", u"Produktversion = 2.5"}));
}

TEST(VersionTest, TextIsMadeOfTheNumbersAndARevisionOfThreeDigits) {
    EXPECT_EQ(u"" TARVEX_VERSION_TEXT, text::Decimal(TARVEX_VERSION_MAJOR) + u"." +
                                           text::Decimal(TARVEX_VERSION_MINOR) + u"." +
                                           text::Decimal(TARVEX_VERSION_REVISION, 3));
}

}  // namespace
}  // namespace tarvex
