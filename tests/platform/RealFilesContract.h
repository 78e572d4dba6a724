#pragma once

#include <chrono>

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
/// locking, and putting files in their places.
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
              FileProblem::IsFolder);
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
    this->store.ReplaceWith(temp, path, {});
    EXPECT_EQ(this->folder.Bytes(u"Größe Ω.exe"), "Neu");
    EXPECT_EQ(this->folder.Names(), typename TestFixture::Names{u"Größe Ω.exe"});
}

TYPED_TEST_P(RealFilesContract, NewFileMayTakeAnUnusedName) {
    const std::u16string path = this->folder.Path(u"neu.exe");
    this->store.ReplaceWith(this->store.WriteNewBeside(path, "neu"), path, {});
    EXPECT_EQ(this->folder.Bytes(u"neu.exe"), "neu");
    EXPECT_EQ(this->folder.Names(), typename TestFixture::Names{u"neu.exe"});
}

TYPED_TEST_P(RealFilesContract, ReadOnlyFileIsNotReplaced) {
    this->folder.MakeFile(u"a.exe", "alt");
    this->folder.MakeFile(u"b.exe", "neu");
    this->folder.MakeReadOnly(u"a.exe");
    const std::u16string path = this->folder.Path(u"a.exe");
    const std::u16string temp = this->folder.Path(u"b.exe");
    EXPECT_EQ(ProblemOf([&] { this->store.ReplaceWith(temp, path, {}); }),
              FileProblem::AccessDenied);
    EXPECT_EQ(this->folder.Bytes(u"a.exe"), "alt");
    EXPECT_EQ(this->folder.Bytes(u"b.exe"), "neu");
}

TYPED_TEST_P(RealFilesContract, FailedReplacementLeavesBothAsTheyWere) {
    this->folder.MakeFile(u"b.exe", "neu");
    this->folder.MakeFolder(u"Ordner");
    const std::u16string temp = this->folder.Path(u"b.exe");
    EXPECT_EQ(ProblemOf([&] { this->store.ReplaceWith(temp, this->folder.Path(u"Ordner"), {}); }),
              FileProblem::IsFolder);
    EXPECT_EQ(ProblemOf([&] {
                  this->store.ReplaceWith(this->folder.Path(u"Fehlt.tmp"),
                                          this->folder.Path(u"b.exe"), {});
              }),
              FileProblem::NotFound);
    EXPECT_EQ(this->folder.Bytes(u"b.exe"), "neu");
    EXPECT_EQ(this->folder.Names(), (typename TestFixture::Names{u"Ordner", u"b.exe"}));
}

TYPED_TEST_P(RealFilesContract, RemoveNamesAMissingFile) {
    EXPECT_EQ(ProblemOf([&] { this->store.Remove(this->folder.Path(u"Fehlt.tmp")); }),
              FileProblem::NotFound);
}

TYPED_TEST_P(RealFilesContract, NameIsDescribedByWhatItStandsFor) {
    this->folder.MakeFile(u"Größe Ω.exe", "alt");
    this->folder.MakeFolder(u"Ordner");
    const auto kind = [this](std::u16string_view name) {
        return this->store.Describe(this->folder.Path(name)).kind;
    };
    EXPECT_EQ(kind(u"Größe Ω.exe"), FileKind::Regular);
    EXPECT_EQ(kind(u"Ordner"), FileKind::Folder);
    EXPECT_EQ(kind(u"Fehlt.exe"), FileKind::None);
    EXPECT_EQ(kind(u"Fehlt/a.exe"), FileKind::None);
    EXPECT_FALSE(this->store.Describe(this->folder.Path(u"Fehlt.exe")).isLink);
    EXPECT_EQ(this->store.Describe(this->folder.Path(u"Größe Ω.exe")).names, 1u);
    EXPECT_EQ(ProblemOf([this] { this->store.Describe(u""); }), FileProblem::PathNotFound);
}

