#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "window/document/Document.h"
#include "window/form/Form.h"
#include "window/form/UserDialogs.h"
#include "window/keylist/KeyEntryForm.h"
#include "window/keylist/KeyListEdit.h"
#include "window/preview/Preview.h"

namespace tarvex {

/// Id of the row with the list itself, which is the row of all fields of that list: 6000 for
/// Access, 6100 for the database, 6200 for the start picture, 6300 for the workgroup database.
std::int32_t KeyListRow(const KeyListFields& list);

/// The part of a page that edits one registry key list of a document: the list with its buttons,
/// and what the chosen entry leads to. Of the access keys it takes I (list), U, R, C, O, T, G, V
/// (buttons) and Z (what it leads to).
class KeyListPart {
public:
    // What is added to KeyListRow for the row below the list and for the buttons.
    static constexpr std::int32_t kNewButton = 1;
    static constexpr std::int32_t kEditButton = 2;
    static constexpr std::int32_t kDeleteButton = 3;
    static constexpr std::int32_t kUpButton = 4;
    static constexpr std::int32_t kDownButton = 5;
    static constexpr std::int32_t kPasteButton = 6;
    static constexpr std::int32_t kPresetsButton = 7;
    static constexpr std::int32_t kAnswerRow = 10;

    /// Adds the rows of the list to those of its page.
    static void AppendRows(std::vector<FormRow>& rows, const KeyListFields& list,
                           std::int32_t indent);

    /// Document and dialogs outlive the part, and the part lives as long as the document is edited:
    /// it knows what can be taken back.
    KeyListPart(Document& document, UserDialogs& dialogs, const KeyListFields& list);

    /// True for the rows and the buttons of this list.
    bool Owns(std::int32_t id) const { return id >= row_ && id < row_ + 100; }

    RowState State(std::int32_t id) const;
    void Select(std::int32_t id, std::int32_t index);
    void Press(std::int32_t buttonId);
    bool Undo(std::int32_t id);

    /// All entries back to what stands in the file, as one more step that can be undone.
    void Revert() { edit_.Revert(); }

    /// Chooses the entry of that field, to lead the user to it.
    void SelectField(std::int32_t number);

    /// What the last preview says; null: there is none. It stays the
    /// caller's and lives until the next call.
    void SetAnswers(const EntryAnswers* answers) { answers_ = answers; }

    /// Answers for an entry while it is edited; without one the dialog shows none.
    void SetAnswerer(EntryAnswerer answerer) { answerer_ = std::move(answerer); }

private:
    RowState ListState() const;
    RowState AnswerState() const;
    std::int32_t Selected(std::size_t lines) const;
    std::vector<std::int32_t> DisabledButtons(std::size_t lines) const;
    void AddEntry(const KeyListEntry* copied);
    void EditEntry(std::size_t line);
    void Paste();

    Document& document_;
    UserDialogs& dialogs_;
    KeyListEdit edit_;
    std::int32_t row_;
    std::int32_t selected_ = 0;
    const EntryAnswers* answers_ = nullptr;
    EntryAnswerer answerer_;
};

}  // namespace tarvex
