#include "platform/ProgramInfo.h"

#include <gtest/gtest.h>

namespace tarvex {

namespace {

std::u16string Arguments(std::u16string_view commandLine) {
    return MakeProgramInfo(u"C:\\Prog\\Start.exe", commandLine).arguments;
}

TEST(ProgramInfoTest, FolderHasNoClosingSeparatorExceptAtARoot) {
    EXPECT_EQ(MakeProgramInfo(u"C:\\Prog\\Start.exe", u"").folder, u"C:\\Prog");
    EXPECT_EQ(MakeProgramInfo(u"C:\\Start.exe", u"").folder, u"C:\\");
    EXPECT_EQ(MakeProgramInfo(u"\\\\Server\\Daten\\Start.exe", u"").folder, u"\\\\Server\\Daten");
    EXPECT_EQ(MakeProgramInfo(u"C:\\Größe Ω\\Start.exe", u"").folder, u"C:\\Größe Ω");
}

TEST(ProgramInfoTest, OnlyTheLastExtensionIsCutOff) {
    EXPECT_EQ(MakeProgramInfo(u"C:\\Prog\\Kunden.exe", u"").exeName, u"Kunden");
    EXPECT_EQ(MakeProgramInfo(u"C:\\Prog\\Kunden.v2.exe", u"").exeName, u"Kunden.v2");
    EXPECT_EQ(MakeProgramInfo(u"C:\\Prog.alt\\Kunden", u"").exeName, u"Kunden");
}

TEST(ProgramInfoTest, QuotedProgramNameEndsAtItsQuotationMark) {
    EXPECT_EQ(Arguments(u"\"C:\\Eigene Dateien/x\\Start.exe\" /T \"/D pw\""), u"/T \"/D pw\"");
    EXPECT_EQ(Arguments(u"\"C:\\Prog\\Start.exe\"/T"), u"/T");
    EXPECT_EQ(Arguments(u"\"C:\\Prog\\Start.exe\""), u"");
    EXPECT_EQ(Arguments(u"\"C:\\Prog\\Start.exe"), u"");
}

TEST(ProgramInfoTest, OtherProgramNameEndsAtTheFirstBlankOrTab) {
    EXPECT_EQ(Arguments(u"C:\\Prog/x\\Start.exe /T/D"), u"/T/D");
    EXPECT_EQ(Arguments(u"Start.exe\t/T"), u"/T");
    EXPECT_EQ(Arguments(u"Start.exe T"), u"T");
    EXPECT_EQ(Arguments(u"Start.exe/T"), u"");
    EXPECT_EQ(Arguments(u""), u"");
}

TEST(ProgramInfoTest, ArgumentsLoseLeadingBlanksOnly) {
    EXPECT_EQ(Arguments(u"Start.exe   /D  a b  "), u"/D  a b  ");
    EXPECT_EQ(Arguments(u"Start.exe   "), u"");
}

}  // namespace

}  // namespace tarvex
