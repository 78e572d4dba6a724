#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "launch/RegistryKeyList.h"
#include "window/document/Document.h"
#include "window/form/Form.h"
#include "window/keylist/KeyListEdit.h"
#include "window/preview/Preview.h"

namespace tarvex {

/// What an entry of the list leads to on the PC of the preview; must answer at once. Empty: nobody
/// knows.
using EntryAnswerer =
    std::function<EntryAnswer(const KeyListFields& list, const std::u16string& entry)>;

/// The dialog of one entry of a key list. An entry that the user does not change stays as it is
/// written, also when the launcher cannot read it.
class KeyEntryForm : public FormModel {
public:
    static constexpr std::int32_t kRootRow = 100;
    static constexpr std::int32_t kKeyRow = 101;
    static constexpr std::int32_t kValueRow = 102;
    static constexpr std::int32_t kSubFolderRow = 103;
    static constexpr std::int32_t kFileRow = 104;
    static constexpr std::int32_t kStoredRow = 105;  ///< the entry as it is written, read-only
    static constexpr std::int32_t kAnswerRow = 106;

    /// For an entry of the list, or for a new one with a line from KeyListEdit::NewLine. Nothing is
    /// changed in the list.
    KeyEntryForm(const KeyListEdit& edit, KeyListEdit::Line line, EntryAnswerer answer);

    /// Enters the fields of an entry that was copied elsewhere.
    void Enter(const KeyListEntry& entry);

    /// The entry as it is to be written.
    const std::u16string& Entry() const { return stored_; }

    const std::vector<FormRow>& Rows() const override { return rows_; }
    RowState State(std::int32_t id) const override;
    void SetText(std::int32_t id, std::u16string_view text) override;
    void Select(std::int32_t id, std::int32_t index) override;
    bool Accept() override;

private:
    static std::u16string KeyListEntry::*FieldOfRow(std::int32_t id);

    bool IsChanged() const;
    void Compose();
    void CheckForm(const std::u16string& text, const std::vector<std::u16string>& entries);
    void Refuse(std::int32_t row, std::u16string_view message);
    void AddFindings();
    std::int32_t RowOfFinding(const Finding& finding) const;

    KeyListFields list_;
    KeyListEdit::Line line_;
    std::vector<std::u16string> before_;  // the entries of the field
    EntryAnswerer answerer_;
    std::vector<FormRow> rows_;
    Document scratch_;  // takes each text for trial
    KeyListEntry original_;
    KeyListEntry entry_;
    std::u16string stored_;
    bool tried_ = false;    // the user wanted to close the dialog: what is missing is told now
    bool refused_ = false;  // the entry cannot be written like this
    std::map<std::int32_t, std::u16string> messages_;  // by the row
    EntryAnswer answer_;
};

}  // namespace tarvex
