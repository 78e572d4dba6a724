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
    EXPECT_EQ(world_.Brand(u"AppName = Grün\nAccPath = .\nUser = Meier\nPwd = geheim\nLog = ja\n"),
              0);
    EXPECT_EQ(console_.err, u"");
    EXPECT_EQ(console_.out, u"K.exe ist konfiguriert.\n");
    EXPECT_EQ(world_.Run({u"show", u"K.exe"}), 0);
    EXPECT_EQ(console_.out,
              u"AppName = Grün\nAccPath = .\nUser = <nicht angezeigt>\n"
              u"Pwd = <nicht angezeigt>\nLog = 1\n");
    EXPECT_EQ(world_.Run({u"show", u"K.exe", u"--reveal"}), 0);
    EXPECT_EQ(console_.out, u"AppName = Grün\nAccPath = .\nUser = Meier\nPwd = geheim\nLog = 1\n");
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
        u"001  AppName            50  Anzeigename der Anwendung\n"
        u"002  AccPath           255  Ordner oder voller Pfad von msaccess.exe; relativ zum "
        u"Startprogramm möglich\n"));
    EXPECT_EQ(static_cast<std::size_t>(std::count(console_.out.begin(), console_.out.end(), u'\n')),
              kBrandFields.size() + 11);
    EXPECT_NE(console_.out.find(u"\n1003  CompanyName       500  Name des Herstellers\n"),
              std::u16string::npos);
    EXPECT_EQ(world_.Run({u"fields", u"--json"}), 0);
    EXPECT_NE(console_.out.find(u"  {\"number\": 65, \"name\": \"EditPwd\", \"width\": 17, "
                                u"\"storedWidth\": 50, \"meaning\": \"Kennwort"),
              std::u16string::npos);
}

TEST_F(CommandsTest, CheckOfAnUnbrandedProgramSaysSo) {
    EXPECT_EQ(world_.Run({u"check", u"T.exe"}), 1);
    EXPECT_EQ(console_.err,
              u"tarvexcf: T.exe: Fehler: Das Startprogramm ist noch nicht konfiguriert. "
              u"[not-branded]\n");
}

TEST_F(CommandsTest, CheckOfGoodSettingsSaysSo) {
    EXPECT_EQ(world_.Brand(u"DBFilename = Kunden.mdb\nAccPath = C:\\Office\n"), 0);
    EXPECT_EQ(world_.Run({u"check", u"K.ini"}), 0);
    EXPECT_EQ(console_.out, u"K.ini: keine Beanstandungen.\n");
    EXPECT_EQ(world_.Run({u"check", u"K.exe"}), 0);
    EXPECT_EQ(console_.out, u"K.exe: keine Beanstandungen.\n");
}

TEST_F(CommandsTest, CheckReportsBothFormAndSense) {
    world_.files.AddFile(u"K.ini", "Foo = 1\nPwd = x\nAccPath = .\nDBFilename = a.mdb\n");
    EXPECT_EQ(world_.Run({u"check", u"K.ini"}), 1);
    EXPECT_EQ(console_.err,
              u"tarvexcf: K.ini, Zeile 1, Foo: Fehler: Unbekannter Name 'Foo'; gemeint ist "
              u"vielleicht Log. [settings-file]\n"
              u"tarvexcf: K.ini, Zeile 2, Pwd: Warnung: Das Kennwort wird nicht verwendet, "
              u"solange User leer ist. [password-without-user]\n");
    EXPECT_EQ(console_.out, u"K.ini: 1 Fehler, 1 Warnung.\n");
}

TEST_F(CommandsTest, WarningsFailACheckOnlyWhenItIsStrict) {
    world_.files.AddFile(u"K.ini", "AccPath = .\nPwd = x\nDBFilename = a.mdb\n");
    EXPECT_EQ(world_.Run({u"check", u"K.ini"}), 0);
    EXPECT_EQ(console_.out, u"K.ini: 1 Warnung.\n");
    EXPECT_EQ(world_.Run({u"check", u"K.ini", u"--strict"}), 1);
    EXPECT_EQ(world_.Run({u"check", u"K.ini", u"--strict", u"--ignore", u"password-without-user"}),
              0);
    EXPECT_EQ(console_.err, u"");
    EXPECT_EQ(console_.out, u"K.ini: keine Beanstandungen.\n");
    EXPECT_EQ(world_.Run({u"check", u"K.ini", u"--ignore", u"Unsinn"}), 2);
    EXPECT_EQ(console_.err, u"tarvexcf: Die Kennung 'Unsinn' gibt es nicht.\n");
}

