#include "window/files/RecentFiles.h"

#include <gtest/gtest.h>

#include "tests/support/FakeUserSettings.h"
#include "text/Text.h"

namespace tarvex {
namespace {

using Paths = std::vector<std::u16string>;

class RecentFilesTest : public testing::Test {
protected:
    FakeUserSettings settings_;
    RecentFiles files_{settings_};
};

TEST_F(RecentFilesTest, LastOneComesFirst) {
    files_.Add(u"C:\\A.exe");
    files_.Add(u"C:\\B.exe");
    EXPECT_EQ(files_.Paths(), Paths({u"C:\\B.exe", u"C:\\A.exe"}));
}

TEST_F(RecentFilesTest, SameFileInOtherCaseMovesToTheFront) {
    files_.Add(u"C:\\A.exe");
    files_.Add(u"C:\\B.exe");
    files_.Add(u"c:\\a.EXE");
    EXPECT_EQ(files_.Paths(), Paths({u"c:\\a.EXE", u"C:\\B.exe"}));
}

TEST_F(RecentFilesTest, NinthOneIsForgotten) {
    for (std::int64_t i = 1; i <= 9; ++i) {
        files_.Add(text::Decimal(i));
    }
    EXPECT_EQ(files_.Paths(), Paths({u"9", u"8", u"7", u"6", u"5", u"4", u"3", u"2"}));
}

TEST_F(RecentFilesTest, RemovedOneIsForgotten) {
    files_.Add(u"C:\\A.exe");
    files_.Add(u"C:\\B.exe");
    files_.Remove(u"C:\\b.exe");
    EXPECT_EQ(files_.Paths(), Paths({u"C:\\A.exe"}));
    EXPECT_EQ(settings_.texts.size(), 1U);
}

}  // namespace
}  // namespace tarvex
