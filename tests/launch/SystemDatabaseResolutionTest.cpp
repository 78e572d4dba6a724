#include "tests/launch/LaunchFixture.h"

namespace tarvex {
namespace {

const char* const kSource = "Tarvex/cuTarvex: GetSystemDB: : GetCommandLine";
const char* const kAccess = "\"C:\\Office\\msaccess.exe\"";

}  // namespace

/// The search for the workgroup database; Access is found, there is no database.
class SystemDatabaseResolutionTest : public LaunchFixture {
protected:
    SystemDatabaseResolutionTest() { InstallAccess(); }

    StringList Resolve() {
        RunError();
        return Section("[SysDB-Pfad]");
    }
};

TEST_F(SystemDatabaseResolutionTest, SectionFollowsOneEmptyLine) {
    tarvex_.GetCommandLine();
    const StringList lines = DebugLines();
    const auto header = std::find(lines.begin(), lines.end(), "[SysDB-Pfad]");
    ASSERT_NE(header, lines.end());
    EXPECT_EQ(*(header - 1), "");
    EXPECT_EQ(*(header - 2), "Keine Datenbank gefunden");
}

TEST_F(SystemDatabaseResolutionTest, NothingConfiguredGivesNoArgument) {
    EXPECT_EQ(Resolve(), (StringList{"[SysDB-Pfad]", "Keine SysDB"}));
    EXPECT_EQ(CommandLine(), kAccess);
}

TEST_F(SystemDatabaseResolutionTest, FolderAndFileNameAreJoinedAlsoWithoutDatabase) {
    files.AddFile(u"C:\\Prog\\Sys\\System.mdw");
    tarvex_.Properties().systemDBPath = u"Sys";
    tarvex_.Properties().systemDBFilename = u"System.mdw";
    EXPECT_EQ(Resolve(), (StringList{"[SysDB-Pfad]", "Absoluter Pfad: C:\\Prog\\Sys\\",
                                     "Berechneter Pfad: C:\\Prog\\Sys\\",
                                     "SysDB: : C:\\Prog\\Sys\\System.mdw", "SysDB: OK"}));
    EXPECT_EQ(CommandLine(), std::string(kAccess) + " /wrkgrp \"C:\\Prog\\Sys\\System.mdw\"");
}

TEST_F(SystemDatabaseResolutionTest, FolderWithoutFileNameGivesNoArgument) {
    tarvex_.Properties().systemDBPath = u"Sys";
    EXPECT_EQ(
        Resolve(),
        (StringList{"[SysDB-Pfad]", "Kein Dateiname angegeben, Pfad kann nicht ermittelt werden"}));
    EXPECT_EQ(CommandLine(), kAccess);
}

TEST_F(SystemDatabaseResolutionTest, FileNameAloneIsTakenFromTheLaunchersFolder) {
    files.AddFile(u"C:\\Prog\\System.mdw");
    tarvex_.Properties().systemDBFilename = u"System.mdw";
    EXPECT_EQ(Resolve(), (StringList{"[SysDB-Pfad]", "SysDB: C:\\Prog\\System.mdw", "SysDB: OK"}));
}

TEST_F(SystemDatabaseResolutionTest, MissingFileRaises) {
    tarvex_.Properties().systemDBFilename = u"System.mdw";
    EXPECT_THAT(RunError(), IsError(-2147220471, kSource,
                                    "System-Datenbank 'C:\\Prog\\System.mdw' nicht gefunden."));
    EXPECT_EQ(DebugLines().back(), "SysDB: C:\\Prog\\System.mdw ist nicht vorhanden!");
}

TEST_F(SystemDatabaseResolutionTest, MissingFileIsNotedInTestModeAndStaysOnTheLine) {
    tarvex_.Properties().systemDBFilename = u"System.mdw";
    tarvex_.Properties().testMode = true;
    EXPECT_TRUE(tarvex_.GetCommandLine());
    EXPECT_TRUE(tarvex_.TestModeError());
    EXPECT_EQ(CommandLine(), std::string(kAccess) + " /wrkgrp \"C:\\Prog\\System.mdw\"");
}

TEST_F(SystemDatabaseResolutionTest, UnresolvedListRaisesAndIsNotedInTestMode) {
    tarvex_.RegListAdd(2, u"HKCU\\Software\\Firma\\Alt");
    tarvex_.Properties().systemDBFilename = u"System.mdw";
    EXPECT_THAT(RunError(),
                IsError(-2147220465, kSource,
                        "Die benutzerdefinierten Registryeinträge für den Pfad der Systemdatenbank "
                        "sind nicht vorhanden, enthalten keinen Wert oder an den angegebenen "
                        "Positionen wurde keine Systemdatenbank gefunden."));
    tarvex_.Properties().testMode = true;
    EXPECT_TRUE(tarvex_.GetCommandLine());
    EXPECT_TRUE(tarvex_.TestModeError());
    EXPECT_EQ(Section("[SysDB-Pfad]").back(), "Pfad konnte nicht ermittelt werden");
    EXPECT_EQ(CommandLine(), kAccess);
}

TEST_F(SystemDatabaseResolutionTest, IndivisibleListRaisesAndIsNotedInTestMode) {
    tarvex_.Properties().markers.list = u"";
    tarvex_.Properties().systemDBRegListString = u"HKCU\\Software\\Firma\\Alt";
    EXPECT_THAT(RunError(), IsError(-2147220466, kSource,
                                    "Die Liste der Registryschlüssel für den Pfad der "
                                    "Systemdatenbank konnte nicht analysiert werden."));
    EXPECT_EQ(DebugLines().back(), "Schlüsselliste konnte nicht aufgelöst werden");
    tarvex_.Properties().testMode = true;
    EXPECT_TRUE(tarvex_.GetCommandLine());
    EXPECT_TRUE(tarvex_.TestModeError());
}

}  // namespace tarvex
