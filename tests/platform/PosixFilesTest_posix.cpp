#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/posix/PosixFile.h"
#include "platform/posix/PosixFileStore.h"
#include "tests/platform/RealFilesContract.h"
#include "text/Text.h"

namespace tarvex {

namespace {

using PosixWorld = RealWorld<PosixFileStore>;

}  // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Posix, BinaryFilesContract, PosixWorld);
INSTANTIATE_TYPED_TEST_SUITE_P(Posix, RealFilesContract, PosixFileStore);

namespace {

std::string Utf8(const std::u16string& path) {
    return text::ToUtf8(path);
}

mode_t PermissionBits(const std::u16string& path) {
    struct stat status {};
    EXPECT_EQ(stat(Utf8(path).c_str(), &status), 0);
    return status.st_mode & 07777;
}

TEST(PosixFileStoreTest, PermissionBitsOfTheOldFileStay) {
    TestFolder folder;
    PosixFileStore store;
    folder.MakeFile(u"a.exe", "alt");
    const std::u16string path = folder.Path(u"a.exe");
    ASSERT_EQ(chmod(Utf8(path).c_str(), 0751), 0);
    store.ReplaceWith(store.WriteNewBeside(path, "neu"), path);
    EXPECT_EQ(folder.Bytes(u"a.exe"), "neu");
    EXPECT_EQ(PermissionBits(path), mode_t{0751});
}

TEST(PosixFileStoreTest, FileBehindALinkIsReplaced) {
    TestFolder folder;
    TestFolder elsewhere;
    PosixFileStore store;
    elsewhere.MakeFile(u"a.exe", "alt");
    const std::u16string link = folder.Path(u"link.exe");
    ASSERT_EQ(symlink(Utf8(elsewhere.Path(u"a.exe")).c_str(), Utf8(link).c_str()), 0);
    store.ReplaceWith(store.WriteNewBeside(link, "neu"), link);
    EXPECT_EQ(elsewhere.Bytes(u"a.exe"), "neu");
    EXPECT_EQ(elsewhere.Names(), std::vector<std::u16string>{u"a.exe"});
    struct stat status {};
    ASSERT_EQ(lstat(Utf8(link).c_str(), &status), 0);
    EXPECT_TRUE(S_ISLNK(status.st_mode));
}

TEST(PosixFileStoreTest, PipeIsRefusedAtOnce) {
    TestFolder folder;
    const std::u16string pipe = folder.Path(u"pipe");
    ASSERT_EQ(mkfifo(Utf8(pipe).c_str(), 0600), 0);
    PosixFileStore files;
    EXPECT_FALSE(files.FileExists(pipe));
    EXPECT_EQ(ProblemOf([&] { files.Open(pipe); }), FileProblem::AccessDenied);
    EXPECT_EQ(ProblemOf([&] { PosixFileStore().ReadAll(pipe); }), FileProblem::AccessDenied);
}

TEST(PosixFileStoreTest, FullDiskIsNamed) {
    EXPECT_EQ(PosixFailure(ENOSPC).problem, FileProblem::DiskFull);
    EXPECT_EQ(PosixFailure(EROFS).problem, FileProblem::AccessDenied);
    EXPECT_EQ(PosixFailure(EACCES).problem, FileProblem::AccessDenied);
    EXPECT_EQ(PosixFailure(ETXTBSY).problem, FileProblem::InUse);
    EXPECT_EQ(PosixFailure(ENOTDIR).problem, FileProblem::PathNotFound);
    EXPECT_EQ(PosixFailure(EIO).problem, FileProblem::Device);
}

TEST(PosixFileStoreTest, PathWithAZeroIsNoPath) {
    TestFolder folder;
    folder.MakeFile(u"a.exe", "x");
    std::u16string path = folder.Path(u"a.exe");
    path.push_back(u'\0');
    EXPECT_FALSE(PosixFileStore().FileExists(path));
    EXPECT_EQ(ProblemOf([&] { PosixFileStore().Open(path); }), FileProblem::PathNotFound);
}

}  // namespace

}  // namespace tarvex
