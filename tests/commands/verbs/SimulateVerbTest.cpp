#include <gtest/gtest.h>

#include "tests/commands/CommandsWorld.h"

namespace tarvex {
namespace {

/// A settings file K.ini, and descriptions of computers in memory.
class SimulateVerbTest : public testing::Test {
protected:
    SimulateVerbTest() {
        world_.files.AddFile(u"K.ini", text::ToUtf8(u"AccPath = C:\\Office\n"
                                                    u"DBFilename = Kunden.mdb\n"
                                                    u"User = Meier\n"
                                                    u"Pwd = geheim\n"));
        world_.folders.folders[u"PCs"] = {u"b.pc", u"a.pc"};
        Describe(u"PCs/a.pc",
                 u"Datei = C:\\Office\\msaccess.exe\n"
                 u"Datei = C:\\Kunden\\Kunden.mdb\n");
        Describe(u"PCs/b.pc",
                 u"Datei = C:\\Office\\msaccess.exe\n"
                 u"Fehlt = C:\\Kunden\\Kunden.mdb\n");
    }

    void Describe(std::u16string_view path, std::u16string_view more) {
        world_.files.AddFile(path, text::ToUtf8(u"[PC]\nStartprogramm = C:\\Kunden\\Kunden.exe\n" +
                                                std::u16string(more)));
    }

