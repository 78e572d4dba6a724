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
      preview_(kept_),
      pcs_(services_.files.dialogs, services_.files.store, services_.folders),
      start_(files_, [this](FileResult result) { Take(std::move(result)); }) {
    pcs_.SetFolder(kept_.PcFolder());
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
        const std::vector<PageMark> marks = PageMarks(*document_, preview_.Result());
        for (std::size_t i = 0; i < marks.size(); ++i) {
            lines.push_back({std::u16string(Pages()[i].title), marks[i] != PageMark::None});
        }
    }
    return lines;
}

FormModel& MainModel::Form() {
    return document_ ? static_cast<FormModel&>(*forms_[page_]) : start_;
}

std::vector<std::u16string> MainModel::RecentFiles() {
    return files_.Recent().Paths();
}

bool MainModel::IsEnabled(Command command) const {
    return document_ ? !(document_->File().readOnly && ChangesDocument(command))
                     : !NeedsDocument(command);
}

bool MainModel::IsChecked(Command command) const {
    return command == Command::TogglePreview && document_ && !preview_.IsFolded();
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
            preview_.Fold(!preview_.IsFolded());
            break;
        case Command::Refresh:
            preview_.Want(true);
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
        preview_.Want(true);
    }
}

void MainModel::ToggleFindings() {
    preview_.ShowFindings(!preview_.ShowsFindings());
}

void MainModel::GoToFinding(std::size_t finding) {
    const std::vector<FindingRow>& findings = preview_.Findings();
    if (finding < findings.size() && findings[finding].field != 0) {
        GoToField(findings[finding].field);
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
    preview_.Keep();
    kept_.SetPcFolder(pcs_.Folder());
}

void MainModel::TellFailure() {
    TellUser(services_.files.dialogs, BoxIcon::Error, CaughtText());
}

std::optional<WantedPreview> MainModel::TakeWantedPreview() {
    if (!document_) {
        return std::nullopt;
    }
    const std::optional<bool> atOnce = preview_.TakeWanted();
    return atOnce ? std::optional(WantedPreview{Request(true), *atOnce}) : std::nullopt;
}

PreviewRequest MainModel::Request(bool withSettings) const {
    return {withSettings ? document_->Values() : Settings(), document_->File().path, pcs_.Pc()};
}

void MainModel::SetPreview(PreviewResult result) {
    preview_.SetResult(std::move(result), *document_);
    for (const std::unique_ptr<PageForm>& form : forms_) {
        form->SetResult(preview_.Result());
    }
    if (std::exchange(checkWanted_, false)) {
        status_ = u"Prüfung: " + preview_.CountText() + u".";
    }
    if (std::exchange(dryRunWanted_, false)) {
        ShowDryRun();
    }
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
        preview_.Want(false);
        preview_.UpdateFindings(*document_);
    });
    preview_.Begin(*document_);
    destination_ = Destination{};
}

void MainModel::ShowFindings() {
    preview_.ShowFindings(true);
    preview_.Want(true);
    checkWanted_ = true;
    status_ = u"Die Einstellungen werden geprüft…";
    destination_ = Destination{0, true};
}

/// What is shown must be about the settings as they stand.
void MainModel::ShowDryRun() {
    if (!preview_.IsCurrent()) {
        dryRunWanted_ = true;
        preview_.Want(true);
        status_ = u"Der Probelauf wird ermittelt…";
        return;
    }
    status_.clear();
    tarvex::ShowDryRun(services_.files.dialogs, *preview_.Result(), document_->Name(), pcs_.Name());
}

void MainModel::CompareLog() {
    if (const PreviewResult* result = preview_.Result()) {
        CompareWithLog(services_.files.dialogs, services_.files.store, services_.files.codec,
                       document_->Folder(), result->text, pcs_.Name());
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
    TellUser(services_.files.dialogs, BoxIcon::Information, Pages()[page_].help);
}

}  // namespace tarvex
