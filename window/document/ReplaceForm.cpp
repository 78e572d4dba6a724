#include "window/document/ReplaceForm.h"

#include <algorithm>

#include "text/Text.h"

namespace tarvex {
namespace {

/// "1 Feld", "3 Felder".
std::u16string FieldCount(std::int32_t count) {
    return text::Decimal(count) + (count == 1 ? u" Feld" : u" Felder");
}

}  // namespace

FormDialogTexts ReplaceDialogTexts() {
    return {u"Text ersetzen", u"Ersetzen", u"Abbrechen", true};
}

ReplaceForm::ReplaceForm(Document& document) : document_(document) {
    rows_ = {{.kind = RowKind::Line,
              .id = kFindRow,
              .label = u"&Suchen nach",
              .hint = u"In allen Ordnern, Dateinamen und Einträgen der Schlüssellisten"},
             {.kind = RowKind::Line,
              .id = kReplacementRow,
              .label = u"E&rsetzen durch",
              .hint = u"Leer: der gesuchte Text fällt weg"},
             {.kind = RowKind::Check,
              .id = kMatchCaseRow,
              .label = u"&Groß- und Kleinschreibung beachten"},
             {.kind = RowKind::List,
              .id = kChangesRow,
              .label = u"Ä&nderungen",
              .hint = u"Jede Änderung lässt sich in ihrem Feld mit Strg+Z zurücknehmen.",
              .lines = 8,
              .grows = true,
              .columns = {u"Feld", u"Vorher", u"Nachher", u"Hinweis"}},
             {.kind = RowKind::Check,
              .id = kLeaveOutRow,
              .label = u"Felder aus&lassen, die den neuen Text nicht aufnehmen können"}};
}

RowState ReplaceForm::State(std::int32_t id) const {
    RowState state;
    switch (id) {
        case kFindRow:
            state.text = replacement_.find;
            break;
        case kReplacementRow:
            state.text = replacement_.replacement;
            break;
        case kMatchCaseRow:
            state.checked = replacement_.matchCase;
            break;
        case kChangesRow:
            state = ChangesState();
            break;
        case kLeaveOutRow:
            state.checked = leaveOut_;
            state.enabled = Misfits() > 0;
            break;
        default:
            break;
    }
    if (tried_) {
        state.message = Refusal(id);
    }
    return state;
}

RowState ReplaceForm::ChangesState() const {
    RowState state;
    for (const ReplaceChange& change : changes_) {
        const bool isParked = document_.IsParked(change.number);
        state.items.push_back(
            {std::u16string(FindField(change.number)->name), change.before, change.after,
             change.problem.empty() && isParked ? u"zurzeit nicht benutzt" : change.problem});
    }
    state.selected = selected_;
    const auto count = static_cast<std::int32_t>(changes_.size());
    const std::int32_t misfits = Misfits();
    if (count > 0) {
        state.note = FieldCount(count - misfits) + u" zu ändern";
        if (misfits > 0) {
            state.note += u", " + text::Decimal(misfits) + u" nicht möglich";
        }
    }
    return state;
}

std::int32_t ReplaceForm::Misfits() const {
    return static_cast<std::int32_t>(
        std::count_if(changes_.begin(), changes_.end(),
                      [](const ReplaceChange& change) { return !change.problem.empty(); }));
}

std::u16string ReplaceForm::Refusal(std::int32_t row) const {
    const std::int32_t misfits = Misfits();
    if (row == kFindRow) {
        if (replacement_.find.empty()) {
            return u"Bitte den Text eingeben, der ersetzt werden soll.";
        }
        if (changes_.empty()) {
            return u"Hier ist nichts zu ersetzen.";
        }
    }
    if (row == kChangesRow && misfits > 0) {
        if (!leaveOut_) {
            return FieldCount(misfits) + (misfits == 1 ? u" kann" : u" können") +
                   u" den neuen Text nicht aufnehmen: Text ändern oder diese Felder auslassen.";
        }
        if (misfits == static_cast<std::int32_t>(changes_.size())) {
            return u"Kein Feld kann den neuen Text aufnehmen.";
        }
    }
    return {};
}

void ReplaceForm::SetText(std::int32_t id, std::u16string_view text) {
    if (id == kFindRow) {
        replacement_.find = text;
    } else if (id == kReplacementRow) {
        replacement_.replacement = text;
    }
    Find();
}

void ReplaceForm::SetChecked(std::int32_t id, bool checked) {
    if (id == kMatchCaseRow) {
        replacement_.matchCase = checked;
        Find();
    } else if (id == kLeaveOutRow) {
        leaveOut_ = checked;
    }
}

void ReplaceForm::Select(std::int32_t id, std::int32_t index) {
    if (id == kChangesRow) {
        selected_ = index;
    }
}

void ReplaceForm::Find() {
    changes_ = FindReplacements(document_, replacement_);
    selected_ = changes_.empty() ? -1 : 0;
    tried_ = false;
}

bool ReplaceForm::Accept() {
    tried_ = true;
    if (!Refusal(kFindRow).empty() || !Refusal(kChangesRow).empty()) {
        return false;
    }
    ApplyReplacements(document_, changes_);
    return true;
}

}  // namespace tarvex
