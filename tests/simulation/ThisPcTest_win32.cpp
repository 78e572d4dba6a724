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

TEST_F(ThisPcTest, FullPathIsThatOfTheSystem) {
    EXPECT_EQ(pc->FullPath(u"C:\\a\\..\\b.txt"), u"C:\\b.txt");
    EXPECT_EQ(pc->FullPath(u""), u"");
}

TEST_F(ThisPcTest, FilesAreThoseOfTheSystem) {
    const TestFolder folder;
    folder.MakeFile(u"a.txt", "x");
    EXPECT_TRUE(pc->Files().FileExists(folder.Path(u"a.txt")));
    EXPECT_FALSE(pc->Files().FileExists(folder.Path(u"b.txt")));
}

}  // namespace
}  // namespace tarvex
