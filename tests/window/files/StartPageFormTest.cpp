#include "window/files/StartPageForm.h"

#include <gtest/gtest.h>

#include "tests/window/files/FilesWorld.h"

namespace tarvex {
namespace {

using Items = std::vector<std::vector<std::u16string>>;

class StartPageFormTest : public testing::Test, public FilesWorld {
protected:
    /// The page of a window that starts now.
    StartPageForm Page() {
        return {commands, [this](FileResult result) { result_ = std::move(result); }};
    }

    FileResult result_;
};

TEST_F(StartPageFormTest, WithoutFilesThereIsNoList) {
    StartPageForm form = Page();
    EXPECT_EQ(form.Rows().size(), 3U);
    EXPECT_FALSE(form.State(StartPageForm::kRecent).visible);
    EXPECT_TRUE(form.State(StartPageForm::kNothingYet).visible);
    EXPECT_EQ(form.State(StartPageForm::kNothingYet).text, u"Noch wurde keine Datei verwendet.");
    form.Press(StartPageForm::kOpenRecent);
    EXPECT_FALSE(result_.done);
}

TEST_F(StartPageFormTest, LastFilesAreListedAndOpened) {
    commands.Recent().Add(kLauncher);
    commands.Recent().Add(u"C:\\Weg\\Alt.exe");
    StartPageForm form = Page();
    EXPECT_EQ(form.State(StartPageForm::kRecent).items,
              Items({{u"Alt.exe", u"C:\\Weg"}, {u"Kunden.exe", u"C:\\Daten"}}));
    EXPECT_EQ(form.State(StartPageForm::kRecent).selected, 0);
    EXPECT_FALSE(form.State(StartPageForm::kNothingYet).visible);
    form.Press(StartPageForm::kOpenRecent);
    EXPECT_EQ(dialogs.log,
              std::vector<std::string>({"Frage: Alt.exe kann nicht geöffnet werden: Die "
                                        "Datei ist nicht vorhanden. [OK]"}));
    form.Select(StartPageForm::kRecent, 1);
    form.Press(StartPageForm::kOpenRecent);
    ASSERT_NE(result_.document, nullptr);
    EXPECT_EQ(result_.document->File().path, kLauncher);
}

TEST_F(StartPageFormTest, FileCanBeTakenOffTheList) {
    commands.Recent().Add(kLauncher);
    StartPageForm form = Page();
    form.Press(StartPageForm::kForget);
    EXPECT_FALSE(form.State(StartPageForm::kRecent).visible);
    EXPECT_TRUE(store.FileExists(kLauncher));
}

TEST_F(StartPageFormTest, NothingChosenCannotBeOpened) {
    commands.Recent().Add(kLauncher);
    StartPageForm form = Page();
    form.Select(StartPageForm::kRecent, -1);
    EXPECT_EQ(form.State(StartPageForm::kRecent).disabledButtons,
              std::vector<std::int32_t>({StartPageForm::kOpenRecent, StartPageForm::kForget}));
}

TEST_F(StartPageFormTest, ButtonsBeginTheWays) {
    StartPageForm form = Page();
    form.Press(StartPageForm::kNew);
    form.Press(StartPageForm::kOpen);
    form.Press(StartPageForm::kImport);
    EXPECT_EQ(dialogs.log,
              std::vector<std::string>({"Fenster: Neues Startprogramm", "Datei: Öffnen",
                                        "Datei: Einstellungsdatei importieren"}));
}

}  // namespace
}  // namespace tarvex
