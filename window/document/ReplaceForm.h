#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "window/document/ReplaceText.h"
#include "window/form/Form.h"
#include "window/form/UserDialogs.h"

namespace tarvex {

/// The dialog that replaces a piece of text in all paths and key-list entries and shows before what
/// it will change. Nothing is changed as long as one field cannot take its new text, unless the
/// user leaves such fields out.
class ReplaceForm : public FormModel {
public:
    static constexpr std::int32_t kFindRow = 100;
    static constexpr std::int32_t kReplacementRow = 101;
    static constexpr std::int32_t kMatchCaseRow = 102;
    static constexpr std::int32_t kChangesRow = 103;
    static constexpr std::int32_t kLeaveOutRow = 104;

    /// The document outlives the form, can be changed, and is changed when the form is accepted.
    explicit ReplaceForm(Document& document);

    const std::vector<FormRow>& Rows() const override { return rows_; }
    RowState State(std::int32_t id) const override;
    void SetText(std::int32_t id, std::u16string_view text) override;
    void SetChecked(std::int32_t id, bool checked) override;
    void Select(std::int32_t id, std::int32_t index) override;
    bool Accept() override;

private:
    void Find();
    std::int32_t Misfits() const;
    RowState ChangesState() const;
    std::u16string Refusal(std::int32_t row) const;

    Document& document_;
    std::vector<FormRow> rows_;
    TextReplacement replacement_;
    std::vector<ReplaceChange> changes_;
    std::int32_t selected_ = -1;
    bool leaveOut_ = false;
    bool tried_ = false;  // the user wanted to replace: what is missing is told now
};

/// What the window around it says.
FormDialogTexts ReplaceDialogTexts();

}  // namespace tarvex
