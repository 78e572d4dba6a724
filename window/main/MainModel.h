#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FolderListing.h"
#include "simulation/ThisPc.h"
#include "window/document/Document.h"
#include "window/files/FileCommands.h"
#include "window/files/StartPageForm.h"
#include "window/form/Form.h"
#include "window/keylist/KeyEntryForm.h"
#include "window/main/KeptState.h"
#include "window/main/Menu.h"
#include "window/main/PreviewModel.h"
#include "window/pages/PageForm.h"
#include "window/pages/Search.h"
#include "window/preview/PcChoice.h"
#include "window/preview/Preview.h"

namespace tarvex {

/// A page in the list of pages.
struct PageLine {
    std::u16string title;
    bool hasProblem = false;  ///< something on it is wrong or probably not meant

    bool operator==(const PageLine&) const = default;
};

/// Where the user is brought to.
struct Destination {
    std::int32_t row = 0;   ///< id of a row of the current page; 0: the first one
    bool findings = false;  ///< the list of findings instead
};

/// A request for the worker of the preview.
struct WantedPreview {
    PreviewRequest request;
    bool atOnce = false;  ///< without the rest that the user is left while he types
};

/// What the main window works with. It owns none of it; all of it outlives the window.
struct MainServices {
    FileServices files;
    const FolderListing& folders;
    const ThisPc* thisPc = nullptr;  ///< null where no launcher runs

    /// What an entry of a key list leads to; must answer at once. Empty: nobody answers.
    std::function<EntryAnswer(const PreviewRequest& about, const KeyListFields& list,
                              const std::u16string& entry)>
        askEntry = {};
};

/// The whole state of the main window: the document or the start page, the current page, what was
/// found out about the settings, and every command. A view shows it, tells it what the user does,
/// and shows it anew after each call of a member that is not const.
class MainModel {
public:
    explicit MainModel(MainServices services);
    MainModel(const MainModel&) = delete;
    MainModel& operator=(const MainModel&) = delete;

    // What is shown.

    std::u16string Title() const;
    const std::u16string& Status() const { return status_; }
    bool HasDocument() const { return document_ != nullptr; }
    std::vector<PageLine> PageLines() const;
    std::size_t CurrentPage() const { return page_; }

    /// The current page, or the start page; another one is another object.
    FormModel& Form();

    PreviewPaneState Pane() const { return preview_.Pane(pcs_); }
    bool IsPreviewFolded() const { return preview_.IsFolded(); }
    /// Height of the unfolded preview as the user wants it, in pixels at 100 %.
    std::int32_t PreviewHeight() const { return preview_.Height(); }
    void SetPreviewHeight(std::int32_t height) { preview_.SetHeight(height); }
    std::vector<std::u16string> RecentFiles();
    bool IsEnabled(Command command) const;
    bool IsChecked(Command command) const;

    // What the user does.

    /// `row` is the one that has the focus, 0: none.
    void Run(Command command, std::int32_t row);

    /// A file was dropped, or named on the command line, where kNewArgument stands for a new one.
    void Open(std::u16string_view path);
    void OpenRecent(std::size_t index);
    void SelectPage(std::size_t page);
    std::vector<std::u16string> Find(std::u16string_view text);
    void GoToHit(std::size_t hit);
    void ChoosePc(std::int32_t pc);
    void ToggleFindings();
    void GoToFinding(std::size_t finding);

    /// False: the user stays.
    bool MayClose();

    /// The window closes: what it finds again the next time is kept.
    void KeepState();

    /// Tells the exception that is being handled. Call it inside a catch block only.
    void TellFailure();

    // The preview, which is worked out elsewhere.

    /// What is to be worked out since the last call; nothing when nothing has changed.
    std::optional<WantedPreview> TakeWantedPreview();
    void SetPreview(PreviewResult result);
    /// Whether what is shown is old, and whether the run waits for something that does not answer.
    /// True when that is news.
    bool SetPreviewState(bool isOld, bool isStuck) { return preview_.SetState(isOld, isStuck); }

    /// Where the view is to bring the user, once.
    std::optional<Destination> TakeDestination();

private:
    void Take(FileResult result);
    void ShowDocument(std::unique_ptr<Document> document);
    void RunOnDocument(Command command, std::int32_t row);
    void GoToField(std::int32_t number);
    void ShowFindings();
    void ShowDryRun();
    void CompareLog();
    void DescribePc();
    void ReplaceTexts();
    void ShowPageHelp();
    PreviewRequest Request(bool withSettings) const;

    MainServices services_;
    FileCommands files_;
    KeptState kept_;
    PreviewModel preview_;
    PcChoice pcs_;
    StartPageForm start_;
    std::unique_ptr<Document> document_;
    std::vector<std::unique_ptr<PageForm>> forms_;  // one for each page of the document
    std::size_t page_ = 0;
    std::u16string status_;
    std::vector<SearchHit> hits_;

    bool dryRunWanted_ = false;  // to be shown when the preview is up to date
    bool checkWanted_ = false;   // its result is to be told then
    std::optional<Destination> destination_;
};

}  // namespace tarvex
