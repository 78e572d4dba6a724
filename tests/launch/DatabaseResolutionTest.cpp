#include "tests/launch/LaunchFixture.h"

namespace tarvex {
namespace {

const char* const kSource = "Tarvex/cuTarvex: GetDBPath: : GetCommandLine";
const char* const kNeeded =
    "Datenbank nicht angegeben, aber eine der Optionen /Runtime, /ReadOnly, /Compact, /Repair "
    "/Decompile/Macro/Cmd";
const char* const kAccess = "\"C:\\Office\\msaccess.exe\"";

}  // namespace

/// The search for the database; Access is found.
class DatabaseResolutionTest : public LaunchFixture {
protected:
    DatabaseResolutionTest() { InstallAccess(); }

    /// The section's lines of a run that may raise.
    StringList Resolve() {
        RunError();
        return Section("[Datenbank-Pfad]");
    }

    const StringList noDatabase_ = {
        "[Datenbank-Pfad]",
        "Kein Pfad angegeben, im aktuellen Verzeichnis suchen",
        "Kein Dateiname angegeben, im aktuellen Verzeichnis suchen",
        "Suche nach: C:\\Prog\\Start.mdb",
        " - nicht vorhanden",
        "Suche nach: C:\\Prog\\Start.mde",
        " - nicht vorhanden",
        "Suche nach: C:\\Prog\\Start.mda",
        " - nicht vorhanden",
        "Keine Datenbank gefunden",
    };
};

TEST_F(DatabaseResolutionTest, SectionFollowsOneEmptyLine) {
    tarvex_.GetCommandLine();
    const StringList lines = DebugLines();
    EXPECT_EQ(lines.at(2), "Access-EXE: OK");
    EXPECT_EQ(lines.at(3), "");
    EXPECT_EQ(lines.at(4), "[Datenbank-Pfad]");
}

TEST_F(DatabaseResolutionTest, FolderAndFileNameAreJoined) {
    files.AddFile(u"C:\\Prog\\Daten\\Kunden.mdb");
    files.AddFile(u"C:\\Daten\\Kunden.mdb");
    files.AddFile(u"D:\\Kunden.mdb");
    tarvex_.Properties().dbFilename = u"Kunden.mdb";
    tarvex_.Properties().dbPath = u"Daten";
    EXPECT_EQ(Resolve(), (StringList{"[Datenbank-Pfad]", "Absoluter Pfad: C:\\Prog\\Daten\\",
                                     "Berechneter Pfad: C:\\Prog\\Daten\\",
                                     "Datenbank: : C:\\Prog\\Daten\\Kunden.mdb", "Datenbank: OK"}));
    tarvex_.Properties().dbPath = u"..\\Daten\\";
    EXPECT_EQ(Resolve(), (StringList{"[Datenbank-Pfad]", "Relativer Pfad: ..\\Daten\\",
                                     "Absoluter Pfad: C:\\Daten\\", "Berechneter Pfad: C:\\Daten\\",
                                     "Datenbank: : C:\\Daten\\Kunden.mdb", "Datenbank: OK"}));
    tarvex_.Properties().dbPath = u"D:";
    EXPECT_EQ(Resolve().at(1), "Absoluter Pfad: C:\\Prog\\D:\\");
    tarvex_.Properties().dbPath = u"D:\\";
    EXPECT_EQ(Resolve(), (StringList{"[Datenbank-Pfad]", "Berechneter Pfad: D:\\",
                                     "Datenbank: : D:\\Kunden.mdb", "Datenbank: OK"}));
    EXPECT_EQ(CommandLine(), std::string(kAccess) + " \"D:\\Kunden.mdb\"");
}

TEST_F(DatabaseResolutionTest, FolderWithoutFileNameGivesNoDatabaseAndNoSearch) {
    files.AddFile(u"C:\\Prog\\Start.mdb");
    tarvex_.Properties().dbPath = u"D:\\Daten";
    EXPECT_EQ(Resolve(),
              (StringList{"[Datenbank-Pfad]",
                          "Kein Dateiname angegeben, Pfad kann nicht ermittelt werden"}));
    EXPECT_EQ(CommandLine(), kAccess);
}

TEST_F(DatabaseResolutionTest, FileNameAloneIsTakenFromTheLaunchersFolder) {
    files.currentFolder = u"D:\\Aktuell";
    files.AddFile(u"C:\\Prog\\Kunden.mdb");
    files.AddFile(u"D:\\Aktuell\\Kunden.mdb");
    tarvex_.Properties().dbFilename = u"Kunden.mdb";
    EXPECT_EQ(Resolve(), (StringList{"[Datenbank-Pfad]",
                                     "Kein Pfad angegeben, im aktuellen Verzeichnis suchen",
                                     "Datenbank: C:\\Prog\\Kunden.mdb", "Datenbank: OK"}));
}

TEST_F(DatabaseResolutionTest, LauncherInADriveRootAddsNoSecondSeparator) {
    program.folder = u"C:\\";
    files.AddFile(u"C:\\Start.mda");
    tarvex_.GetCommandLine();
    EXPECT_EQ(CommandLine(), std::string(kAccess) + " \"C:\\Start.mda\"");
}

TEST_F(DatabaseResolutionTest, DatabaseNamedLikeTheLauncherIsFoundInOrder) {
    files.AddFile(u"C:\\Prog\\Start.mde");
    files.AddFile(u"C:\\Prog\\Start.mda");
    EXPECT_EQ(Resolve(), (StringList{"[Datenbank-Pfad]",
                                     "Kein Pfad angegeben, im aktuellen Verzeichnis suchen",
                                     "Kein Dateiname angegeben, im aktuellen Verzeichnis suchen",
                                     "Suche nach: C:\\Prog\\Start.mdb", " - nicht vorhanden",
                                     "Suche nach: C:\\Prog\\Start.mde",
                                     " - OK: C:\\Prog\\Start.mde", "Datenbank: OK"}));
    EXPECT_EQ(CommandLine(), std::string(kAccess) + " \"C:\\Prog\\Start.mde\"");
    files.AddFile(u"C:\\Prog\\Start.mdb");
    EXPECT_EQ(Resolve().at(4), " - OK: C:\\Prog\\Start.mdb");
}

TEST_F(DatabaseResolutionTest, AccessStartsWithoutDatabaseWhenNoneIsNeeded) {
    tarvex_.Properties().optionExclusive = true;
    tarvex_.Properties().optionNoStartup = true;
    tarvex_.Properties().profile = u"Profil";
    tarvex_.Properties().systemDBUser = u"Meier";
    tarvex_.Properties().systemDBPwd = u"geheim";
    EXPECT_TRUE(tarvex_.GetCommandLine());
    EXPECT_EQ(Section("[Datenbank-Pfad]"), noDatabase_);
    EXPECT_EQ(CommandLine(), std::string(kAccess) +
                                 " /Excl /nostartup /Profile \"Profil\" /user "
                                 "\"Meier\" /pwd \"geheim\"");
}

TEST_F(DatabaseResolutionTest, OptionsThatNeedADatabaseRaiseError6) {
    const std::function<void(cuTarvex&)> options[] = {
        [](cuTarvex& tarvex) { tarvex.Properties().macro = u"m"; },
        [](cuTarvex& tarvex) { tarvex.Properties().cmd = u"c"; },
        [](cuTarvex& tarvex) { tarvex.Properties().optionRuntime = true; },
        [](cuTarvex& tarvex) { tarvex.Properties().optionReadOnly = true; },
        [](cuTarvex& tarvex) { tarvex.Properties().optionCompact = true; },
        [](cuTarvex& tarvex) { tarvex.Properties().optionRepair = true; },
        [](cuTarvex& tarvex) { tarvex.Properties().optionDecompile = true; }};
    StringList expected = noDatabase_;
    expected.emplace_back(kNeeded);
    for (const auto& setOption : options) {
        cuTarvex tarvex(environment);
        tarvex.Properties().accPath = u"C:\\Office";
        setOption(tarvex);
        EXPECT_THAT(
            ErrorOf([&] { tarvex.GetCommandLine(); }),
            IsError(-2147220474, kSource,
                    "Es sind keine Pfadinformationen für die zu startende Datenbank verfügbar.\r\n"
                    "Wenn Sie keinen Pfad angeben, muss sich eine Datenbank namens "
                    "'Start.mdb/mde/mda' im Programmpfad befinden."));
        EXPECT_THAT(Lines(tarvex.DebugLog()), ::testing::IsSupersetOf(expected));
        EXPECT_EQ(Lines(tarvex.DebugLog()).back(), kNeeded);
    }
}

TEST_F(DatabaseResolutionTest, NeededDatabaseIsNotedInTestMode) {
    tarvex_.Properties().testMode = true;
    tarvex_.Properties().optionRuntime = true;
    EXPECT_TRUE(tarvex_.GetCommandLine());
    EXPECT_TRUE(tarvex_.TestModeError());
    EXPECT_EQ(Section("[Datenbank-Pfad]").back(), kNeeded);
    EXPECT_EQ(CommandLine(), std::string(kAccess) + " /Runtime");
}

TEST_F(DatabaseResolutionTest, FolderWithoutFileNameCountsAsNoDatabase) {
    tarvex_.Properties().dbPath = u"D:\\Daten";
    tarvex_.Properties().cmd = u"x";
    EXPECT_EQ(RunError()->number, -2147220474);
    EXPECT_EQ(Section("[Datenbank-Pfad]"),
              (StringList{"[Datenbank-Pfad]",
                          "Kein Dateiname angegeben, Pfad kann nicht ermittelt werden", kNeeded}));
}

TEST_F(DatabaseResolutionTest, MissingDatabaseRaises) {
    tarvex_.Properties().dbPath = u"D:\\";
    tarvex_.Properties().dbFilename = u"a@@b##c.mdb";
    EXPECT_THAT(RunError(), IsError(-2147220475, kSource,
                                    "Die Datenbank 'D:\\a@@b##c.mdb' ist nicht vorhanden."));
    EXPECT_EQ(DebugLines().back(), "Datenbank: D:\\a@@b##c.mdb ist nicht vorhanden!");
    EXPECT_EQ(CommandLine(), "");
}

TEST_F(DatabaseResolutionTest, MissingDatabaseIsNotedInTestModeAndStaysOnTheLine) {
    tarvex_.Properties().dbFilename = u"fehlt.mdb";
    tarvex_.Properties().testMode = true;
    EXPECT_TRUE(tarvex_.GetCommandLine());
    EXPECT_TRUE(tarvex_.TestModeError());
    EXPECT_EQ(Section("[Datenbank-Pfad]").back(),
              "Datenbank: C:\\Prog\\fehlt.mdb ist nicht vorhanden!");
    EXPECT_EQ(CommandLine(), std::string(kAccess) + " \"C:\\Prog\\fehlt.mdb\"");
}

TEST_F(DatabaseResolutionTest, KeyListWinsOverFolderAndSearchEvenWhenItFails) {
    files.AddFile(u"C:\\Prog\\Start.mdb");
    files.AddFile(u"D:\\k.mdb");
    tarvex_.Properties().dbPath = u"D:\\";
    tarvex_.Properties().dbFilename = u"k.mdb";
    tarvex_.RegListAdd(1, u"HKCU\\Software\\Firma\\Alt");
    EXPECT_THAT(RunError(),
                IsError(-2147220467, kSource,
                        "Die benutzerdefinierten Registryeinträge für den Datenbank-Pfad sind "
                        "nicht vorhanden, enthalten keinen Wert oder an den angegebenen Positionen "
                        "wurde keine Datenbank gefunden."));
    EXPECT_EQ(DebugLines().back(), "Pfad konnte nicht ermittelt werden");
}

TEST_F(DatabaseResolutionTest, UnresolvedListInTestModeEndsTheStepAtOnce) {
    tarvex_.Properties().testMode = true;
    tarvex_.Properties().optionRuntime = true;
    tarvex_.RegListAdd(1, u"HKCU\\Software\\Firma\\Alt");
    EXPECT_TRUE(tarvex_.GetCommandLine());
    EXPECT_TRUE(tarvex_.TestModeError());
    EXPECT_EQ(Section("[Datenbank-Pfad]").back(), "Pfad konnte nicht ermittelt werden");
    EXPECT_EQ(Section("[SysDB-Pfad]"), (StringList{"[SysDB-Pfad]", "Keine SysDB"}));
    EXPECT_EQ(CommandLine(), std::string(kAccess) + " /Runtime");
}

TEST_F(DatabaseResolutionTest, IndivisibleListRaisesAndIsNotedInTestMode) {
    tarvex_.Properties().markers.list = u"";
    tarvex_.Properties().dbRegListString = u"HKCU\\Software\\Firma\\Alt";
    EXPECT_THAT(RunError(), IsError(-2147220468, kSource,
                                    "Die Liste der Registryschlüssel für den Datenbank-Pfad konnte "
                                    "nicht analysiert werden."));
    EXPECT_EQ(Section("[Datenbank-Pfad]"),
              (StringList{"[Datenbank-Pfad]", "Schlüsselliste wird aufgelöst",
                          "Schlüsselliste konnte nicht aufgelöst werden"}));
    tarvex_.Properties().testMode = true;
    EXPECT_TRUE(tarvex_.GetCommandLine());
    EXPECT_TRUE(tarvex_.TestModeError());
}

}  // namespace tarvex