TEST_F(CommandsTest, CheckAsJsonNamesEachFinding) {
    world_.files.AddFile(u"K.ini", "AccPath = .\nPwd = x\nDBFilename = a.mdb\n");
    EXPECT_EQ(world_.Run({u"check", u"K.ini", u"--json"}), 0);
    EXPECT_EQ(console_.out,
              u"[\n  {\"id\": \"password-without-user\", \"severity\": \"Warnung\", \"file\": "
              u"\"K.ini\", \"line\": 2, \"field\": \"Pwd\", \"text\": \"Das Kennwort wird nicht "
              u"verwendet, solange User leer ist.\"}\n]\n");
    EXPECT_EQ(console_.err, u"");
    world_.files.AddFile(u"K.ini", "AccPath = .\nDBFilename = a.mdb\n");
    EXPECT_EQ(world_.Run({u"check", u"K.ini", u"--json"}), 0);
    EXPECT_EQ(console_.out, u"[\n]\n");
}

TEST_F(CommandsTest, BrandAndSetTellFindingsAndGoOnUnlessTheyAreStrict) {
    const std::u16string warning =
        u"Pwd: Warnung: Das Kennwort wird nicht verwendet, solange User leer ist. "
        u"[password-without-user]\n";
    world_.files.AddFile(u"K.ini", "AccPath = .\nPwd = x\n");
    EXPECT_EQ(world_.Run({u"brand", u"T.exe", u"K.exe", u"--settings", u"K.ini", u"--strict"}), 1);
    EXPECT_EQ(console_.err, u"tarvexcf: K.ini, Zeile 2, " + warning +
                                u"tarvexcf: K.exe: Wegen --strict wird nichts geschrieben.\n");
    EXPECT_FALSE(world_.files.FileExists(u"K.exe"));
    EXPECT_EQ(world_.Run({u"brand", u"T.exe", u"K.exe", u"--settings", u"K.ini"}), 0);
    EXPECT_EQ(console_.err, u"tarvexcf: K.ini, Zeile 2, " + warning);
    EXPECT_EQ(console_.out, u"K.exe ist konfiguriert.\n");
    const std::string before = world_.files.Bytes(u"K.exe");
    EXPECT_EQ(world_.Run({u"set", u"K.exe", u"AppName=x", u"--strict"}), 1);
    EXPECT_EQ(console_.err, u"tarvexcf: K.exe, " + warning +
                                u"tarvexcf: K.exe: Wegen --strict wird nichts geschrieben.\n");
    EXPECT_EQ(world_.files.Bytes(u"K.exe"), before);
    EXPECT_EQ(world_.Run({u"set", u"K.exe", u"AppName=x"}), 0);
    EXPECT_EQ(console_.err, u"tarvexcf: K.exe, " + warning);
}

TEST_F(CommandsTest, GetGivesPlainValuesInTheOrderAskedFor) {
    EXPECT_EQ(world_.Brand(u"AppName = Grün\nErrBoxText = a\n  b\nPwd = geheim\nUser = x\n"), 0);
    EXPECT_EQ(world_.Run({u"get", u"K.exe", u"errboxtext", u"AppName", u"Cmd"}), 0);
    EXPECT_EQ(console_.out, u"a\n b\nGrün\n\n");
    EXPECT_EQ(console_.err, u"");
    EXPECT_EQ(world_.Run({u"get", u"K.ini", u"AppName"}), 0);
    EXPECT_EQ(console_.out, u"Grün\n");
}

