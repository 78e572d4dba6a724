#pragma once

#include <memory>
#include <vector>

#include "platform/FileStore.h"
#include "window/document/Document.h"
#include "window/form/Form.h"
#include "window/form/UserDialogs.h"
#include "window/keylist/KeyListPart.h"
#include "window/pages/Pages.h"
#include "window/pages/PathButtons.h"
#include "window/preview/Preview.h"

namespace tarvex {

/// One page over a document. It lives as long as the document is edited: it knows what can be taken
/// back in its key list.
class PageForm : public FormModel {
public:
    /// All of them outlive this object. `codec` is that of the settings.
    PageForm(const Page& page, Document& document, UserDialogs& dialogs, FileStore& files,
             const TextCodec& codec);

    const std::vector<FormRow>& Rows() const override { return page_.rows; }
    RowState State(std::int32_t id) const override;
    void SetText(std::int32_t id, std::u16string_view text) override;
    void SetChecked(std::int32_t id, bool checked) override;
    void Select(std::int32_t id, std::int32_t index) override;
    void Press(std::int32_t buttonId) override;
    bool Undo(std::int32_t id) override;

    /// Takes the row back to what stands in the file, as a step that can be undone; an answer with
    /// all fields of its question. False when the row has nothing that could be saved.
    bool RevertRow(std::int32_t id);

    /// The last result of the preview, which has the findings and what entries lead to; null: there
    /// is none. It stays the caller's and lives until the next call.
    void SetResult(const PreviewResult* result);

    /// Answers for an entry of a key list while it is edited; without one its dialog shows none.
    void SetAnswerer(const EntryAnswerer& answerer);

    /// Makes ready to go to a field of this page, and returns the row to go to: of a key list, its
    /// entry is chosen; of a field that does not count at the moment, it is the answer to give.
    std::int32_t GoTo(std::int32_t number);

private:
    RowState FieldState(const FormRow& row) const;
    std::u16string Message(std::int32_t number) const;
    std::u16string ListMessage(std::int32_t row) const;
    std::u16string Note(std::int32_t number) const;
    std::u16string ProgramText() const;
    void HoldRow(std::int32_t list);
    KeyListPart* PartOf(std::int32_t id) const;
    const FormRow* FindRow(std::int32_t id) const;

    const Page& page_;
    Document& document_;
    const TextCodec& codec_;
    PathButtons buttons_;
    std::vector<std::unique_ptr<KeyListPart>> parts_;
    const PreviewResult* result_ = nullptr;
};

}  // namespace tarvex
