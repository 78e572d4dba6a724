#include <algorithm>
#include <new>

#include "branding/BrandFields.h"
#include "tests/app/LauncherFixture.h"

namespace tarvex {
namespace {

class ApplicationErrorsTest : public LauncherFixture {
protected:
    /// Settings whose database does not exist.
    Values Missing() {
        files.Remove(u"C:\\Prog\\Daten\\Kunden.mdb");
        return Kunden();
    }
};

constexpr std::u16string_view kBoxText =
    u"Tarvex kann aufgrund eines unerwarteten Fehlers nicht ausgeführt werden.\r\n"
    u"Klicken Sie auf <Details>, um erweiterte Fehlerinformationen anzuzeigen.";

constexpr std::u16string_view kMissingReport =
    u"Nummer       : -2147220475\r\n"
    u"Quelle       : Tarvex/cuTarvex: GetDBPath: : GetCommandLine | Application: Init\r\n"
    u"Beschreibung : Die Datenbank 'C:\\Prog\\Daten\\Kunden.mdb' ist nicht vorhanden.\r\n"
    u"\r\n"
    u"--------------------------------------------------\r\n"
    u"\r\n"
    u"[Access-Pfad]\r\n"
    u"Absoluter Pfad wird verwendet: C:\\Office\\msaccess.exe\r\n"
    u"Access-EXE: OK\r\n"
    u"\r\n"
    u"[Datenbank-Pfad]\r\n"
    u"Absoluter Pfad: C:\\Prog\\Daten\\\r\n"
    u"Berechneter Pfad: C:\\Prog\\Daten\\\r\n"
    u"Datenbank: : C:\\Prog\\Daten\\Kunden.mdb\r\n"
    u"Datenbank: C:\\Prog\\Daten\\Kunden.mdb ist nicht vorhanden!";

constexpr std::u16string_view kHeading = u"Tarvex - Erweiterte Fehlerinformationen:\r\n\r\n";

TEST_F(ApplicationErrorsTest, BoxSaysThatTheProgramCannotRun) {
    Launch(Missing());
    ASSERT_EQ(windows.boxes.size(), 1u);
    const CaptionBox& box = windows.boxes.front();
    EXPECT_EQ(box.text, kBoxText);
    EXPECT_EQ(box.title, u"Tarvex");
    EXPECT_EQ(box.style, 16u);
    EXPECT_EQ(box.captions[0], u"&Beenden");
    EXPECT_EQ(box.captions[1], u"&Details");
    EXPECT_EQ(box.captions[2], u"");
    EXPECT_TRUE(windows.debugWindows.empty());
    EXPECT_TRUE(process.lines.empty());
}

TEST_F(ApplicationErrorsTest, ConfiguredTextFollowsInTheBox) {
    Launch(With(Missing(), {{kFieldErrBoxText, u"Rufen Sie 0800-1 an.@@Danke"}}));
    ASSERT_EQ(windows.boxes.size(), 1u);
    EXPECT_EQ(windows.boxes.front().text,
              std::u16string(kBoxText) + u"\r\n\r\nRufen Sie 0800-1 an.@@Danke");
}

TEST_F(ApplicationErrorsTest, BoxTextEndsWithoutLineBreaks) {
    for (const auto* text : {u"\r\n\r\n", u"\r\n", u"\n\r\n\r\r\n\r\n"}) {
        Launch(With(Missing(), {{kFieldErrBoxText, text}}));
        EXPECT_EQ(windows.boxes.back().text, kBoxText);
    }
    Launch(With(Missing(), {{kFieldErrBoxText, u"Rufen Sie an.\r\n\r\nDanke\r\n\r\n"}}));
    EXPECT_EQ(windows.boxes.back().text,
              std::u16string(kBoxText) + u"\r\n\r\nRufen Sie an.\r\n\r\nDanke");
}

TEST_F(ApplicationErrorsTest, DetailsHoldErrorAndDiagnosticLog) {
    windows.answers = {2};
    Launch(Missing());
    EXPECT_EQ(windows.events, (std::vector<std::string>{"box", "debug"}));
    EXPECT_EQ(OnlyDebugText(), std::u16string(kHeading).append(kMissingReport));
}

TEST_F(ApplicationErrorsTest, ConfiguredDetailTextIsWrappedBetweenHeadingAndReport) {
    windows.answers = {2};
    Launch(With(Missing(),
                {{kFieldErrDebugText,
                  u"Bitte senden Sie diesen Text zusammen mit einer kurzen Beschreibung Ihrer "
                  u"letzten Schritte an die Technik."}}));
    EXPECT_EQ(OnlyDebugText(),
              std::u16string(kHeading)
                  .append(u"Bitte senden Sie diesen Text zusammen mit einer kurzen Beschreibung "
                          u"Ihrer letzten Schritte\r\nan die Technik.\r\n\r\n")
                  .append(kMissingReport));
}

TEST_F(ApplicationErrorsTest, ConfiguredDetailTextIsWrappedAtNinetyCharacters) {
    const std::u16string first(50, u'x');
    windows.answers = {2, 2};
    Launch(With(Missing(), {{kFieldErrDebugText, first + u" " + std::u16string(39, u'y')}}));
    EXPECT_EQ(windows.debugWindows.back().text, std::u16string(kHeading)
                                                    .append(first)
                                                    .append(u" ")
                                                    .append(39, u'y')
                                                    .append(u"\r\n\r\n")
                                                    .append(kMissingReport));
    Launch(With(Missing(), {{kFieldErrDebugText, first + u" " + std::u16string(40, u'y')}}));
    EXPECT_EQ(windows.debugWindows.back().text, std::u16string(kHeading)
                                                    .append(first)
                                                    .append(u"\r\n")
                                                    .append(40, u'y')
                                                    .append(u"\r\n\r\n")
                                                    .append(kMissingReport));
}

TEST_F(ApplicationErrorsTest, TestModeShowsTheReportWithoutABox) {
    Launch(With(Kunden(), {{kFieldAccPath, u""}, {kFieldErrDebugText, u"Technik"}}), u"/T");
    EXPECT_EQ(windows.events, std::vector<std::string>{"debug"});
    EXPECT_EQ(OnlyDebugText(),
              std::u16string(kHeading) +
                  u"Nummer       : -2147220478\r\n"
                  u"Quelle       : Tarvex/cuTarvex: GetAccessPath: : GetCommandLine | "
                  u"Application: Init\r\n"
                  u"Beschreibung : Der Access-Pfad kann nicht aus der Registry ermittelt "
                  u"werden.\r\n"
                  u"\r\n"
                  u"--------------------------------------------------\r\n"
                  u"\r\n"
                  u"[Access-Pfad]\r\n"
                  u"Office-Schlüssel wird verwendet\r\n"
                  u"Schlüssel: SOFTWARE\\Microsoft\\Office\\8.0\\Common\\InstallRoot\r\n"
                  u"Schlüsselinhalt: \r\n"
                  u"Pfad konnte nicht ermittelt werden");
}

TEST_F(ApplicationErrorsTest, HelpShowsTheBoxAgainUntilAnotherAnswer) {
    files.AddFile(u"C:\\Prog\\Start.chm");
    windows.answers = {3, 3, 3, 1};
    Launch(With(Missing(), {{kFieldHCID, u"1000"}}));
    EXPECT_EQ(windows.events,
              (std::vector<std::string>{"box", "help", "box", "help", "box", "help", "box"}));
    EXPECT_EQ(windows.boxes.front().captions[2], u"&Hilfe");
    EXPECT_EQ(windows.helpCalls.front().file, u"C:\\Prog\\Start.chm");
    EXPECT_EQ(windows.helpCalls.front().context, 1000);
}

TEST_F(ApplicationErrorsTest, PointerIsTheDefaultOneInEveryWindow) {
    files.AddFile(u"C:\\Prog\\Start.chm");
    windows.answers = {3, 2};
    std::vector<bool> pointers;
    windows.whileShown = [&] {
        pointers.push_back(ui.pointerDefault);
        ui.pointerDefault = false;  // as help may leave it
    };
    ui.pointerDefault = false;
    Launch(With(Missing(), {{kFieldHCID, u"1000"}}));
    EXPECT_EQ(windows.events, (std::vector<std::string>{"box", "help", "box", "debug"}));
    EXPECT_EQ(pointers, (std::vector<bool>{true, true, true}));
}

TEST_F(ApplicationErrorsTest, BoxClosedOtherwiseWithoutHelpEndsTheLaunch) {
    windows.answers = {3};
    Launch(Missing());
    EXPECT_EQ(windows.events, std::vector<std::string>{"box"});
}

TEST_F(ApplicationErrorsTest, ReportThatCannotBeShownLeavesAPlainBoxWithTheDescription) {
    windows.whileShown = [] { throw std::bad_alloc(); };
    Launch(With(Missing(), {{kFieldLog, u"1"}}));
    EXPECT_EQ(windows.events, std::vector<std::string>{"box"});
    ASSERT_EQ(ui.boxes.size(), 1u);
    const MessageBoxRequest& box = ui.boxes.front();
    EXPECT_EQ(box.text, u"Die Datenbank 'C:\\Prog\\Daten\\Kunden.mdb' ist nicht vorhanden.");
    EXPECT_EQ(box.title, u"Tarvex");
    EXPECT_EQ(box.style, 16u);
    EXPECT_EQ(box.helpFile, u"");
    EXPECT_EQ(box.helpContext, -1);
    EXPECT_TRUE(files.Bytes(u"C:\\Prog\\Start.log")) << "the log is written all the same";
    EXPECT_TRUE(process.lines.empty());
}

TEST_F(ApplicationErrorsTest, TestModeWithoutALogWindowLeavesThePlainBoxToo) {
    windows.whileShown = [] { throw std::bad_alloc(); };
    Launch(With(Kunden(), {{kFieldAccPath, u""}}), u"/T");
    EXPECT_EQ(windows.events, std::vector<std::string>{"debug"});
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes.front().text,
              u"Der Access-Pfad kann nicht aus der Registry ermittelt werden.");
    EXPECT_EQ(ui.boxes.front().title, u"Tarvex");
}

TEST_F(ApplicationErrorsTest, ErrorIsLoggedOnlyWithTheLogOn) {
    Launch(Missing());
    EXPECT_FALSE(files.Bytes(u"C:\\Prog\\Start.log"));
    Launch(With(Missing(), {{kFieldLog, u"1"}}));
    EXPECT_EQ(files.Bytes(u"C:\\Prog\\Start.log"),
              "[24.12.2004 08:15:00]\r\nFehler Nr. -2147220475: Die Datenbank "
              "'C:\\Prog\\Daten\\Kunden.mdb' ist nicht vorhanden.\r\n\r\n");
}

TEST_F(ApplicationErrorsTest, ErrorInTestModeIsLoggedToo) {
    Launch(With(Kunden(), {{kFieldAccPath, u""}, {kFieldLog, u"1"}}), u"/T");
    EXPECT_EQ(files.Bytes(u"C:\\Prog\\Start.log"),
              "[24.12.2004 08:15:00]\r\nFehler Nr. -2147220478: Der Access-Pfad kann nicht aus "
              "der Registry ermittelt werden.\r\n\r\n");
}

TEST_F(ApplicationErrorsTest, LogFollowsTheErrorWindow) {
    windows.answers = {2};
    windows.whileShown = [&] { EXPECT_FALSE(files.Bytes(u"C:\\Prog\\Start.log")); };
    Launch(With(Missing(), {{kFieldLog, u"1"}}));
    EXPECT_EQ(windows.events, (std::vector<std::string>{"box", "debug"}));
    EXPECT_TRUE(files.Bytes(u"C:\\Prog\\Start.log"));
}

TEST_F(ApplicationErrorsTest, FailedStartNamesTheRealCommandLine) {
    process.result = 0;
    windows.answers = {2};
    Launch(With(Kunden(), {{kFieldLog, u"1"}}));
    EXPECT_TRUE(OnlyDebugText().starts_with(
        std::u16string(kHeading) +
        u"Nummer       : -2147221611\r\n"
        u"Quelle       : Application: Init\r\n"
        u"Beschreibung : Die Ausführung der Befehlszeile '\"C:\\Office\\msaccess.exe\"\r\n"
        u"               \"C:\\Prog\\Daten\\Kunden.mdb\" /Runtime /user \"Meier\" /pwd \"a//b\"' "
        u"ist\r\n"
        u"               fehlgeschlagen.\r\n"))
        << testing::PrintToString(OnlyDebugText());
    EXPECT_EQ(files.Bytes(u"C:\\Prog\\Start.log"),
              "[24.12.2004 08:15:00]\r\nFehler Nr. -2147221611: Die Ausf\xFChrung der "
              "Befehlszeile '\"C:\\Office\\msaccess.exe\" \"C:\\Prog\\Daten\\Kunden.mdb\" "
              "/Runtime /user \"Meier\" /pwd \"a//b\"' ist fehlgeschlagen.\r\n\r\n");
}

TEST_F(ApplicationErrorsTest, UnbrandedProgramSaysSoBeforeItReadsSwitches) {
    constants.marker = u"@#BRANDED0#@";
    windows.answers = {2};
    LaunchWithConstants(u"/T /D");
    EXPECT_EQ(windows.events, (std::vector<std::string>{"box", "debug"}));
    EXPECT_EQ(OnlyDebugText(),
              std::u16string(kHeading) +
                  u"Nummer       : -2147221621\r\n"
                  u"Quelle       : Application: Init\r\n"
                  u"Beschreibung : Im Startprogramm 'C:\\Prog\\Start.exe' wurden keine Parameter "
                  u"gesetzt.\r\n"
                  u"               Verwenden Sie das Tarvex-Konfigurationsprogramm, um die "
                  u"Parameter für die zu\r\n"
                  u"               ladende Access-Datenbank einzustellen.");
    EXPECT_FALSE(files.Bytes(u"C:\\Prog\\Start.log"));
}

TEST_F(ApplicationErrorsTest, UnbrandedProgramAtADrivesRootIsNamedWithOneSeparator) {
    constants.marker = u"@#BRANDED0#@";
    program.folder = u"C:\\";
    windows.answers = {2};
    LaunchWithConstants();
    EXPECT_NE(OnlyDebugText().find(u"Im Startprogramm 'C:\\Start.exe' wurden"),
              std::u16string::npos);
}

TEST_F(ApplicationErrorsTest, UnreadableSettingsAreToldBeforeSwitchesAreRead) {
    constants = FakeBrandConstants(With(Kunden(), {{kFieldLog, u"1"}}));
    constants.marks.push_back(constants.marks.front());
    windows.answers = {2};
    LaunchWithConstants(u"/T");
    EXPECT_EQ(windows.events, (std::vector<std::string>{"box", "debug"}));
    EXPECT_EQ(OnlyDebugText(),
              std::u16string(kHeading) +
                  u"Nummer       : 457\r\n"
                  u"Quelle       : cuBrandings: Add | cuBrand: LoadFomConstants | pSettings: "
                  u"LoadSettings |\r\n"
                  u"               Application: Init\r\n"
                  u"Beschreibung : Dieser Schlüssel ist bereits einem Element dieser Auflistung "
                  u"zugeordnet");
    EXPECT_FALSE(files.Bytes(u"C:\\Prog\\Start.log"));
}

TEST_F(ApplicationErrorsTest, MissingHelpTopicIsToldAfterSwitchesAreReadAndNotLogged) {
    constants = FakeBrandConstants(With(Kunden(), {{kFieldLog, u"1"}}));
    RemoveMark(u"HCID");
    LaunchWithConstants(u"/T");
    EXPECT_EQ(windows.events, std::vector<std::string>{"debug"});
    EXPECT_EQ(OnlyDebugText(),
              std::u16string(kHeading) +
                  u"Nummer       : 5\r\n"
                  u"Quelle       : cuBrandings: Item | pSettings: Value | Application: Init\r\n"
                  u"Beschreibung : Ungültiger Prozeduraufruf oder ungültiges Argument");
    LaunchWithConstants(u"/D");
    EXPECT_EQ(windows.events, (std::vector<std::string>{"debug", "box"}))
        << "help comes before the report";
    EXPECT_FALSE(files.Bytes(u"C:\\Prog\\Start.log"));
}

TEST_F(ApplicationErrorsTest, MissingPictureTimeIsNotLoggedEither) {
    constants = FakeBrandConstants(With(Kunden(), {{kFieldLog, u"1"}}));
    RemoveMark(u"PicDelay");
    LaunchWithConstants();
    EXPECT_EQ(windows.events, std::vector<std::string>{"box"});
    EXPECT_FALSE(files.Bytes(u"C:\\Prog\\Start.log"));
}

TEST_F(ApplicationErrorsTest, RenamedLauncherIsNamedByItsNewName) {
    program.exeName = u"Lager.v2";
    windows.answers = {2, 2};
    constants.marker = u"@#BRANDED0#@";
    LaunchWithConstants();
    EXPECT_NE(OnlyDebugText().find(u"Im Startprogramm 'C:\\Prog\\Lager.v2.exe' wurden"),
              std::u16string::npos);
    windows.debugWindows.clear();
    Launch(With(Kunden(), {{kFieldDBPath, u""}, {kFieldDBFilename, u""}}));
    EXPECT_NE(OnlyDebugText().find(u"'Lager.v2.mdb/mde/mda'"), std::u16string::npos);
    EXPECT_EQ(windows.debugWindows.back().saveName, u"Lager.v2.err");
}

TEST_F(ApplicationErrorsTest, MarkerIsComparedWithoutRegardToCase) {
    constants = FakeBrandConstants(Kunden());
    constants.marker = u"@#branded1#@";
    LaunchWithConstants();
    EXPECT_EQ(process.lines.size(), 1u);
}

TEST_F(ApplicationErrorsTest, MissingMarksOfTheErrorTextsDoNotHinderTheBox) {
    constants = FakeBrandConstants(With(Missing(), {{kFieldLog, u"1"}}));
    RemoveMark(u"ErrBoxText");
    RemoveMark(u"ErrDebugText");
    windows.answers = {2};
    LaunchWithConstants();
    ASSERT_EQ(windows.boxes.size(), 1u);
    EXPECT_EQ(windows.boxes.front().text, kBoxText);
    EXPECT_EQ(OnlyDebugText(), std::u16string(kHeading).append(kMissingReport));
    EXPECT_EQ(files.Bytes(u"C:\\Prog\\Start.log"),
              "[24.12.2004 08:15:00]\r\nFehler Nr. -2147220475: Die Datenbank "
              "'C:\\Prog\\Daten\\Kunden.mdb' ist nicht vorhanden.\r\n\r\n");
}

TEST_F(ApplicationErrorsTest, MalformedNumberListIsAConversionError) {
    constants = FakeBrandConstants(With(Kunden(), {{kFieldLog, u"1"}}));
    Store(u"User", u"\a");  // "x" in the stored form of the product's key
    windows.answers = {2};
    LaunchWithConstants();
    EXPECT_EQ(OnlyDebugText(), std::u16string(kHeading) +
                                   u"Nummer       : 13\r\n"
                                   u"Quelle       : pSettings: InitTarvex | Application: Init\r\n"
                                   u"Beschreibung : Typen unverträglich");
    EXPECT_EQ(files.Bytes(u"C:\\Prog\\Start.log"),
              "[24.12.2004 08:15:00]\r\nFehler Nr. 13: Typen unvertr\xE4glich\r\n\r\n");
}

}  // namespace
}  // namespace tarvex