TEST_F(CommandsTest, GetOfASecretOrAnUnknownNameGivesNothing) {
    EXPECT_EQ(world_.Brand(u"AppName = x\nUser = Meier\nPwd = geheim\n"), 0);
    EXPECT_EQ(world_.Run({u"get", u"K.exe", u"AppName", u"Pwd", u"Kmd"}), 1);
    EXPECT_EQ(console_.out, u"");
    EXPECT_EQ(console_.err,
              u"tarvexcf: K.exe, Pwd: Der Wert ist geheim; --reveal gibt ihn aus.\n"
              u"tarvexcf: K.exe, Kmd: Unbekannter Name 'Kmd'; gemeint ist vielleicht Cmd.\n");
    EXPECT_EQ(world_.Run({u"get", u"K.exe", u"Pwd", u"--reveal"}), 0);
    EXPECT_EQ(console_.out, u"geheim\n");
}

TEST_F(CommandsTest, UnsetEmptiesTheNamedFieldsOnly) {
    EXPECT_EQ(world_.Brand(u"AppName = x\nCmd = y\nLog = 1\n"), 0);
    EXPECT_EQ(world_.Run({u"unset", u"K.exe", u"cmd", u"Log"}), 0);
    EXPECT_EQ(console_.out, u"K.exe ist geändert.\n");
    EXPECT_EQ(world_.Run({u"show", u"K.exe"}), 0);
    EXPECT_EQ(console_.out, u"AppName = x\n");
    EXPECT_EQ(world_.Run({u"unset", u"K.exe", u"AppName", u"Kmd"}), 1);
    EXPECT_EQ(console_.err,
              u"tarvexcf: K.exe, Kmd: Unbekannter Name 'Kmd'; gemeint ist vielleicht Cmd.\n");
    EXPECT_EQ(world_.Run({u"get", u"K.exe", u"AppName"}), 0);
    EXPECT_EQ(console_.out, u"x\n");
}

TEST_F(CommandsTest, ShowOfAnUnbrandedProgramSaysSo) {
    EXPECT_EQ(world_.Run({u"show", u"T.exe"}), 0);
    EXPECT_EQ(console_.out, u"; T.exe ist noch nicht konfiguriert.\n");
}

TEST_F(CommandsTest, ShowAllHasEveryField) {
    EXPECT_EQ(world_.Brand(u"AppName = x\n"), 0);
    EXPECT_EQ(world_.Run({u"show", u"K.exe", u"--all"}), 0);
    EXPECT_TRUE(console_.out.starts_with(u"AppName = x\nAccPath =\n"));
    EXPECT_EQ(static_cast<std::size_t>(std::count(console_.out.begin(), console_.out.end(), u'\n')),
              kBrandFields.size());
}

TEST_F(CommandsTest, DiffShowsWhatDiffersAndKeepsSecrets) {
    EXPECT_EQ(world_.Brand(u"AppName = alt\nUser = Meier\nPwd = eins\nErrBoxText = a\n b\n"), 0);
    world_.files.AddFile(u"N.ini", "AppName = neu\nUser = Meier\nPwd = zwei\nLog = 1\n");
    EXPECT_EQ(world_.Run({u"diff", u"K.exe", u"N.ini"}), 1);
    EXPECT_EQ(console_.out,
              u"- AppName = alt\n+ AppName = neu\n"
              u"- Pwd = <nicht angezeigt>\n+ Pwd = <nicht angezeigt>\n"
              u"+ Log = 1\n"
              u"- ErrBoxText = a\n-  b\n");
    EXPECT_EQ(console_.err, u"");
    EXPECT_EQ(world_.Run({u"diff", u"K.exe", u"N.ini", u"--quiet"}), 1);
    EXPECT_EQ(console_.out, u"");
    EXPECT_EQ(world_.Run({u"diff", u"K.ini", u"K.exe"}), 0);
    EXPECT_EQ(console_.out, u"Kein Unterschied.\n");
}

TEST_F(CommandsTest, DiffNamesTheFileThatIsMissing) {
    EXPECT_EQ(world_.Run({u"diff", u"T.exe", u"fehlt.ini"}), 1);
    EXPECT_EQ(console_.err, u"tarvexcf: fehlt.ini: Die Datei ist nicht vorhanden.\n");
}

