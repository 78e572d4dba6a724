#include "simulation/pc/DescribedFiles.h"

#include <gtest/gtest.h>

#include "tests/simulation/pc/PcListenerLog.h"
#include "text/Text.h"

namespace tarvex {
namespace {

using Texts = std::vector<std::u16string>;

class DescribedFilesTest : public testing::Test {
protected:
    DescribedFilesTest() { description.program = u"C:\\Kunden\\Kunden.exe"; }

    bool Exists(std::u16string_view path) {
        DescribedFiles files(description);
        files.listener = &log_;
        log_.lines.clear();
        return files.FileExists(path);
    }
    /// What the listener is told of a question for the path.
    std::u16string Told(std::u16string_view path) {
        Exists(path);
        return log_.lines.size() == 1 ? log_.lines[0] : u"nothing";
    }

    PcDescription description;

private:
    PcListenerLog log_;
};

TEST_F(DescribedFilesTest, LauncherItselfIsThere) {
    EXPECT_TRUE(Exists(u"c:\\KUNDEN\\kunden.EXE"));
    EXPECT_EQ(Told(u"Kunden.exe"), u"+ C:\\Kunden\\Kunden.exe");
}

TEST_F(DescribedFilesTest, ListProvesPresenceOnly) {
    description.files = {u"C:\\Kunden\\Größe.mdb"};
    EXPECT_EQ(Told(u"C:\\Kunden\\GRÖßE.mdb"), u"+ C:\\Kunden\\GRÖßE.mdb");
    EXPECT_EQ(Told(u"C:\\Kunden\\x.mdb"), u"? C:\\Kunden\\x.mdb");
    EXPECT_FALSE(Exists(u"C:\\Kunden\\x.mdb"));
}

TEST_F(DescribedFilesTest, PathsAreReadAsWindowsReadsThem) {
    description.files = {u"c:/kunden//daten/./x.mdb", u"D:\\y.mdb", u"\\z.mdb", u"C:Hier.mdb"};
    description.currentFolder = u"C:\\Start";
    EXPECT_TRUE(Exists(u"C:\\Kunden\\alt\\..\\Daten\\X.MDB. "));
    EXPECT_TRUE(Exists(u"D:y.mdb"));
    EXPECT_TRUE(Exists(u"C:\\z.mdb"));
    EXPECT_TRUE(Exists(u"Hier.mdb"));
    EXPECT_TRUE(Exists(u"C:\\Start\\Hier.mdb"));
    EXPECT_TRUE(Exists(u"\\\\?\\D:\\y.mdb"));
    EXPECT_FALSE(Exists(u"Kunden.exe"));
}

TEST_F(DescribedFilesTest, NetworkPathsArePathsLikeOthers) {
    description.files = {u"\\\\srv\\daten\\x.mdb"};
    description.complete = {u"\\\\srv\\daten"};
    EXPECT_TRUE(Exists(u"//SRV/Daten/x.mdb"));
    EXPECT_EQ(Told(u"\\\\srv\\daten\\y.mdb"), u"- \\\\srv\\daten\\y.mdb");
    EXPECT_EQ(Told(u"\\\\srv\\datenx\\y.mdb"), u"? \\\\srv\\datenx\\y.mdb");
}

TEST_F(DescribedFilesTest, FolderIsNoFile) {
    description.files = {u"C:\\A\\B\\x.mdb", u"C:\\A\\B", u"C:\\Leer\\", u"C:\\Leer2/"};
    for (const std::u16string_view folder :
         {u"C:\\A", u"C:\\A\\B", u"C:\\Leer", u"C:\\Leer2", u"C:\\"}) {
        EXPECT_FALSE(Exists(folder)) << text::ToUtf8(folder);
    }
    EXPECT_EQ(Told(u"C:\\A\\B"), u"- C:\\A\\B");
}

TEST_F(DescribedFilesTest, FileIsNotFoundByWhatCanNameNoFile) {
    description.files = {u"C:\\x.mdb"};
    for (const std::u16string_view path :
         {u"", u"C:\\x.mdb\\", u"C:\\x.mdb/", u"C:\\*.mdb", u"C:\\?.mdb", u"\"C:\\x.mdb\"",
          u"C:\\nul", u"1:\\x.mdb"}) {
        EXPECT_FALSE(Exists(path)) << text::ToUtf8(path);
    }
    EXPECT_EQ(Told(u"C:\\*.mdb"), u"- C:\\*.mdb");
    EXPECT_EQ(Told(u"C:\\x.mdb\\"), u"- C:\\x.mdb");
    EXPECT_EQ(Told(u""), u"nothing");
}

TEST_F(DescribedFilesTest, MissingFileIsNotThereNorIsAnythingBelow) {
    description.files = {u"C:\\A\\x.mdb"};
    description.missing = {u"c:\\a\\X.mdb", u"D:\\"};
    EXPECT_EQ(Told(u"C:\\A\\x.mdb"), u"- C:\\A\\x.mdb");
    EXPECT_EQ(Told(u"D:\\y\\z.mdb"), u"- D:\\y\\z.mdb");
    EXPECT_EQ(Told(u"C:\\A\\x.mdbx"), u"? C:\\A\\x.mdbx");
}

TEST_F(DescribedFilesTest, CompleteFolderHasNothingThatIsNotDescribed) {
    description.files = {u"C:\\A\\x.mdb"};
    description.complete = {u"c:\\a\\"};
    EXPECT_TRUE(Exists(u"C:\\A\\x.mdb"));
    EXPECT_EQ(Told(u"C:\\A\\Tief\\y.mdb"), u"- C:\\A\\Tief\\y.mdb");
    EXPECT_EQ(Told(u"C:\\AB\\y.mdb"), u"? C:\\AB\\y.mdb");
    description.complete = {u"*"};
    EXPECT_EQ(Told(u"E:\\y.mdb"), u"- E:\\y.mdb");
}

TEST_F(DescribedFilesTest, ShortNameIsNotDescribedUnlessItIsListed) {
    description.complete = {u"*"};
    EXPECT_EQ(Told(u"C:\\PROGRA~1\\x.exe"), u"? C:\\PROGRA~1\\x.exe");
    description.files = {u"C:\\Progra~1\\x.exe"};
    EXPECT_EQ(Told(u"C:\\PROGRA~1\\x.exe"), u"+ C:\\PROGRA~1\\x.exe");
    description.missing = {u"C:\\Kunden~1.mdb"};
    EXPECT_EQ(Told(u"C:\\KUNDEN~1.MDB"), u"- C:\\KUNDEN~1.MDB");
}

TEST_F(DescribedFilesTest, BelowSystem32A32BitProgramSeesSysWow64) {
    description.files = {u"C:\\Windows\\System32\\x.mdw"};
    EXPECT_EQ(Told(u"C:\\Windows\\System32\\x.mdw"), u"? C:\\Windows\\SysWOW64\\x.mdw");
    EXPECT_TRUE(Exists(u"C:\\Windows\\Sysnative\\x.mdw"));
    description.is64Bit = false;
    EXPECT_TRUE(Exists(u"C:\\Windows\\System32\\x.mdw"));
}

TEST_F(DescribedFilesTest, WritingSucceedsAndLeavesNothing) {
    DescribedFiles files(description);
    EXPECT_TRUE(files.Append(u"C:\\Kunden\\Kunden.log", "x"));
    EXPECT_TRUE(files.Write(u"C:\\Kunden\\Kunden.err", "x", true));
    EXPECT_FALSE(files.FileExists(u"C:\\Kunden\\Kunden.log"));
    EXPECT_FALSE(files.FileExists(u"C:\\Kunden\\Kunden.err"));
}

}  // namespace
}  // namespace tarvex
