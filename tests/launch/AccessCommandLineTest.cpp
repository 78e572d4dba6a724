#include "launch/AccessCommandLine.h"

#include "tests/launch/LaunchFixture.h"

namespace tarvex {

/// The composed line; Access and a database are found.
class CommandLineTest : public LaunchFixture {
protected:
    CommandLineTest() {
        InstallAccess();
        files.AddFile(u"D:\\Daten\\Kunden.mdb");
        tarvex_.SetDBPath(u"D:\\Daten");
        tarvex_.SetDBFilename(u"Kunden.mdb");
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
    tarvex.SetAccPath(u"C:\\Office");
    EXPECT_TRUE(tarvex.GetCommandLine());
    EXPECT_EQ(tarvex.CommandLine(), u"\"C:\\Office\\msaccess.exe\"");
    EXPECT_EQ(tarvex.CommandLineHiddenUserPW(), u"\"C:\\Office\\msaccess.exe\"");
}

TEST_F(CommandLineTest, PiecesHaveTheirOrder) {
    files.AddFile(u"D:\\Daten\\System.mdw");
    tarvex_.SetCmd(u"Auftrag 7");
    tarvex_.SetSystemDBPwd(u"geheim");
    tarvex_.SetSystemDBUser(u"Meier");
    tarvex_.SetMacro(u"Autostart");
    tarvex_.SetProfile(u"Büro");
    tarvex_.SetOptionDecompile(true);
    tarvex_.SetOptionRuntime(true);
    tarvex_.SetOptionReadOnly(true);
    tarvex_.SetOptionRepair(true);
    tarvex_.SetOptionNoStartup(true);
    tarvex_.SetOptionExclusive(true);
    tarvex_.SetOptionCompact(true);
    tarvex_.SetSystemDBPath(u"D:\\Daten");
    tarvex_.SetSystemDBFilename(u"System.mdw");
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
    const std::pair<void (cuTarvex::*)(bool), const char*> switches[] = {
        {&cuTarvex::SetOptionCompact, " /Compact"},     {&cuTarvex::SetOptionExclusive, " /Excl"},
        {&cuTarvex::SetOptionNoStartup, " /nostartup"}, {&cuTarvex::SetOptionRepair, " /Repair"},
        {&cuTarvex::SetOptionReadOnly, " /ro"},         {&cuTarvex::SetOptionRuntime, " /Runtime"},
        {&cuTarvex::SetOptionDecompile, " /Decompile"}};
    for (unsigned set = 0; set < 128; ++set) {
        std::string expected;
        for (unsigned i = 0; i < 7; ++i) {
            const bool isSet = ((set >> i) & 1U) != 0;
            (tarvex_.*switches[i].first)(isSet);
            expected += isSet ? switches[i].second : "";
        }
        EXPECT_EQ(Rest(), expected);
    }
}

TEST_F(CommandLineTest, ValuesAreTrimmedAndNotQuotedTwice) {
    tarvex_.SetMacro(u"\"Mein Makro\"");
    tarvex_.SetCmd(u"  x  ");
    EXPECT_EQ(Rest(), " /x \"Mein Makro\" /cmd \"x\"");
}

TEST_F(CommandLineTest, ValueOfBlanksBecomesAnEmptyArgument) {
    tarvex_.SetSystemDBUser(u"  ");
    tarvex_.SetMacro(u" ");
    EXPECT_EQ(Rest(), " /x \"\" /user \"\"");
}

TEST_F(CommandLineTest, CredentialsAreEscapedAndMasked) {
    tarvex_.SetSystemDBUser(u"a/b;c");
    tarvex_.SetSystemDBPwd(u"d/e;f");
    EXPECT_EQ(Rest(), " /user \"a//b;;c\" /pwd \"d//e;;f\"");
    EXPECT_EQ(MaskedRest(), " /user \"XXXX\" /pwd \"YYYY\"");
}

TEST_F(CommandLineTest, UserWithoutPasswordHasNoPasswordArgument) {
    tarvex_.SetSystemDBUser(u"Meier");
    EXPECT_EQ(Rest(), " /user \"Meier\"");
    EXPECT_EQ(MaskedRest(), " /user \"XXXX\"");
}

TEST_F(CommandLineTest, PasswordWithoutUserIsLeftOut) {
    tarvex_.SetSystemDBPwd(u"geheim");
    EXPECT_EQ(Rest(), "");
    EXPECT_EQ(MaskedRest(), "");
}

TEST_F(CommandLineTest, CommandTextIsLastAndUnmasked) {
    tarvex_.SetSystemDBUser(u"Meier");
    tarvex_.SetSystemDBPwd(u"geheim");
    tarvex_.SetCmd(u"geheim");
    EXPECT_EQ(Rest(), " /user \"Meier\" /pwd \"geheim\" /cmd \"geheim\"");
    EXPECT_EQ(MaskedRest(), " /user \"XXXX\" /pwd \"YYYY\" /cmd \"geheim\"");
}

TEST_F(CommandLineTest, PasswordThatOccursInAPathIsMaskedInItsPlaceOnly) {
    tarvex_.SetSystemDBUser(u"Kunden");
    tarvex_.SetSystemDBPwd(u"Daten");
    EXPECT_EQ(Rest(), " /user \"Kunden\" /pwd \"Daten\"");
    EXPECT_EQ(MaskedLine(),
              "\"C:\\Office\\msaccess.exe\" \"D:\\Daten\\Kunden.mdb\" /user \"XXXX\" /pwd "
              "\"YYYY\"");
}

TEST_F(CommandLineTest, TypicalLine) {
    files.AddFile(u"D:\\Daten\\System.mdw");
    tarvex_.SetSystemDBPath(u"D:\\Daten");
    tarvex_.SetSystemDBFilename(u"System.mdw");
    tarvex_.SetOptionExclusive(true);
    tarvex_.SetOptionRuntime(true);
    tarvex_.SetSystemDBUser(u"Meier");
    tarvex_.SetSystemDBPwd(u"a/b");
    EXPECT_TRUE(tarvex_.GetCommandLine());
    EXPECT_EQ(CommandLine(),
              "\"C:\\Office\\msaccess.exe\" \"D:\\Daten\\Kunden.mdb\" /wrkgrp "
              "\"D:\\Daten\\System.mdw\" /Excl /Runtime /user \"Meier\" /pwd \"a//b\"");
    EXPECT_EQ(MaskedLine(),
              "\"C:\\Office\\msaccess.exe\" \"D:\\Daten\\Kunden.mdb\" /wrkgrp "
              "\"D:\\Daten\\System.mdw\" /Excl /Runtime /user \"XXXX\" /pwd \"YYYY\"");
}

}  // namespace tarvex
