#include "simulation/LauncherRun.h"

#include <gtest/gtest.h>

#include "branding/BrandFields.h"
#include "tests/support/FakeBrandConstants.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/FakeRegistry.h"
#include "tests/support/TestProgram.h"
#include "text/Text.h"
#include "text/TextCodec1252.h"

namespace tarvex {
namespace {

/// Tells what was asked, and whether the launcher was in its steps then.
class AskingFiles : public FakeFileSystem {
public:
    bool FileExists(std::u16string_view path) const override {
        if (run != nullptr && run->InLaunchSteps()) {
            inSteps.emplace_back(path);
        }
        return FakeFileSystem::FileExists(path);
    }

    const LauncherRun* run = nullptr;
    mutable std::vector<std::u16string> inSteps;
};

/// A launcher C:\Prog\Start.exe with Access in C:\Office and a database in C:\Prog\Daten.
class LauncherRunTest : public ::testing::Test {
protected:
    using Values = FakeBrandConstants::Values;

    LauncherRunTest() {
        files.AddFile(u"C:\\Office\\msaccess.exe");
        files.AddFile(u"C:\\Prog\\Daten\\Kunden.mdb");
    }

    static Values Kunden() {
        return {{kFieldAccPath, u"C:\\Office"},
                {kFieldDBPath, u"Daten"},
                {kFieldDBFilename, u"Kunden.mdb"},
                {kFieldUser, u"Meier"},
                {kFieldPwd, u"a/b"}};
    }

    LaunchOutcome Run(const Values& values, std::u16string arguments = {}) {
        return Run(FakeBrandConstants(values), std::move(arguments));
    }

    LaunchOutcome Run(const FakeBrandConstants& constants, std::u16string arguments = {}) {
        LauncherRun run(constants,
                        {registry, files, codec, codec, TestProgram(std::move(arguments))});
        files.run = &run;
        LaunchOutcome outcome = run.Run();
        files.run = nullptr;
        return outcome;
    }

