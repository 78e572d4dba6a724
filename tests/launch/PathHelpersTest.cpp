#include "launch/PathHelpers.h"

#include <gtest/gtest.h>

#include "text/Text.h"

namespace tarvex {
namespace {

constexpr std::u16string_view kLauncher = u"C:\\Prog\\Start";

struct Absolute {
    std::u16string path;
    std::string log;
};

bool operator==(const Absolute& a, const Absolute& b) {
    return a.path == b.path && a.log == b.log;
}

void PrintTo(const Absolute& value, std::ostream* out) {
    *out << text::ToUtf8(value.path) << " with log <" << value.log << ">";
}

Absolute Resolve(std::u16string_view folder, std::u16string_view launcherFolder = kLauncher) {
    DiagnosticLog log;
    const std::u16string path = RelToAbs(folder, launcherFolder, &log);
    EXPECT_EQ(RelToAbs(folder, launcherFolder), path) << "a log must not change the result";
    return {path, text::ToUtf8(log.Text())};
}

Absolute Plain(std::u16string_view path) {
    return {std::u16string(path), "Absoluter Pfad: " + text::ToUtf8(path)};
}

TEST(CompanionPathTest, StandsBesideTheLauncherWithItsName) {
    EXPECT_EQ(CompanionPath({u"C:\\Prog", u"Kunden.v2", u""}, u".log"), u"C:\\Prog\\Kunden.v2.log");
}

TEST(CompanionPathTest, NoSecondSeparatorAtADrivesRoot) {
    EXPECT_EQ(CompanionPath({u"C:\\", u"Kunden", u""}, u".log"), u"C:\\Kunden.log");
}

}  // namespace

TEST(PathHelpersTest, SeparatorIsAddedOnce) {
    EXPECT_EQ(AddSep(u"C:\\Daten"), u"C:\\Daten\\");
    EXPECT_EQ(AddSep(u"C:\\Daten\\"), u"C:\\Daten\\");
    EXPECT_EQ(AddSep(u"a", u'/'), u"a/");
}

TEST(PathHelpersTest, SeparatorIsNotAddedToAnEmptyText) {
    EXPECT_EQ(AddSep(u""), u"");
}

TEST(PathHelpersTest, FolderAndNameAreJoinedByOneSeparator) {
    EXPECT_EQ(JoinPath(u"C:\\Daten", u"a.mdb"), u"C:\\Daten\\a.mdb");
    EXPECT_EQ(JoinPath(u"C:\\", u"a.mdb"), u"C:\\a.mdb");
    EXPECT_EQ(JoinPath(u"", u"a.mdb"), u"a.mdb");
}

TEST(RelToAbsTest, EmptyFolderStaysEmpty) {
    EXPECT_EQ(Resolve(u""), (Absolute{u"", ""}));
}

TEST(RelToAbsTest, NetworkPathIsAbsolute) {
    EXPECT_EQ(Resolve(u"\\\\server\\share\\db"), (Absolute{u"\\\\server\\share\\db\\", ""}));
}

TEST(RelToAbsTest, DrivePathIsAbsolute) {
    EXPECT_EQ(Resolve(u"D:\\Daten"), (Absolute{u"D:\\Daten\\", ""}));
    EXPECT_EQ(Resolve(u"d:\\"), (Absolute{u"d:\\", ""}));
    EXPECT_EQ(Resolve(u"D:\\a\\..\\b"), (Absolute{u"D:\\a\\..\\b\\", ""}));
}

TEST(RelToAbsTest, OtherFoldersStartAtTheLaunchersFolder) {
    EXPECT_EQ(Resolve(u"Daten", u"C:\\Prog"), Plain(u"C:\\Prog\\Daten\\"));
    EXPECT_EQ(Resolve(u"Daten\\", u"C:\\Prog"), Plain(u"C:\\Prog\\Daten\\"));
    EXPECT_EQ(Resolve(u".\\Daten"), Plain(u"C:\\Prog\\Start\\.\\Daten\\"));
    EXPECT_EQ(Resolve(u"."), Plain(u"C:\\Prog\\Start\\.\\"));
}

TEST(RelToAbsTest, RootedFolderAndDriveWithoutSeparatorAreRelative) {
    EXPECT_EQ(Resolve(u"\\Daten"), Plain(u"C:\\Prog\\Start\\\\Daten\\"));
    EXPECT_EQ(Resolve(u"C:Daten"), Plain(u"C:\\Prog\\Start\\C:Daten\\"));
    EXPECT_EQ(Resolve(u"C:/Daten"), Plain(u"C:\\Prog\\Start\\C:/Daten\\"));
}

TEST(RelToAbsTest, LauncherInADriveRoot) {
    EXPECT_EQ(Resolve(u"Daten", u"C:\\"), Plain(u"C:\\Daten\\"));
}

TEST(RelToAbsTest, LeadingDotsGoUpAndAreLogged) {
    EXPECT_EQ(Resolve(u"..\\Daten"),
              (Absolute{u"C:\\Prog\\Daten\\",
                        "Relativer Pfad: ..\\Daten\r\nAbsoluter Pfad: C:\\Prog\\Daten\\"}));
    EXPECT_EQ(Resolve(u"..\\..\\Daten").path, u"C:\\Daten\\");
    EXPECT_EQ(Resolve(u"..\\").path, u"C:\\Prog\\");
}

TEST(RelToAbsTest, DotsBehindLeadingOnesGoUpToo) {
    EXPECT_EQ(Resolve(u"..\\A\\..\\B").path, u"C:\\Prog\\B\\");
}

TEST(RelToAbsTest, DotsBehindAFolderNameAreKept) {
    EXPECT_EQ(Resolve(u"A\\..\\B"), Plain(u"C:\\Prog\\Start\\A\\..\\B\\"));
}

TEST(RelToAbsTest, DotsWithoutSeparatorAreAFolderName) {
    EXPECT_EQ(Resolve(u".."), Plain(u"C:\\Prog\\Start\\..\\"));
}

TEST(RelToAbsTest, SingleDotIsAFolderName) {
    EXPECT_EQ(Resolve(u"..\\.\\X").path, u"C:\\Prog\\.\\X\\");
}

TEST(RelToAbsTest, LevelsAreTrimmedOnTheWayUp) {
    EXPECT_EQ(Resolve(u"..\\ Daten \\X").path, u"C:\\Prog\\Daten\\X\\");
    EXPECT_EQ(Resolve(u"..\\ .. \\X").path, u"C:\\X\\");
    EXPECT_EQ(Resolve(u"..\\\\X").path, u"C:\\Prog\\X\\");
}

TEST(RelToAbsTest, WayUpEndsAtTheRoot) {
    EXPECT_EQ(Resolve(u"..\\..\\..\\..\\Daten").path, u"C:\\Daten\\");
    EXPECT_EQ(Resolve(u"..\\Daten", u"C:\\").path, u"C:\\Daten\\");
    EXPECT_EQ(Resolve(u"..\\..\\..\\Daten", u"\\\\server\\share\\Prog").path,
              u"\\\\server\\share\\Daten\\");
    EXPECT_EQ(Resolve(u"..\\Daten", u"\\\\server\\share").path, u"\\\\server\\share\\Daten\\");
    EXPECT_EQ(Resolve(u"..\\Daten", u"\\\\server").path, u"\\\\server\\Daten\\");
    EXPECT_EQ(Resolve(u"..\\..\\Daten", u"Prog").path, u"Daten\\");
}

TEST(PathPartsTest, PathIsSplitAtItsLastSeparator) {
    EXPECT_EQ(FileNamePart(u"C:\\Prog\\Start.exe"), u"Start.exe");
    EXPECT_EQ(FolderPart(u"C:\\Prog\\Start.exe"), u"C:\\Prog");
    EXPECT_EQ(FileNamePart(u"C:\\Prog\\"), u"");
    EXPECT_EQ(FolderPart(u"C:\\Prog\\"), u"C:\\Prog");
}

TEST(PathPartsTest, SlashSeparatesOnRequestOnly) {
    EXPECT_EQ(FileNamePart(u"a/b\\c/d", true), u"d");
    EXPECT_EQ(FolderPart(u"a/b\\c/d", true), u"a/b\\c");
    EXPECT_EQ(FileNamePart(u"a/b\\c/d"), u"c/d");
    EXPECT_EQ(FolderPart(u"a/b\\c/d"), u"a/b");
}

TEST(PathPartsTest, PathWithoutSeparatorIsAllFileName) {
    EXPECT_EQ(FileNamePart(u"Start.exe"), u"Start.exe");
    EXPECT_EQ(FolderPart(u"Start.exe"), u"");
    EXPECT_EQ(FileNamePart(u""), u"");
    EXPECT_EQ(FolderPart(u""), u"");
}

}  // namespace tarvex
