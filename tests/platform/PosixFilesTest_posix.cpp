#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>

#include "platform/posix/PosixFile.h"
#include "platform/posix/PosixFileStore.h"
#include "tests/platform/RealFilesContract.h"
#include "tests/support/ChildProcess_posix.h"
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
    store.ReplaceWith(store.WriteNewBeside(path, "neu"), path, {});
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
    store.ReplaceWith(store.WriteNewBeside(link, "neu"), link, {});
    EXPECT_EQ(elsewhere.Bytes(u"a.exe"), "neu");
    EXPECT_EQ(elsewhere.Names(), std::vector<std::u16string>{u"a.exe"});
    struct stat status {};
    ASSERT_EQ(lstat(Utf8(link).c_str(), &status), 0);
    EXPECT_TRUE(S_ISLNK(status.st_mode));
}

TEST(PosixFileStoreTest, NewFileIsItsOwnersUntilItIsInItsPlace) {
    TestFolder folder;
    PosixFileStore store;
    const mode_t withheld = umask(022);
    folder.MakeFile(u"a.exe", "alt");
    const std::u16string path = folder.Path(u"a.exe");
    const std::u16string temp = store.WriteNewBeside(path, "neu");
    EXPECT_EQ(PermissionBits(temp), mode_t{0600});
    store.ReplaceWith(temp, path, {});
    EXPECT_EQ(PermissionBits(path), mode_t{0644});
    umask(withheld);
}

TEST(PosixFileStoreTest, FinishedFileGetsTheAccessThatWasAskedFor) {
    TestFolder folder;
    PosixFileStore store;
    const mode_t withheld = umask(027);
    folder.MakeFile(u"muster.exe", "x");
    const std::u16string model = folder.Path(u"muster.exe");
    ASSERT_EQ(chmod(Utf8(model).c_str(), 0705), 0);
    const auto bits = [&](std::u16string_view name, const FileAccess& access, bool replace) {
        const std::u16string path = folder.Path(name);
        const std::u16string temp = store.WriteNewBeside(path, "neu");
        if (replace) {
            store.ReplaceWith(temp, path, access);
        } else {
            store.PlaceNew(temp, path, access);
        }
        return PermissionBits(path);
    };
    EXPECT_EQ(bits(u"a", {}, false), mode_t{0640});
    EXPECT_EQ(bits(u"b", {.model = model}, false), mode_t{0705});
    EXPECT_EQ(bits(u"c", {.ownerOnly = true, .model = model}, false), mode_t{0600});
    EXPECT_EQ(bits(u"d", {.model = model}, true), mode_t{0705});
    EXPECT_EQ(bits(u"a", {.model = model}, true), mode_t{0640});
    EXPECT_EQ(bits(u"a", {.ownerOnly = true}, true), mode_t{0600});
    umask(withheld);
}

TEST(PosixFileStoreTest, OwnerOfTheOldFileStays) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only the superuser can give files away";
    }
    TestFolder folder;
    PosixFileStore store;
    folder.MakeFile(u"a.exe", "alt");
    const std::u16string path = folder.Path(u"a.exe");
    ASSERT_EQ(chown(Utf8(path).c_str(), 4711, 4712), 0);
    ASSERT_EQ(chmod(Utf8(path).c_str(), 0666), 0);
    EXPECT_TRUE(store.ReplaceWith(store.WriteNewBeside(path, "neu"), path, {}));
    struct stat status {};
    ASSERT_EQ(stat(Utf8(path).c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, uid_t{4711});
    EXPECT_EQ(status.st_gid, gid_t{4712});
}

TEST(PosixFileStoreTest, OwnerThatCannotBeKeptIsTold) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only the superuser can make such a file";
    }
    TestFolder folder;
    folder.MakeFile(u"a.exe", "alt");
    const std::u16string path = folder.Path(u"a.exe");
    ASSERT_EQ(chmod(Utf8(path).c_str(), 0666), 0);
    ASSERT_EQ(chmod(Utf8(folder.Path()).c_str(), 0777), 0);
    const int status = StatusOfProcess([&] {
        PosixFileStore store;
        if (setgid(4712) != 0 || setuid(4711) != 0) {
            return 2;
        }
        return store.ReplaceWith(store.WriteNewBeside(path, "neu"), path, {}) ? 1 : 0;
    });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(folder.Bytes(u"a.exe"), "neu");
}