    FakeRegistry registry;
    AskingFiles files;
    TextCodec1252 codec;
};

TEST_F(LauncherRunTest, StartGivesTheMaskedLineAndWhatWasFound) {
    const LaunchOutcome outcome = Run(Kunden());
    EXPECT_TRUE(outcome.started);
    EXPECT_EQ(ResultText(outcome), u"Start");
    EXPECT_EQ(outcome.commandLine,
              u"\"C:\\Office\\msaccess.exe\" \"C:\\Prog\\Daten\\Kunden.mdb\" /user \"XXXX\" /pwd "
              u"\"YYYY\"");
    EXPECT_EQ(outcome.access, u"C:\\Office\\msaccess.exe");
    EXPECT_EQ(outcome.database, u"C:\\Prog\\Daten\\Kunden.mdb");
    EXPECT_EQ(outcome.errorNumber, 0);
    EXPECT_EQ(outcome.errorText, u"");
}

TEST_F(LauncherRunTest, TextIsThatOfTheDryRun) {
    EXPECT_EQ(Run(Kunden()).text,
              u"Das Startprogramm würde die folgende Befehlszeile ausführen:\r\n"
              u"\r\n"
              u"\"C:\\Office\\msaccess.exe\" \"C:\\Prog\\Daten\\Kunden.mdb\" /user "
              u"\"XXXX\" /pwd \"YYYY\"\r\n"
              u"[Startbild]\r\n"
              u"Dauer: 0, Bild wird nicht angezeigt\r\n"
              u"\r\n"
              u"[Weitere Parameter]\r\n"
              u"\r\n"
              u"Logfile schreiben: Nein\r\n"
              u"[Access-Pfad]\r\n"
              u"Absoluter Pfad wird verwendet: C:\\Office\\msaccess.exe\r\n"
              u"Access-EXE: OK\r\n"
              u"\r\n"
              u"[Datenbank-Pfad]\r\n"
              u"Absoluter Pfad: C:\\Prog\\Daten\\\r\n"
              u"Berechneter Pfad: C:\\Prog\\Daten\\\r\n"
              u"Datenbank: : C:\\Prog\\Daten\\Kunden.mdb\r\n"
              u"Datenbank: OK\r\n"
              u"\r\n"
              u"[SysDB-Pfad]\r\n"
              u"Keine SysDB\r\n"
              u"\r\n"
              u"[Profil]\r\n"
              u"Kein Profil eingestellt\r\n");
}

TEST_F(LauncherRunTest, FailureThatTheDryRunOnlyNotesIsTheResult) {
    files.Remove(u"C:\\Prog\\Daten\\Kunden.mdb");
    const LaunchOutcome outcome = Run(Kunden());
    EXPECT_FALSE(outcome.started);
    EXPECT_EQ(ResultText(outcome), u"Fehler 5");
    EXPECT_EQ(outcome.errorText,
              u"Die Datenbank 'C:\\Prog\\Daten\\Kunden.mdb' ist nicht vorhanden.");
    EXPECT_EQ(outcome.access, u"C:\\Office\\msaccess.exe");
    EXPECT_EQ(outcome.database, u"");
    EXPECT_EQ(outcome.commandLine, u"");
    EXPECT_TRUE(outcome.text.starts_with(
        u"Das Startprogramm würde die folgende Befehlszeile ausführen. Wegen der unten "
        u"aufgeführten Fehler konnte sie nicht vollständig zusammengestellt werden:\r\n\r\n"));
}

TEST_F(LauncherRunTest, AccessThatIsNotThereDoesNotHideTheDatabase) {
    files.Remove(u"C:\\Office\\msaccess.exe");
    const LaunchOutcome outcome = Run(Kunden());
    EXPECT_EQ(ResultText(outcome), u"Fehler 3");
    EXPECT_EQ(outcome.access, u"");
    EXPECT_EQ(outcome.database, u"C:\\Prog\\Daten\\Kunden.mdb");
}

TEST_F(LauncherRunTest, ErrorThatEndsTheDryRunGivesItsReportAsText) {
    const LaunchOutcome outcome =
        Run(With(Kunden(), {{kAccRegList.Field(1), u"HKCU\\Software\\Firma\\Office"}}));
    EXPECT_EQ(ResultText(outcome), u"Fehler 11");
    EXPECT_EQ(outcome.access, u"");
    EXPECT_EQ(outcome.database, u"") << "the launcher does not look for it";
    EXPECT_EQ(outcome.text,
              u"Tarvex - Erweiterte Fehlerinformationen:\r\n"
              u"\r\n"
              u"Nummer       : -2147220469\r\n"
              u"Quelle       : Tarvex/cuTarvex: GetAccessPath: : GetCommandLine | Application: "
              u"Init\r\n"
              u"Beschreibung : Die benutzerdefinierten Registryeinträge für den Access-Pfad sind "
              u"nicht\r\n"
              u"               vorhanden, enthalten keinen Wert oder an den angegebenen Positionen "
              u"wurde keine\r\n"
              u"               ausführbare Access-Datei gefunden.\r\n"
              u"\r\n"
              u"--------------------------------------------------\r\n"
              u"\r\n"
              u"[Access-Pfad]\r\n"
              u"Schlüsselliste wird aufgelöst\r\n"
              u"Gespeicherter Wert: HKCU\\Software\\Firma\\Office\r\n"
              u" - HKey: HKCU\r\n"
              u" - Schlüssel: Software\\Firma\r\n"
              u" - Wertname: Office\r\n"
              u" - Unterordner: -\r\n"
              u" - Dateiname: -\r\n"
              u"Schlüsselinhalt: <nicht vorhanden oder kein Inhalt>\r\n"
              u"Pfad konnte nicht ermittelt werden");
}

TEST_F(LauncherRunTest, LauncherWithoutSettingsGivesTheMessageAndItsDetails) {
    FakeBrandConstants constants(Kunden());
    constants.marker = u"@#BRANDED0#@";
    const LaunchOutcome outcome = Run(constants);
    EXPECT_EQ(ResultText(outcome), u"Fehler 117");
    EXPECT_EQ(
        outcome.errorText,
        u"Im Startprogramm 'C:\\Prog\\Start.exe' wurden keine Parameter gesetzt.\r\n"
        u"Verwenden Sie das Tarvex-Konfigurationsprogramm, um die Parameter für die zu ladende "
        u"Access-Datenbank einzustellen.");
    EXPECT_TRUE(outcome.text.starts_with(u"Tarvex - Erweiterte Fehlerinformationen:\r\n"));
}

TEST_F(LauncherRunTest, ErrorOfTheProgramItselfIsNotTakenForALaunchError) {
    FakeBrandConstants constants(Kunden());
    for (std::u16string& mark : constants.marks) {
        if (mark.find(u"|User|") != std::u16string::npos) {
            mark.replace(mark.find(u"|User|") + 6, 3, u"x,y");
        }
    }
    EXPECT_EQ(ResultText(Run(constants)), u"Laufzeitfehler 13");
}

TEST_F(LauncherRunTest, SwitchesOfTheLauncherCount) {
    EXPECT_EQ(Run(Kunden(), u"/Compact").commandLine,
              u"\"C:\\Office\\msaccess.exe\" \"C:\\Prog\\Daten\\Kunden.mdb\" /Compact /user "
              u"\"XXXX\" /pwd \"YYYY\"");
}

TEST_F(LauncherRunTest, TestSwitchAmongTheArgumentsDoesNotKeepTheRealStart) {
    const LaunchOutcome outcome = Run(Kunden(), u"/t /Compact");
    EXPECT_TRUE(outcome.started);
    EXPECT_NE(outcome.commandLine.find(u" /Compact"), std::u16string::npos);
}

TEST_F(LauncherRunTest, TestSwitchAloneIsTakenOutOfTheArguments) {
    EXPECT_EQ(WithoutTestSwitch(u"x /Compact /T /Repair"), u"x /Compact /Repair");
    EXPECT_EQ(WithoutTestSwitch(u"/t"), u"");
    EXPECT_EQ(WithoutTestSwitch(u"/Test /D T"), u"/Test /D T");
}

TEST_F(LauncherRunTest, LogFileIsNotWritten) {
    const LaunchOutcome outcome = Run(With(Kunden(), {{kFieldLog, u"1"}}));
    EXPECT_TRUE(outcome.started);
    EXPECT_NE(outcome.text.find(u"Logfile schreiben: Ja"), std::u16string::npos);
    EXPECT_FALSE(files.Bytes(u"C:\\Prog\\Start.log"));
}

TEST_F(LauncherRunTest, QuestionsAboutPictureAndHelpAreNotOfTheSteps) {
    files.AddFile(u"C:\\Prog\\Bild.bmp");
    Run(With(Kunden(),
             {{kFieldHCID, u"7"}, {kFieldPicFilename, u"Bild.bmp"}, {kFieldPicDelay, u"300"}}));
    // Once in the dry run, once in the real start.
    EXPECT_EQ(files.inSteps, (std::vector<std::u16string>{
                                 u"C:\\Office\\msaccess.exe", u"C:\\Prog\\Daten\\Kunden.mdb",
                                 u"C:\\Office\\msaccess.exe", u"C:\\Prog\\Daten\\Kunden.mdb"}));
}

TEST_F(LauncherRunTest, CredentialsAreTakenOutOfATextOfTheUsers) {
    const LaunchOutcome outcome = Run(With(Kunden(), {{kFieldPwd, u"a\" /;b"}}));
    EXPECT_EQ(WithoutCredentials(outcome, u"\"A\" /user \"Meier\" /pwd \"a\" //;;b\" /cmd \"x\""),
              u"\"A\" /user \"XXXX\" /pwd \"YYYY\" /cmd \"x\"");
    EXPECT_EQ(WithoutCredentials(outcome, u"\"A\" /User Huber /PWD \"alt\" /cmd x"),
              u"\"A\" /User \"XXXX\" /PWD \"YYYY\" /cmd x");
    EXPECT_EQ(WithoutCredentials(outcome, u"\"A\" /user"), u"\"A\" /user");
    EXPECT_EQ(WithoutCredentials(outcome, u"\"A\" /pwd geheim"), u"\"A\" /pwd \"YYYY\"");
}

}  // namespace
}  // namespace tarvex