TEST_F(CommandsTest, ExportToTheOutputWritesNoFile) {
    EXPECT_EQ(world_.Brand(u"AppName = Grün\nPwd = geheim\nUser = Meier\n"), 0);
    for (const char16_t* output : {u"-", u"/dev/stdout"}) {
        EXPECT_EQ(world_.Run({u"export", u"K.exe", output}), 0);
        EXPECT_NE(console_.out.find(u"\r\nAppName = Grün\r\n"), std::u16string::npos);
        EXPECT_NE(console_.out.find(u"\r\nPwd = geheim\r\n"), std::u16string::npos);
        EXPECT_EQ(console_.out.find(u"ist geschrieben"), std::u16string::npos);
        EXPECT_FALSE(world_.files.FileExists(output));
    }
}

TEST_F(CommandsTest, ExportWithoutSecretsLeavesThemOut) {
    EXPECT_EQ(world_.Brand(u"AppName = x\nPwd = geheim\nUser = Meier\nEditPwd = auch\n"), 0);
    EXPECT_EQ(world_.Run({u"export", u"K.exe", u"-", u"--no-secrets"}), 0);
    for (const char16_t* secret : {u"geheim", u"Meier", u"auch"}) {
        EXPECT_EQ(console_.out.find(secret), std::u16string::npos) << text::ToUtf8(secret);
    }
    EXPECT_NE(console_.out.find(u"\r\nAppName = x\r\n"), std::u16string::npos);
}

TEST_F(CommandsTest, DryRunShowsTheChangeAndWritesNothing) {
    EXPECT_EQ(world_.Brand(u"AppName = alt\nPwd = eins\nUser = x\n"), 0);
    const std::string before = world_.files.Bytes(u"K.exe");
    EXPECT_EQ(world_.Run({u"set", u"K.exe", u"AppName=neu", u"Pwd=zwei", u"--dry-run"}), 0);
    EXPECT_EQ(console_.out,
              u"- AppName = alt\n+ AppName = neu\n"
              u"- Pwd = <nicht angezeigt>\n+ Pwd = <nicht angezeigt>\n"
              u"K.exe würde geändert.\n");
    EXPECT_EQ(world_.Run({u"unset", u"K.exe", u"AppName", u"--dry-run"}), 0);
    EXPECT_EQ(console_.out, u"- AppName = alt\nK.exe würde geändert.\n");
    EXPECT_EQ(world_.Run({u"export", u"K.exe", u"neu.ini", u"--dry-run"}), 0);
    EXPECT_EQ(console_.out, u"neu.ini würde geschrieben.\n");
    EXPECT_EQ(world_.Run({u"brand", u"T.exe", u"N.exe", u"--set", u"AppName=n", u"--settings",
                          u"K.ini", u"--dry-run"}),
              0)
        << text::ToUtf8(console_.err);
    EXPECT_EQ(console_.out,
              u"+ AppName = n\n+ User = <nicht angezeigt>\n+ Pwd = <nicht angezeigt>\n"
              u"N.exe würde konfiguriert.\n");
    EXPECT_EQ(world_.files.Bytes(u"K.exe"), before);
    EXPECT_FALSE(world_.files.FileExists(u"neu.ini"));
    EXPECT_FALSE(world_.files.FileExists(u"N.exe"));
}

TEST_F(CommandsTest, DryRunRefusesWhatTheRealRunWould) {
    EXPECT_EQ(world_.Brand(u"AccPath = .\n"), 0);
    EXPECT_EQ(world_.Run({u"brand", u"K.exe", u"N.exe", u"--settings", u"K.ini", u"--dry-run"}), 1);
    EXPECT_EQ(console_.out, u"");
    EXPECT_EQ(console_.err,
              u"tarvexcf: K.exe: Das Startprogramm ist bereits konfiguriert; 'brand' braucht ein "
              u"unkonfiguriertes. Einzelne Werte ändert 'set'.\n");
    EXPECT_EQ(world_.Run({u"brand", u"T.exe", u"K.exe", u"--settings", u"K.ini", u"--dry-run"}), 1);
    EXPECT_EQ(world_.Run({u"set", u"fehlt.exe", u"Cmd=x", u"--dry-run"}), 1);
    EXPECT_EQ(console_.err, u"tarvexcf: fehlt.exe: Die Datei ist nicht vorhanden.\n");
}