    CommandsWorld world_;
    FakeConsole& console_ = world_.console;
};

constexpr std::u16string_view kUnseenLine =
    u"tarvexcf: Keine Simulation sieht Sperren, Zugriffsrechte, Vertrauenseinstellungen und "
    u"blockierte Dateien.\n";

const std::u16string kText =
    u"Das Startprogramm würde die folgende Befehlszeile ausführen:\n"
    u"\n"
    u"\"C:\\Office\\msaccess.exe\" \"C:\\Kunden\\Kunden.mdb\" /user \"XXXX\" /pwd \"YYYY\"\n"
    u"[Startbild]\n"
    u"Dauer: 0, Bild wird nicht angezeigt\n"
    u"\n"
    u"[Weitere Parameter]\n"
    u"\n"
    u"Logfile schreiben: Nein\n"
    u"[Access-Pfad]\n"
    u"Absoluter Pfad wird verwendet: C:\\Office\\msaccess.exe\n"
    u"Access-EXE: OK\n"
    u"\n"
    u"[Datenbank-Pfad]\n"
    u"Kein Pfad angegeben, im aktuellen Verzeichnis suchen\n"
    u"Datenbank: C:\\Kunden\\Kunden.mdb\n"
    u"Datenbank: OK\n"
    u"\n"
    u"[SysDB-Pfad]\n"
    u"Keine SysDB\n"
    u"\n"
    u"[Profil]\n"
    u"Kein Profil eingestellt\n";

TEST_F(SimulateVerbTest, OneComputerShowsTheTextOfTheDryRun) {
    EXPECT_EQ(world_.Run({u"simulate", u"K.ini", u"PCs/a.pc"}), 0);
    EXPECT_EQ(console_.out, kText);
    EXPECT_EQ(console_.err,
              u"tarvexcf: PCs/a.pc: Start; Access C:\\Office\\msaccess.exe; Datenbank "
              u"C:\\Kunden\\Kunden.mdb\n" +
                  std::u16string(kUnseenLine));
}

TEST_F(SimulateVerbTest, LauncherGivesTheSameAsItsSettingsFile) {
    ASSERT_EQ(world_.Run({u"brand", u"T.exe", u"K.exe", u"--settings", u"K.ini"}), 0);
    EXPECT_EQ(world_.Run({u"simulate", u"K.exe", u"PCs/a.pc"}), 0);
    EXPECT_EQ(console_.out, kText);
}

TEST_F(SimulateVerbTest, SeveralComputersShowALineEachAndFailTogether) {
    EXPECT_EQ(world_.Run({u"simulate", u"K.ini", u"PCs"}), 1);
    EXPECT_EQ(console_.out,
              u"PCs/a.pc: Start; Access C:\\Office\\msaccess.exe; Datenbank "
              u"C:\\Kunden\\Kunden.mdb\n"
              u"PCs/b.pc: Fehler 5: Die Datenbank 'C:\\Kunden\\Kunden.mdb' ist nicht vorhanden.\n"
              u"2 PCs: 1 startet, 1 startet nicht, 0 unbestimmt.\n");
    EXPECT_EQ(console_.err, kUnseenLine);
}

TEST_F(SimulateVerbTest, PatternChoosesComputers) {
    EXPECT_EQ(world_.Run({u"simulate", u"K.ini", u"PCs", u"--run", u"a*"}), 0);
    EXPECT_EQ(console_.out, kText);
    EXPECT_EQ(world_.Run({u"simulate", u"K.ini", u"PCs", u"--run", u"x*"}), 1);
    EXPECT_EQ(console_.err, u"tarvexcf: --run: Zu 'x*' passt der Dateiname keines PCs.\n");
}

TEST_F(SimulateVerbTest, FailureThatIsExpectedPasses) {
    Describe(u"PCs/b.pc",
             u"Datei = C:\\Office\\msaccess.exe\n"
             u"Fehlt = C:\\Kunden\\Kunden.mdb\n"
             u"[Erwartet]\n"
             u"Ergebnis = Fehler 5\n");
    EXPECT_EQ(world_.Run({u"simulate", u"K.ini", u"PCs"}), 0);
    EXPECT_EQ(
        console_.out,
        u"ok      PCs/a.pc: Start; Access C:\\Office\\msaccess.exe; Datenbank "
        u"C:\\Kunden\\Kunden.mdb\n"
        u"ok      PCs/b.pc: Fehler 5: Die Datenbank 'C:\\Kunden\\Kunden.mdb' ist nicht vorhanden.\n"
        u"2 PCs: 2 ok, 0 FEHLER.\n");
}

TEST_F(SimulateVerbTest, WhatIsNotMetIsShownExpectedAgainstActual) {
    world_.files.AddFile(u"PCs/erwartet.txt",
                         text::ToUtf8(text::Replace(kText, u"Keine SysDB", u"SysDB: OK")));
    Describe(u"PCs/b.pc",
             u"Datei = C:\\Office\\msaccess.exe\n"
             u"Datei = C:\\Kunden\\Kunden.mdb\n"
             u"[Erwartet]\n"
             u"Ergebnis = Fehler 5\n"
             u"Access = c:\\office\\MSACCESS.EXE\n"
             u"Datenbank = D:\\Kunden.mdb\n"
             u"Befehlszeile = \"C:\\Office\\msaccess.exe\" /user \"Meier\" /pwd geheim\n"
             u"Protokoll = erwartet.txt\n");
    EXPECT_EQ(world_.Run({u"simulate", u"K.ini", u"PCs/b.pc"}), 1);
    EXPECT_EQ(console_.out,
              kText +
                  u"\n"
                  u"FEHLER  PCs/b.pc: Start; Access C:\\Office\\msaccess.exe; Datenbank "
                  u"C:\\Kunden\\Kunden.mdb\n"
                  u"    Ergebnis: erwartet Fehler 5, tatsächlich Start\n"
                  u"    Datenbank: erwartet D:\\Kunden.mdb, tatsächlich "
                  u"C:\\Kunden\\Kunden.mdb\n"
                  u"    Befehlszeile: erwartet \"C:\\Office\\msaccess.exe\" /user \"XXXX\" /pwd "
                  u"\"YYYY\", tatsächlich \"C:\\Office\\msaccess.exe\" "
                  u"\"C:\\Kunden\\Kunden.mdb\" /user \"XXXX\" /pwd \"YYYY\"\n"
                  u"    Protokoll, Zeile 20: erwartet SysDB: OK, tatsächlich Keine SysDB\n");
    EXPECT_EQ(console_.err, kUnseenLine);
}

TEST_F(SimulateVerbTest, UndescribedComputerIsUndetermined) {
    Describe(u"c.pc", u"Datei = C:\\Office\\msaccess.exe\n");
    EXPECT_EQ(world_.Run({u"simulate", u"K.ini", u"c.pc"}), 1);
    EXPECT_TRUE(console_.out.ends_with(
        u"Datenbank: C:\\Kunden\\Kunden.mdb ist nicht vorhanden!\n\n[SysDB-Pfad]\nKeine "
        u"SysDB\n\n[Profil]\nKein Profil eingestellt\n"));
    EXPECT_EQ(console_.err,
              u"tarvexcf: c.pc: unbestimmt; nach dem, was beschrieben ist: Fehler 5: Die Datenbank "
              u"'C:\\Kunden\\Kunden.mdb' ist nicht vorhanden.\n"
              u"    Nicht beschrieben und darum als nicht vorhanden behandelt:\n"
              u"      C:\\Kunden\\Kunden.mdb\n"
              u"    So wird es auf dem PC exportiert; was es dort nicht gibt, gehört zu Fehlt:\n"
              u"      dir /s /b /a-d \"C:\\Kunden\" > dateien.txt\n" +
                  std::u16string(kUnseenLine));
}

TEST_F(SimulateVerbTest, PictureThatNobodyDescribedDoesNotMatter) {
    world_.files.AddFile(u"K.ini", text::ToUtf8(u"AccPath = C:\\Office\nDBFilename = Kunden.mdb\n"
                                                u"PicFilename = Bild.bmp\nPicDelay = 500\n"
                                                u"HCID = 7\n"));
    EXPECT_EQ(world_.Run({u"simulate", u"K.ini", u"PCs/a.pc"}), 0);
    EXPECT_NE(console_.out.find(u"\nBild nicht vorhanden an dieser Position\n"),
              std::u16string::npos);
}

TEST_F(SimulateVerbTest, ValueThatOnlyOneViewHoldsIsSaid) {
    world_.files.AddFile(u"K.ini",
                         "AccRegList01 = HKLM\\SOFTWARE\\Firma\\Office\n"
                         "DBFilename = Kunden.mdb\n");
    world_.files.AddFile(u"PCs/firma.reg",
                         "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Firma]"
                         "\r\n\"Office\"=\"C:\\\\Office\"\r\n\r\n"
                         "[HKEY_LOCAL_MACHINE\\SOFTWARE\\WOW6432Node\\Firma]\r\n");
    Describe(u"PCs/a.pc",
             u"Registrierung = firma.reg\n"
             u"Datei = C:\\Office\\msaccess.exe\n"
             u"Datei = C:\\Kunden\\Kunden.mdb\n");
    EXPECT_EQ(world_.Run({u"simulate", u"K.ini", u"PCs/a.pc"}), 0);
    EXPECT_NE(console_.err.find(
                  u"    HKLM\\SOFTWARE\\Firma\\Office steht nur in der 64-Bit-Ansicht der "
                  u"Registrierung, HKLM\\SOFTWARE\\WOW6432Node\\Firma\\Office gibt es nicht; das "
                  u"Startprogramm sieht auch dort nach.\n"),
              std::u16string::npos)
        << text::ToUtf8(console_.err);
}

TEST_F(SimulateVerbTest, ViewOfWhichNothingIsKnownIsNotCalledEmpty) {
    world_.files.AddFile(u"K.ini",
                         "AccRegList01 = HKLM\\SOFTWARE\\Firma\\Office\n"
                         "DBFilename = Kunden.mdb\n");
    world_.files.AddFile(u"PCs/firma.reg",
                         "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Firma]"
                         "\r\n\"Office\"=\"C:\\\\Office\"\r\n");
    Describe(u"PCs/a.pc",
             u"Registrierung = firma.reg\n"
             u"Datei = C:\\Office\\msaccess.exe\n"
             u"Datei = C:\\Kunden\\Kunden.mdb\n");
    EXPECT_EQ(world_.Run({u"simulate", u"K.ini", u"PCs/a.pc"}), 1);
    EXPECT_EQ(console_.err.find(u"steht nur"), std::u16string::npos);
    EXPECT_NE(console_.err.find(u"      HKLM\\SOFTWARE\\WOW6432Node\\Firma\\Office\n"),
              std::u16string::npos);
}

TEST_F(SimulateVerbTest, JsonTellsEverything) {
    Describe(u"PCs/b.pc",
             u"Datei = C:\\Office\\msaccess.exe\n"
             u"[Erwartet]\n"
             u"Ergebnis = Start\n");
    world_.files.AddFile(u"K.ini", "AccPath = C:\\Office\nDBFilename = Kunden.mdb\n");
    EXPECT_EQ(world_.Run({u"simulate", u"K.ini", u"PCs/b.pc", u"--json"}), 1);
    const std::size_t textStart = console_.out.find(u"      \"text\": ");
    ASSERT_NE(textStart, std::u16string::npos);
    EXPECT_EQ(console_.out.substr(0, textStart),
              u"{\n"
              u"  \"file\": \"K.ini\",\n"
              u"  \"passed\": false,\n"
              u"  \"unseen\": \"Keine Simulation sieht Sperren, Zugriffsrechte, "
              u"Vertrauenseinstellungen und blockierte Dateien.\",\n"
              u"  \"pcs\": [\n"
              u"    {\n"
              u"      \"name\": \"PCs/b.pc\",\n"
              u"      \"passed\": false,\n"
              u"      \"result\": \"unbestimmt\",\n"
              u"      \"asDescribed\": \"Fehler 5\",\n"
              u"      \"error\": \"Die Datenbank 'C:\\\\Kunden\\\\Kunden.mdb' ist nicht "
              u"vorhanden.\",\n"
              u"      \"access\": \"C:\\\\Office\\\\msaccess.exe\",\n"
              u"      \"database\": \"\",\n"
              u"      \"commandLine\": \"\",\n"
              u"      \"undescribed\": [\"C:\\\\Kunden\\\\Kunden.mdb\"],\n"
              u"      \"notes\": [],\n"
              u"      \"deviations\": [{\"name\": \"Ergebnis\", \"expected\": \"Start\", "
              u"\"actual\": \"unbestimmt\"}],\n");
    EXPECT_TRUE(
        console_.out.ends_with(u"[Profil]\\u000D\\u000AKein Profil "
                               u"eingestellt\\u000D\\u000A\"\n    }\n  ]\n}\n"));
    EXPECT_EQ(console_.err, u"");
}

TEST_F(SimulateVerbTest, ProblemsOfAllFilesAreToldAndNothingIsSimulated) {
    world_.files.AddFile(u"K.ini", "Foo = 1\n");
    Describe(u"PCs/a.pc", u"Foo = 1\n");
    EXPECT_EQ(world_.Run({u"simulate", u"K.ini", u"PCs"}), 1);
    EXPECT_EQ(console_.out, u"");
    EXPECT_EQ(
        console_.err,
        u"tarvexcf: K.ini, Zeile 1, Foo: Unbekannter Name 'Foo'; gemeint ist vielleicht "
        u"Log.\n"
        u"tarvexcf: PCs/a.pc, Zeile 3: Unbekannter Name 'Foo'; gemeint ist vielleicht Bit.\n");
}

TEST_F(SimulateVerbTest, ProgramThatIsNoLauncherIsRefused) {
    world_.files.AddFile(u"x.exe", "MZ");
    EXPECT_EQ(world_.Run({u"simulate", u"x.exe", u"PCs"}), 1);
    EXPECT_EQ(console_.out, u"");
    EXPECT_TRUE(console_.err.starts_with(u"tarvexcf: x.exe: "));
}

TEST_F(SimulateVerbTest, LauncherWithoutSettingsFailsEverywhere) {
    EXPECT_EQ(world_.Run({u"simulate", u"T.exe", u"PCs"}), 1);
    EXPECT_EQ(console_.out,
              u"PCs/a.pc: Fehler 117: Im Startprogramm 'C:\\Kunden\\Kunden.exe' wurden keine "
              u"Parameter gesetzt.\n"
              u"PCs/b.pc: Fehler 117: Im Startprogramm 'C:\\Kunden\\Kunden.exe' wurden keine "
              u"Parameter gesetzt.\n"
              u"2 PCs: 0 starten, 2 starten nicht, 0 unbestimmt.\n");
}

}  // namespace
}  // namespace tarvex
