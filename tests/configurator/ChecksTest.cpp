#include "configurator/Checks.h"

#include <gtest/gtest.h>

namespace tarvex {
namespace {

using Texts = std::vector<std::u16string>;

struct Given {
    std::int32_t number;
    std::u16string_view value;
};

Texts Check(const std::vector<Given>& given) {
    Settings settings;
    for (const Given& one : given) {
        settings.Set(one.number, one.value);
    }
    Texts lines;
    for (const Problem& problem : CheckSettings(settings, {})) {
        lines.push_back(ProblemLine(problem));
    }
    return lines;
}

TEST(ChecksTest, NothingIsWrongWithASensibleConfiguration) {
    EXPECT_EQ(Check({}), Texts());
    EXPECT_EQ(Check({{kFieldDBPath, u"Daten"},
                     {kFieldDBFilename, u"Kunden.mdb"},
                     {kFieldSysDBFilename, u"System.mdw"},
                     {kFieldUser, u"Meier"},
                     {kFieldPwd, u"x"},
                     {kFieldRuntime, u"1"},
                     {kFieldMacro, u"Start"},
                     {kFieldPicFilename, u"Start.BMP"},
                     {kFieldPicDelay, u"3000"},
                     {kFieldHCID, u"100"},
                     {kFieldErrBoxText, u"a\r\nb"}}),
              Texts());
    EXPECT_EQ(Check({{kAccRegList.Field(1), u"HKLM\\SOFTWARE\\A\\"},
                     {kDBRegList.Field(2), u"hkey_current_user\\A\\B%|SubDir|%x%|Filename%|y.mdb"},
                     {kFieldCompact, u"1"}}),
              Texts());
}

TEST(ChecksTest, EntriesThatDoNotParse) {
    EXPECT_EQ(Check({{kDBRegList.Field(1), u"FOO\\Key\\Value"}, {kAccRegList.Field(10), u"Pfad"}}),
              Texts({u"AccRegList10: Der Eintrag 'Pfad' ist kein Registrierungsschlüssel der Form "
                     u"HKLM\\Schlüssel\\Wertname.",
                     u"DBRegList01: Der Eintrag 'FOO\\Key\\Value' beginnt nicht mit HKLM, HKCU, "
                     u"HKCR oder HKU."}));
}

TEST(ChecksTest, EntriesThatLeadNowhereOrSayTooMuch) {
    EXPECT_EQ(
        Check({{kDBRegList.Field(1), u"HKLM\\A\\B%|SubDir|%x"},
               {kAccRegList.Field(1), u"HKLM\\A\\B%|Filename%|access.exe"}}),
        Texts({u"AccRegList01: Der Eintrag 'HKLM\\A\\B%|Filename%|access.exe' nennt einen "
               u"Dateinamen, der hier nicht beachtet wird; gesucht wird immer msaccess.exe.",
               u"DBRegList01: Der Eintrag 'HKLM\\A\\B%|SubDir|%x' nennt einen Unterordner, aber "
               u"keinen Dateinamen; er führt nie zu einer Datei."}));
}

TEST(ChecksTest, ListMarkerInsideAValue) {
    EXPECT_EQ(
        Check({{kDBRegList.Field(1), u"HKLM\\A\\B%|%HKLM\\A\\C"}}),
        Texts({u"DBRegList01: Der Wert enthält die Listenmarke '%|%'; er wird dort in mehrere "
               u"Einträge geteilt."}));
    EXPECT_EQ(
        Check({{kDBRegList.Field(1), u"HKLM\\A\\B%|Filename%|%x.mdb"}}),
        Texts({u"DBRegList01: Der Wert enthält die Listenmarke '%|%'; er wird dort in mehrere "
               u"Einträge geteilt.",
               u"DBRegList01: Der Eintrag 'x.mdb' ist kein Registrierungsschlüssel der Form "
               u"HKLM\\Schlüssel\\Wertname."}));
    EXPECT_EQ(Check({{kPicRegList.Field(1), u"HKLM\\A\\B%|%x"}, {kFieldPicDelay, u"1"}}),
              Texts({u"PicRegList01: Der Wert enthält die Listenmarke '%|%'; hier steht nur ein "
                     u"Eintrag je Feld."}));
}

TEST(ChecksTest, ListsThatMakePathsUseless) {
    EXPECT_EQ(Check({{kAccRegList.Field(3), u"HKLM\\A\\B"}, {kFieldAccPath, u"C:\\Office"}}),
              Texts({u"AccPath: Der Wert wird nicht beachtet, weil die Schlüsselliste AccRegList01 "
                     u"bis AccRegList10 Einträge hat."}));
    EXPECT_EQ(Check({{kSysDBRegList.Field(1), u"HKLM\\A\\B"},
                     {kFieldSysDBPath, u"x"},
                     {kFieldSysDBFilename, u"y"}})
                  .size(),
              2U);
}

TEST(ChecksTest, PasswordWithoutUser) {
    EXPECT_EQ(Check({{kFieldPwd, u"x"}}),
              Texts({u"Pwd: Das Kennwort wird nicht verwendet, solange User leer ist."}));
}

TEST(ChecksTest, OptionsThatNeedADatabase) {
    EXPECT_EQ(
        Check({{kFieldRuntime, u"1"}, {kFieldCompact, u"0"}, {kFieldExclusive, u"1"}}),
        Texts({u"Runtime: Die Einstellung braucht eine Datenbank, es ist aber keine angegeben; "
               u"gefunden wird nur eine, die wie das Startprogramm heißt und neben ihm "
               u"liegt."}));
    EXPECT_EQ(
        Check({{kFieldMacro, u"Start"}, {kFieldDBPath, u"C:\\Daten"}}),
        Texts({u"DBPath: Der Pfad wird nicht verwendet, solange DBFilename leer ist; es wird ohne "
               u"Datenbank gestartet.",
               u"Macro: Die Einstellung braucht eine Datenbank, es ist aber keine auffindbar."}));
    EXPECT_EQ(Check({{kFieldCmd, u"x"}, {kDBRegList.Field(5), u"HKLM\\A\\B"}}), Texts());
}

TEST(ChecksTest, PathsWithoutFileName) {
    EXPECT_EQ(Check({{kFieldPicPath, u"Bilder"}, {kFieldSysDBPath, u"Daten"}}),
              Texts({u"SysDBPath: Der Pfad wird nicht verwendet, solange SysDBFilename leer ist.",
                     u"PicPath: Der Pfad wird nicht verwendet, solange PicFilename leer ist."}));
}

TEST(ChecksTest, PictureAndDelayBelongTogether) {
    EXPECT_EQ(Check({{kFieldPicDelay, u"3000"}}),
              Texts({u"PicDelay: Eine Anzeigedauer ist angegeben, aber kein Startbild."}));
    EXPECT_EQ(
        Check({{kFieldPicFilename, u"a.jpg"}, {kFieldPicDelay, u"0"}}),
        Texts({u"PicDelay: Ein Startbild ist angegeben, aber keine Anzeigedauer; es wird nicht "
               u"angezeigt."}));
}

TEST(ChecksTest, UnknownPictureTypes) {
    EXPECT_EQ(Check({{kFieldPicFilename, u"a.gif"}, {kFieldPicDelay, u"1"}}),
              Texts({u"PicFilename: Der Bildtyp von 'a.gif' ist unbekannt; möglich sind .bmp und "
                     u".jpg."}));
    EXPECT_EQ(
        Check({{kPicRegList.Field(1), u"HKLM\\A\\B%|Filename%|a.png"}, {kFieldPicDelay, u"1"}}),
        Texts({u"PicRegList01: Der Bildtyp von 'a.png' ist unbekannt; möglich sind .bmp und "
               u".jpg."}));
}

TEST(ChecksTest, ValuesOfTheWrongForm) {
    EXPECT_EQ(Check({{kFieldHCID, u"x1"}, {kFieldRuntime, u"j"}, {kFieldAppName, u"a\r\nb"}}),
              Texts({u"HCID: 'x1' ist keine Zahl.",
                     u"Runtime: 'j' ist kein Schalterwert und gilt als aus.",
                     u"AppName: Der Wert enthält einen Zeilenwechsel (eine eingerückte Zeile setzt "
                     u"den Wert darüber fort)."}));
    EXPECT_EQ(Check({{kFieldPicDelay, u"5s"}, {kFieldPicFilename, u"a.bmp"}}),
              Texts({u"PicDelay: '5s' ist keine Zahl."}));
}

TEST(ChecksTest, OtherProgramInTheAccessPath) {
    EXPECT_EQ(Check({{kFieldAccPath, u"C:\\Office\\Start.exe"}}),
              Texts({u"AccPath: Der Wert muss der Ordner oder der Pfad von msaccess.exe sein; eine "
                     u"andere Programmdatei gilt als Ordner."}));
    EXPECT_EQ(Check({{kFieldAccPath, u"C:\\Office\\MSACCESS.EXE"}}), Texts());
}

}  // namespace
}  // namespace tarvex
