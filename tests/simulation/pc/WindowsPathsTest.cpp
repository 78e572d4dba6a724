#include "simulation/pc/WindowsPaths.h"

#include <gtest/gtest.h>

#include "text/Text.h"

namespace tarvex {
namespace {

struct Row {
    std::u16string_view path;
    std::u16string_view full;
};

void ExpectFull(std::initializer_list<Row> rows, std::u16string_view current = u"C:\\Kunden\\Ab") {
    for (const Row& row : rows) {
        EXPECT_EQ(FullWindowsPath(row.path, current), row.full) << text::ToUtf8(row.path);
    }
}

TEST(WindowsPathsTest, FullPathsStayAsTheyAre) {
    ExpectFull({{u"C:\\x\\y.mdb", u"C:\\x\\y.mdb"},
                {u"\\\\srv\\daten\\x\\y.mdb", u"\\\\srv\\daten\\x\\y.mdb"},
                {u"C:\\", u"C:\\"},
                {u"\\\\srv\\daten", u"\\\\srv\\daten"}});
}

TEST(WindowsPathsTest, SlashesAndSurplusSeparatorsAreOneSeparator) {
    ExpectFull({{u"C:/x//y.mdb", u"C:\\x\\y.mdb"},
                {u"C:\\\\x\\\\\\y.mdb", u"C:\\x\\y.mdb"},
                {u"//srv/daten//y.mdb", u"\\\\srv\\daten\\y.mdb"},
                {u"C:\\x\\", u"C:\\x"}});
}

TEST(WindowsPathsTest, DotsAreResolvedAndNeverLeadAboveTheRoot) {
    ExpectFull({{u"C:\\x\\.\\y\\..\\z", u"C:\\x\\z"},
                {u"C:\\..\\..\\x", u"C:\\x"},
                {u"\\\\srv\\daten\\..\\x", u"\\\\srv\\daten\\x"},
                {u"..\\x.mdb", u"C:\\Kunden\\x.mdb"},
                {u"C:\\x\\..", u"C:\\"}});
}

TEST(WindowsPathsTest, DotsAndBlanksAtTheEndAreLost) {
    ExpectFull({{u"C:\\x\\y.mdb. . ", u"C:\\x\\y.mdb"},
                {u"C:\\x.\\y.mdb", u"C:\\x\\y.mdb"},
                {u"C:\\x \\y.mdb", u"C:\\x \\y.mdb"},
                {u"C:\\x..\\y.mdb", u"C:\\x.\\y.mdb"},
                {u"C:\\...\\y.mdb", u"C:\\...\\y.mdb"},
                {u"C:\\x. \\.", u"C:\\x"},
                {u" x.mdb", u"C:\\Kunden\\Ab\\ x.mdb"}});
}

TEST(WindowsPathsTest, RelativePathsStartAtTheCurrentFolder) {
    ExpectFull({{u"x.mdb", u"C:\\Kunden\\Ab\\x.mdb"},
                {u".\\x.mdb", u"C:\\Kunden\\Ab\\x.mdb"},
                {u"c:x.mdb", u"C:\\Kunden\\Ab\\x.mdb"},
                {u"D:x.mdb", u"D:\\x.mdb"},
                {u"\\x.mdb", u"C:\\x.mdb"},
                {u"/x.mdb", u"C:\\x.mdb"}});
    ExpectFull({{u"x.mdb", u"\\\\srv\\daten\\a\\x.mdb"}, {u"\\x.mdb", u"\\\\srv\\daten\\x.mdb"}},
               u"\\\\srv\\daten\\a");
    ExpectFull({{u"x.mdb", u"C:\\x.mdb"}, {u"\\x.mdb", u"C:\\x.mdb"}}, u"C:\\");
}

TEST(WindowsPathsTest, VerbatimPathsAreNotChanged) {
    ExpectFull({{u"\\\\?\\C:\\x\\y.mdb", u"C:\\x\\y.mdb"},
                {u"\\\\?\\C:\\x.\\y ", u"C:\\x.\\y "},
                {u"\\\\?\\UNC\\srv\\daten\\y.mdb", u"\\\\srv\\daten\\y.mdb"}});
    EXPECT_EQ(FullWindowsPath(u"\\\\?\\C:\\x/y", u"C:\\"), std::nullopt);
    EXPECT_EQ(FullWindowsPath(u"\\\\?\\", u"C:\\"), std::nullopt);
}

TEST(WindowsPathsTest, PathThatCanNameNothingIsNone) {
    for (const std::u16string_view path :
         {u"", u"C:\\*.mdb", u"C:\\x?.mdb", u"\"C:\\x.mdb\"", u"C:\\a<b", u"C:\\a>b", u"C:\\a|b",
          u"C:\\a\tb", u"1:\\x.mdb", u"C:\\x.mdb:strom", u"\\\\.\\C:", u"\\\\", u"\\\\srv",
          u"\\\\srv\\", u"C:\\x\\NUL", u"C:\\x\\nul.txt", u"com1", u"C:\\x\\LPT9 .mdb", u"con"}) {
        EXPECT_EQ(FullWindowsPath(path, u"C:\\Kunden"), std::nullopt) << text::ToUtf8(path);
    }
    EXPECT_EQ(FullWindowsPath(std::u16string_view(u"C:\\a\0b", 6), u"C:\\"), std::nullopt);
    ExpectFull({{u"C:\\com10", u"C:\\com10"}, {u"C:\\nul\\x", u"C:\\nul\\x"}});
}

TEST(WindowsPathsTest, PathsWithDriveOrServerAreFull) {
    EXPECT_TRUE(IsFullWindowsPath(u"C:\\x"));
    EXPECT_TRUE(IsFullWindowsPath(u"d:/x"));
    EXPECT_TRUE(IsFullWindowsPath(u"\\\\srv\\x"));
    for (const std::u16string_view path : {u"C:x", u"\\x", u"x", u"", u"C:", u"1:\\x"}) {
        EXPECT_FALSE(IsFullWindowsPath(path)) << text::ToUtf8(path);
    }
}

TEST(WindowsPathsTest, BelowSystem32A32BitProgramSeesSysWow64) {
    const Row table[] = {
        {u"C:\\Windows\\System32\\x.dll", u"C:\\Windows\\SysWOW64\\x.dll"},
        {u"c:\\WINDOWS\\system32", u"c:\\WINDOWS\\SysWOW64"},
        {u"C:\\Windows\\System32\\drivers\\x.sys", u"C:\\Windows\\SysWOW64\\drivers\\x.sys"},
        {u"C:\\Windows\\System32\\drivers\\etc\\hosts",
         u"C:\\Windows\\System32\\drivers\\etc\\hosts"},
        {u"C:\\Windows\\System32\\spool\\x", u"C:\\Windows\\System32\\spool\\x"},
        {u"C:\\Windows\\Sysnative\\x.dll", u"C:\\Windows\\System32\\x.dll"},
        {u"C:\\Windows\\System32x\\x.dll", u"C:\\Windows\\System32x\\x.dll"},
        {u"C:\\Windows", u"C:\\Windows"},
        {u"C:\\x\\Windows\\System32\\x", u"C:\\x\\Windows\\System32\\x"},
        {u"\\\\srv\\Windows\\System32\\x", u"\\\\srv\\Windows\\System32\\x"},
    };
    for (const Row& row : table) {
        EXPECT_EQ(PathOf32BitProgram(row.path, {10, 0}), row.full) << text::ToUtf8(row.path);
    }
    EXPECT_EQ(PathOf32BitProgram(u"C:\\Windows\\Sysnative\\x", {5, 2}),
              u"C:\\Windows\\Sysnative\\x");
}

TEST(WindowsPathsTest, ShortNamesAreKnownByTheirForm) {
    EXPECT_TRUE(HasShortName(u"C:\\PROGRA~1\\x.exe"));
    EXPECT_TRUE(HasShortName(u"C:\\x\\KUNDE~12.MDB"));
    for (const std::u16string_view path :
         {u"C:\\a~b", u"C:\\~x", u"C:\\Backup~1 von heute.mdb", u"C:\\KUNDEN~1.accdb", u"C:\\x"}) {
        EXPECT_FALSE(HasShortName(path)) << text::ToUtf8(path);
    }
}

}  // namespace
}  // namespace tarvex
