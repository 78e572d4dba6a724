#pragma once

#include <gtest/gtest.h>

#include <string>

#include "platform/FileSystem.h"

namespace tarvex {

/// What every FileSystem does. A World is an empty folder: Path, MakeFile, MakeFolder, MakeReadOnly
/// and Bytes as those of TestFolder, and `files()`.
template <class World>
class FileSystemContract : public testing::Test {
protected:
    bool Exists(std::u16string_view name) { return world.files().FileExists(world.Path(name)); }

    World world;
};

TYPED_TEST_SUITE_P(FileSystemContract);

TYPED_TEST_P(FileSystemContract, FileExistsInAnyCaseAndWithAnyCharacters) {
    this->world.MakeFile(u"Größe Ω 日本.mdb", "");
    EXPECT_TRUE(this->Exists(u"Größe Ω 日本.mdb"));
    EXPECT_FALSE(this->Exists(u"GRÖSSE Ω 日本.MDB"));
    EXPECT_TRUE(this->Exists(u"GRÖßE Ω 日本.MDB"));
}

TYPED_TEST_P(FileSystemContract, ReadOnlyFileExists) {
    this->world.MakeFile(u"Kunden.mdb", "x");
    this->world.MakeReadOnly(u"Kunden.mdb");
    EXPECT_TRUE(this->Exists(u"Kunden.mdb"));
}

TYPED_TEST_P(FileSystemContract, ForwardSlashesAndRelativeStepsAreUnderstood) {
    this->world.MakeFolder(u"Daten");
    this->world.MakeFile(u"Daten\\Kunden.mdb", "x");
    EXPECT_TRUE(this->Exists(u"Daten/Kunden.mdb"));
    EXPECT_TRUE(this->Exists(u"Daten\\..\\Daten\\Kunden.mdb"));
    EXPECT_TRUE(this->Exists(u"Daten\\\\Kunden.mdb"));
}

TYPED_TEST_P(FileSystemContract, FolderIsNoFile) {
    this->world.MakeFolder(u"Daten");
    EXPECT_FALSE(this->Exists(u"Daten"));
    EXPECT_FALSE(this->Exists(u"Daten\\"));
    EXPECT_FALSE(this->Exists(u""));
}

TYPED_TEST_P(FileSystemContract, FileIsNotFoundByAnOpenEndWildcardsOrQuotes) {
    this->world.MakeFile(u"Kunden.mdb", "x");
    FileSystem& files = this->world.files();
    EXPECT_FALSE(files.FileExists(u""));
    EXPECT_FALSE(this->Exists(u"Kunden.mdb\\"));
    EXPECT_FALSE(this->Exists(u"Kunden.mdb/"));
    EXPECT_FALSE(this->Exists(u"*.mdb"));
    EXPECT_FALSE(this->Exists(u"Kunde?.mdb"));
    EXPECT_FALSE(files.FileExists(u"\"" + this->world.Path(u"Kunden.mdb") + u"\""));
    EXPECT_FALSE(this->Exists(u"Fehlt.mdb"));
    EXPECT_FALSE(this->Exists(u"Fehlt\\Kunden.mdb"));
    EXPECT_FALSE(files.FileExists(u"1:\\Kunden.mdb"));
    EXPECT_FALSE(this->Exists(u"Kunden<>|\t.mdb"));
}

TYPED_TEST_P(FileSystemContract, AppendCreatesTheFileAndWritesAtItsEnd) {
    EXPECT_TRUE(this->world.files().Append(this->world.Path(u"Start.log"), "eins\r\n"));
    EXPECT_TRUE(this->world.files().Append(this->world.Path(u"Start.log"), "zw\xF6lf\r\n"));
    EXPECT_EQ(this->world.Bytes(u"Start.log"), "eins\r\nzw\xF6lf\r\n");
}

TYPED_TEST_P(FileSystemContract, AppendIsRefusedWhereNothingCanBeWritten) {
    this->world.MakeFolder(u"Daten");
    FileSystem& files = this->world.files();
    EXPECT_FALSE(files.Append(this->world.Path(u"Daten"), "zwei"));
    EXPECT_FALSE(files.Append(this->world.Path(u"Fehlt\\Start.log"), "zwei"));
    EXPECT_FALSE(files.Append(u"", "zwei"));
}

TYPED_TEST_P(FileSystemContract, AppendLeavesAReadOnlyFileAlone) {
    this->world.MakeFile(u"Start.log", "eins");
    if (!this->world.MakeReadOnly(u"Start.log")) {
        GTEST_SKIP() << "this user may write to read-only files";
    }
    EXPECT_FALSE(this->world.files().Append(this->world.Path(u"Start.log"), "zwei"));
    EXPECT_EQ(this->world.Bytes(u"Start.log"), "eins");
}

TYPED_TEST_P(FileSystemContract, WriteMakesANewFile) {
    EXPECT_TRUE(this->world.files().Write(this->world.Path(u"Start.err"), "eins", false));
    EXPECT_EQ(this->world.Bytes(u"Start.err"), "eins");
    EXPECT_TRUE(this->world.files().Write(this->world.Path(u"Leer.err"), "", true));
    EXPECT_EQ(this->world.Bytes(u"Leer.err"), "");
}

TYPED_TEST_P(FileSystemContract, WriteReplacesAFileOnlyWhenItMay) {
    this->world.MakeFile(u"Start.err", "ein langer alter Inhalt");
    EXPECT_FALSE(this->world.files().Write(this->world.Path(u"Start.err"), "neu", false));
    EXPECT_EQ(this->world.Bytes(u"Start.err"), "ein langer alter Inhalt");
    EXPECT_TRUE(this->world.files().Write(this->world.Path(u"Start.err"), "neu", true));
    EXPECT_EQ(this->world.Bytes(u"Start.err"), "neu");
}

TYPED_TEST_P(FileSystemContract, WriteReplacesAReadOnlyFile) {
    this->world.MakeFile(u"Start.err", "alt");
    this->world.MakeReadOnly(u"Start.err");
    EXPECT_TRUE(this->world.files().Write(this->world.Path(u"Start.err"), "neu", true));
    EXPECT_EQ(this->world.Bytes(u"Start.err"), "neu");
}

TYPED_TEST_P(FileSystemContract, WriteIsRefusedWhereNoFileCanBe) {
    this->world.MakeFolder(u"Daten");
    FileSystem& files = this->world.files();
    EXPECT_FALSE(files.Write(this->world.Path(u"Daten"), "neu", true));
    EXPECT_FALSE(files.Write(this->world.Path(u"Fehlt\\Start.err"), "neu", true));
    EXPECT_FALSE(files.Write(this->world.Path(u"a*.err"), "neu", true));
    EXPECT_FALSE(files.Write(u"", "neu", true));
}

REGISTER_TYPED_TEST_SUITE_P(FileSystemContract, FileExistsInAnyCaseAndWithAnyCharacters,
                            ReadOnlyFileExists, ForwardSlashesAndRelativeStepsAreUnderstood,
                            FolderIsNoFile, FileIsNotFoundByAnOpenEndWildcardsOrQuotes,
                            AppendCreatesTheFileAndWritesAtItsEnd,
                            AppendIsRefusedWhereNothingCanBeWritten, AppendLeavesAReadOnlyFileAlone,
                            WriteMakesANewFile, WriteReplacesAFileOnlyWhenItMay,
                            WriteReplacesAReadOnlyFile, WriteIsRefusedWhereNoFileCanBe);

}  // namespace tarvex
