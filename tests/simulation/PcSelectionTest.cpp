#include "simulation/PcSelection.h"

#include <gtest/gtest.h>

#include "tests/support/FakeBinaryFiles.h"
#include "tests/support/FakeFileStore.h"
#include "tests/support/FakeFolderListing.h"
#include "text/Text.h"

namespace tarvex {
namespace {

using Names = std::vector<std::u16string>;

/// Descriptions a.pc to c.pc, the first two in the folder PCs.
class PcSelectionTest : public ::testing::Test {
protected:
    PcSelectionTest() {
        folders.folders[u"PCs"] = {u"b.pc", u"firma.reg", u"a.pc"};
        folders.folders[u"leer/"] = {u"firma.reg"};
        for (const std::u16string_view path : {u"PCs/a.pc", u"PCs/b.pc", u"c.pc"}) {
            Describe(path, {});
        }
    }

    void Describe(std::u16string_view path, std::u16string_view more) {
        files.AddFile(path, text::ToUtf8(u"[PC]\nStartprogramm = C:\\Kunden\\Kunden.exe\n" +
                                         std::u16string(more)));
    }

    /// The paths of the chosen ones, or the lines of the problems.
    Names Select(const Names& paths, std::u16string_view pattern = {}) {
        const PcSelection selection = SelectPcs(store, folders, paths, pattern);
        Names names;
        for (const Problem& problem : selection.problems) {
            names.push_back(ProblemLine(problem));
        }
        if (names.empty()) {
            for (const SelectedPc& pc : selection.pcs) {
                names.push_back(pc.path);
            }
        }
        return names;
    }

    FakeBinaryFiles files;
    FakeFileStore store{files};
    FakeFolderListing folders;
};

TEST_F(PcSelectionTest, FolderStandsForItsDescriptionsInTheOrderOfTheirNames) {
    EXPECT_EQ(Select({u"PCs", u"c.pc"}), (Names{u"PCs/a.pc", u"PCs/b.pc", u"c.pc"}));
}

TEST_F(PcSelectionTest, FileThatIsNamedTwiceIsReadOnce) {
    EXPECT_EQ(Select({u"PCs/b.pc", u"PCs", u"PCs/b.pc"}), (Names{u"PCs/b.pc", u"PCs/a.pc"}));
}

TEST_F(PcSelectionTest, PatternTakesThoseWhoseFileNameMatches) {
    EXPECT_EQ(Select({u"PCs", u"c.pc"}, u"?.PC"), (Names{u"PCs/a.pc", u"PCs/b.pc", u"c.pc"}));
    EXPECT_EQ(Select({u"PCs", u"c.pc"}, u"B"), (Names{u"PCs/b.pc"}));
    EXPECT_EQ(Select({u"PCs", u"c.pc"}, u"PCs*"),
              (Names{u"--run: Zu 'PCs*' passt der Dateiname keines PCs."}));
}

TEST_F(PcSelectionTest, FolderWithoutADescriptionIsAProblem) {
    EXPECT_EQ(Select({u"leer/", u"c.pc"}),
              (Names{u"leer/: Der Ordner enthält keine PC-Beschreibung (*.pc)."}));
}

TEST_F(PcSelectionTest, DescriptionThatThePatternLeavesOutIsNotRead) {
    files.AddFile(u"PCs/a.pc", "[PC]\nFalsch = x\n");
    EXPECT_EQ(Select({u"PCs"}, u"b"), (Names{u"PCs/b.pc"}));
}

TEST_F(PcSelectionTest, SwitchThatShowsTheSettingsIsAProblem) {
    Describe(u"c.pc", u"Schalter = /Compact /d geheim\n");
    EXPECT_EQ(Select({u"c.pc"}),
              (Names{u"c.pc, Schalter: Mit /D wird nichts gestartet, was simuliert werden kann."}));
}

TEST(MatchesPatternTest, StarsAndQuestionMarksStandForCharacters) {
    EXPECT_TRUE(MatchesPattern(u"Kasse 1", u"kasse ?"));
    EXPECT_FALSE(MatchesPattern(u"Kasse", u"Kasse?"));
    EXPECT_TRUE(MatchesPattern(u"", u"*"));
    EXPECT_FALSE(MatchesPattern(u"", u"?"));
    EXPECT_TRUE(MatchesPattern(u"aXbXc", u"a*X*c"));
    EXPECT_TRUE(MatchesPattern(u"abcabd", u"*abd"));
    EXPECT_FALSE(MatchesPattern(u"abcabd", u"*abc"));
    EXPECT_TRUE(MatchesPattern(u"Ärger.pc", u"ärger*"));
    EXPECT_TRUE(MatchesPattern(u"a", u"a**"));
    EXPECT_FALSE(MatchesPattern(u"ab", u"a"));
}

}  // namespace
}  // namespace tarvex
