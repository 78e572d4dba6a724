#include "platform/win32/SystemFile.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/WindowsApi.h"
#include "tests/platform/RealFilesContract.h"

namespace tarvex {

namespace {

using Win32World = RealWorld<Win32FileStore>;

}  // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Win32, BinaryFilesContract, Win32World);
INSTANTIATE_TYPED_TEST_SUITE_P(Win32, RealFilesContract, Win32FileStore);

namespace {

TEST(Win32FileStoreTest, ReadOnlyFileIsRefused) {
    Win32World world;
    world.MakeFile(u"a.exe", "alt");
    if (!world.MakeReadOnly(u"a.exe")) {
        GTEST_SKIP() << "this user may write to read-only files";
    }
    EXPECT_EQ(ProblemOf([&] { world.files().Open(world.Path(u"a.exe")); }),
              FileProblem::AccessDenied);
}

TEST(Win32FileStoreTest, DeviceIsRefused) {
    EXPECT_EQ(ProblemOf([] { Win32FileStore().Open(u"NUL"); }), FileProblem::NotAFile);
    EXPECT_EQ(ProblemOf([] { Win32FileStore().ReadAll(u"NUL"); }), FileProblem::NotAFile);
}

TEST(Win32FileStoreTest, OpenFileMayBeReadByOthers) {
    Win32World world;
    world.MakeFile(u"a.exe", "alt");
    const auto file = world.files().Open(world.Path(u"a.exe"));
    EXPECT_EQ(world.Bytes(u"a.exe"), "alt");
}

TEST(Win32FileStoreTest, SeekBeforeTheBeginningFails) {
    Win32World world;
    world.MakeFile(u"a.exe", "alt");
    const auto file = world.files().Open(world.Path(u"a.exe"));
    EXPECT_EQ(ProblemOf([&] { file->Seek(-1); }), FileProblem::Device);
}

TEST(Win32FileStoreTest, HiddenFileStaysHidden) {
    TestFolder folder;
    Win32FileStore store;
    folder.MakeFile(u"a.exe", "alt");
    const std::u16string path = folder.Path(u"a.exe");
    SetFileAttributesW(Wide(path), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
    store.ReplaceWith(store.WriteNewBeside(path, "neu"), path, {});
    EXPECT_EQ(folder.Bytes(u"a.exe"), "neu");
    EXPECT_EQ(GetFileAttributesW(Wide(path)) & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM),
              DWORD{FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM});
}

TEST(Win32FileStoreTest, FileOpenElsewhereIsNotReplaced) {
    Win32World world;
    Win32FileStore store;
    world.MakeFile(u"a.exe", "alt");
    const std::u16string path = world.Path(u"a.exe");
    const std::u16string temp = store.WriteNewBeside(path, "neu");
    {
        const auto open = world.files().Open(path);
        EXPECT_NE(ProblemOf([&] { store.ReplaceWith(temp, path, {}); }), std::nullopt);
    }
    EXPECT_EQ(world.Bytes(u"a.exe"), "alt");
    EXPECT_EQ(store.ReadAll(temp), "neu");
}

TEST(Win32FileFailureTest, CodesOfTheSystemBecomeProblems) {
    const auto problem = [](DWORD error) { return FileFailureOf(error).problem; };
    EXPECT_EQ(problem(ERROR_FILE_NOT_FOUND), FileProblem::NotFound);
    EXPECT_EQ(problem(ERROR_PATH_NOT_FOUND), FileProblem::PathNotFound);
    EXPECT_EQ(problem(ERROR_INVALID_NAME), FileProblem::PathNotFound);
    EXPECT_EQ(problem(ERROR_ACCESS_DENIED), FileProblem::AccessDenied);
    EXPECT_EQ(problem(ERROR_WRITE_PROTECT), FileProblem::ReadOnlyMedium);
    EXPECT_EQ(problem(ERROR_SHARING_VIOLATION), FileProblem::InUse);
    EXPECT_EQ(problem(ERROR_LOCK_VIOLATION), FileProblem::InUse);
    EXPECT_EQ(problem(ERROR_ALREADY_EXISTS), FileProblem::Exists);
    EXPECT_EQ(problem(ERROR_DISK_FULL), FileProblem::DiskFull);
    EXPECT_EQ(problem(ERROR_CRC), FileProblem::Device);
}

}  // namespace

}  // namespace tarvex
