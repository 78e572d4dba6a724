#include "launch/cuTarvex.h"

#include <new>

#include "errors/RuntimeErrors.h"
#include "tests/launch/LaunchFixture.h"

namespace tarvex {
namespace {

template <class T>
concept HasSettableResults = requires(T object, std::u16string text) {
    object.SetCommandLine(text);
}
|| requires(T object, std::u16string text) {
    object.SetCommandLineHiddenUserPW(text);
}
|| requires(T object, std::u16string text) {
    object.SetDebugLog(text);
}
|| requires(T object, std::u16string text) {
    object.SetRegProfileKey(text);
};

/// Every text, marker and switch of the properties, so that none is forgotten.
constexpr std::u16string LaunchProperties::*kTexts[] = {
    &LaunchProperties::accRegListString,
    &LaunchProperties::accPath,
    &LaunchProperties::cmd,
    &LaunchProperties::dbPath,
    &LaunchProperties::dbRegListString,
    &LaunchProperties::dbFilename,
    &LaunchProperties::macro,
    &LaunchProperties::profile,
    &LaunchProperties::systemDBPath,
    &LaunchProperties::systemDBUser,
    &LaunchProperties::systemDBPwd,
    &LaunchProperties::systemDBRegListString,
    &LaunchProperties::systemDBFilename,
};

struct Switch {
    bool LaunchProperties::*value;
    bool isReset;  ///< by SetDefaults
};

constexpr Switch kSwitches[] = {
    {&LaunchProperties::optionCompact, true},    {&LaunchProperties::optionExclusive, true},
    {&LaunchProperties::optionNoStartup, true},  {&LaunchProperties::optionReadOnly, true},
    {&LaunchProperties::optionRepair, true},     {&LaunchProperties::optionRuntime, true},
    {&LaunchProperties::optionDecompile, false}, {&LaunchProperties::testMode, false},
    {&LaunchProperties::verifyProfile, false},
};

void ExpectDefaultMarkersAndVersion(const cuTarvex& tarvex) {
    EXPECT_EQ(tarvex.Properties().markers.list, u"%|%");
    EXPECT_EQ(tarvex.Properties().markers.subFolder, u"%|SubDir|%");
    EXPECT_EQ(tarvex.Properties().markers.fileName, u"%|Filename%|");
    EXPECT_EQ(tarvex.AccVersion(), 0);
}

}  // namespace

static_assert(!HasSettableResults<cuTarvex>);

using cuTarvexTest = LaunchFixture;

TEST_F(cuTarvexTest, NewObjectIsEmptyButForTheMarkers) {
    for (const auto text : kTexts) {
        EXPECT_EQ(tarvex_.Properties().*text, u"");
    }
    for (const Switch& option : kSwitches) {
        EXPECT_FALSE(tarvex_.Properties().*option.value);
    }
    ExpectDefaultMarkersAndVersion(tarvex_);
    EXPECT_EQ(tarvex_.CommandLine(), u"");
    EXPECT_EQ(tarvex_.CommandLineHiddenUserPW(), u"");
    EXPECT_EQ(tarvex_.DebugLog(), u"");
    EXPECT_FALSE(tarvex_.TestModeError());
}

TEST_F(cuTarvexTest, DefaultsResetMarkersVersionAndSixOptionsOnly) {
    LaunchProperties& properties = tarvex_.Properties();
    for (const auto text : kTexts) {
        properties.*text = u"x";
    }
    for (const Switch& option : kSwitches) {
        properties.*option.value = true;
    }
    properties.markers = {u"a", u"b", u"c"};
    tarvex_.SetAccVersion(3);
    EXPECT_EQ(tarvex_.AccVersion(), 3);
    tarvex_.SetDefaults();
    for (const auto text : kTexts) {
        EXPECT_EQ(properties.*text, u"x");
    }
    for (const Switch& option : kSwitches) {
        EXPECT_EQ(properties.*option.value, !option.isReset);
    }
    ExpectDefaultMarkersAndVersion(tarvex_);
}

TEST_F(cuTarvexTest, VersionsUpTo3AreStored) {
    for (const std::int32_t version : {0, 1, 2, 3, -1, -5}) {
        tarvex_.SetAccVersion(version);
        EXPECT_EQ(tarvex_.AccVersion(), version);
    }
}

TEST_F(cuTarvexTest, HigherVersionsAreRefused) {
    tarvex_.SetAccVersion(2);
    for (const std::int32_t version : {4, 5, 100}) {
        EXPECT_THAT(ErrorOf([&] { tarvex_.SetAccVersion(version); }),
                    IsError(-2147220463, "Tarvex/cuTarvex: AccVersion (Let)",
                            "'" + std::to_string(version) +
                                "' ist kein zulässiger Wert für die Eigenschaft 'AccVersion'."));
        EXPECT_EQ(tarvex_.AccVersion(), 2);
    }
}

TEST_F(cuTarvexTest, ProfileKeyFollowsTheVersion) {
    EXPECT_EQ(cuTarvex::RegProfileKey(0), u"SOFTWARE\\Microsoft\\Office\\8.0\\Access\\Profiles");
    EXPECT_EQ(cuTarvex::RegProfileKey(1), u"SOFTWARE\\Microsoft\\Office\\9.0\\Access\\Profiles");
    EXPECT_EQ(cuTarvex::RegProfileKey(2), u"SOFTWARE\\Microsoft\\Office\\10.0\\Access\\Profiles");
    EXPECT_EQ(cuTarvex::RegProfileKey(3), u"SOFTWARE\\Microsoft\\Office\\11.0\\Access\\Profiles");
    EXPECT_EQ(cuTarvex::RegProfileKey(-1), u"");
    EXPECT_EQ(cuTarvex::RegProfileKey(4), u"");
}

/// Whole runs of GetCommandLine.
class GetCommandLineTest : public LaunchFixture {
protected:
    /// A database beside the launcher's folder and a user with a password.
    void ConfigureKunden() {
        InstallAccess();
        files.AddFile(u"C:\\Prog\\Daten\\Kunden.mdb");
        tarvex_.Properties().dbPath = u"Daten";
        tarvex_.Properties().dbFilename = u"Kunden.mdb";
        tarvex_.Properties().systemDBUser = u"Meier";
        tarvex_.Properties().systemDBPwd = u"a/b";
        tarvex_.Properties().optionRuntime = true;
    }
};

TEST_F(GetCommandLineTest, TypicalRun) {
    ConfigureKunden();
    EXPECT_TRUE(tarvex_.GetCommandLine());
    EXPECT_EQ(CommandLine(),
              "\"C:\\Office\\msaccess.exe\" \"C:\\Prog\\Daten\\Kunden.mdb\" /Runtime /user "
              "\"Meier\" /pwd \"a//b\"");
    EXPECT_EQ(MaskedLine(),
              "\"C:\\Office\\msaccess.exe\" \"C:\\Prog\\Daten\\Kunden.mdb\" /Runtime /user "
              "\"XXXX\" /pwd \"YYYY\"");
    EXPECT_EQ(text::ToUtf8(tarvex_.DebugLog()),
              "[Access-Pfad]\r\n"
              "Absoluter Pfad wird verwendet: C:\\Office\\msaccess.exe\r\n"
              "Access-EXE: OK\r\n"
              "\r\n"
              "[Datenbank-Pfad]\r\n"
              "Absoluter Pfad: C:\\Prog\\Daten\\\r\n"
              "Berechneter Pfad: C:\\Prog\\Daten\\\r\n"
              "Datenbank: : C:\\Prog\\Daten\\Kunden.mdb\r\n"
              "Datenbank: OK\r\n"
              "\r\n"
              "[SysDB-Pfad]\r\n"
              "Keine SysDB\r\n"
              "\r\n"
              "[Profil]\r\n"
              "Kein Profil eingestellt");
    EXPECT_FALSE(tarvex_.TestModeError());
}

TEST_F(GetCommandLineTest, FailureLeavesTheLogUpToItAndNoLines) {
    ConfigureKunden();
    ASSERT_TRUE(tarvex_.GetCommandLine());
    files.Remove(u"C:\\Prog\\Daten\\Kunden.mdb");
    ui.pointerDefault = false;
    EXPECT_THAT(RunError(),
                IsError(-2147220475, "Tarvex/cuTarvex: GetDBPath: : GetCommandLine",
                        "Die Datenbank 'C:\\Prog\\Daten\\Kunden.mdb' ist nicht vorhanden."));
    EXPECT_EQ(CommandLine(), "");
    EXPECT_EQ(MaskedLine(), "");
    EXPECT_EQ(text::ToUtf8(tarvex_.DebugLog()),
              "[Access-Pfad]\r\n"
              "Absoluter Pfad wird verwendet: C:\\Office\\msaccess.exe\r\n"
              "Access-EXE: OK\r\n"
              "\r\n"
              "[Datenbank-Pfad]\r\n"
              "Absoluter Pfad: C:\\Prog\\Daten\\\r\n"
              "Berechneter Pfad: C:\\Prog\\Daten\\\r\n"
              "Datenbank: : C:\\Prog\\Daten\\Kunden.mdb\r\n"
              "Datenbank: C:\\Prog\\Daten\\Kunden.mdb ist nicht vorhanden!");
    EXPECT_TRUE(ui.pointerDefault);
}

TEST_F(GetCommandLineTest, EachRunStartsAnew) {
    InstallAccess();
    tarvex_.Properties().testMode = true;
    tarvex_.Properties().dbFilename = u"fehlt.mdb";
    EXPECT_TRUE(tarvex_.GetCommandLine());
    EXPECT_TRUE(tarvex_.TestModeError());
    tarvex_.Properties().dbFilename = u"";
    EXPECT_TRUE(tarvex_.GetCommandLine());
    EXPECT_FALSE(tarvex_.TestModeError());
    const std::u16string log = tarvex_.DebugLog();
    EXPECT_TRUE(tarvex_.GetCommandLine());
    EXPECT_EQ(tarvex_.DebugLog(), log);
    EXPECT_EQ(CommandLine(), "\"C:\\Office\\msaccess.exe\"");
}

TEST_F(GetCommandLineTest, StepsRunInOrder) {
    InstallAccess();
    tarvex_.GetCommandLine();
    StringList headers;
    for (const std::string& line : DebugLines()) {
        if (line.substr(0, 1) == "[") {
            headers.push_back(line);
        }
    }
    EXPECT_EQ(headers,
              (StringList{"[Access-Pfad]", "[Datenbank-Pfad]", "[SysDB-Pfad]", "[Profil]"}));
}

TEST_F(GetCommandLineTest, FailedStepStopsTheRest) {
    InstallAccess();
    tarvex_.Properties().dbFilename = u"fehlt.mdb";
    tarvex_.Properties().systemDBFilename = u"System.mdw";
    tarvex_.Properties().profile = u"Büro";
    tarvex_.Properties().verifyProfile = true;
    EXPECT_TRUE(RunError().has_value());
    EXPECT_EQ(files.log, (std::vector<std::u16string>{u"exists C:\\Office\\msaccess.exe",
                                                      u"exists C:\\Prog\\fehlt.mdb"}));
    EXPECT_TRUE(registry.log.empty());
}

TEST_F(GetCommandLineTest, RuntimeErrorInsideAStepKeepsNumberAndDescription) {
    struct : FakeRegistry {
        std::optional<std::string> ReadTextInView(View, std::int32_t, std::u16string_view,
                                                  std::u16string_view) const override {
            throw std::bad_alloc();
        }
    } failing;
    cuTarvex tarvex({failing, files, codec, codec, ui, program});
    EXPECT_THAT(ErrorOf([&] { tarvex.GetCommandLine(); }),
                IsError(NumberOf(RuntimeError::OutOfMemory), "Tarvex: : GetCommandLine",
                        "Nicht genügend Speicher"));
    EXPECT_EQ(Lines(tarvex.DebugLog()).size(), 3U);
}

/// A way to fail with one launch error, and whether test mode softens it.
struct Failure {
    std::int32_t code;
    bool softened;
    std::function<void(cuTarvex&)> set;
};

void PrintTo(const Failure& failure, std::ostream* out) {
    *out << "code " << failure.code;
}

class TestModeTest : public LaunchFixture, public ::testing::WithParamInterface<Failure> {
protected:
    TestModeTest() {
        InstallAccess();
        GetParam().set(tarvex_);
    }
};

TEST_P(TestModeTest, FailureRaisesInANormalRun) {
    const auto error = RunError();
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number, -2147220480 + GetParam().code);
}