TEST_F(CommandsTest, QuietLeavesOutWhatWentWell) {
    world_.files.AddFile(u"K.ini", "DBFilename = a.mdb\nAccPath = .\n");
    for (const std::vector<std::u16string>& arguments :
         {std::vector<std::u16string>{u"brand", u"T.exe", u"K.exe", u"--settings", u"K.ini"},
          {u"set", u"K.exe", u"AppName=x"},
          {u"unset", u"K.exe", u"AppName"},
          {u"export", u"K.exe", u"neu.ini"},
          {u"check", u"K.exe"},
          {u"diff", u"K.exe", u"K.ini"}}) {
        std::vector<std::u16string> quiet = arguments;
        quiet.emplace_back(u"--quiet");
        EXPECT_EQ(world_.Run(quiet), 0) << text::ToUtf8(arguments[0] + console_.err);
        EXPECT_EQ(console_.out + console_.err, u"") << text::ToUtf8(arguments[0]);
    }
}

TEST_F(CommandsTest, OutputThatCannotBeWrittenIsAFailure) {
    EXPECT_EQ(world_.Brand(u"AccPath = .\n"), 0);
    console_.outputIsFull = true;
    for (const std::vector<std::u16string>& arguments :
         {std::vector<std::u16string>{u"show", u"K.exe"},
          {u"export", u"K.exe", u"-"},
          {u"fields"},
          {u"--help"},
          {u"set", u"K.exe", u"AppName=y"}}) {
        EXPECT_EQ(world_.Run(arguments), 1) << text::ToUtf8(arguments[0]);
        EXPECT_EQ(console_.err, u"tarvexcf: Die Ausgabe kann nicht geschrieben werden.\n");
    }
}

TEST_F(CommandsTest, SettingsFromTheStandardInput) {
    console_.inputBytes =
        "\xEF\xBB\xBF"
        "AppName = Gr\xC3\xBCn\n";
    EXPECT_EQ(world_.Run({u"brand", u"T.exe", u"K.exe", u"--settings", u"-"}), 0)
        << text::ToUtf8(console_.err);
    EXPECT_EQ(world_.Run({u"get", u"K.exe", u"AppName"}), 0);
    EXPECT_EQ(console_.out, u"Grün\n");
    console_.inputBytes = "Foo = 1\n";
    EXPECT_EQ(world_.Run({u"brand", u"T.exe", u"L.exe", u"--settings", u"/dev/stdin"}), 1);
    EXPECT_TRUE(console_.err.starts_with(u"tarvexcf: /dev/stdin, Zeile 1, Foo: Unbekannter Name"));
}

TEST_F(CommandsTest, TypedPasswordIsAskedForTwice) {
    console_.interactive = true;
    console_.input = {u"geheim", u"geheim"};
    EXPECT_EQ(world_.Run({u"set", u"T.exe", u"Pwd=-"}), 0);
    EXPECT_EQ(console_.prompts, std::vector<std::u16string>({u"Pwd: ", u"Pwd (noch einmal): "}));
    console_.input = {u"geheim", u"gehiem"};
    EXPECT_EQ(world_.Run({u"set", u"T.exe", u"Pwd=-"}), 1);
    EXPECT_EQ(console_.err, u"tarvexcf: T.exe, Pwd: Die beiden Eingaben sind verschieden.\n");
    EXPECT_EQ(world_.Run({u"get", u"T.exe", u"Pwd", u"--reveal"}), 0);
    EXPECT_EQ(console_.out, u"geheim\n");
}