TYPED_TEST_P(RealFilesContract, FileIsTheSameUnderEveryNameOfIt) {
    this->folder.MakeFile(u"a.exe", "alt");
    this->folder.MakeFile(u"b.exe", "alt");
    this->folder.MakeFolder(u"Ordner");
    const std::u16string path = this->folder.Path(u"a.exe");
    EXPECT_TRUE(this->store.IsSameFile(path, path));
    EXPECT_TRUE(this->store.IsSameFile(path, this->folder.Path(u"Ordner/../a.exe")));
    EXPECT_FALSE(this->store.IsSameFile(path, this->folder.Path(u"b.exe")));
    EXPECT_FALSE(this->store.IsSameFile(path, this->folder.Path(u"Fehlt.exe")));
    EXPECT_FALSE(
        this->store.IsSameFile(this->folder.Path(u"Fehlt.exe"), this->folder.Path(u"Fehlt.exe")));
}

TYPED_TEST_P(RealFilesContract, LockExcludesTheSecondUntilItGoes) {
    using namespace std::chrono_literals;
    this->folder.MakeFile(u"a.exe", "alt");
    const std::u16string path = this->folder.Path(u"a.exe");
    std::unique_ptr<FileLock> first = this->store.Lock(path, 0ms);
    EXPECT_EQ(ProblemOf([&] { this->store.Lock(path, 30ms); }), FileProblem::Locked);
    // The one who has it reads and replaces.
    EXPECT_EQ(this->store.ReadAll(path), "alt");
    this->store.ReplaceWith(this->store.WriteNewBeside(path, "neu"), path, {});
    first.reset();
    EXPECT_EQ(this->folder.Names(), typename TestFixture::Names{u"a.exe"});
    EXPECT_EQ(ProblemOf([&] { this->store.Lock(path, 0ms); }), std::nullopt);
    EXPECT_EQ(this->folder.Bytes(u"a.exe"), "neu");
}

TYPED_TEST_P(RealFilesContract, OnlyWhatMayBeChangedIsLocked) {
    using namespace std::chrono_literals;
    this->folder.MakeFile(u"a.exe", "alt");
    this->folder.MakeFolder(u"Ordner");
    this->folder.MakeReadOnly(u"a.exe");
    const auto problem = [this](std::u16string_view name) {
        return ProblemOf([&] { this->store.Lock(this->folder.Path(name), 0ms); });
    };
    EXPECT_EQ(problem(u"a.exe"), FileProblem::AccessDenied);
    EXPECT_EQ(problem(u"Ordner"), FileProblem::IsFolder);
    EXPECT_EQ(problem(u"Fehlt.exe"), FileProblem::NotFound);
    EXPECT_EQ(problem(u"Fehlt/a.exe"), FileProblem::PathNotFound);
    EXPECT_EQ(this->folder.Names(), (typename TestFixture::Names{u"Ordner", u"a.exe"}));
}

TYPED_TEST_P(RealFilesContract, NewFileIsPlacedOnlyWhereNothingIs) {
    const std::u16string path = this->folder.Path(u"a.exe");
    const std::u16string first = this->store.WriteNewBeside(path, "eins");
    const std::u16string second = this->store.WriteNewBeside(path, "zwei");
    this->store.PlaceNew(first, path, {});
    EXPECT_EQ(ProblemOf([&] { this->store.PlaceNew(second, path, {}); }), FileProblem::Exists);
    EXPECT_EQ(this->folder.Bytes(u"a.exe"), "eins");
    EXPECT_EQ(this->store.ReadAll(second), "zwei");
    this->store.Remove(second);
    EXPECT_EQ(this->folder.Names(), typename TestFixture::Names{u"a.exe"});
}

REGISTER_TYPED_TEST_SUITE_P(RealFilesContract, FileOpenElsewhereIsInUse,
                            MissingFolderIsAMissingPath, ReadAllGivesEveryByte,
                            NewFileLiesBesideAndTheOldOneStays, NewFileTakesThePlaceOfTheOldOne,
                            NewFileMayTakeAnUnusedName, ReadOnlyFileIsNotReplaced,
                            FailedReplacementLeavesBothAsTheyWere, RemoveNamesAMissingFile,
                            NameIsDescribedByWhatItStandsFor, FileIsTheSameUnderEveryNameOfIt,
                            LockExcludesTheSecondUntilItGoes, OnlyWhatMayBeChangedIsLocked,
                            NewFileIsPlacedOnlyWhereNothingIs);

}  // namespace tarvex
