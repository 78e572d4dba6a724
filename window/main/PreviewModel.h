#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "window/document/Document.h"
#include "window/main/KeptState.h"
#include "window/main/PreviewPaneState.h"
#include "window/pages/PageFindings.h"
#include "window/preview/PcChoice.h"
#include "window/preview/Preview.h"

namespace tarvex {

/// What was found out about the settings of the document, whether that still holds, and how the
/// lower part of the main window shows it.
class PreviewModel {
public:
    /// `kept` has the height that the user has left; it outlives this object.
    explicit PreviewModel(KeptState& kept);

    /// Another document is shown: nothing is known of it.
    void Begin(const Document& document);

    /// The document has changed, or the user wants to know anew.
    void Want(bool atOnce);

    /// What was wanted since the last call: without a rest when it is true; nothing: nothing was.
    std::optional<bool> TakeWanted();

    void SetResult(PreviewResult result, const Document& document);

    /// Whether a newer result is being worked out, and whether that waits for something that does
    /// not answer. True when it is news.
    bool SetState(bool isOld, bool isStuck);

    /// The last result; null: there is none. It stays in its place until Begin.
    const PreviewResult* Result() const { return result_ ? &*result_ : nullptr; }

    /// True when the result is about the document as it stands.
    bool IsCurrent() const { return result_ && !isOld_ && !wanted_; }

    /// Works out anew what is to be said about the document as it stands.
    void UpdateFindings(const Document& document);
    const std::vector<FindingRow>& Findings() const { return findings_; }

    /// "2 Hinweise".
    std::u16string CountText() const;

    PreviewPaneState Pane(const PcChoice& pcs) const;

    bool IsFolded() const { return folded_; }
    void Fold(bool folded) { folded_ = folded; }
    bool ShowsFindings() const { return showsFindings_; }
    void ShowFindings(bool shows);

    /// Of the unfolded preview, in pixels at 100 %.
    std::int32_t Height() const { return height_; }
    void SetHeight(std::int32_t height) { height_ = height; }

    void Keep() const;

private:
    std::vector<std::u16string> Lines() const;

    KeptState& kept_;
    std::optional<PreviewResult> result_;
    std::vector<FindingRow> findings_;
    bool isOld_ = false;
    bool isStuck_ = false;
    bool wanted_ = false;
    bool wantedAtOnce_ = false;
    bool folded_ = false;
    bool showsFindings_ = false;
    std::int32_t height_ = 120;
};

}  // namespace tarvex
