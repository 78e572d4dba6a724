#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>

#include "platform/posix/PosixFile.h"
#include "platform/posix/PosixFileStore.h"
#include "tests/platform/BinaryFilesContract.h"
#include "tests/support/TestFolder.h"

namespace tarvex {

namespace {

/// A name of each kind that is no regular file, and how it is answered.
struct NastyFile {
    const char* name;
    void (*make)(const std::string& path);
    FileEntry entry;
    FileProblem reading;
    FileProblem replacing;
};

void MakeSocket(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(path.size(), sizeof address.sun_path);
    std::memcpy(address.sun_path, path.data(), path.size());
    const int socketFile = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(socketFile, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    close(socketFile);
}

const NastyFile kNastyFiles[] = {
    {"Pipe",
     [](const std::string& path) { ASSERT_EQ(mkfifo(path.c_str(), 0666), 0); },
     {FileKind::Other, false},
     FileProblem::NotAFile,
     FileProblem::NotAFile},
    {"Socket", MakeSocket, {FileKind::Other, false}, FileProblem::NotAFile, FileProblem::NotAFile},
    {"Device",
     [](const std::string& path) { ASSERT_EQ(symlink("/dev/null", path.c_str()), 0); },
     {FileKind::Other, true},
     FileProblem::NotAFile,
     FileProblem::NotAFile},
    {"Folder",
     [](const std::string& path) { ASSERT_EQ(mkdir(path.c_str(), 0777), 0); },
     {FileKind::Folder, false},
     FileProblem::IsFolder,
     FileProblem::IsFolder},
    {"LinkToAFolder",
     [](const std::string& path) { ASSERT_EQ(symlink(".", path.c_str()), 0); },
     {FileKind::Folder, true},
     FileProblem::IsFolder,
     FileProblem::IsFolder},
    {"LinkToNothing",
     [](const std::string& path) { ASSERT_EQ(symlink("fehlt.exe", path.c_str()), 0); },
     {FileKind::None, true},
     FileProblem::NotFound,
     FileProblem::NotFound},
    {"LinkToItself",
     [](const std::string& path) { ASSERT_EQ(symlink(path.c_str(), path.c_str()), 0); },
     {FileKind::None, true},
     FileProblem::PathNotFound,
     FileProblem::NotFound},
};

class NastyFileTest : public testing::TestWithParam<NastyFile> {
protected:
    TestFolder folder_;
    PosixFileStore store_;
};

TEST_P(NastyFileTest, IsDescribedAndNeitherReadNorReplacedNorTakenForNothing) {
    const std::u16string path = folder_.Path(u"x.exe");
    GetParam().make(PosixPath(path));
    const std::vector<std::u16string> before = folder_.Names();
    const FileEntry entry = store_.Describe(path);
    EXPECT_EQ(entry.kind, GetParam().entry.kind);
    EXPECT_EQ(entry.isLink, GetParam().entry.isLink);
    EXPECT_FALSE(store_.FileExists(path));
    EXPECT_EQ(ProblemOf([&] { store_.ReadAll(path); }), GetParam().reading);
    EXPECT_EQ(ProblemOf([&] { store_.Open(path); }), GetParam().reading);
    EXPECT_EQ(ProblemOf([&] { store_.Lock(path, std::chrono::seconds(1)); }), GetParam().replacing);
    const std::u16string temp = store_.WriteNewBeside(folder_.Path(u"neu.exe"), "neu");
    EXPECT_EQ(ProblemOf([&] { store_.ReplaceWith(temp, path, {}); }), GetParam().replacing);
    EXPECT_EQ(ProblemOf([&] { store_.PlaceNew(temp, path, {}); }), FileProblem::Exists);
    store_.Remove(temp);
    EXPECT_EQ(folder_.Names(), before);
    EXPECT_EQ(store_.Describe(path).kind, GetParam().entry.kind);
}

INSTANTIATE_TEST_SUITE_P(Kinds, NastyFileTest, testing::ValuesIn(kNastyFiles),
                         [](const auto& kind) { return std::string(kind.param.name); });

TEST(PosixFileStoreTest, LinkToAFileStandsForTheFile) {
    TestFolder folder;
    PosixFileStore store;
    folder.MakeFile(u"a.exe", "alt");
    const std::u16string link = folder.Path(u"link.exe");
    ASSERT_EQ(symlink("a.exe", PosixPath(link).c_str()), 0);
    EXPECT_EQ(store.Describe(link).kind, FileKind::Regular);
    EXPECT_TRUE(store.Describe(link).isLink);
    EXPECT_TRUE(store.IsSameFile(link, folder.Path(u"a.exe")));
}

TEST(PosixFileStoreTest, HardLinksAreCountedAndOneFile) {
    TestFolder folder;
    PosixFileStore store;
    folder.MakeFile(u"a.exe", "alt");
    ASSERT_EQ(
        link(PosixPath(folder.Path(u"a.exe")).c_str(), PosixPath(folder.Path(u"b.exe")).c_str()),
        0);
    EXPECT_EQ(store.Describe(folder.Path(u"a.exe")).names, 2u);
    EXPECT_TRUE(store.IsSameFile(folder.Path(u"a.exe"), folder.Path(u"b.exe")));
}

}  // namespace

}  // namespace tarvex