TEST_F(CommandsTest, EmptyLineIsAPasswordOnlyWithForce) {
    EXPECT_EQ(world_.Run({u"set", u"T.exe", u"Pwd=alt"}), 0);
    console_.input = {u""};
    EXPECT_EQ(world_.Run({u"set", u"T.exe", u"Pwd=-"}), 1);
    EXPECT_EQ(console_.err,
              u"tarvexcf: T.exe, Pwd: Die Eingabe ist leer; mit --force wird der Wert geleert.\n");
    console_.input = {u""};
    EXPECT_EQ(world_.Run({u"set", u"T.exe", u"Pwd=-", u"--force"}), 0);
    EXPECT_EQ(world_.Run({u"get", u"T.exe", u"Pwd", u"--reveal"}), 0);
    EXPECT_EQ(console_.out, u"\n");
}

TEST_F(CommandsTest, PresetsAreASettingsFileWithoutFindings) {
    EXPECT_EQ(world_.Run({u"presets"}), 0);
    EXPECT_NE(
        console_.out.find(
            u"; Access 2016 und neuer, Microsoft 365 (Office 16.0)\n"
            u"AccRegList01 = HKLM\\SOFTWARE\\Microsoft\\Office\\16.0\\Access\\InstallRoot\\Path\n"),
        std::u16string::npos);
    EXPECT_NE(console_.out.find(u"AccRegList10 = HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion"
                                u"\\App Paths\\MSACCESS.EXE\\Path\n"),
              std::u16string::npos);
    world_.files.AddFile(u"K.ini", text::ToUtf8(console_.out) + "DBFilename = a.mdb\n");
    EXPECT_EQ(world_.Run({u"check", u"K.ini", u"--strict"}), 0) << text::ToUtf8(console_.err);
    EXPECT_EQ(console_.err, u"");
}

TEST_F(CommandsTest, CodePageOfTheUsersIsAskedFor) {
    EXPECT_EQ(world_.Run({u"set", u"T.exe", u"AppName=Žluť", u"--codepage", u"1250"}), 0)
        << text::ToUtf8(console_.err);
    EXPECT_EQ(world_.Run({u"get", u"T.exe", u"AppName", u"--codepage", u"1250"}), 0);
    EXPECT_EQ(console_.out, u"Žluť\n");
    EXPECT_EQ(world_.Run({u"set", u"T.exe", u"AppName=Žluť"}), 1);
    EXPECT_EQ(world_.Run({u"set", u"T.exe", u"AppName=x", u"--codepage", u"932"}), 2);
    EXPECT_EQ(console_.err,
              u"tarvexcf: Die Codeseite '932' gibt es hier nicht; möglich sind 874 und 1250 bis "
              u"1258.\n");
}

TEST_F(CommandsTest, BrandCarriesTheSettingsOfAnOldLauncher) {
    EXPECT_EQ(world_.Brand(u"AccPath = .\nAppName = alt\nUser = Meier\nPwd = geheim\n"
                           u"DBFilename = a.mdb\n"),
              0);
    world_.files.AddFile(u"N.ini", "AppName = aus der Datei\nCmd = aus der Datei\n");
    EXPECT_EQ(world_.Run({u"brand", u"T.exe", u"N.exe", u"--from", u"K.exe", u"--settings",
                          u"N.ini", u"--set", u"Cmd=zuletzt", u"--drop", u"dbfilename"}),
              0)
        << text::ToUtf8(console_.err);
    EXPECT_EQ(world_.Run({u"show", u"N.exe", u"--reveal"}), 0);
    EXPECT_EQ(console_.out,
              u"AppName = aus der Datei\nAccPath = .\nUser = Meier\nPwd = geheim\nCmd = zuletzt\n");
}

