#include "window/main/MainModel.h"

#include <gtest/gtest.h>

#include "tests/support/FakeFolderListing.h"
#include "tests/window/files/FilesWorld.h"
#include "window/keylist/KeyListPart.h"
#include "window/pages/Questions.h"
#include "window/preview/DryRunForm.h"

namespace tarvex {
namespace {

using Log = std::vector<std::string>;

class MainModelTest : public testing::Test, public FilesWorld {
protected:
    void Open() {
        model_.Open(kLauncher);
        model_.TakeDestination();
        model_.TakeWantedPreview();
    }

    /// What a worker says of the current settings, without errors.
    static PreviewResult Result() {
        PreviewResult result;
        result.starts = true;
        result.commandLine = u"\"C:\\Office\\msaccess.exe\"";
        result.text = u"Protokoll\r\n";
        return result;
    }

    void Answer(PreviewResult result) {
        model_.TakeWantedPreview();
        model_.SetPreviewState(false, false);
        model_.SetPreview(std::move(result));
    }

    static PreviewResult WithFinding() {
        PreviewResult result = Result();
        result.findings.push_back(
            {u"path-slash", {u"", 0, u"DBFilename", u"Der Pfad enthält '/' statt '\\'."}});
        return result;
    }

    std::size_t PageNamed(std::u16string_view title) {
        const std::vector<PageLine> lines = model_.PageLines();
        std::size_t page = 0;
        while (page < lines.size() && lines[page].title != title) {
            ++page;
        }
        return page;
    }

