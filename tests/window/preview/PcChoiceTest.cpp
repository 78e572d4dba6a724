#include "window/preview/PcChoice.h"

#include <gtest/gtest.h>

#include "tests/support/FakeBinaryFiles.h"
#include "tests/support/FakeFileStore.h"
#include "tests/support/FakeFolderListing.h"
#include "tests/support/FakeUserDialogs.h"

namespace tarvex {
namespace {

using Lines = std::vector<std::u16string>;

/// The folder C:\PCs with the descriptions Kasse and Büro.
class PcChoiceTest : public testing::Test {
protected:
    PcChoiceTest() {
        folders.folders[u"C:\\PCs\\"] = {u"Kasse.pc", u"Büro.pc", u"Kasse.reg"};
        for (const std::u16string_view path : {u"C:\\PCs\\Kasse.pc", u"C:\\PCs\\Büro.pc"}) {
            files.AddFile(path, "[PC]\nStartprogramm = C:\\Kunden\\Kunden.exe\n");
        }
    }

    /// Chooses the last line and answers with the folder.
    bool Choose(std::u16string_view folder) {
        dialogs.paths.emplace_back(folder);
        return choice.Select(static_cast<std::int32_t>(choice.Lines().size()) - 1);
    }

    FakeBinaryFiles files;
    FakeFileStore store{files};
    FakeFolderListing folders;
    FakeUserDialogs dialogs;
    PcChoice choice{dialogs, store, folders};
};

TEST_F(PcChoiceTest, ThisPcIsChosenFirst) {
    EXPECT_EQ(choice.Lines(), (Lines{u"dieser PC", u"PC-Beschreibungen wählen…"}));
    EXPECT_EQ(choice.Selected(), 0);
    EXPECT_EQ(choice.Pc(), u"");
    EXPECT_EQ(choice.Name(), u"diesem PC");
}

TEST_F(PcChoiceTest, FolderGivesItsPcsByName) {
    EXPECT_TRUE(Choose(u"C:\\PCs"));
    EXPECT_EQ(choice.Lines(),
              (Lines{u"dieser PC", u"Büro", u"Kasse", u"PC-Beschreibungen wählen…"}));
    EXPECT_EQ(choice.Selected(), 1);
    EXPECT_EQ(choice.Pc(), u"C:\\PCs\\Büro.pc");
    EXPECT_EQ(choice.Name(), u"Büro");
    EXPECT_EQ(dialogs.log,
              (std::vector<std::string>{"Ordner: Ordner mit PC-Beschreibungen (*.pc) wählen"}));
}

TEST_F(PcChoiceTest, OnlyAnotherChoiceIsAChange) {
    Choose(u"C:\\PCs");
    EXPECT_FALSE(choice.Select(1));
    EXPECT_TRUE(choice.Select(2));
    EXPECT_EQ(choice.Pc(), u"C:\\PCs\\Kasse.pc");
    EXPECT_TRUE(choice.Select(0));
    EXPECT_EQ(choice.Pc(), u"");
    EXPECT_FALSE(choice.Select(-1));
    EXPECT_FALSE(choice.Select(9));
    EXPECT_EQ(choice.Selected(), 0);
}

TEST_F(PcChoiceTest, ChoiceStaysWhenNoFolderIsNamed) {
    Choose(u"C:\\PCs");
    choice.Select(2);
    EXPECT_FALSE(choice.Select(3));
    EXPECT_EQ(choice.Selected(), 2);
    EXPECT_EQ(dialogs.fileQuestions.back().folder, u"C:\\PCs");
}

TEST_F(PcChoiceTest, DescriptionsThatCannotBeReadAreToldAndLeftOut) {
    files.AddFile(u"C:\\PCs\\Büro.pc", "[PC]\nFalsch = x\n");
    EXPECT_TRUE(Choose(u"C:\\PCs"));
    EXPECT_EQ(choice.Lines(), (Lines{u"dieser PC", u"Kasse", u"PC-Beschreibungen wählen…"}));
    ASSERT_EQ(dialogs.log.size(), 2u);
    EXPECT_TRUE(dialogs.log.back().starts_with(
        "Frage: Nicht alle PC-Beschreibungen sind verwendbar:\n\nC:\\PCs\\Büro.pc, Zeile 2: "))
        << dialogs.log.back();
}

TEST_F(PcChoiceTest, FolderWithoutDescriptionsChangesNothing) {
    folders.folders[u"C:\\leer\\"] = {u"x.txt"};
    Choose(u"C:\\PCs");
    EXPECT_FALSE(Choose(u"C:\\leer"));
    EXPECT_EQ(choice.Pc(), u"C:\\PCs\\Büro.pc");
    EXPECT_EQ(dialogs.log.back(),
              "Frage: Nicht alle PC-Beschreibungen sind verwendbar:\n\nC:\\leer\\: Der Ordner "
              "enthält keine PC-Beschreibung (*.pc). [OK]");
}

}  // namespace
}  // namespace tarvex
