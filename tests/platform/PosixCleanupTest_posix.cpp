#include "platform/posix/PosixCleanup.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>

#include "platform/posix/PosixFile.h"
#include "platform/posix/PosixFileStore.h"
#include "tests/support/ChildProcess_posix.h"
#include "tests/support/TestFolder.h"

namespace tarvex {

namespace {

using Names = std::vector<std::u16string>;

class InterruptionTest : public testing::TestWithParam<int> {
protected:
    InterruptionTest() { folder_.MakeFile(u"a.exe", "alt"); }

    std::u16string Target() const { return folder_.Path(u"a.exe"); }

    TestFolder folder_;
};

TEST_P(InterruptionTest, DeletesTheTemporaryFilesAndEndsTheProgramAsTheSignalDoes) {
    const int status = StatusOfProcess([this] {
        // Whoever runs the tests may have it ignored.
        std::signal(GetParam(), SIG_DFL);
        PreparePosixProgram();
        PosixFileStore store;
        store.WriteNewBeside(Target(), "neu");
        store.WriteNewBeside(Target(), "neuer");
        raise(GetParam());
        return 0;
    });
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), GetParam());
    EXPECT_EQ(folder_.Names(), Names{u"a.exe"});
    EXPECT_EQ(folder_.Bytes(u"a.exe"), "alt");
}

TEST_P(InterruptionTest, LeavesWhatIsInItsPlace) {
    StatusOfProcess([this] {
        std::signal(GetParam(), SIG_DFL);
        PreparePosixProgram();
        PosixFileStore store;
        store.PlaceNew(store.WriteNewBeside(Target(), "neu"), folder_.Path(u"b.exe"), {});
        const std::u16string temp = store.WriteNewBeside(Target(), "neu");
        store.Remove(temp);
        // Its name is free for others.
        folder_.MakeFile(temp.substr(folder_.Path().size() + 1), "von anderen");
        raise(GetParam());
        return 0;
    });
    EXPECT_EQ(folder_.Names().size(), 3u);
    EXPECT_EQ(folder_.Bytes(u"b.exe"), "neu");
}

TEST_P(InterruptionTest, ThatIsIgnoredStaysIgnored) {
    const int status = StatusOfProcess([this] {
        std::signal(GetParam(), SIG_IGN);
        PreparePosixProgram();
        raise(GetParam());
        return 7;
    });
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 7);
}

INSTANTIATE_TEST_SUITE_P(Signals, InterruptionTest,
                         testing::Values(SIGINT, SIGTERM, SIGHUP, SIGQUIT));

TEST(PosixProgramTest, ClosedStandardFilesAreNoFilesThatAreOpenedLater) {
    TestFolder folder;
    folder.MakeFile(u"a.exe", "alt");
    const int status = StatusOfProcess([&folder] {
        close(STDIN_FILENO);
        close(STDOUT_FILENO);
        PreparePosixProgram();
        const PosixFile file(PosixPath(folder.Path(u"a.exe")), O_RDWR);
        char byte = 0;
        const bool unusable = write(STDOUT_FILENO, "x", 1) < 0 && read(STDIN_FILENO, &byte, 1) < 0;
        return file.Get() > STDERR_FILENO && unusable ? 0 : 1;
    });
    EXPECT_EQ(status, 0);
}

}  // namespace

}  // namespace tarvex