    FakeFolderListing folders_;
    MainModel model_{
        {{store, codec, dialogs, userSettings, starter, u"C:\\Tarvex\\tarvexcf.exe"}, folders_}};
};

TEST_F(MainModelTest, BeginsWithTheStartPage) {
    EXPECT_EQ(model_.Title(), u"Tarvex-Konfiguration");
    EXPECT_FALSE(model_.HasDocument());
    EXPECT_TRUE(model_.PageLines().empty());
    EXPECT_TRUE(model_.IsEnabled(Command::Open));
    EXPECT_FALSE(model_.IsEnabled(Command::Save));
    EXPECT_FALSE(model_.IsEnabled(Command::Check));
    EXPECT_FALSE(model_.TakeWantedPreview().has_value());
}

TEST_F(MainModelTest, FileShowsOnItsFirstPageAndIsPreviewedAtOnce) {
    model_.Open(kLauncher);
    EXPECT_EQ(model_.Title(), u"Kunden.exe – Tarvex-Konfiguration");
    EXPECT_EQ(model_.Status(), u"Kunden.exe ist geöffnet.");
    EXPECT_EQ(model_.CurrentPage(), 0U);
    ASSERT_TRUE(model_.TakeDestination().has_value());
    const std::optional<WantedPreview> wanted = model_.TakeWantedPreview();
    ASSERT_TRUE(wanted.has_value());
    EXPECT_TRUE(wanted->atOnce);
    EXPECT_EQ(wanted->request.program, kLauncher);
    EXPECT_EQ(wanted->request.pc, u"");
    EXPECT_EQ(wanted->request.settings.Value(kFieldDBFilename), u"Kunden.mdb");
    EXPECT_FALSE(model_.TakeWantedPreview().has_value());
}

TEST_F(MainModelTest, EditingMarksTheTitleAndWantsAPreviewAfterARest) {
    Open();
    model_.Form().SetText(kFieldAppName, u"Artikel");
    EXPECT_EQ(model_.Title(), u"Kunden.exe* – Tarvex-Konfiguration");
    const std::optional<WantedPreview> wanted = model_.TakeWantedPreview();
    ASSERT_TRUE(wanted.has_value());
    EXPECT_FALSE(wanted->atOnce);
    EXPECT_EQ(wanted->request.settings.Value(kFieldAppName), u"Artikel");
}

TEST_F(MainModelTest, NewArgumentAsksForANewLauncher) {
    dialogs.formUsers.push_back(NewLauncher(u"Artikel.exe"));
    model_.Open(u"/Neu");
    EXPECT_EQ(model_.Title(), u"Artikel.exe* – Tarvex-Konfiguration");
}

TEST_F(MainModelTest, PreviewIsShownAndGoesOldWithAChange) {
    Open();
    Answer(Result());
    EXPECT_EQ(model_.Pane().commandLine, u"\"C:\\Office\\msaccess.exe\"");
    EXPECT_EQ(model_.Pane().text, u"Protokoll\r\n");
    EXPECT_FALSE(model_.Pane().isOld);
    model_.Form().SetText(kFieldAppName, u"Artikel");
    EXPECT_TRUE(model_.Pane().isOld);
    EXPECT_TRUE(model_.SetPreviewState(false, false));
    EXPECT_TRUE(model_.Pane().isOld);
    EXPECT_FALSE(model_.SetPreviewState(true, false));
}

TEST_F(MainModelTest, PathThatDoesNotAnswerIsToldInPlaceOfTheCommandLine) {
    Open();
    Answer(Result());
    EXPECT_TRUE(model_.SetPreviewState(true, true));
    EXPECT_EQ(model_.Pane().commandLine, u"Ein Pfad antwortet nicht. Die Vorschau wartet darauf…");
    EXPECT_EQ(model_.Pane().text, u"Protokoll\r\n");
}

TEST_F(MainModelTest, FindingMarksItsPageAndLeadsToItsField) {
    Open();
    Answer(WithFinding());
    EXPECT_EQ(model_.Pane().findingsTitle, u"1 Hinweis");
    const std::size_t page = PageNamed(u"Datenbank");
    EXPECT_TRUE(model_.PageLines()[page].hasProblem);
    EXPECT_FALSE(model_.PageLines()[0].hasProblem);
    model_.GoToFinding(0);
    EXPECT_EQ(model_.CurrentPage(), page);
    const std::optional<Destination> destination = model_.TakeDestination();
    ASSERT_TRUE(destination.has_value());
    EXPECT_EQ(destination->row, kFieldDBFilename);
    EXPECT_FALSE(model_.TakeDestination().has_value());
    model_.GoToFinding(7);
    EXPECT_FALSE(model_.TakeDestination().has_value());
}

TEST_F(MainModelTest, TextThatItsFieldCannotTakeIsAFindingAtOnce) {
    Open();
    model_.Form().SetText(kFieldAppName, std::u16string(51, u'x'));
    EXPECT_EQ(model_.Pane().findingsTitle, u"1 Hinweis");
    EXPECT_TRUE(model_.PageLines()[0].hasProblem);
}

TEST_F(MainModelTest, CheckWithoutFindingsSaysSo) {
    Open();
    Answer(Result());
    model_.Run(Command::Check, 0);
    EXPECT_EQ(model_.Status(), u"Die Einstellungen werden geprüft…");
    EXPECT_TRUE(model_.TakeWantedPreview()->atOnce);
    Answer(Result());
    EXPECT_EQ(model_.Pane().findingsTitle, u"Keine Hinweise");
    EXPECT_EQ(model_.Pane().findings, std::vector<std::u16string>({u"Nichts zu beanstanden."}));
    EXPECT_EQ(model_.Status(), u"Prüfung: Keine Hinweise.");
    model_.GoToFinding(0);
}

TEST_F(MainModelTest, CheckShowsTheListAndUnfoldsThePreview) {
    Open();
    Answer(WithFinding());
    model_.Run(Command::TogglePreview, 0);
    EXPECT_TRUE(model_.IsPreviewFolded());
    EXPECT_FALSE(model_.IsChecked(Command::TogglePreview));
    model_.Run(Command::Check, 0);
    EXPECT_FALSE(model_.IsPreviewFolded());
    EXPECT_TRUE(model_.Pane().showsFindings);
    Answer(WithFinding());
    EXPECT_EQ(model_.Status(), u"Prüfung: 1 Hinweis.");
    const std::optional<Destination> destination = model_.TakeDestination();
    ASSERT_TRUE(destination.has_value());
    EXPECT_TRUE(destination->findings);
    model_.ToggleFindings();
    EXPECT_FALSE(model_.Pane().showsFindings);
}

TEST_F(MainModelTest, DryRunShowsThePreviewOfTheSettingsAsTheyStand) {
    Open();
    Answer(Result());
    model_.Form().SetText(kFieldAppName, u"Artikel");
    model_.Run(Command::DryRun, 0);
    EXPECT_EQ(dialogs.log, Log());
    EXPECT_EQ(model_.Status(), u"Der Probelauf wird ermittelt…");
    EXPECT_TRUE(model_.TakeWantedPreview()->atOnce);
    std::u16string shown;
    dialogs.formUsers.push_back([&shown](FormModel& form) {
        shown = form.State(DryRunForm::kTextRow).text;
        return false;
    });
    PreviewResult newer = Result();
    newer.text = u"Neues Protokoll\r\n";
    model_.SetPreviewState(false, false);
    model_.SetPreview(std::move(newer));
    EXPECT_EQ(dialogs.log, Log({"Fenster: Probelauf von Kunden.exe auf diesem PC"}));
    EXPECT_EQ(shown, u"Neues Protokoll\r\n");
    EXPECT_EQ(model_.Status(), u"");
}

TEST_F(MainModelTest, SearchFindsAFieldAndGoesThere) {
    Open();
    const std::vector<std::u16string> hits = model_.Find(u"ErrDebug");
    ASSERT_EQ(hits.size(), 1U);
    EXPECT_EQ(hits[0].substr(0, 17), u"Fehlermeldungen: ");
    model_.GoToHit(0);
    EXPECT_EQ(model_.PageLines()[model_.CurrentPage()].title, u"Fehlermeldungen");
    EXPECT_EQ(model_.TakeDestination()->row, kFieldErrDebugText);
    EXPECT_TRUE(model_.Find(u" ").empty());
    model_.GoToHit(0);
    EXPECT_FALSE(model_.TakeDestination().has_value());
}

TEST_F(MainModelTest, PagesGoRound) {
    Open();
    model_.Run(Command::PreviousPage, 0);
    EXPECT_EQ(model_.CurrentPage(), model_.PageLines().size() - 1);
    model_.Run(Command::NextPage, 0);
    EXPECT_EQ(model_.CurrentPage(), 0U);
}

TEST_F(MainModelTest, RevertTakesTheRowWithTheFocusBack) {
    Open();
    model_.Form().SetText(kFieldAppName, u"Artikel");
    model_.Run(Command::Revert, kFieldAppName);
    EXPECT_EQ(model_.Form().State(kFieldAppName).text, u"Kunden");
    EXPECT_EQ(model_.Title(), u"Kunden.exe – Tarvex-Konfiguration");
}

TEST_F(MainModelTest, SavingIsToldAndTheTitleLosesItsStar) {
    Open();
    model_.Form().SetText(kFieldAppName, u"Artikel");
    model_.Run(Command::Save, 0);
    EXPECT_EQ(model_.Title(), u"Kunden.exe – Tarvex-Konfiguration");
    EXPECT_EQ(model_.Status(), u"Kunden.exe ist gespeichert.");
    EXPECT_EQ(Stored(kLauncher).Value(kFieldAppName), u"Artikel");
}

TEST_F(MainModelTest, ClosingAsksForUnsavedChanges) {
    Open();
    EXPECT_TRUE(model_.MayClose());
    model_.Form().SetText(kFieldAppName, u"Artikel");
    EXPECT_FALSE(model_.MayClose());
    EXPECT_EQ(dialogs.log.size(), 1U);
}

TEST_F(MainModelTest, HelpOfThePageIsShown) {
    Open();
    model_.SelectPage(PageNamed(u"Datenbank"));
    model_.Run(Command::PageHelp, 0);
    ASSERT_EQ(dialogs.questions.size(), 1U);
    EXPECT_EQ(dialogs.questions[0].text.substr(0, 55),
              u"Hier wird festgelegt, welche Datenbank geöffnet wird.\n\n");
}

TEST_F(MainModelTest, FailureIsToldAndLeavesTheDocument) {
    Open();
    model_.Form().SetText(kFieldAppName, u"Artikel");
    try {
        throw FileFailure{FileProblem::DiskFull};
    } catch (...) {
        model_.TellFailure();
    }
    EXPECT_EQ(dialogs.log.size(), 1U);
    EXPECT_EQ(model_.Title(), u"Kunden.exe* – Tarvex-Konfiguration");
}

TEST_F(MainModelTest, RemarksOfThePreviewStandAfterTheFindings) {
    Open();
    PreviewResult result = WithFinding();
    result.remarks = {u"Nicht beschrieben: C:\\Office"};
    Answer(std::move(result));
    EXPECT_EQ(model_.Pane().findingsTitle, u"2 Hinweise");
    EXPECT_EQ(model_.Pane().findings.back(), u"Nicht beschrieben: C:\\Office");
    EXPECT_EQ(model_.Pane().text, u"Protokoll\r\n");
    model_.GoToFinding(1);
    EXPECT_FALSE(model_.TakeDestination().has_value());
}

TEST_F(MainModelTest, PreviewIsFoundAgainAsItWasLeft) {
    EXPECT_EQ(model_.PreviewHeight(), 120);
    model_.SetPreviewHeight(200);
    model_.KeepState();
    const auto next = [this] {
        return MainModel(
            {{store, codec, dialogs, userSettings, starter, u"C:\\Tarvex\\tarvexcf.exe"},
             folders_});
    };
    EXPECT_EQ(next().PreviewHeight(), 200);
    EXPECT_FALSE(next().IsPreviewFolded());
    Open();
    model_.Run(Command::TogglePreview, 0);
    model_.KeepState();
    EXPECT_TRUE(next().IsPreviewFolded());
}

TEST_F(MainModelTest, EntriesAreAskedForOnThePcOfThePreview) {
    std::u16string asked;
    MainModel model({{store, codec, dialogs, userSettings, starter, u"C:\\Tarvex\\tarvexcf.exe"},
                     folders_,
                     nullptr,
                     [&asked](const PreviewRequest& about, const KeyListFields& list,
                              const std::u16string& entry) {
                         asked = about.program + u" " +
                                 std::u16string(FindField(list.first)->name) + u" " + entry;
                         return EntryAnswer{true, u"C:\\Daten"};
                     }});
    model.Open(kLauncher);
    model.SelectPage(PageNamed(u"Anwendung") + 2);
    dialogs.formUsers.push_back([](FormModel& form) {
        form.SetText(KeyEntryForm::kKeyRow, u"SOFTWARE\\Muster");
        return false;
    });
    model.Form().SetChecked(kDatabaseRegistry, true);
    model.Form().Press(KeyListRow(kDBRegList) + KeyListPart::kNewButton);
    EXPECT_EQ(asked, u"C:\\Daten\\Kunden.exe DBRegList01 HKLM\\SOFTWARE\\Muster\\");
}

}  // namespace
}  // namespace tarvex
