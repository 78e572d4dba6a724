#include "commands/Commands.h"

#include <gtest/gtest.h>

#include "tests/commands/CommandsWorld.h"

namespace tarvex {
namespace {

class CommandsTest : public testing::Test {
protected:
    CommandsWorld world_;
    FakeConsole& console_ = world_.console;
};

TEST_F(CommandsTest, BrandWritesAndShowHidesUserAndPasswords) {
    EXPECT_EQ(world_.Brand(u"AppName = Grün\nUser = Meier\nPwd = geheim\nRuntime = ja\n"), 0);
    EXPECT_EQ(console_.err, u"");
    EXPECT_EQ(console_.out, u"K.exe ist konfiguriert.\n");
    EXPECT_EQ(world_.Run({u"show", u"K.exe"}), 0);
    EXPECT_TRUE(console_.out.starts_with(u"AppName = Grün\nAccPath =\n")) << console_.out.size();
    EXPECT_NE(
        console_.out.find(u"\nUser = <nicht angezeigt>\nPwd = <nicht angezeigt>\nRuntime = 1\n"),
        std::u16string::npos);
    EXPECT_NE(console_.out.find(u"\nEditPwd =\n"), std::u16string::npos);
    EXPECT_EQ(world_.Run({u"show", u"K.exe", u"--reveal"}), 0);
    EXPECT_NE(console_.out.find(u"\nUser = Meier\nPwd = geheim\n"), std::u16string::npos);
}

TEST_F(CommandsTest, ShowAsJsonEscapes) {
    EXPECT_EQ(world_.Brand(u"AppName = \"a\\b\"\nErrBoxText = x\n y\nPwd = z\n"), 0);
    EXPECT_EQ(world_.Run({u"show", u"K.exe", u"--json"}), 0);
    EXPECT_TRUE(console_.out.starts_with(
        u"{\n  \"file\": \"K.exe\",\n  \"branded\": true,\n  \"values\": {\n"
        u"    \"AppName\": \"\\\"a\\\\b\\\"\",\n    \"AccPath\": \"\",\n"));
    EXPECT_NE(console_.out.find(u"\"ErrBoxText\": \"x\\u000D\\u000Ay\""), std::u16string::npos);
    EXPECT_NE(console_.out.find(u"\"Pwd\": \"<nicht angezeigt>\""), std::u16string::npos);
}

TEST_F(CommandsTest, ExistingOutputNeedsForce) {
    world_.files.AddFile(u"K.exe", "alt");
    world_.files.AddFile(u"K.ini", "");
    EXPECT_EQ(world_.Run({u"brand", u"T.exe", u"K.exe", u"--settings", u"K.ini"}), 1);
    EXPECT_EQ(console_.err, u"K.exe: Die Datei ist schon vorhanden; --force ersetzt sie.\n");
    EXPECT_EQ(console_.out, u"");
    EXPECT_EQ(world_.files.Bytes(u"K.exe"), "alt");
}

TEST_F(CommandsTest, AllProblemsOfFileAndCommandLineAreReportedAndNothingIsWritten) {
    world_.files.AddFile(u"K.ini", "Foo = 1\nRuntime = x\n");
    EXPECT_EQ(world_.Run({u"brand", u"T.exe", u"K.exe", u"--settings", u"K.ini", u"--set",
                          u"Log=vielleicht", u"--set", u"Cmd=1", u"--set", u"cmd=2"}),
              1);
    EXPECT_EQ(console_.err,
              u"K.ini, Zeile 1, Foo: Unbekannter Name 'Foo'; gemeint ist vielleicht Log.\n"
              u"K.ini, Zeile 2, Runtime: 'x' ist kein Schalterwert (erlaubt: 1 oder 0).\n"
              u"--set, Log: 'vielleicht' ist kein Schalterwert (erlaubt: 1 oder 0).\n"
              u"--set, Cmd: Der Name kommt doppelt vor.\n");
    EXPECT_FALSE(world_.files.FileExists(u"K.exe"));
}

TEST_F(CommandsTest, SetOptionGoesBeforeTheFile) {
    world_.files.AddFile(u"K.ini", "AppName = Datei\nCmd = Datei\n");
    EXPECT_EQ(world_.Run({u"brand", u"--set", u"AppName=a=b", u"T.exe", u"K.exe", u"--settings",
                          u"K.ini", u"--set=FileID=7"}),
              0)
        << text::ToUtf8(console_.err);
    world_.Run({u"show", u"K.exe"});
    EXPECT_NE(console_.out.find(u"AppName = a=b\n"), std::u16string::npos);
    EXPECT_NE(console_.out.find(u"Cmd = Datei\n"), std::u16string::npos);
    EXPECT_NE(console_.out.find(u"FileID = 7\n"), std::u16string::npos);
}

TEST_F(CommandsTest, MissingFilesAreReported) {
    EXPECT_EQ(world_.Run({u"brand", u"T.exe", u"K.exe", u"--settings", u"fehlt.ini"}), 1);
    EXPECT_EQ(console_.err, u"fehlt.ini: Datei nicht gefunden\n");
    EXPECT_EQ(world_.Run({u"show", u"fehlt.exe"}), 1);
    EXPECT_EQ(console_.err, u"fehlt.exe: Datei nicht gefunden\n");
    EXPECT_EQ(world_.Run({u"set", u"fehlt.exe", u"Cmd=x"}), 1);
    EXPECT_EQ(console_.err, u"fehlt.exe: Datei nicht gefunden\n");
}

TEST_F(CommandsTest, SetChangesBrandedAndUnbrandedFiles) {
    EXPECT_EQ(world_.Run({u"set", u"T.exe", u"Cmd=eins", u"log=1"}), 0);
    EXPECT_EQ(console_.out, u"T.exe ist geändert.\n");
    EXPECT_EQ(world_.Run({u"set", u"T.exe", u"Cmd="}), 0);
    EXPECT_EQ(world_.Run({u"show", u"T.exe"}), 0);
    EXPECT_NE(console_.out.find(u"\nCmd =\n"), std::u16string::npos);
    EXPECT_NE(console_.out.find(u"\nLog = 1\n"), std::u16string::npos);
}

TEST_F(CommandsTest, DashReadsOneLineForEachValue) {
    console_.input = {u"Meier", u"-"};
    EXPECT_EQ(world_.Run({u"set", u"T.exe", u"User=-", u"Pwd=-"}), 0);
    EXPECT_EQ(console_.prompts, std::vector<std::u16string>({u"User: ", u"Pwd: "}));
    EXPECT_EQ(world_.Run({u"show", u"T.exe", u"--reveal"}), 0);
    EXPECT_NE(console_.out.find(u"\nUser = Meier\nPwd = -\n"), std::u16string::npos);
    EXPECT_EQ(world_.Run({u"set", u"T.exe", u"Pwd=-"}), 1);
    EXPECT_EQ(console_.err, u"T.exe, Pwd: Die Standardeingabe enthält keine Zeile für den Wert.\n");
}

TEST_F(CommandsTest, ExportIsBrandedToTheSameFile) {
    EXPECT_EQ(world_.Brand(u"AppName = €uro€\nErrBoxText = a\n \n  b\nPwd = ;=#\nLog = 0\n"
                           u"DBRegList03 = HKLM\\A\\\n"),
              0);
    EXPECT_EQ(world_.Run({u"export", u"K.exe", u"neu.ini"}), 0);
    EXPECT_EQ(console_.out, u"neu.ini ist geschrieben.\n");
    EXPECT_EQ(world_.Run({u"export", u"K.exe", u"neu.ini"}), 1);
    EXPECT_EQ(world_.Run({u"export", u"K.exe", u"neu.ini", u"--force"}), 0);
    EXPECT_EQ(world_.Run({u"brand", u"T.exe", u"L.exe", u"--settings", u"neu.ini"}), 0);
    EXPECT_EQ(world_.files.Bytes(u"L.exe"), world_.files.Bytes(u"K.exe"));
}

TEST_F(CommandsTest, ValuesThatCannotBeReadAreNamedAndTheOthersShown) {
    SyntheticLauncher launcher;
    launcher.marker = u"@#BRANDED1#@";
    launcher.Mark(u"Pwd").value = u"\x1e\x1d";  // "ab", no list of numbers
    world_.files.AddFile(u"K.exe", launcher.Build());
    EXPECT_EQ(world_.Run({u"show", u"K.exe"}), 1);
    EXPECT_NE(console_.out.find(u"\nUser =\nRuntime =\n"), std::u16string::npos);
    EXPECT_TRUE(console_.err.starts_with(u"K.exe, Pwd: Der gespeicherte Wert ist nicht lesbar: "));
    EXPECT_EQ(world_.Run({u"export", u"K.exe", u"neu.ini"}), 1);
    EXPECT_FALSE(world_.files.FileExists(u"neu.ini"));
}

TEST_F(CommandsTest, FieldsListsNumberNameWidthAndMeaning) {
    EXPECT_EQ(world_.Run({u"fields"}), 0);
    EXPECT_TRUE(console_.out.starts_with(
        u"001  AppName          50  Anzeigename der Anwendung\n"
        u"002  AccPath         255  Ordner oder voller Pfad von msaccess.exe; relativ zum "
        u"Startprogramm möglich\n"));
    EXPECT_EQ(static_cast<std::size_t>(std::count(console_.out.begin(), console_.out.end(), u'\n')),
              kBrandFields.size());
    EXPECT_EQ(world_.Run({u"fields", u"--json"}), 0);
    EXPECT_NE(console_.out.find(u"  {\"number\": 65, \"name\": \"EditPwd\", \"width\": 17, "
                                u"\"storedWidth\": 50, \"meaning\": \"Kennwort"),
              std::u16string::npos);
}

TEST_F(CommandsTest, CheckOfAnUnbrandedProgramSaysSo) {
    EXPECT_EQ(world_.Run({u"check", u"T.exe"}), 1);
    EXPECT_EQ(console_.err, u"T.exe: Das Startprogramm ist noch nicht konfiguriert.\n");
}

TEST_F(CommandsTest, CheckOfGoodSettingsSaysSo) {
    EXPECT_EQ(world_.Brand(u"DBFilename = Kunden.mdb\nAccPath = C:\\Office\n"), 0);
    EXPECT_EQ(world_.Run({u"check", u"K.ini"}), 0);
    EXPECT_EQ(console_.out, u"K.ini: keine Beanstandungen.\n");
    EXPECT_EQ(world_.Run({u"check", u"K.exe"}), 0);
    EXPECT_EQ(console_.out, u"K.exe: keine Beanstandungen.\n");
}

TEST_F(CommandsTest, CheckReportsBothFormAndSense) {
    world_.files.AddFile(u"K.ini", "Foo = 1\nPwd = x\nAccPath = C:\\Office\nDBFilename = a.mdb\n");
    EXPECT_EQ(world_.Run({u"check", u"K.ini"}), 1);
    EXPECT_EQ(console_.err,
              u"K.ini, Zeile 1, Foo: Unbekannter Name 'Foo'; gemeint ist vielleicht Log.\n"
              u"K.ini, Zeile 2, Pwd: Das Kennwort wird nicht verwendet, solange User leer ist.\n");
}

TEST_F(CommandsTest, WrongUsageIsSaidInGermanAndNothingElse) {
    const std::vector<std::pair<std::vector<std::u16string>, std::u16string>> wrong = {
        {{}, u"es fehlt der Befehl."},
        {{u"foo"}, u"unbekannter Befehl 'foo'."},
        {{u"brand"}, u"es fehlt der Name der Datei."},
        {{u"brand", u"T.exe"}, u"es fehlt der Name der Ausgabe."},
        {{u"brand", u"T.exe", u"K.exe"}, u"es fehlt --settings mit der Einstellungsdatei."},
        {{u"brand", u"T.exe", u"K.exe", u"--settings"},
         u"--settings hat keinen oder keinen passenden Wert."},
        {{u"brand", u"T.exe", u"K.exe", u"--settings", u"a", u"--settings", u"b"},
         u"--settings hat keinen oder keinen passenden Wert."},
        {{u"brand", u"T.exe", u"K.exe", u"--force=vielleicht", u"--settings", u"a"},
         u"die Argumente passen nicht zum Befehl."},
        {{u"set", u"T.exe"}, u"es fehlt NAME=WERT."},
        {{u"set", u"T.exe", u"Cmd"}, u"'Cmd' hat nicht die Form NAME=WERT."},
        {{u"show", u"T.exe", u"--nix"}, u"unerwartet ist '--nix'."},
        {{u"show", u"T.exe", u"K.exe"}, u"unerwartet ist 'K.exe'."},
        {{u"fields", u"x"}, u"unerwartet ist 'x'."},
    };
    for (const auto& [arguments, problem] : wrong) {
        EXPECT_EQ(world_.Run(arguments), 2) << text::ToUtf8(problem);
        EXPECT_EQ(console_.out, u"");
        EXPECT_TRUE(
            console_.err.starts_with(u"Falscher Aufruf: " + problem + u"\nAufruf: tarvexcf "))
            << text::ToUtf8(console_.err);
    }
}

TEST_F(CommandsTest, HelpIsGermanAndAResult) {
    EXPECT_EQ(world_.Run({u"--help"}), 0);
    EXPECT_TRUE(console_.out.starts_with(u"Konfiguriert Startprogramme für Access-Datenbanken.\n"));
    for (const char16_t* command : {u"brand", u"set", u"show", u"export", u"check", u"fields"}) {
        EXPECT_EQ(world_.Run({command, u"--help"}), 0);
        EXPECT_TRUE(
            console_.out.starts_with(u"Aufruf: tarvexcf " + std::u16string(command) + u" "));
        EXPECT_EQ(console_.err, u"");
    }
}

TEST_F(CommandsTest, FileMayHaveTheNameOfACommand) {
    world_.files.AddFile(u"show", SyntheticLauncher().Build());
    EXPECT_EQ(world_.Run({u"set", u"show", u"Cmd=/x"}), 0) << text::ToUtf8(console_.err);
    EXPECT_EQ(world_.Run({u"show", u"show"}), 0);
}

}  // namespace
}  // namespace tarvex
