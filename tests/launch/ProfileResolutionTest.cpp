#include "tests/launch/LaunchFixture.h"

namespace tarvex {

/// The profile argument; Access is found, there is no database.
class ProfileResolutionTest : public LaunchFixture {
protected:
    ProfileResolutionTest() { InstallAccess(); }

    static constexpr const char16_t* kKey8 = u"SOFTWARE\\Microsoft\\Office\\8.0\\Access\\Profiles";

    StringList Resolve() {
        RunError();
        return Section("[Profil]");
    }
};

TEST_F(ProfileResolutionTest, NoProfileGivesNoArgument) {
    tarvex_.Properties().verifyProfile = true;
    EXPECT_EQ(Resolve(), (StringList{"[Profil]", "Kein Profil eingestellt"}));
    EXPECT_EQ(CommandLine(), "\"C:\\Office\\msaccess.exe\"");
    EXPECT_TRUE(registry.log.empty());
}

TEST_F(ProfileResolutionTest, SectionFollowsOneEmptyLine) {
    tarvex_.GetCommandLine();
    const StringList lines = DebugLines();
    ASSERT_GE(lines.size(), 4U);
    const StringList end(lines.end() - 4, lines.end());
    EXPECT_EQ(end, (StringList{"Keine SysDB", "", "[Profil]", "Kein Profil eingestellt"}));
}

TEST_F(ProfileResolutionTest, ProfileIsPassedWithoutLookUp) {
    tarvex_.Properties().profile = u" Mein Profil ";
    EXPECT_EQ(Resolve(), (StringList{"[Profil]", "Profil:  Mein Profil "}));
    EXPECT_EQ(CommandLine(), "\"C:\\Office\\msaccess.exe\" /Profile \"Mein Profil\"");
    EXPECT_TRUE(registry.log.empty());
}

TEST_F(ProfileResolutionTest, VerifiedProfileIsFoundInAnyCase) {
    registry.SetTextZ(kHKeyLocalMachine, kKey8, u"Anderes", "x");
    registry.SetTextZ(kHKeyLocalMachine, kKey8, u"BÜRO", "x");
    tarvex_.Properties().profile = u"Büro";
    tarvex_.Properties().verifyProfile = true;
    for (const std::int32_t version : {0, -1}) {
        tarvex_.SetAccVersion(version);
        EXPECT_EQ(Resolve(),
                  (StringList{"[Profil]", "Profil: Büro",
                              "Schlüssel: SOFTWARE\\Microsoft\\Office\\8.0\\Access\\Profiles",
                              "Profil: OK"}));
    }
    EXPECT_EQ(CommandLine(), "\"C:\\Office\\msaccess.exe\" /Profile \"Büro\"");
}

TEST_F(ProfileResolutionTest, PartOfAnotherNameIsNoProfile) {
    registry.SetTextZ(kHKeyLocalMachine, kKey8, u"Büro 2", "x");
    registry.SetTextZ(kHKeyLocalMachine, kKey8, u"Mein Büro", "x");
    tarvex_.Properties().profile = u"Büro";
    tarvex_.Properties().verifyProfile = true;
    EXPECT_EQ(Resolve().back(), "Profil ist nicht vorhanden");
}

TEST_F(ProfileResolutionTest, KeyFollowsTheVersion) {
    const std::pair<std::int32_t, std::string> versions[] = {{1, "9.0"}, {2, "10.0"}, {3, "11.0"}};
    tarvex_.Properties().profile = u"Büro";
    tarvex_.Properties().verifyProfile = true;
    for (const auto& [version, name] : versions) {
        const std::string key = "SOFTWARE\\Microsoft\\Office\\" + name + "\\Access\\Profiles";
        registry.SetTextZ(kHKeyLocalMachine, text::FromUtf8(key), u"Büro", "x");
        tarvex_.SetAccVersion(version);
        EXPECT_EQ(Resolve(),
                  (StringList{"[Profil]", "Profil: Büro", "Schlüssel: " + key, "Profil: OK"}));
    }
}

TEST_F(ProfileResolutionTest, MissingProfileRaises) {
    registry.AddKey(kHKeyLocalMachine, kKey8);
    registry.AddKey(kHKeyLocalMachine, std::u16string(kKey8) + u"\\Büro");
    tarvex_.Properties().profile = u"Büro";
    tarvex_.Properties().verifyProfile = true;
    EXPECT_THAT(RunError(),
                IsError(-2147220473, "Tarvex/cuTarvex: GetProfile: : GetCommandLine",
                        "Kann den Eintrag des Profiles 'Büro' nicht in der Registry finden."));
    EXPECT_EQ(DebugLines().back(), "Profil ist nicht vorhanden");
}

TEST_F(ProfileResolutionTest, MissingProfileIsNotedInTestModeAndStaysOnTheLine) {
    tarvex_.Properties().profile = u"Büro";
    tarvex_.Properties().verifyProfile = true;
    tarvex_.Properties().testMode = true;
    EXPECT_TRUE(tarvex_.GetCommandLine());
    EXPECT_TRUE(tarvex_.TestModeError());
    EXPECT_EQ(CommandLine(), "\"C:\\Office\\msaccess.exe\" /Profile \"Büro\"");
}

TEST_F(ProfileResolutionTest, ValueThatIsTooLargeEndsTheSearch) {
    registry.SetOther(kHKeyLocalMachine, kKey8, u"Groß", 4097);
    registry.SetTextZ(kHKeyLocalMachine, kKey8, u"Büro", "x");
    tarvex_.Properties().profile = u"Büro";
    tarvex_.Properties().verifyProfile = true;
    EXPECT_EQ(Resolve().back(), "Profil ist nicht vorhanden");
    registry.SetOther(kHKeyLocalMachine, kKey8, u"Groß", 4096);
    EXPECT_EQ(Resolve().back(), "Profil: OK");
}

TEST_F(ProfileResolutionTest, NameThatIsTooLongEndsTheSearch) {
    registry.SetOther(kHKeyLocalMachine, kKey8, std::u16string(257, u'n'));
    registry.SetTextZ(kHKeyLocalMachine, kKey8, u"Büro", "x");
    tarvex_.Properties().profile = u"Büro";
    tarvex_.Properties().verifyProfile = true;
    EXPECT_EQ(Resolve().back(), "Profil ist nicht vorhanden");
}

TEST_F(ProfileResolutionTest, LongestNameIsFoundAndDoesNotEndTheSearch) {
    const std::u16string longest(256, u'n');
    registry.SetOther(kHKeyLocalMachine, kKey8, longest);
    registry.SetTextZ(kHKeyLocalMachine, kKey8, u"Büro", "x");
    tarvex_.Properties().verifyProfile = true;
    for (const std::u16string& profile : {longest, std::u16string(u"Büro")}) {
        tarvex_.Properties().profile = profile;
        EXPECT_EQ(Resolve().back(), "Profil: OK");
    }
}

TEST_F(ProfileResolutionTest, VersionBelowMinusOneHasNoProfileKey) {
    registry.SetTextZ(kHKeyLocalMachine, u"", u"Büro", "x");
    tarvex_.Properties().profile = u"Büro";
    tarvex_.Properties().verifyProfile = true;
    tarvex_.SetAccVersion(-2);
    EXPECT_EQ(Resolve(), (StringList{"[Profil]", "Profil: Büro",
                                     "Schlüssel: ", "Profil ist nicht vorhanden"}));
    EXPECT_TRUE(registry.log.empty());
}

}  // namespace tarvex
