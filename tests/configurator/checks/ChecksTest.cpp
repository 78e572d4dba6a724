#include "tests/configurator/checks/CheckTesting.h"

namespace tarvex {
namespace {

TEST(ChecksTest, NothingIsWrongWithASensibleConfiguration) {
    EXPECT_EQ(Check({}), Texts());
    EXPECT_EQ(Check({{kFieldDBPath, u"..\\Daten"},
                     {kFieldDBFilename, u"Kunden.mdb"},
                     {kFieldSysDBPath, u"\\\\server\\daten"},
                     {kFieldSysDBFilename, u"System.mdw"},
                     {kFieldUser, u"Meier"},
                     {kFieldPwd, u"x"},
                     {kFieldRuntime, u"1"},
                     {kFieldMacro, u"\"Mein Start\""},
                     {kFieldCmd, u"Filiale #3; 100 %"},
                     {kFieldPicPath, u"C:\\Bilder\\"},
                     {kFieldPicFilename, u"Start.BMP"},
                     {kFieldPicDelay, u"3000"},
                     {kFieldHCID, u"100"},
                     {kFieldAppName, u"Kunden\u00A0GmbH"},
                     {kFieldErrBoxText, u"a ; b\r\n\tc\u00A0d"}}),
              Texts());
    EXPECT_EQ(CheckExactly(
                  {{kAccRegList.Field(1), u"HKLM\\SOFTWARE\\A\\"},
                   {kAccRegList.Field(2),
                    u"HKLM\\SOFTWARE\\A\\B%|SubDir|%Office%|Filename%|MSAccess.exe"},
                   {kDBRegList.Field(2), u"hkey_current_user\\A\\B%|subdir|%x%|FILENAME%|y.accdb"},
                   {kFieldCompact, u"1"}}),
              Texts());
}

TEST(ChecksTest, FindingsStandInTheOrderOfTheLines) {
    Settings settings;
    settings.Set(kFieldHCID, u"x", 2);
    settings.Set(kFieldAccPath, u"msaccess.exe", 7);
    settings.Set(kFieldDBFilename, u"a.mdb", 4);
    const Findings findings = CheckSettings(settings, u"K.ini");
    ASSERT_EQ(findings.size(), 2U);
    EXPECT_EQ(FindingLine(findings[0]),
              u"K.ini, Zeile 2, HCID: Fehler: 'x' ist keine Zahl; es wird keine Hilfe angeboten. "
              u"[not-a-number]");
    EXPECT_EQ(findings[1].problem.line, 7);
}

TEST(ChecksTest, WithoutAnAccessSettingOnlyAccess97IsFound) {
    EXPECT_EQ(CheckExactly({}),
              Texts({u"AccPath: Warnung: Weder AccPath noch ein Eintrag von AccRegList01 bis "
                     u"AccRegList10 ist angegeben; gesucht wird dann nur Access 97 (Office 8.0). "
                     u"Einträge für neuere Versionen nennt 'tarvexcf presets'. [access-default]"}));
}

TEST(ChecksTest, AccessWithoutAFolderIsAnErrorThatNamesTheFormThatWorks) {
    EXPECT_EQ(
        CheckExactly({{kFieldAccPath, u"MSAccess.exe"}, {kFieldDBFilename, u"a.mdb"}}),
        Texts({u"AccPath: Fehler: 'MSAccess.exe' ohne Ordner wird im aktuellen Ordner gesucht, und "
               u"Windows startet dann das Access seiner eigenen Suchreihenfolge. Für Access neben "
               u"dem Startprogramm '.\\msaccess.exe' schreiben. [access-bare-name]"}));
    EXPECT_EQ(CheckExactly({{kFieldAccPath, u".\\msaccess.exe"}, {kFieldDBFilename, u"a.mdb"}}),
              Texts());
}

TEST(ChecksTest, OtherProgramInTheAccessPath) {
    const Texts other(
        {u"AccPath: Fehler: Der Wert muss der Ordner oder der Pfad von msaccess.exe "
         u"sein; eine andere Programmdatei gilt als Ordner. "
         u"[access-other-program]"});
    for (const std::u16string_view path :
         {u"C:\\Office\\Start.exe", u"Start.exe", u"C:\\meinmsaccess.exe"}) {
        EXPECT_EQ(CheckExactly({{kFieldAccPath, path}, {kFieldDBFilename, u"a.mdb"}}), other);
    }
    EXPECT_EQ(
        CheckExactly({{kFieldAccPath, u"C:\\Office\\MSACCESS.EXE"}, {kFieldDBFilename, u"a.mdb"}}),
        Texts());
}

}  // namespace
}  // namespace tarvex