TEST_F(CommandsTest, OldLauncherIsRenewedInItsPlaceWithForceOnly) {
    EXPECT_EQ(world_.Brand(u"AccPath = .\nAppName = alt\nDBFilename = a.mdb\n"), 0);
    const std::string old = world_.files.Bytes(u"K.exe");
    SyntheticLauncher newer;
    newer.marks.push_back({50, 20, u"Neu", u"", 0});
    world_.files.AddFile(u"T.exe", newer.Build());
    EXPECT_EQ(world_.Run({u"brand", u"T.exe", u"K.exe", u"--from", u"K.exe"}), 1);
    EXPECT_EQ(world_.files.Bytes(u"K.exe"), old);
    EXPECT_EQ(world_.Run({u"brand", u"T.exe", u"K.exe", u"--from", u"K.exe", u"--force"}), 0)
        << text::ToUtf8(console_.err);
    EXPECT_NE(world_.files.Bytes(u"K.exe"), old);
    EXPECT_EQ(world_.Run({u"show", u"K.exe"}), 0);
    EXPECT_EQ(console_.out, u"AppName = alt\nAccPath = .\nDBFilename = a.mdb\n");
    EXPECT_EQ(world_.Run({u"brand", u"T.exe", u"T.exe", u"--from", u"K.exe", u"--force"}), 1);
    EXPECT_EQ(console_.err,
              u"tarvexcf: T.exe: Die Ausgabe wäre dieselbe Datei wie die Eingabe 'T.exe'.\n");
}

TEST_F(CommandsTest, OldLauncherIsLockedFromReadingToReplacing) {
    EXPECT_EQ(world_.Brand(u"AccPath = .\nAppName = alt\nDBFilename = a.mdb\n"), 0);
    world_.store.log.clear();
    EXPECT_EQ(world_.Run({u"brand", u"T.exe", u"K.exe", u"--from", u"K.exe", u"--force"}), 0);
    const auto& log = world_.store.log;
    const auto locked = std::find(log.begin(), log.end(), u"lock K.exe");
    ASSERT_NE(locked, log.end());
    EXPECT_LT(locked, std::find(log.begin(), log.end(), u"read K.exe"));
    EXPECT_EQ(std::count(log.begin(), log.end(), u"lock K.exe"), 1);
    EXPECT_EQ(world_.store.HeldLocks(), 0U);
}

TEST_F(CommandsTest, ShowNamesTheFieldsOfAnotherVersion) {
    SyntheticLauncher other;
    other.marks.push_back({50, 20, u"Neu", u"etwas", 0});
    std::erase_if(other.marks, [](const SyntheticMark& mark) { return mark.name == u"Cmd"; });
    other.marker = u"@#BRANDED1#@";
    world_.files.AddFile(u"A.exe", other.Build());
    EXPECT_EQ(world_.Run({u"show", u"A.exe"}), 0);
    EXPECT_EQ(console_.err,
              u"tarvexcf: A.exe: Hinweis: Das Startprogramm ist von einer anderen Version und hat "
              u"diese Felder nicht: Cmd. [mark-missing]\n"
              u"tarvexcf: A.exe: Hinweis: Das Startprogramm ist von einer anderen Version und hat "
              u"Felder, die hier unbekannt sind und bleiben, wie sie sind: 050 Neu. "
              u"[mark-unknown]\n");
}

TEST_F(CommandsTest, WhatCannotBeCarriedStopsTheRun) {
    SyntheticLauncher newer;
    newer.marks.push_back({50, 20, u"Neu", u"etwas", 0});
    newer.marker = u"@#BRANDED1#@";
    world_.files.AddFile(u"A.exe", newer.Build());
    EXPECT_EQ(world_.Run({u"brand", u"T.exe", u"N.exe", u"--from", u"A.exe"}), 1);
    EXPECT_EQ(console_.err,
              u"tarvexcf: A.exe, Neu: Diese Version von tarvexcf kennt das Feld nicht. --drop Neu "
              u"lässt es weg.\n");
    EXPECT_FALSE(world_.files.FileExists(u"N.exe"));
    EXPECT_EQ(world_.Run({u"brand", u"T.exe", u"N.exe", u"--from", u"A.exe", u"--drop", u"Neu"}),
              0);
}

TEST_F(CommandsTest, FileMayHaveTheNameOfACommand) {
    world_.files.AddFile(u"show", SyntheticLauncher().Build());
    EXPECT_EQ(world_.Run({u"set", u"show", u"Cmd=/x"}), 0) << text::ToUtf8(console_.err);
    EXPECT_EQ(world_.Run({u"show", u"show"}), 0);
}

}  // namespace
}  // namespace tarvex
