#include "window/files/StartPageForm.h"

#include <gtest/gtest.h>

#include "tests/window/files/FilesWorld.h"

namespace tarvex {
namespace {

using Items = std::vector<std::vector<std::u16string>>;

class StartPageFormTest : public testing::Test, public FilesWorld {
protected:
    StartPageForm form_{commands, [this](FileResult result) { result_ = std::move(result); }};
    FileResult result_;
};

TEST_F(StartPageFormTest, WithoutFilesThereIsNoList) {
    EXPECT_FALSE(form_.State(StartPageForm::kRecent).visible);
    EXPECT_TRUE(form_.State(StartPageForm::kNothingYet).visible);
    EXPECT_EQ(form_.State(StartPageForm::kNothingYet).text, u"Noch wurde keine Datei verwendet.");
    form_.Press(StartPageForm::kOpenRecent);
    EXPECT_FALSE(result_.done);
}

TEST_F(StartPageFormTest, LastFilesAreListedAndOpened) {
    commands.Recent().Add(kLauncher);
    commands.Recent().Add(u"C:\\Weg\\Alt.exe");
    EXPECT_EQ(form_.State(StartPageForm::kRecent).items,
              Items({{u"Alt.exe", u"C:\\Weg"}, {u"Kunden.exe", u"C:\\Daten"}}));
    EXPECT_EQ(form_.State(StartPageForm::kRecent).selected, 0);
    EXPECT_FALSE(form_.State(StartPageForm::kNothingYet).visible);
    form_.Press(StartPageForm::kOpenRecent);
    EXPECT_EQ(dialogs.log,
              std::vector<std::string>({"Frage: Alt.exe kann nicht geöffnet werden: Die "
                                        "Datei ist nicht vorhanden. [OK]"}));
    form_.Select(StartPageForm::kRecent, 1);
    form_.Press(StartPageForm::kOpenRecent);
    ASSERT_NE(result_.document, nullptr);
    EXPECT_EQ(result_.document->File().path, kLauncher);
}

TEST_F(StartPageFormTest, FileCanBeTakenOffTheList) {
    commands.Recent().Add(kLauncher);
    form_.Press(StartPageForm::kForget);
    EXPECT_FALSE(form_.State(StartPageForm::kRecent).visible);
    EXPECT_TRUE(store.FileExists(kLauncher));
}

TEST_F(StartPageFormTest, NothingChosenCannotBeOpened) {
    commands.Recent().Add(kLauncher);
    form_.Select(StartPageForm::kRecent, -1);
    EXPECT_EQ(form_.State(StartPageForm::kRecent).disabledButtons,
              std::vector<std::int32_t>({StartPageForm::kOpenRecent, StartPageForm::kForget}));
}

TEST_F(StartPageFormTest, ButtonsBeginTheWays) {
    form_.Press(StartPageForm::kNew);
    form_.Press(StartPageForm::kOpen);
    form_.Press(StartPageForm::kImport);
    EXPECT_EQ(dialogs.log,
              std::vector<std::string>({"Fenster: Neues Startprogramm", "Datei: Öffnen",
                                        "Datei: Einstellungsdatei importieren"}));
}

}  // namespace
}  // namespace tarvex
