#include "app/Application.h"

#include <algorithm>

#include "branding/BrandFields.h"
#include "tests/app/LauncherFixture.h"

namespace tarvex {
namespace {

class ApplicationTest : public LauncherFixture {
protected:
    /// Runs a launch that shows a picture, with these settings beside the usual ones.
    void LaunchWithPicture(const Values& more) {
        files.AddFile(u"C:\\Prog\\Bild.bmp");
        Launch(With(With(Kunden(), {{kFieldPicFilename, u"Bild.bmp"}, {kFieldPicDelay, u"300"}}),
                    more));
    }
};

constexpr std::u16string_view kRealLine =
    u"\"C:\\Office\\msaccess.exe\" \"C:\\Prog\\Daten\\Kunden.mdb\" /Runtime /user \"Meier\" "
    u"/pwd \"a//b\"";
constexpr std::u16string_view kMaskedLine =
    u"\"C:\\Office\\msaccess.exe\" \"C:\\Prog\\Daten\\Kunden.mdb\" /Runtime /user \"XXXX\" "
    u"/pwd \"YYYY\"";

TEST_F(ApplicationTest, StartsTheRealCommandLineAndShowsNothing) {
    Launch(Kunden());
    ASSERT_EQ(process.lines.size(), 1u);
    EXPECT_EQ(process.lines.front(), kRealLine);
    EXPECT_TRUE(windows.events.empty());
    EXPECT_TRUE(ui.boxes.empty());
    EXPECT_FALSE(files.Bytes(u"C:\\Prog\\Start.log"));
}

TEST_F(ApplicationTest, EndsWithTheBusyPointer) {
    Launch(Kunden());
    EXPECT_FALSE(ui.pointerDefault);
}

TEST_F(ApplicationTest, TestModeShowsTheWholeDryRunAndStartsNothing) {
    Launch(Kunden(), u"/T");
    EXPECT_TRUE(process.lines.empty());
    ASSERT_EQ(windows.debugWindows.size(), 1u);
    EXPECT_EQ(windows.debugWindows.front().caption, u"Tarvex - Debug");
    EXPECT_EQ(windows.debugWindows.front().text,
              u"Das Startprogramm würde die folgende Befehlszeile ausführen:\r\n"
              u"\r\n"
              u"\"C:\\Office\\msaccess.exe\" \"C:\\Prog\\Daten\\Kunden.mdb\" /Runtime /user "
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

TEST_F(ApplicationTest, TestModeNamesTheErrorsInItsHeading) {
    files.Remove(u"C:\\Prog\\Daten\\Kunden.mdb");
    Launch(Kunden(), u"/T");
    EXPECT_TRUE(OnlyDebugText().starts_with(
        u"Das Startprogramm würde die folgende Befehlszeile ausführen. Wegen der unten "
        u"aufgeführten Fehler konnte sie nicht vollständig zusammengestellt werden:\r\n\r\n"))
        << testing::PrintToString(OnlyDebugText());
}

TEST_F(ApplicationTest, LogWindowProposesTheLaunchersNameForSaving) {
    Launch(Kunden(), u"/T");
    ASSERT_EQ(windows.debugWindows.size(), 1u);
    const DebugWindow& window = windows.debugWindows.front();
    EXPECT_EQ(window.saveFolder, u"C:\\Prog");
    EXPECT_EQ(window.saveName, u"Start.err");
    EXPECT_EQ(window.saveTitle, u"Diagnosetext speichern");
    EXPECT_EQ(window.saveFilter, u"Fehlerprotokolle (*.err)|*.err|Alle Dateien (*.*)|*.*");
    EXPECT_EQ(window.helpContext, 0);
}

TEST_F(ApplicationTest, LogIsWrittenExactlyForTheValueOne) {
    Launch(With(Kunden(), {{kFieldLog, u"1"}}));
    EXPECT_EQ(files.Bytes(u"C:\\Prog\\Start.log"),
              "[24.12.2004 08:15:00]\r\n" + codec.ToAnsi(kMaskedLine) + "\r\n\r\n");
    for (const std::u16string_view value : {u"0", u"j", u"x"}) {
        files.Remove(u"C:\\Prog\\Start.log");
        Launch(With(Kunden(), {{kFieldLog, value}}));
        EXPECT_FALSE(files.Bytes(u"C:\\Prog\\Start.log"));
    }
    constants = FakeBrandConstants(Kunden());
    Store(u"Log", u"€");  // a blank in its stored form
    LaunchWithConstants();
    EXPECT_EQ(process.lines.size(), 5u);
    EXPECT_FALSE(files.Bytes(u"C:\\Prog\\Start.log"));
}

TEST_F(ApplicationTest, TestModeSaysThatTheLogWouldBeWrittenAndWritesNone) {
    Launch(With(Kunden(), {{kFieldLog, u"1"}}), u"/T");
    EXPECT_NE(OnlyDebugText().find(u"Logfile schreiben: Ja\r\n[Access-Pfad]"),
              std::u16string::npos);
    EXPECT_FALSE(files.Bytes(u"C:\\Prog\\Start.log"));
}

TEST_F(ApplicationTest, SwitchesAddCompactAndRepairAndClearNothing) {
    Launch(With(Kunden(), {{kFieldCompact, u"0"}}), u"/compact /repair");
    Launch(With(Kunden(), {{kFieldCompact, u"1"}}));
    ASSERT_EQ(process.lines.size(), 2u);
    EXPECT_EQ(process.lines[0],
              u"\"C:\\Office\\msaccess.exe\" \"C:\\Prog\\Daten\\Kunden.mdb\" /Compact /Repair "
              u"/Runtime /user \"Meier\" /pwd \"a//b\"");
    EXPECT_EQ(process.lines[1],
              u"\"C:\\Office\\msaccess.exe\" \"C:\\Prog\\Daten\\Kunden.mdb\" /Compact /Runtime "
              u"/user \"Meier\" /pwd \"a//b\"");
}

TEST_F(ApplicationTest, PictureIsShownBeforeAnythingIsResolved) {
    files.AddFile(u"C:\\Prog\\Bild.bmp");
    files.Remove(u"C:\\Prog\\Daten\\Kunden.mdb");
    Launch(With(Kunden(), {{kFieldPicFilename, u"Bild.bmp"}, {kFieldPicDelay, u"1"}}));
    EXPECT_EQ(windows.events, (std::vector<std::string>{"picture", "box"}));
    ASSERT_EQ(windows.pictures.size(), 1u);
    EXPECT_EQ(windows.pictures.front().path, u"C:\\Prog\\Bild.bmp");
    EXPECT_EQ(windows.pictures.front().milliseconds, 1);
    EXPECT_EQ(windows.pictures.front().helpContext, 0);
}

TEST_F(ApplicationTest, PictureThatHasGoneSinceItWasFoundIsNotShown) {
    files.AddFile(u"C:\\Prog\\Bild.bmp");
    // The first look finds it, the second does not.
    files.failCall = 2;
    Launch(With(Kunden(), {{kFieldPicFilename, u"Bild.bmp"}, {kFieldPicDelay, u"300"}}));
    EXPECT_EQ(files.log[1], u"exists C:\\Prog\\Bild.bmp");
    EXPECT_TRUE(windows.events.empty());
    EXPECT_EQ(process.lines.size(), 1u);
}

TEST_F(ApplicationTest, PictureCarriesTheHelpTopic) {
    files.AddFile(u"C:\\Prog\\Start.chm");
    files.AddFile(u"C:\\Prog\\Bild.bmp");
    Launch(
        With(Kunden(),
             {{kFieldPicFilename, u"Bild.bmp"}, {kFieldPicDelay, u"300"}, {kFieldHCID, u"1000"}}));
    ASSERT_EQ(windows.pictures.size(), 1u);
    EXPECT_EQ(windows.pictures.front().helpContext, 1000);
}

TEST_F(ApplicationTest, PictureCarriesTheConfiguredNameOfTheApplication) {
    LaunchWithPicture({});
    LaunchWithPicture({{kFieldAppName, u"Kundenverwaltung Grün"}});
    ASSERT_EQ(windows.pictures.size(), 2u);
    EXPECT_EQ(windows.pictures[0].caption, u"Tarvex");
    EXPECT_EQ(windows.pictures[1].caption, u"Kundenverwaltung Grün");
}

TEST_F(ApplicationTest, ForegroundIsHandedOnToTheStartedProcess) {
    process.result = 12;
    process.onStart = [&] { EXPECT_TRUE(process.calls.empty()); };
    Launch(Kunden());
    EXPECT_EQ(process.calls, std::vector<std::string>{"allow 12"});
}

TEST_F(ApplicationTest, ForegroundIsNotHandedOnWhenNothingWasStarted) {
    process.result = 0;
    LaunchWithPicture({});
    EXPECT_TRUE(process.calls.empty());
}

TEST_F(ApplicationTest, WaitsAfterAPictureUntilAnotherProgramIsInFront) {
    process.ended = false;
    process.onWait = [&](std::uint32_t milliseconds) {
        clock.milliseconds += milliseconds;
        process.otherInForeground = clock.milliseconds == 40;
    };
    LaunchWithPicture({});
    EXPECT_EQ(process.calls, (std::vector<std::string>{"allow 4711", "foreground", "wait 20",
                                                       "foreground", "wait 20", "foreground"}));
}

TEST_F(ApplicationTest, DoesNotWaitWhenAnotherProgramIsInFrontAlready) {
    process.otherInForeground = true;
    LaunchWithPicture({});
    EXPECT_EQ(process.calls, (std::vector<std::string>{"allow 4711", "foreground"}));
}

TEST_F(ApplicationTest, WaitEndsWithTheStartedProgram) {
    LaunchWithPicture({});
    EXPECT_EQ(process.calls, (std::vector<std::string>{"allow 4711", "foreground", "wait 20"}));
}

TEST_F(ApplicationTest, WaitEndsAfterFiveSeconds) {
    // The clock starts again at 0 meanwhile.
    for (const std::uint32_t start : {1000u, 0xFFFFFF00u}) {
        clock.milliseconds = start;
        process.calls.clear();
        process.ended = false;
        process.onWait = [&](std::uint32_t) { clock.milliseconds += 1000; };
        LaunchWithPicture({});
        EXPECT_EQ(std::count(process.calls.begin(), process.calls.end(), "wait 20"), 5);
    }
}

TEST_F(ApplicationTest, DoesNotWaitWhenTheForegroundCannotBeHandedOn) {
    process.mayAllow = false;
    LaunchWithPicture({});
    EXPECT_EQ(process.calls, std::vector<std::string>{"allow 4711"});
}

TEST_F(ApplicationTest, DoesNotWaitWhenThePictureCouldNotBeShown) {
    windows.showsPictures = false;
    LaunchWithPicture({});
    EXPECT_EQ(windows.events, std::vector<std::string>{"picture"});
    EXPECT_EQ(process.calls, std::vector<std::string>{"allow 4711"});
}

TEST_F(ApplicationTest, EntryOfTheLogIsWrittenBeforeTheWait) {
    int entries = 0;
    process.onWait = [&](std::uint32_t) { entries += files.Bytes(u"C:\\Prog\\Start.log") ? 1 : 0; };
    LaunchWithPicture({{kFieldLog, u"1"}});
    EXPECT_EQ(entries, 1);
}

TEST_F(ApplicationTest, PointerIsTheDefaultOneInThePictureAndBusyAfterIt) {
    ui.pointerDefault = false;
    std::vector<bool> pointers;
    windows.whileShown = [&] { pointers.push_back(ui.pointerDefault); };
    process.onStart = windows.whileShown;
    LaunchWithPicture({});
    EXPECT_EQ(pointers, (std::vector<bool>{true, false}));
}

TEST_F(ApplicationTest, PointerIsTheDefaultOneInTheLogWindow) {
    bool pointerDefault = false;
    windows.whileShown = [&] { pointerDefault = ui.pointerDefault; };
    for (const std::u16string arguments : {u"/T", u"/D"}) {
        ui.pointerDefault = false;
        Launch(Kunden(), arguments);
        EXPECT_TRUE(pointerDefault);
        EXPECT_FALSE(ui.pointerDefault);
        pointerDefault = false;
    }
}

TEST_F(ApplicationTest, InfoModeShowsTheReportAndNothingElse) {
    files.AddFile(u"C:\\Prog\\Bild.bmp");
    Launch(With(Kunden(),
                {{kFieldPicFilename, u"Bild.bmp"}, {kFieldPicDelay, u"300"}, {kFieldLog, u"1"}}),
           u"/T /D");
    EXPECT_EQ(windows.events, std::vector<std::string>{"debug"});
    EXPECT_TRUE(OnlyDebugText().starts_with(u"AppName = \r\n"));
    EXPECT_TRUE(process.lines.empty());
    EXPECT_EQ(application->Tarvex(), nullptr);
    EXPECT_FALSE(files.Bytes(u"C:\\Prog\\Start.log"));
}

TEST_F(ApplicationTest, InfoModeWantsTheConfiguredPasswordExactly) {
    const Values values = With(Kunden(), {{kFieldEditPwd, u"geheim"}, {kFieldAppName, u"Kunden"}});
    for (const std::u16string arguments : {u"/D", u"/D Geheim", u"/D geheim2"}) {
        ui.boxes.clear();
        Launch(values, arguments);
        ASSERT_EQ(ui.boxes.size(), 1u);
        EXPECT_EQ(ui.boxes.front().text, u"Das Kennwort für die Diagnoseinformationen ist falsch.");
        EXPECT_EQ(ui.boxes.front().title, u"Kunden");
        EXPECT_EQ(ui.boxes.front().style, 16u);
    }
    EXPECT_TRUE(windows.events.empty());
    Launch(values, u"/D geheim extra");
    EXPECT_EQ(windows.events, std::vector<std::string>{"debug"});
}

TEST_F(ApplicationTest, InfoModeWithoutConfiguredPasswordTakesAny) {
    Launch(Kunden(), u"/D x");
    EXPECT_EQ(windows.events, std::vector<std::string>{"debug"});
}

TEST_F(ApplicationTest, HelpNeedsANumberAndAFile) {
    files.AddFile(u"C:\\Prog\\Start.hlp");
    Launch(With(Kunden(), {{kFieldHCID, u"abc"}}), u"/T");
    EXPECT_EQ(appError->HelpFile(), u"");
    Launch(With(Kunden(), {{kFieldHCID, u"1000"}}), u"/T");
    EXPECT_EQ(appError->HelpFile(), u"C:\\Prog\\Start.hlp");
    EXPECT_EQ(windows.debugWindows.back().helpContext, 1000);
    files.AddFile(u"C:\\Prog\\Start.chm");
    Launch(With(Kunden(), {{kFieldHCID, u"1000"}}), u"/T");
    EXPECT_EQ(appError->HelpFile(), u"C:\\Prog\\Start.chm");
    program.exeName = u"Lager";
    Launch(With(Kunden(), {{kFieldHCID, u"1000"}}), u"/T");
    EXPECT_EQ(appError->HelpFile(), u"") << "a renamed launcher needs help of its own";
}

TEST_F(ApplicationTest, TarvexIsThereOnceTheStartStepHasMadeIt) {
    Launch(Kunden());
    ASSERT_NE(application->Tarvex(), nullptr);
    EXPECT_EQ(application->Tarvex()->CommandLine(), kRealLine);
}

}  // namespace
}  // namespace tarvex
