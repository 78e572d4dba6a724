#pragma once

#include "platform/FileStore.h"
#include "tests/platform/BinaryFilesContract.h"
#include "tests/support/TestFolder.h"

namespace tarvex {

/// The world of a BinaryFilesContract in a real folder.
template <class Store>
class RealWorld : public TestFolder {
public:
    BinaryFiles& files() { return store_; }

private:
    Store store_;
};

/// What a real system's FileStore does beyond the contracts of the fakes: two users of one file,
/// and replacing.
template <class Store>
class RealFilesContract : public testing::Test {
protected:
    using Names = std::vector<std::u16string>;

    TestFolder folder;
    Store store;
};

TYPED_TEST_SUITE_P(RealFilesContract);

TYPED_TEST_P(RealFilesContract, FileOpenElsewhereIsInUse) {
    this->folder.MakeFile(u"a.exe", "alt");
    const std::u16string path = this->folder.Path(u"a.exe");
    auto first = this->store.Open(path);
    EXPECT_EQ(ProblemOf([&] { this->store.Open(path); }), FileProblem::InUse);
    EXPECT_EQ(this->folder.Bytes(u"a.exe"), "alt");
    first.reset();
    EXPECT_EQ(ProblemOf([&] { this->store.Open(path); }), std::nullopt);
}

TYPED_TEST_P(RealFilesContract, MissingFolderIsAMissingPath) {
    // Windows takes this separator as well.
    const std::u16string inside = this->folder.Path(u"Fehlt/a.exe");
    EXPECT_EQ(ProblemOf([&] { this->store.Open(inside); }), FileProblem::PathNotFound);
    EXPECT_EQ(ProblemOf([&] { this->store.ReadAll(inside); }), FileProblem::PathNotFound);
    EXPECT_EQ(ProblemOf([&] { this->store.WriteNewBeside(inside, "x"); }),
              FileProblem::PathNotFound);
    EXPECT_EQ(ProblemOf([&] { this->store.Open(u""); }), FileProblem::PathNotFound);
}

TYPED_TEST_P(RealFilesContract, ReadAllGivesEveryByte) {
    std::string bytes(2'500'000, '\xFF');
    bytes[7] = '\0';
    this->folder.MakeFile(u"a.exe", bytes);
    this->folder.MakeFile(u"leer.exe", "");
    this->folder.MakeFolder(u"Ordner");
    EXPECT_TRUE(this->store.ReadAll(this->folder.Path(u"a.exe")) == bytes);
    EXPECT_EQ(this->store.ReadAll(this->folder.Path(u"leer.exe")), "");
    EXPECT_EQ(ProblemOf([&] { this->store.ReadAll(this->folder.Path(u"b.exe")); }),
              FileProblem::NotFound);
    EXPECT_EQ(ProblemOf([&] { this->store.ReadAll(this->folder.Path(u"Ordner")); }),
              FileProblem::AccessDenied);
}

TYPED_TEST_P(RealFilesContract, NewFileLiesBesideAndTheOldOneStays) {
    this->folder.MakeFile(u"Größe Ω.exe", "alt");
    const std::u16string path = this->folder.Path(u"Größe Ω.exe");
    const std::u16string first = this->store.WriteNewBeside(path, "neu");
    const std::u16string second = this->store.WriteNewBeside(path, "neuer");
    EXPECT_NE(first, second);
    EXPECT_EQ(this->store.ReadAll(first), "neu");
    EXPECT_EQ(this->store.ReadAll(second), "neuer");
    EXPECT_EQ(this->store.ReadAll(path), "alt");
    EXPECT_EQ(this->folder.Names().size(), 3u);
    this->store.Remove(first);
    this->store.Remove(second);
    EXPECT_EQ(this->folder.Names(), typename TestFixture::Names{u"Größe Ω.exe"});
}

TYPED_TEST_P(RealFilesContract, NewFileTakesThePlaceOfTheOldOne) {
    this->folder.MakeFile(u"Größe Ω.exe", "ein langer alter Inhalt");
    const std::u16string path = this->folder.Path(u"Größe Ω.exe");
    const std::u16string temp = this->store.WriteNewBeside(path, "neu");
    this->store.Open(temp)->Write("N");
    this->store.ReplaceWith(temp, path);
    EXPECT_EQ(this->folder.Bytes(u"Größe Ω.exe"), "Neu");
    EXPECT_EQ(this->folder.Names(), typename TestFixture::Names{u"Größe Ω.exe"});
}

TYPED_TEST_P(RealFilesContract, NewFileMayTakeAnUnusedName) {
    const std::u16string path = this->folder.Path(u"neu.exe");
    this->store.ReplaceWith(this->store.WriteNewBeside(path, "neu"), path);
    EXPECT_EQ(this->folder.Bytes(u"neu.exe"), "neu");
    EXPECT_EQ(this->folder.Names(), typename TestFixture::Names{u"neu.exe"});
}

TYPED_TEST_P(RealFilesContract, ReadOnlyFileIsNotReplaced) {
    this->folder.MakeFile(u"a.exe", "alt");
    this->folder.MakeFile(u"b.exe", "neu");
    this->folder.MakeReadOnly(u"a.exe");
    const std::u16string path = this->folder.Path(u"a.exe");
    const std::u16string temp = this->folder.Path(u"b.exe");
    EXPECT_EQ(ProblemOf([&] { this->store.ReplaceWith(temp, path); }), FileProblem::AccessDenied);
    EXPECT_EQ(this->folder.Bytes(u"a.exe"), "alt");
    EXPECT_EQ(this->folder.Bytes(u"b.exe"), "neu");
}

TYPED_TEST_P(RealFilesContract, FailedReplacementLeavesBothAsTheyWere) {
    this->folder.MakeFile(u"b.exe", "neu");
    this->folder.MakeFolder(u"Ordner");
    const std::u16string temp = this->folder.Path(u"b.exe");
    EXPECT_NE(ProblemOf([&] { this->store.ReplaceWith(temp, this->folder.Path(u"Ordner")); }),
              std::nullopt);
    EXPECT_EQ(ProblemOf([&] {
                  this->store.ReplaceWith(this->folder.Path(u"Fehlt.tmp"),
                                          this->folder.Path(u"b.exe"));
              }),
              FileProblem::NotFound);
    EXPECT_EQ(this->folder.Bytes(u"b.exe"), "neu");
    EXPECT_EQ(this->folder.Names(), (typename TestFixture::Names{u"Ordner", u"b.exe"}));
}

TYPED_TEST_P(RealFilesContract, RemoveNamesAMissingFile) {
    EXPECT_EQ(ProblemOf([&] { this->store.Remove(this->folder.Path(u"Fehlt.tmp")); }),
              FileProblem::NotFound);
}

REGISTER_TYPED_TEST_SUITE_P(RealFilesContract, FileOpenElsewhereIsInUse,
                            MissingFolderIsAMissingPath, ReadAllGivesEveryByte,
                            NewFileLiesBesideAndTheOldOneStays, NewFileTakesThePlaceOfTheOldOne,
                            NewFileMayTakeAnUnusedName, ReadOnlyFileIsNotReplaced,
                            FailedReplacementLeavesBothAsTheyWere, RemoveNamesAMissingFile);

}  // namespace tarvex
