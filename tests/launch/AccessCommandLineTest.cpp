#include "launch/AccessCommandLine.h"

#include "tests/launch/LaunchFixture.h"

namespace tarvex {

/// The composed line; Access and a database are found.
class CommandLineTest : public LaunchFixture {
protected:
    CommandLineTest() {
        InstallAccess();
        files.AddFile(u"D:\\Daten\\Kunden.mdb");
        tarvex_.Properties().dbPath = u"D:\\Daten";
        tarvex_.Properties().dbFilename = u"Kunden.mdb";
    }

    /// What follows the executable and the database on the line.
    std::string Rest() {
        EXPECT_TRUE(tarvex_.GetCommandLine());
        return BehindStart(CommandLine());
    }

    std::string MaskedRest() {
        EXPECT_TRUE(tarvex_.GetCommandLine());
        return BehindStart(MaskedLine());
    }

private:
    static std::string BehindStart(const std::string& line) {
        const std::string start = R"("C:\Office\msaccess.exe" "D:\Daten\Kunden.mdb")";
        EXPECT_EQ(line.substr(0, start.size()), start);
        return line.substr(start.size());
    }
};

TEST_F(CommandLineTest, ExecutableStandsAloneWhenNothingElseIsSet) {
    cuTarvex tarvex(environment);
    tarvex.Properties().accPath = u"C:\\Office";
    EXPECT_TRUE(tarvex.GetCommandLine());
    EXPECT_EQ(tarvex.CommandLine(), u"\"C:\\Office\\msaccess.exe\"");
    EXPECT_EQ(tarvex.CommandLineHiddenUserPW(), u"\"C:\\Office\\msaccess.exe\"");
}

TEST_F(CommandLineTest, PiecesHaveTheirOrder) {
    files.AddFile(u"D:\\Daten\\System.mdw");
    tarvex_.Properties().cmd = u"Auftrag 7";
    tarvex_.Properties().systemDBPwd = u"geheim";
    tarvex_.Properties().systemDBUser = u"Meier";
    tarvex_.Properties().macro = u"Autostart";
    tarvex_.Properties().profile = u"Büro";
    tarvex_.Properties().optionDecompile = true;
    tarvex_.Properties().optionRuntime = true;
    tarvex_.Properties().optionReadOnly = true;
    tarvex_.Properties().optionRepair = true;
    tarvex_.Properties().optionNoStartup = true;
    tarvex_.Properties().optionExclusive = true;
    tarvex_.Properties().optionCompact = true;
    tarvex_.Properties().systemDBPath = u"D:\\Daten";
    tarvex_.Properties().systemDBFilename = u"System.mdw";
    EXPECT_EQ(Rest(),
              " /wrkgrp \"D:\\Daten\\System.mdw\" /Compact /Excl /nostartup /Repair /ro /Runtime "
              "/Decompile /Profile \"Büro\" /x \"Autostart\" /user \"Meier\" /pwd \"geheim\" /cmd "
              "\"Auftrag 7\"");
    EXPECT_EQ(MaskedLine(),
              "\"C:\\Office\\msaccess.exe\" \"D:\\Daten\\Kunden.mdb\" /wrkgrp "
              "\"D:\\Daten\\System.mdw\" /Compact /Excl /nostartup /Repair /ro /Runtime /Decompile "
              "/Profile \"Büro\" /x \"Autostart\" /user \"XXXX\" /pwd \"YYYY\" /cmd \"Auftrag 7\"");
}

TEST_F(CommandLineTest, EverySetOfSwitchesGivesItsOwnLine) {
    const std::pair<bool LaunchProperties::*, const char*> switches[] = {
        {&LaunchProperties::optionCompact, " /Compact"},
        {&LaunchProperties::optionExclusive, " /Excl"},
        {&LaunchProperties::optionNoStartup, " /nostartup"},
        {&LaunchProperties::optionRepair, " /Repair"},
        {&LaunchProperties::optionReadOnly, " /ro"},
        {&LaunchProperties::optionRuntime, " /Runtime"},
        {&LaunchProperties::optionDecompile, " /Decompile"}};
    for (unsigned set = 0; set < 128; ++set) {
        std::string expected;
        for (unsigned i = 0; i < 7; ++i) {
            const bool isSet = ((set >> i) & 1U) != 0;
            tarvex_.Properties().*switches[i].first = isSet;
            expected += isSet ? switches[i].second : "";
        }
        EXPECT_EQ(Rest(), expected);
    }
}

TEST_F(CommandLineTest, ValuesAreTrimmedAndNotQuotedTwice) {
    tarvex_.Properties().macro = u"\"Mein Makro\"";
    tarvex_.Properties().cmd = u"  x  ";
    EXPECT_EQ(Rest(), " /x \"Mein Makro\" /cmd \"x\"");
}

TEST_F(CommandLineTest, ValueOfBlanksBecomesAnEmptyArgument) {
    tarvex_.Properties().systemDBUser = u"  ";
    tarvex_.Properties().macro = u" ";
    EXPECT_EQ(Rest(), " /x \"\" /user \"\"");
}

TEST_F(CommandLineTest, CredentialsAreEscapedAndMasked) {
    tarvex_.Properties().systemDBUser = u"a/b;c";
    tarvex_.Properties().systemDBPwd = u"d/e;f";
    EXPECT_EQ(Rest(), " /user \"a//b;;c\" /pwd \"d//e;;f\"");
    EXPECT_EQ(MaskedRest(), " /user \"XXXX\" /pwd \"YYYY\"");
}

TEST_F(CommandLineTest, UserWithoutPasswordHasNoPasswordArgument) {
    tarvex_.Properties().systemDBUser = u"Meier";
    EXPECT_EQ(Rest(), " /user \"Meier\"");
    EXPECT_EQ(MaskedRest(), " /user \"XXXX\"");
}

TEST_F(CommandLineTest, PasswordWithoutUserIsLeftOut) {
    tarvex_.Properties().systemDBPwd = u"geheim";
    EXPECT_EQ(Rest(), "");
    EXPECT_EQ(MaskedRest(), "");
}

TEST_F(CommandLineTest, CommandTextIsLastAndUnmasked) {
    tarvex_.Properties().systemDBUser = u"Meier";
    tarvex_.Properties().systemDBPwd = u"geheim";
    tarvex_.Properties().cmd = u"geheim";
    EXPECT_EQ(Rest(), " /user \"Meier\" /pwd \"geheim\" /cmd \"geheim\"");
    EXPECT_EQ(MaskedRest(), " /user \"XXXX\" /pwd \"YYYY\" /cmd \"geheim\"");
}

TEST_F(CommandLineTest, PasswordThatOccursInAPathIsMaskedInItsPlaceOnly) {
    tarvex_.Properties().systemDBUser = u"Kunden";
    tarvex_.Properties().systemDBPwd = u"Daten";
    EXPECT_EQ(Rest(), " /user \"Kunden\" /pwd \"Daten\"");
    EXPECT_EQ(MaskedLine(),
              "\"C:\\Office\\msaccess.exe\" \"D:\\Daten\\Kunden.mdb\" /user \"XXXX\" /pwd "
              "\"YYYY\"");
}

TEST_F(CommandLineTest, TypicalLine) {
    files.AddFile(u"D:\\Daten\\System.mdw");
    tarvex_.Properties().systemDBPath = u"D:\\Daten";
    tarvex_.Properties().systemDBFilename = u"System.mdw";
    tarvex_.Properties().optionExclusive = true;
    tarvex_.Properties().optionRuntime = true;
    tarvex_.Properties().systemDBUser = u"Meier";
    tarvex_.Properties().systemDBPwd = u"a/b";
    EXPECT_TRUE(tarvex_.GetCommandLine());
    EXPECT_EQ(CommandLine(),
              "\"C:\\Office\\msaccess.exe\" \"D:\\Daten\\Kunden.mdb\" /wrkgrp "
              "\"D:\\Daten\\System.mdw\" /Excl /Runtime /user \"Meier\" /pwd \"a//b\"");
    EXPECT_EQ(MaskedLine(),
              "\"C:\\Office\\msaccess.exe\" \"D:\\Daten\\Kunden.mdb\" /wrkgrp "
              "\"D:\\Daten\\System.mdw\" /Excl /Runtime /user \"XXXX\" /pwd \"YYYY\"");
}

}  // namespace tarvex
