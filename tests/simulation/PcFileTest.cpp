#include "simulation/PcFile.h"

#include <gtest/gtest.h>

#include "tests/support/FakeBinaryFiles.h"
#include "tests/support/FakeFileStore.h"

namespace tarvex {
namespace {

TEST(PcFileTest, FileThatIsMissingIsAProblem) {
    FakeBinaryFiles files;
    FakeFileStore store{files};
    EXPECT_FALSE(ReadPcFile(store, u"a.pc").file);
}

}  // namespace
}  // namespace tarvex
