#include "simulation/CollectedFiles.h"

#include <gtest/gtest.h>

#include "configurator/AccessPresets.h"
#include "launch/RegistryKeyList.h"
#include "tests/simulation/SimulationTexts.h"
#include "tests/support/FakeBinaryFiles.h"
#include "tests/support/FakeFileStore.h"

namespace tarvex {
namespace {

/// A description K.pc and the file K.reg that it names.
class CollectedFilesTest : public ::testing::Test {
protected:
    Texts Write(const OutputRules& rules, std::u16string_view folder = u"D:\\Neu") {
        Problems notes;
        return ProblemLines(WriteCollected(store, collected, folder, rules, notes));
    }

    const std::vector<CollectedFile> collected = {{u"K.pc", "pc"}, {u"K.reg", "reg"}};
    FakeBinaryFiles files;
    FakeFileStore store{files};
};

TEST_F(CollectedFilesTest, DescriptionIsWrittenLast) {
    EXPECT_EQ(Write({}), Texts());
    EXPECT_EQ(store.ReadAll(u"D:\\Neu\\K.pc"), "pc");
    EXPECT_EQ(store.ReadAll(u"D:\\Neu\\K.reg"), "reg");
    EXPECT_EQ(store.log.front(), u"new D:\\Neu\\K.reg");
}

TEST_F(CollectedFilesTest, FolderMayEndInASeparator) {
    EXPECT_EQ(Write({}, u"D:\\"), Texts());
    EXPECT_EQ(store.ReadAll(u"D:\\K.pc"), "pc");
}

TEST_F(CollectedFilesTest, NoneIsWrittenWhenOneIsThere) {
    files.AddFile(u"D:\\Neu\\K.pc", "alt");
    EXPECT_EQ(Write({}),
              Texts{u"D:\\Neu\\K.pc: Die Datei ist schon vorhanden; --force ersetzt sie."});
    EXPECT_TRUE(store.log.empty());
    EXPECT_EQ(Write({.force = true}), Texts());
    EXPECT_EQ(store.ReadAll(u"D:\\Neu\\K.pc"), "pc");
}

TEST_F(CollectedFilesTest, CheckWritesNothing) {
    EXPECT_TRUE(CheckCollected(store, collected, u"D:\\Neu", {}).empty());
    files.AddFile(u"D:\\Neu\\K.reg", "alt");
    EXPECT_EQ(ProblemLines(CheckCollected(store, collected, u"D:\\Neu", {})),
              Texts{u"D:\\Neu\\K.reg: Die Datei ist schon vorhanden; --force ersetzt sie."});
    EXPECT_TRUE(store.log.empty());
}

TEST_F(CollectedFilesTest, DescriptionIsMissingWhenAFileThatItNamesFails) {
    store.failCall = 1;
    store.failure = FileProblem::DiskFull;
    EXPECT_EQ(Write({}), Texts{u"D:\\Neu\\K.reg: Der Datenträger ist voll."});
    EXPECT_FALSE(store.FileExists(u"D:\\Neu\\K.pc"));
}

TEST(KnownAccessEntriesTest, EveryKnownPlaceIsAnEntry) {
    const std::vector<std::u16string> entries = KnownAccessEntries();
    EXPECT_EQ(entries.size(), AccessPresets().size());
    for (const std::u16string& entry : entries) {
        EXPECT_FALSE(ParseKeyListEntry(entry).error.has_value());
    }
}

}  // namespace
}  // namespace tarvex
