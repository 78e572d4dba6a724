#include "window/main/PreviewModel.h"

#include <utility>

#include "text/Text.h"

namespace tarvex {

PreviewModel::PreviewModel(KeptState& kept) : kept_(kept) {
    if (const std::optional<std::int32_t> height = kept.PreviewHeight()) {
        folded_ = *height == 0;
        height_ = folded_ ? height_ : *height;
    }
}

void PreviewModel::Begin(const Document& document) {
    result_.reset();
    showsFindings_ = false;
    UpdateFindings(document);
    Want(true);
}

void PreviewModel::Want(bool atOnce) {
    wanted_ = true;
    wantedAtOnce_ = wantedAtOnce_ || atOnce;
}

std::optional<bool> PreviewModel::TakeWanted() {
    if (!std::exchange(wanted_, false)) {
        return std::nullopt;
    }
    isOld_ = true;
    return std::exchange(wantedAtOnce_, false);
}

void PreviewModel::SetResult(PreviewResult result, const Document& document) {
    result_ = std::move(result);
    isOld_ = false;
    isStuck_ = false;
    UpdateFindings(document);
}

bool PreviewModel::SetState(bool isOld, bool isStuck) {
    const bool old = isOld || wanted_;
    const bool isNews = old != isOld_ || isStuck != isStuck_;
    isOld_ = old;
    isStuck_ = isStuck;
    return isNews;
}

void PreviewModel::UpdateFindings(const Document& document) {
    findings_ = FindingRows(document, Result());
}

std::vector<std::u16string> PreviewModel::Lines() const {
    std::vector<std::u16string> lines;
    for (const FindingRow& finding : findings_) {
        lines.push_back(finding.text);
    }
    if (result_) {
        lines.insert(lines.end(), result_->remarks.begin(), result_->remarks.end());
    }
    return lines;
}

std::u16string PreviewModel::CountText() const {
    const std::size_t count = Lines().size();
    if (count == 0) {
        return u"Keine Hinweise";
    }
    return count == 1 ? u"1 Hinweis"
                      : text::Decimal(static_cast<std::int64_t>(count)) + u" Hinweise";
}

PreviewPaneState PreviewModel::Pane(const PcChoice& pcs) const {
    PreviewPaneState pane;
    pane.pcs = pcs.Lines();
    pane.pc = pcs.Selected();
    pane.isOld = isOld_ || wanted_;
    if (result_) {
        pane.commandLine = result_->commandLine;
        pane.text = result_->text;
    }
    if (isStuck_) {
        pane.commandLine = u"Ein Pfad antwortet nicht. Die Vorschau wartet darauf…";
    }
    pane.showsFindings = showsFindings_;
    pane.findings = Lines();
    pane.findingsTitle = CountText();
    if (pane.findings.empty()) {
        pane.findings.emplace_back(u"Nichts zu beanstanden.");
    }
    return pane;
}

void PreviewModel::ShowFindings(bool shows) {
    showsFindings_ = shows;
    folded_ = false;
}

void PreviewModel::Keep() const {
    kept_.SetPreviewHeight(folded_ ? 0 : height_);
}

}  // namespace tarvex
