#include "tests/launch/LaunchFixture.h"

namespace tarvex {
namespace {

constexpr const char16_t* kOffice8 = u"SOFTWARE\\Microsoft\\Office\\8.0\\Common\\InstallRoot";

const char* const kSource = "Tarvex/cuTarvex: GetAccessPath: : GetCommandLine";

}  // namespace

/// The search for the Access executable.
class AccessResolutionTest : public LaunchFixture {
protected:
    AccessResolutionTest() { files.AddFile(u"C:\\Office\\msaccess.exe"); }

    StringList Resolve() {
        RunError();
        return Section("[Access-Pfad]");
    }
};

TEST_F(AccessResolutionTest, LogBeginsWithTheSectionWithoutAnEmptyLine) {
    RunError();
    EXPECT_EQ(DebugLines().front(), "[Access-Pfad]");
}

TEST_F(AccessResolutionTest, FolderAndFullPathGiveTheSamePath) {
    for (const std::u16string_view path :
         {u"C:\\Office", u"C:\\Office\\", u"C:\\Office\\msaccess.exe",
          u"C:\\Office\\MSAccess.EXE"}) {
        tarvex_.Properties().accPath = std::u16string(path);
        EXPECT_EQ(Resolve(), (StringList{"[Access-Pfad]",
                                         "Absoluter Pfad wird verwendet: C:\\Office\\msaccess.exe",
                                         "Access-EXE: OK"}))
            << text::ToUtf8(path);
        EXPECT_EQ(CommandLine(), "\"C:\\Office\\msaccess.exe\"");
    }
}

TEST_F(AccessResolutionTest, OnlyTheEndOfTheTextDecidesWhetherAPathNamesTheExecutable) {
    tarvex_.Properties().accPath = u"C:\\x\\mymsaccess.exe";
    EXPECT_EQ(Resolve().at(1), "Absoluter Pfad wird verwendet: C:\\x\\my\\msaccess.exe");
}

TEST_F(AccessResolutionTest, RelativeFolderStartsAtTheLauncher) {
    files.AddFile(u"C:\\Prog\\Office\\msaccess.exe");
    tarvex_.Properties().accPath = u"Office";
    EXPECT_EQ(Resolve(),
              (StringList{"[Access-Pfad]", "Absoluter Pfad: C:\\Prog\\Office\\",
                          "Absoluter Pfad wird verwendet: C:\\Prog\\Office\\msaccess.exe",
                          "Access-EXE: OK"}));
    tarvex_.Properties().accPath = u"..\\Office\\msaccess.exe";
    EXPECT_EQ(
        Resolve(),
        (StringList{"[Access-Pfad]", "Relativer Pfad: ..\\Office\\", "Absoluter Pfad: C:\\Office\\",
                    "Absoluter Pfad wird verwendet: C:\\Office\\msaccess.exe", "Access-EXE: OK"}));
}

TEST_F(AccessResolutionTest, BareFileNameIsLookedForInTheCurrentFolder) {
    files.AddFile(u"C:\\Aktuell\\msaccess.exe");
    tarvex_.Properties().accPath = u"msaccess.exe";
    EXPECT_EQ(Resolve(), (StringList{"[Access-Pfad]", "Absoluter Pfad wird verwendet: msaccess.exe",
                                     "Access-EXE: OK"}));
    EXPECT_EQ(CommandLine(), "\"msaccess.exe\"");
}

TEST_F(AccessResolutionTest, KeyListWinsOverPathAndPathOverOfficeKeys) {
    registry.SetTextZ(kHKeyLocalMachine, kOffice8, u"OfficeBin", "C:\\Office");
    tarvex_.Properties().accPath = u"C:\\Office";
    Resolve();
    EXPECT_TRUE(registry.log.empty());
    files.log.clear();
    tarvex_.Properties().accRegListString = u"HKLM\\SOFTWARE\\Firma\\Pfad";
    EXPECT_THAT(RunError(),
                IsError(-2147220469, kSource,
                        "Die benutzerdefinierten Registryeinträge für den Access-Pfad sind nicht "
                        "vorhanden, enthalten keinen Wert oder an den angegebenen Positionen wurde "
                        "keine ausführbare Access-Datei gefunden."));
    EXPECT_EQ(registry.log, (std::vector<std::u16string>{u"read HKLM\\SOFTWARE\\Firma\\Pfad"}));
    EXPECT_TRUE(files.log.empty());
    EXPECT_EQ(DebugLines().back(), "Pfad konnte nicht ermittelt werden");
}

TEST_F(AccessResolutionTest, OldestOfficeHasOneKey) {
    registry.SetTextZ(kHKeyLocalMachine, kOffice8, u"OfficeBin", "C:\\Office");
    for (const std::int32_t version : {0, -1}) {
        tarvex_.SetAccVersion(version);
        registry.log.clear();
        EXPECT_EQ(Resolve(),
                  (StringList{"[Access-Pfad]", "Office-Schlüssel wird verwendet",
                              "Schlüssel: SOFTWARE\\Microsoft\\Office\\8.0\\Common\\InstallRoot",
                              "Schlüsselinhalt: C:\\Office",
                              "Verwendeter Pfad: C:\\Office\\msaccess.exe", "Access-EXE: OK"}));
        EXPECT_EQ(
            registry.log,
            (std::vector<std::u16string>{
                u"read HKLM\\SOFTWARE\\Microsoft\\Office\\8.0\\Common\\InstallRoot\\OfficeBin"}));
    }
}

TEST_F(AccessResolutionTest, LaterOfficesHaveAnAccessKeyBeforeTheCommonOne) {
    const std::pair<std::int32_t, std::string> versions[] = {{1, "9.0"}, {2, "10.0"}, {3, "11.0"}};
    for (const auto& [version, name] : versions) {
        const std::string office = "SOFTWARE\\Microsoft\\Office\\" + name;
        registry = FakeRegistry();
        registry.SetTextZ(kHKeyLocalMachine, text::FromUtf8(office + "\\Common\\InstallRoot"),
                          u"Path", "C:\\Office\\");
        tarvex_.SetAccVersion(version);
        EXPECT_EQ(Resolve(),
                  (StringList{"[Access-Pfad]", "Office-Schlüssel wird verwendet",
                              "Schlüssel: " + office + "\\Access\\InstallRoot",
                              "Schlüsselinhalt: ", "Schlüssel: " + office + "\\Common\\InstallRoot",
                              "Schlüsselinhalt: C:\\Office\\",
                              "Verwendeter Pfad: C:\\Office\\msaccess.exe", "Access-EXE: OK"}));
        EXPECT_EQ(registry.log,
                  (std::vector<std::u16string>{
                      text::FromUtf8("read HKLM\\" + office + "\\Access\\InstallRoot\\Path"),
                      text::FromUtf8("read HKLM\\" + office + "\\Common\\InstallRoot\\Path")}));
    }
}

TEST_F(AccessResolutionTest, ValueInTheAccessKeyWins) {
    const std::u16string office = u"SOFTWARE\\Microsoft\\Office\\9.0\\";
    registry.SetTextZ(kHKeyLocalMachine, office + u"Access\\InstallRoot", u"Path", "C:\\Office");
    registry.SetTextZ(kHKeyLocalMachine, office + u"Common\\InstallRoot", u"Path", "C:\\Anders");
    tarvex_.SetAccVersion(1);
    EXPECT_EQ(Resolve().back(), "Access-EXE: OK");
    EXPECT_EQ(registry.log.size(), 1U);
}

TEST_F(AccessResolutionTest, EmptyOfficeValueCountsAsNone) {
    const std::u16string office = u"SOFTWARE\\Microsoft\\Office\\9.0\\";
    registry.SetTextZ(kHKeyLocalMachine, office + u"Access\\InstallRoot", u"Path", "");
    registry.SetTextZ(kHKeyLocalMachine, office + u"Common\\InstallRoot", u"Path", "C:\\Office");
    tarvex_.SetAccVersion(1);
    EXPECT_EQ(Resolve().back(), "Access-EXE: OK");
    EXPECT_EQ(registry.log.size(), 2U);
}

TEST_F(AccessResolutionTest, MissingOfficeKeyRaisesAlsoInTestMode) {
    for (const bool testMode : {false, true}) {
        tarvex_.Properties().testMode = testMode;
        EXPECT_THAT(RunError(),
                    IsError(-2147220478, kSource,
                            "Der Access-Pfad kann nicht aus der Registry ermittelt werden."));
        EXPECT_EQ(DebugLines(),
                  (StringList{"[Access-Pfad]", "Office-Schlüssel wird verwendet",
                              "Schlüssel: SOFTWARE\\Microsoft\\Office\\8.0\\Common\\InstallRoot",
                              "Schlüsselinhalt: ", "Pfad konnte nicht ermittelt werden"}));
        EXPECT_FALSE(tarvex_.TestModeError());
    }
}

TEST_F(AccessResolutionTest, VersionBelowMinusOneHasNoOfficeKeys) {
    tarvex_.SetAccVersion(-2);
    EXPECT_EQ(RunError()->number, -2147220478);
    EXPECT_EQ(DebugLines(), (StringList{"[Access-Pfad]", "Office-Schlüssel wird verwendet",
                                        "Pfad konnte nicht ermittelt werden"}));
    EXPECT_TRUE(registry.log.empty());
}

TEST_F(AccessResolutionTest, MissingExecutableRaises) {
    tarvex_.Properties().accPath = u"D:\\Office";
    EXPECT_THAT(RunError(), IsError(-2147220477, kSource,
                                    "Die Datei 'D:\\Office\\msaccess.exe' wurde nicht gefunden."));
    EXPECT_EQ(DebugLines(), (StringList{"[Access-Pfad]",
                                        "Absoluter Pfad wird verwendet: D:\\Office\\msaccess.exe",
                                        "Datei existiert nicht: D:\\Office\\msaccess.exe"}));
}

TEST_F(AccessResolutionTest, MissingExecutableIsNotedInTestModeAndTheRunGoesOn) {
    tarvex_.Properties().accPath = u"D:\\Office";
    tarvex_.Properties().testMode = true;
    EXPECT_TRUE(tarvex_.GetCommandLine());
    EXPECT_TRUE(tarvex_.TestModeError());
    EXPECT_EQ(Section("[Access-Pfad]").back(), "Datei existiert nicht: D:\\Office\\msaccess.exe");
    EXPECT_EQ(CommandLine(), "\"D:\\Office\\msaccess.exe\"");
    EXPECT_EQ(DebugLines().back(), "Kein Profil eingestellt");
}

TEST_F(AccessResolutionTest, FolderNamedLikeTheExecutableDoesNotCount) {
    files.AddFolder(u"D:\\Office\\msaccess.exe");
    tarvex_.Properties().accPath = u"D:\\Office";
    EXPECT_EQ(RunError()->number, -2147220477);
}

TEST_F(AccessResolutionTest, UnresolvedListRaisesAlsoInTestMode) {
    tarvex_.Properties().accRegListString = u"HKLM\\SOFTWARE\\Firma\\Pfad";
    tarvex_.Properties().testMode = true;
    EXPECT_EQ(RunError()->number, -2147220469);
    EXPECT_FALSE(tarvex_.TestModeError());
}

}  // namespace tarvex
