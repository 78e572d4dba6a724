#include "commands/Commands.h"

#include <gtest/gtest.h>

#include "branding/BrandFields.h"
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
    EXPECT_EQ(console_.out,
              u"AppName = Grün\nUser = <nicht angezeigt>\nPwd = <nicht angezeigt>\nRuntime = 1\n");
    EXPECT_EQ(world_.Run({u"show", u"K.exe", u"--reveal"}), 0);
    EXPECT_EQ(console_.out, u"AppName = Grün\nUser = Meier\nPwd = geheim\nRuntime = 1\n");
}

TEST_F(CommandsTest, ShowAsJsonEscapes) {
    EXPECT_EQ(world_.Brand(u"AppName = \"a\\b\"\nErrBoxText = x\n y\nPwd = z\n"), 0);
    EXPECT_EQ(world_.Run({u"show", u"K.exe", u"--json"}), 0);
    EXPECT_EQ(console_.out,
              u"{\n  \"file\": \"K.exe\",\n  \"branded\": true,\n  \"values\": {\n"
              u"    \"AppName\": \"\\\"a\\\\b\\\"\",\n    \"Pwd\": \"<nicht angezeigt>\",\n"
              u"    \"ErrBoxText\": \"x\\u000D\\u000Ay\"\n  }\n}\n");
}

TEST_F(CommandsTest, ExistingOutputNeedsForce) {
    world_.files.AddFile(u"K.exe", "alt");
    world_.files.AddFile(u"K.ini", "");
    EXPECT_EQ(world_.Run({u"brand", u"T.exe", u"K.exe", u"--settings", u"K.ini"}), 1);
    EXPECT_EQ(console_.err,
              u"tarvexcf: K.exe: Die Datei ist schon vorhanden; --force ersetzt sie.\n");
    EXPECT_EQ(console_.out, u"");
    EXPECT_EQ(world_.files.Bytes(u"K.exe"), "alt");
}

TEST_F(CommandsTest, AllProblemsOfFileAndCommandLineAreReportedAndNothingIsWritten) {
    world_.files.AddFile(u"K.ini", "Foo = 1\nRuntime = x\n");
    EXPECT_EQ(world_.Run({u"brand", u"T.exe", u"K.exe", u"--settings", u"K.ini", u"--set",
                          u"Log=vielleicht", u"--set", u"Cmd=1", u"--set", u"cmd=2"}),
              1);
    EXPECT_EQ(
        console_.err,
        u"tarvexcf: K.ini, Zeile 1, Foo: Unbekannter Name 'Foo'; gemeint ist vielleicht Log.\n"
        u"tarvexcf: K.ini, Zeile 2, Runtime: 'x' ist kein Schalterwert (erlaubt: 1 oder 0).\n"
        u"tarvexcf: --set, Log: 'vielleicht' ist kein Schalterwert (erlaubt: 1 oder 0).\n"
        u"tarvexcf: --set, Cmd: Der Name kommt doppelt vor.\n");
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
    EXPECT_EQ(console_.err, u"tarvexcf: fehlt.ini: Die Datei ist nicht vorhanden.\n");
    EXPECT_EQ(world_.Run({u"show", u"fehlt.exe"}), 1);
    EXPECT_EQ(console_.err, u"tarvexcf: fehlt.exe: Die Datei ist nicht vorhanden.\n");
    EXPECT_EQ(world_.Run({u"set", u"fehlt.exe", u"Cmd=x"}), 1);
    EXPECT_EQ(console_.err, u"tarvexcf: fehlt.exe: Die Datei ist nicht vorhanden.\n");
}

TEST_F(CommandsTest, SetChangesBrandedAndUnbrandedFiles) {
    EXPECT_EQ(world_.Run({u"set", u"T.exe", u"Cmd=eins", u"log=1"}), 0);
    EXPECT_EQ(console_.out, u"T.exe ist geändert.\n");
    EXPECT_EQ(world_.Run({u"set", u"T.exe", u"Cmd="}), 0);
    EXPECT_EQ(world_.Run({u"show", u"T.exe"}), 0);
    EXPECT_EQ(console_.out, u"Log = 1\n");
}

TEST_F(CommandsTest, DashReadsOneLineForEachValue) {
    console_.input = {u"Meier", u"-"};
    EXPECT_EQ(world_.Run({u"set", u"T.exe", u"User=-", u"Pwd=-"}), 0);
    EXPECT_EQ(console_.prompts, std::vector<std::u16string>({u"User: ", u"Pwd: "}));
    EXPECT_EQ(world_.Run({u"show", u"T.exe", u"--reveal"}), 0);
    EXPECT_EQ(console_.out, u"User = Meier\nPwd = -\n");
    EXPECT_EQ(world_.Run({u"set", u"T.exe", u"Pwd=-"}), 1);
    EXPECT_EQ(console_.err,
              u"tarvexcf: T.exe, Pwd: Die Standardeingabe enthält keine Zeile für den Wert.\n");
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
    EXPECT_EQ(world_.Run({u"show", u"K.exe", u"--all"}), 1);
    EXPECT_NE(console_.out.find(u"\nUser =\nRuntime =\n"), std::u16string::npos);
    EXPECT_TRUE(console_.err.starts_with(
        u"tarvexcf: K.exe, Pwd: Der gespeicherte Wert ist nicht lesbar: "));
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
    EXPECT_EQ(console_.err, u"tarvexcf: T.exe: Das Startprogramm ist noch nicht konfiguriert.\n");
}

TEST_F(CommandsTest, CheckOfGoodSettingsSaysSo) {
    EXPECT_EQ(world_.Brand(u"DBFilename = Kunden.mdb\n"), 0);
    EXPECT_EQ(world_.Run({u"check", u"K.ini"}), 0);
    EXPECT_EQ(console_.out, u"K.ini: keine Beanstandungen.\n");
    EXPECT_EQ(world_.Run({u"check", u"K.exe"}), 0);
    EXPECT_EQ(console_.out, u"K.exe: keine Beanstandungen.\n");
}

TEST_F(CommandsTest, CheckReportsBothFormAndSense) {
    world_.files.AddFile(u"K.ini", "Foo = 1\nPwd = x\n");
    EXPECT_EQ(world_.Run({u"check", u"K.ini"}), 1);
    EXPECT_EQ(
        console_.err,
        u"tarvexcf: K.ini, Zeile 1, Foo: Unbekannter Name 'Foo'; gemeint ist vielleicht Log.\n"
        u"tarvexcf: K.ini, Zeile 2, Pwd: Das Kennwort wird nicht verwendet, solange User leer "
        u"ist.\n");
}

TEST_F(CommandsTest, FileMayHaveTheNameOfACommand) {
    world_.files.AddFile(u"show", SyntheticLauncher().Build());
    EXPECT_EQ(world_.Run({u"set", u"show", u"Cmd=/x"}), 0) << text::ToUtf8(console_.err);
    EXPECT_EQ(world_.Run({u"show", u"show"}), 0);
}

}  // namespace
}  // namespace tarvex