TEST_P(TestModeTest, FailureIsNotedOrRaisedInTestMode) {
    tarvex_.Properties().testMode = true;
    const auto error = RunError();
    EXPECT_EQ(error.has_value(), !GetParam().softened);
    EXPECT_EQ(tarvex_.TestModeError(), GetParam().softened);
    EXPECT_EQ(tarvex_.CommandLine().empty(), !GetParam().softened);
}

INSTANTIATE_TEST_SUITE_P(
    LaunchErrors, TestModeTest,
    ::testing::Values(
        Failure{2, false, [](cuTarvex& tarvex) { tarvex.Properties().accPath = u""; }},
        Failure{3, true, [](cuTarvex& tarvex) { tarvex.Properties().accPath = u"D:\\"; }},
        Failure{5, true, [](cuTarvex& tarvex) { tarvex.Properties().dbFilename = u"fehlt.mdb"; }},
        Failure{6, true, [](cuTarvex& tarvex) { tarvex.Properties().cmd = u"x"; }},
        Failure{7, true,
                [](cuTarvex& tarvex) {
                    tarvex.Properties().profile = u"Büro";
                    tarvex.Properties().verifyProfile = true;
                }},
        Failure{9, true,
                [](cuTarvex& tarvex) { tarvex.Properties().systemDBFilename = u"fehlt.mdw"; }},
        Failure{10, false,
                [](cuTarvex& tarvex) {
                    tarvex.Properties().markers.list = u"";
                    tarvex.Properties().accRegListString = u"x";
                }},
        Failure{11, false, [](cuTarvex& tarvex) { tarvex.RegListAdd(0, u"HKLM\\A\\B"); }},
        Failure{12, true,
                [](cuTarvex& tarvex) {
                    tarvex.Properties().markers.list = u"";
                    tarvex.Properties().dbRegListString = u"x";
                }},
        Failure{13, true, [](cuTarvex& tarvex) { tarvex.RegListAdd(1, u"HKLM\\A\\B"); }},
        Failure{14, true,
                [](cuTarvex& tarvex) {
                    tarvex.Properties().markers.list = u"";
                    tarvex.Properties().systemDBRegListString = u"x";
                }},
        Failure{15, true, [](cuTarvex& tarvex) { tarvex.RegListAdd(2, u"HKLM\\A\\B"); }}));

}  // namespace tarvex
