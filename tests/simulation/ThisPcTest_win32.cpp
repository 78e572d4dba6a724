#include "simulation/ThisPc.h"

#include <gtest/gtest.h>

#include "platform/win32/WindowsApi.h"
#include "tests/support/TestFolder.h"

namespace tarvex {
namespace {

class ThisPcTest : public testing::Test {
protected:
    std::unique_ptr<ThisPc> pc = OpenThisPc();
};

TEST_F(ThisPcTest, CodePageIsThatOfTheSystem) {
    EXPECT_EQ(pc->CodePage(), static_cast<std::int32_t>(GetACP()));
    EXPECT_EQ(pc->Codec().FromAnsi("a"), u"a");
}

TEST_F(ThisPcTest, VersionIsThatOfTheSystem) {
    EXPECT_FALSE(pc->Version().IsBefore({5, 1}));
}

TEST_F(ThisPcTest, RelativePathsBeginInTheFolderThatWasEntered) {
    TestFolder folder;
    const std::u16string before = pc->FullPath(u".");
    folder.MakeFile(u"a.txt", "x");
    ASSERT_TRUE(pc->Enter(folder.Path()));
    EXPECT_TRUE(pc->Files().FileExists(u"a.txt"));
    EXPECT_TRUE(pc->FullPath(u"b\\..\\a.txt").ends_with(u"\\a.txt"));
    EXPECT_TRUE(pc->Files().FileExists(pc->FullPath(u"b\\..\\a.txt")));
    EXPECT_FALSE(pc->Enter(folder.Path(u"fehlt")));
    EXPECT_TRUE(pc->Enter(before));
}

}  // namespace
}  // namespace tarvex
