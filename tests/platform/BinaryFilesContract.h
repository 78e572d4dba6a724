#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>

#include "platform/FileStore.h"

namespace tarvex {

/// The problem that an operation fails with; none when it succeeds.
inline std::optional<FileProblem> ProblemOf(const std::function<void()>& operation) {
    try {
        operation();
        return std::nullopt;
    } catch (const FileFailure& failure) {
        return failure.problem;
    }
}

/// What every BinaryFiles does. A World is an empty folder: Path, MakeFile, MakeFolder and Bytes as
/// those of TestFolder, and `files()`.
template <class World>
class BinaryFilesContract : public testing::Test {
protected:
    std::unique_ptr<BinaryFile> Open(std::u16string_view name) {
        return world.files().Open(world.Path(name));
    }
    std::optional<FileProblem> ProblemOfOpen(std::u16string_view name) {
        return ProblemOf([this, name] { Open(name); });
    }

    World world;
};

TYPED_TEST_SUITE_P(BinaryFilesContract);

TYPED_TEST_P(BinaryFilesContract, OnlyFilesExist) {
    this->world.MakeFile(u"Größe Ω.exe", "x");
    this->world.MakeFolder(u"Ordner");
    const BinaryFiles& files = this->world.files();
    EXPECT_TRUE(files.FileExists(this->world.Path(u"Größe Ω.exe")));
    EXPECT_FALSE(files.FileExists(this->world.Path(u"Ordner")));
    EXPECT_FALSE(files.FileExists(this->world.Path(u"Fehlt.exe")));
    EXPECT_FALSE(files.FileExists(this->world.Path(u"*.exe")));
    EXPECT_FALSE(files.FileExists(u""));
}

TYPED_TEST_P(BinaryFilesContract, ReadsFromThePositionOnUpToTheEnd) {
    this->world.MakeFile(u"a.exe", std::string("0123\0"
                                               "56789",
                                               10));
    const auto file = this->Open(u"a.exe");
    EXPECT_EQ(file->Size(), 10);
    EXPECT_EQ(file->Read(3), "012");
    EXPECT_EQ(file->Read(3), std::string("3\0"
                                         "5",
                                         3));
    file->Seek(8);
    EXPECT_EQ(file->Read(100), "89");
    EXPECT_EQ(file->Read(100), "");
    file->Seek(1000);
    EXPECT_EQ(file->Read(1), "");
    file->Seek(0);
    EXPECT_EQ(file->Read(0), "");
    EXPECT_EQ(file->Read(1), "0");
}

TYPED_TEST_P(BinaryFilesContract, LargeFilesAreReadWhole) {
    std::string bytes(3'000'000, 'x');
    bytes[2'500'000] = 'y';
    this->world.MakeFile(u"a.exe", bytes);
    EXPECT_TRUE(this->Open(u"a.exe")->Read(4'000'000) == bytes);
}

TYPED_TEST_P(BinaryFilesContract, WritesInPlaceAndGrowsTheFile) {
    this->world.MakeFile(u"a.exe", "0123456789");
    {
        const auto file = this->Open(u"a.exe");
        file->Seek(2);
        file->Write("ab");
        EXPECT_EQ(file->Read(2), "45");
        EXPECT_EQ(file->Size(), 10);
        file->Seek(9);
        file->Write("xyz");
        EXPECT_EQ(file->Size(), 12);
        file->Write("");
    }
    EXPECT_EQ(this->world.Bytes(u"a.exe"), "01ab45678xyz");
}

TYPED_TEST_P(BinaryFilesContract, OpenNeverCreatesAFile) {
    EXPECT_EQ(this->ProblemOfOpen(u"Fehlt.exe"), FileProblem::NotFound);
    EXPECT_FALSE(this->world.files().FileExists(this->world.Path(u"Fehlt.exe")));
}

TYPED_TEST_P(BinaryFilesContract, FolderCannotBeOpened) {
    this->world.MakeFolder(u"Ordner");
    EXPECT_EQ(this->ProblemOfOpen(u"Ordner"), FileProblem::IsFolder);
}

REGISTER_TYPED_TEST_SUITE_P(BinaryFilesContract, OnlyFilesExist, ReadsFromThePositionOnUpToTheEnd,
                            LargeFilesAreReadWhole, WritesInPlaceAndGrowsTheFile,
                            OpenNeverCreatesAFile, FolderCannotBeOpened);

}  // namespace tarvex
