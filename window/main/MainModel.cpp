#include "window/main/MainModel.h"

#include <algorithm>
#include <utility>

#include "configurator/FileTexts.h"
#include "resources/Version.h"
#include "text/Text.h"
#include "window/document/ReplaceForm.h"
#include "window/form/BoxTexts.h"
#include "window/pages/Pages.h"
#include "window/pages/Questions.h"
#include "window/preview/DescribePc.h"
#include "window/preview/DryRunForm.h"
#include "window/preview/LogComparisonForm.h"

namespace tarvex {
namespace {

constexpr std::u16string_view kProgramTitle = u"Tarvex-Konfiguration";

std::u16string CountText(std::size_t findings) {
    if (findings == 0) {
        return u"Keine Hinweise";
    }
    return findings == 1 ? u"1 Hinweis"
                         : text::Decimal(static_cast<std::int64_t>(findings)) + u" Hinweise";
}

bool NeedsDocument(Command command) {
    switch (command) {
        case Command::New:
        case Command::Open:
        case Command::RecentFiles:
        case Command::Exit:
        case Command::About:
        case Command::Undo:
            return false;
        default:
            return true;
    }
}

bool ChangesDocument(Command command) {
    switch (command) {
        case Command::Save:
        case Command::Import:
        case Command::CarryOver:
        case Command::Undo:
        case Command::Revert:
        case Command::Replace:
            return true;
        default:
            return false;
    }
}

}  // namespace

MainModel::MainModel(MainServices services)
    : services_(std::move(services)),
      files_(services_.files),
      kept_(services_.files.settings),
      pcs_(services_.files.dialogs, services_.files.store, services_.folders),
      start_(files_, [this](FileResult result) { Take(std::move(result)); }) {
    pcs_.SetFolder(kept_.PcFolder());
    if (const std::optional<std::int32_t> height = kept_.PreviewHeight()) {
        folded_ = *height == 0;
        previewHeight_ = folded_ ? previewHeight_ : *height;
    }
}

std::u16string MainModel::Title() const {
    if (!document_) {
        return std::u16string(kProgramTitle);
    }
    std::u16string title(document_->Name());
    if (document_->IsDirty()) {
        title += u"*";
    }
    if (document_->File().readOnly) {
        title += u" (nur lesen)";
    }
    return title.append(u" – ").append(kProgramTitle);
}

std::vector<PageLine> MainModel::PageLines() const {
    std::vector<PageLine> lines;
    if (document_) {
        const std::vector<PageMark> marks = PageMarks(*document_, preview_ ? &*preview_ : nullptr);
        for (std::size_t i = 0; i < marks.size(); ++i) {
            lines.push_back({std::u16string(Pages()[i].title), marks[i] != PageMark::None});
        }
    }
    return lines;
}

FormModel& MainModel::Form() {
    return document_ ? static_cast<FormModel&>(*forms_[page_]) : start_;
}

PreviewPaneState MainModel::Pane() const {
    PreviewPaneState pane;
    pane.pcs = pcs_.Lines();
    pane.pc = pcs_.Selected();
    pane.isOld = isOld_;
    if (preview_) {
        pane.commandLine = preview_->commandLine;
        pane.text = preview_->text;
    }
    if (isStuck_) {
        pane.commandLine = u"Ein Pfad antwortet nicht. Die Vorschau wartet darauf…";
    }
    pane.showsFindings = showsFindings_;
    for (const FindingRow& finding : findings_) {
        pane.findings.push_back(finding.text);
    }
    if (preview_) {
        pane.findings.insert(pane.findings.end(), preview_->remarks.begin(),
                             preview_->remarks.end());
    }
    pane.findingsTitle = CountText(pane.findings.size());
    if (pane.findings.empty()) {
        pane.findings.emplace_back(u"Nichts zu beanstanden.");
    }
    return pane;
}

std::vector<std::u16string> MainModel::RecentFiles() {
    return files_.Recent().Paths();
}

bool MainModel::IsEnabled(Command command) const {
    return document_ ? !(document_->File().readOnly && ChangesDocument(command))
                     : !NeedsDocument(command);
}

bool MainModel::IsChecked(Command command) const {
    return command == Command::TogglePreview && document_ && !folded_;
}

void MainModel::Run(Command command, std::int32_t row) {
    if (!IsEnabled(command)) {
        return;
    }
    switch (command) {
        case Command::New:
            Take(files_.New(document_.get()));
            break;
        case Command::Open:
            Take(files_.ChooseAndOpen(document_.get()));
            break;
        case Command::About:
            TellUser(services_.files.dialogs, BoxIcon::Information,
                     std::u16string(kProgramTitle) + u" " + text::FromUtf8(TARVEX_VERSION_TEXT) +
                         u"\nRichtet Startprogramme für Access-Datenbanken ein.");
            break;
        default:
            if (document_) {
                RunOnDocument(command, row);
            }
    }
}

void MainModel::RunOnDocument(Command command, std::int32_t row) {
    switch (command) {
        case Command::Save:
            Take(files_.Save(*document_));
            break;
        case Command::SaveAs:
            Take(files_.SaveAs(*document_));
            break;
        case Command::Import:
            Take(files_.Import(*document_));
            break;
        case Command::Export:
            Take(files_.Export(*document_));
            break;
        case Command::CarryOver:
            Take(files_.TakeOver(*document_));
            break;
        case Command::Compare:
            Take(files_.Compare(*document_));
            break;
        case Command::AsCommand:
            Take(files_.AsCommand(*document_));
            break;
        case Command::Start:
            Take(files_.Start(*document_, pcs_.Pc()));
            break;
        case Command::Replace:
            ReplaceTexts();
            break;
        case Command::DryRun:
            ShowDryRun();
            break;
        case Command::CompareLog:
            CompareLog();
            break;
        case Command::DescribePc:
            DescribePc();
            break;
        case Command::Revert:
            forms_[page_]->RevertRow(row);
            break;
        case Command::TogglePreview:
            folded_ = !folded_;
            break;
        case Command::Refresh:
            WantPreview(true);
            break;
        case Command::ChoosePcs:
            ChoosePc(static_cast<std::int32_t>(pcs_.Lines().size()) - 1);
            break;
        case Command::NextPage:
        case Command::PreviousPage:
            SelectPage((page_ + (command == Command::NextPage ? 1 : Pages().size() - 1)) %
                       Pages().size());
            destination_ = Destination{};
            break;
        case Command::Check:
            ShowFindings();
            break;
        case Command::PageHelp:
            ShowPageHelp();
            break;
        default:
            break;
    }
}

void MainModel::Open(std::u16string_view path) {
    Take(path == kNewArgument ? files_.New(document_.get()) : files_.Open(path, document_.get()));
}

void MainModel::OpenRecent(std::size_t index) {
    const std::vector<std::u16string> paths = files_.Recent().Paths();
    if (index < paths.size()) {
        Open(paths[index]);
    }
}

void MainModel::SelectPage(std::size_t page) {
    page_ = std::min(page, Pages().size() - 1);
}

std::vector<std::u16string> MainModel::Find(std::u16string_view text) {
    hits_.clear();
    std::vector<std::u16string> lines;
    if (document_) {
        hits_ = FindSettings(text, Pages(), *document_);
        for (const SearchHit& hit : hits_) {
            lines.push_back(hit.text);
        }
    }
    return lines;
}

void MainModel::GoToHit(std::size_t hit) {
    if (hit < hits_.size()) {
        SelectPage(hits_[hit].page);
        destination_ = Destination{UsableRow(*document_, hits_[hit].row), false};
    }
}

void MainModel::ChoosePc(std::int32_t pc) {
    if (pcs_.Select(pc)) {
        WantPreview(true);
    }
}

void MainModel::ToggleFindings() {
    showsFindings_ = !showsFindings_;
    folded_ = false;
}

void MainModel::GoToFinding(std::size_t finding) {
    if (finding < findings_.size() && findings_[finding].field != 0) {
        GoToField(findings_[finding].field);
    }
}

void MainModel::GoToField(std::int32_t number) {
    SelectPage(PageOfField(number));
    destination_ = Destination{forms_[page_]->GoTo(number), false};
}

bool MainModel::MayClose() {
    return files_.MayClose(document_.get());
}

void MainModel::KeepState() {
    kept_.SetPreviewHeight(folded_ ? 0 : previewHeight_);
    kept_.SetPcFolder(pcs_.Folder());
}

void MainModel::TellFailure() {
    TellUser(services_.files.dialogs, BoxIcon::Error, CaughtText());
}

std::optional<WantedPreview> MainModel::TakeWantedPreview() {
    if (!document_ || !std::exchange(previewWanted_, false)) {
        return std::nullopt;
    }
    return WantedPreview{Request(true), std::exchange(wantedAtOnce_, false)};
}

PreviewRequest MainModel::Request(bool withSettings) const {
    return {withSettings ? document_->Values() : Settings(), document_->File().path, pcs_.Pc()};
}

void MainModel::SetPreview(PreviewResult result) {
    preview_ = std::move(result);
    for (const std::unique_ptr<PageForm>& form : forms_) {
        form->SetResult(&*preview_);
    }
    UpdateFindings();
    if (std::exchange(dryRunWanted_, false)) {
        ShowDryRun();
    }
}

bool MainModel::SetPreviewState(bool isOld, bool isStuck) {
    const bool old = isOld || previewWanted_;
    const bool isNews = old != isOld_ || isStuck != isStuck_;
    isOld_ = old;
    isStuck_ = isStuck;
    return isNews;
}

std::optional<Destination> MainModel::TakeDestination() {
    return std::exchange(destination_, std::nullopt);
}

void MainModel::Take(FileResult result) {
    if (!result.line.empty()) {
        status_ = std::move(result.line);
    }
    if (result.document) {
        ShowDocument(std::move(result.document));
    }
}

void MainModel::ShowDocument(std::unique_ptr<Document> document) {
    forms_.clear();
    document_ = std::move(document);
    preview_.reset();
    showsFindings_ = false;
    page_ = 0;
    for (const Page& page : Pages()) {
        forms_.push_back(std::make_unique<PageForm>(page, *document_, services_.files.dialogs,
                                                    services_.files.store, services_.files.codec));
        if (services_.askEntry) {
            forms_.back()->SetAnswerer(
                [this](const KeyListFields& list, const std::u16string& entry) {
                    return services_.askEntry(Request(false), list, entry);
                });
        }
    }
    document_->SetListener([this] {
        WantPreview(false);
        UpdateFindings();
    });
    WantPreview(true);
    UpdateFindings();
    destination_ = Destination{};
}

void MainModel::WantPreview(bool atOnce) {
    previewWanted_ = true;
    wantedAtOnce_ = wantedAtOnce_ || atOnce;
}

void MainModel::UpdateFindings() {
    findings_ = FindingRows(*document_, preview_ ? &*preview_ : nullptr);
}

void MainModel::ShowFindings() {
    folded_ = false;
    showsFindings_ = true;
    WantPreview(true);
    status_ = findings_.empty() ? u"Prüfung: keine Hinweise."
                                : u"Prüfung: " + CountText(findings_.size()) + u".";
    destination_ = Destination{0, true};
}

/// What is shown must be about the settings as they stand.
void MainModel::ShowDryRun() {
    if (!preview_ || isOld_ || previewWanted_) {
        dryRunWanted_ = true;
        wantedAtOnce_ = true;
        status_ = u"Der Probelauf wird ermittelt…";
        return;
    }
    status_.clear();
    tarvex::ShowDryRun(services_.files.dialogs, *preview_, document_->Name(), pcs_.Name());
}

void MainModel::CompareLog() {
    if (preview_) {
        CompareWithLog(services_.files.dialogs, services_.files.store, services_.files.codec,
                       document_->Folder(), preview_->text, pcs_.Name());
    }
}

void MainModel::DescribePc() {
    const std::u16string file = DescribeThisPc(
        Request(true),
        {services_.files.dialogs, services_.files.store, services_.files.codec, services_.thisPc});
    if (!file.empty()) {
        status_ = file + u" ist geschrieben.";
    }
}

void MainModel::ReplaceTexts() {
    ReplaceForm form(*document_);
    services_.files.dialogs.ShowForm(form, ReplaceDialogTexts());
}

void MainModel::ShowPageHelp() {
    const Page& page = Pages()[page_];
    TellUser(services_.files.dialogs, BoxIcon::Information,
             text::Replace(page.help, text::kLineBreak, u"\n"));
}

}  // namespace tarvex