TEST(PosixFileStoreTest, ProgramThatRunsIsInUse) {
    TestFolder folder;
    PosixFileStore store;
    const std::u16string path = folder.Path(u"laeuft");
    std::filesystem::copy_file("/bin/sleep", Utf8(path));
    const pid_t child = fork();
    if (child == 0) {
        execl(Utf8(path).c_str(), "sleep", "60", nullptr);
        _exit(127);
    }
    // It runs when the system calls it by its name.
    const std::string name = "/proc/" + std::to_string(child) + "/comm";
    std::string command;
    for (int i = 0; i < 500 && command != "laeuft"; ++i) {
        std::ifstream(name) >> command;
        usleep(10'000);
    }
    EXPECT_EQ(ProblemOf([&] { store.Lock(path, std::chrono::seconds(1)); }), FileProblem::InUse);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    EXPECT_EQ(ProblemOf([&] { store.Lock(path, std::chrono::seconds(1)); }), std::nullopt);
}

TEST(PosixFileStoreTest, LockIsOfTheFileThatHasTheNameNow) {
    TestFolder folder;
    PosixFileStore store;
    folder.MakeFile(u"a.exe", "0");
    const std::u16string path = folder.Path(u"a.exe");
    constexpr int kProcesses = 4;
    constexpr int kRounds = 25;
    std::vector<pid_t> children;
    for (int i = 0; i < kProcesses; ++i) {
        children.push_back(fork());
        if (children.back() == 0) {
            for (int round = 0; round < kRounds; ++round) {
                const auto lock = store.Lock(path, std::chrono::seconds(60));
                const std::string next = std::to_string(std::stoi(store.ReadAll(path)) + 1);
                store.ReplaceWith(store.WriteNewBeside(path, next), path, {});
            }
            _exit(0);
        }
    }
    for (const pid_t child : children) {
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    EXPECT_EQ(folder.Bytes(u"a.exe"), std::to_string(kProcesses * kRounds));
}

TEST(PosixFileStoreTest, NameThatIsNotUtf8IsReached) {
    TestFolder folder;
    PosixFileStore store;
    const std::string bytes = Utf8(folder.Path()) +
                              "/Gr\xF6\xDF"
                              "e \xC3\xB6\xED\xA0\x80.exe";
    std::ofstream(bytes) << "alt";
    const std::u16string path = PosixText(bytes);
    EXPECT_EQ(path, folder.Path(u"Gr\xDCF6\xDCDF"
                                u"e ö\xDCED\xDCA0\xDC80.exe"));
    EXPECT_EQ(PosixPath(path), bytes);
    EXPECT_EQ(text::ToUtf8(path), Utf8(folder.Path()) + "/Gr\uFFFD\uFFFDe ö\uFFFD\uFFFD\uFFFD.exe");
    EXPECT_EQ(store.ReadAll(path), "alt");
    store.ReplaceWith(store.WriteNewBeside(path, "neu"), path, {});
    std::string content;
    std::ifstream(bytes) >> content;
    EXPECT_EQ(content, "neu");
}

TEST(PosixFileStoreTest, FolderWhoseNameIsNotUtf8TakesNewFiles) {
    TestFolder folder;
    PosixFileStore store;
    const std::string inside = Utf8(folder.Path()) + "/\xE4";
    ASSERT_EQ(mkdir(inside.c_str(), 0777), 0);
    const std::u16string path = PosixText(inside + "/a.exe");
    store.PlaceNew(store.WriteNewBeside(path, "neu"), path, {});
    EXPECT_EQ(store.ReadAll(path), "neu");
}

TEST(PosixFileStoreTest, NamesInUtf8StayWhatTheyAre) {
    for (const std::u16string_view name : {u"a", u"Größe Ω", u"\xD83D\xDCA9", u"\xFFFD"}) {
        EXPECT_EQ(PosixText(text::ToUtf8(name)), name);
        EXPECT_EQ(PosixPath(name), text::ToUtf8(name));
    }
}

TEST(PosixFileStoreTest, CodesOfTheSystemBecomeProblems) {
    EXPECT_EQ(PosixFailure(ENOSPC).problem, FileProblem::DiskFull);
    EXPECT_EQ(PosixFailure(EROFS).problem, FileProblem::ReadOnlyMedium);
    EXPECT_EQ(PosixFailure(EACCES).problem, FileProblem::AccessDenied);
    EXPECT_EQ(PosixFailure(ETXTBSY).problem, FileProblem::InUse);
    EXPECT_EQ(PosixFailure(ENOTDIR).problem, FileProblem::PathNotFound);
    EXPECT_EQ(PosixFailure(EISDIR).problem, FileProblem::IsFolder);
    EXPECT_EQ(PosixFailure(ENXIO).problem, FileProblem::NotAFile);
    EXPECT_EQ(PosixFailure(EEXIST).problem, FileProblem::Exists);
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
