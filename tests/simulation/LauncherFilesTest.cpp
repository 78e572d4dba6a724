#include "simulation/LauncherFiles.h"

#include <gtest/gtest.h>

#include "tests/support/FakeFileSystem.h"
#include "tests/support/TestProgram.h"

namespace tarvex {
namespace {

using Texts = std::vector<std::u16string>;

class LauncherFilesTest : public ::testing::Test {
protected:
    /// What the system is asked for.
    Texts Asked(std::u16string_view path) {
        system.log.clear();
        files.FileExists(path);
        return system.log;
    }

    FakeFileSystem system;
    LauncherFiles files{system, TestProgram()};
};

TEST_F(LauncherFilesTest, RelativePathsBeginInTheLaunchersFolder) {
    EXPECT_EQ(Asked(u"Daten\\x.mdb"), Texts{u"exists C:\\Prog\\Daten\\x.mdb"});
    EXPECT_EQ(Asked(u"..\\x.mdb"), Texts{u"exists C:\\Prog\\..\\x.mdb"});
    EXPECT_EQ(Asked(u"c:x.mdb"), Texts{u"exists C:\\Prog\\x.mdb"});
    EXPECT_EQ(Asked(u"\\x.mdb"), Texts{u"exists C:\\x.mdb"});
    EXPECT_EQ(Asked(u"/x.mdb"), Texts{u"exists C:\\x.mdb"});
    EXPECT_EQ(Asked(u"D:x.mdb"), Texts{u"exists D:\\x.mdb"});
}

TEST_F(LauncherFilesTest, OtherPathsAreAskedForAsTheyAre) {
    for (const std::u16string_view path :
         {u"C:\\x\\..\\y.mdb", u"\\\\srv\\daten\\x.mdb", u"//srv/daten/x.mdb", u"\\\\?\\C:\\x.mdb",
          u"\\\\.\\NUL", u""}) {
        EXPECT_EQ(Asked(path), Texts{u"exists " + std::u16string(path)});
    }
}

TEST_F(LauncherFilesTest, EachPathIsAskedForOnce) {
    system.AddFile(u"C:\\Prog\\x.mdb");
    EXPECT_TRUE(files.FileExists(u"x.mdb"));
    EXPECT_FALSE(files.FileExists(u"y.mdb"));
    system.log.clear();
    EXPECT_TRUE(files.FileExists(u"x.mdb"));
    EXPECT_FALSE(files.FileExists(u"y.mdb"));
    EXPECT_TRUE(system.log.empty());
}

TEST_F(LauncherFilesTest, LauncherIsThereThoughItDoesNotExistYet) {
    EXPECT_TRUE(files.FileExists(u"C:\\Prog\\Start.exe"));
    EXPECT_TRUE(files.FileExists(u".\\START.EXE"));
    EXPECT_FALSE(files.FileExists(u"Start.exe\\"));
    EXPECT_FALSE(files.FileExists(u"C:\\Prog\\Start.mdb"));
}

TEST_F(LauncherFilesTest, NothingIsWritten) {
    EXPECT_TRUE(files.Append(u"x.log", "x"));
    EXPECT_TRUE(files.Write(u"x.err", "x", true));
    EXPECT_TRUE(system.log.empty());
}

}  // namespace
}  // namespace tarvex
