#include "window/pages/PageForm.h"

#include <algorithm>

#include "configurator/program/ProgramFields.h"
#include "text/Text.h"
#include "window/keylist/KeyListField.h"
#include "window/pages/PageFindings.h"
#include "window/pages/Questions.h"

namespace tarvex {
namespace {

/// What is pasted may have other line ends than the settings and the control know.
std::u16string WithLineBreaks(std::u16string_view text) {
    return text::Replace(text::Replace(text, text::kLineBreak, u"\n"), u"\n", text::kLineBreak);
}

bool IsRowOfText(RowKind kind) {
    return kind == RowKind::Line || kind == RowKind::Secret || kind == RowKind::Lines;
}

/// What is wrong is shown at one of the rows of a field: where it can be mended, or where it would
/// have to be after another answer.
bool ShowsMessage(const Document& document, std::int32_t row) {
    const std::int32_t field = FieldOfRow(row);
    const std::int32_t target = RowToGoTo(document, field);
    return !document.IsParked(field) &&
           (target == row || (row == field && QuestionOfOption(target) != nullptr));
}

}  // namespace

PageForm::PageForm(const Page& page, Document& document, UserDialogs& dialogs, FileStore& files,
                   const TextCodec& codec)
    : page_(page), document_(document), codec_(codec), buttons_(document, dialogs, files) {
    for (const KeyListFields& list : {kAccRegList, kDBRegList, kPicRegList, kSysDBRegList}) {
        if (FindRow(KeyListRow(list)) != nullptr) {
            parts_.push_back(std::make_unique<KeyListPart>(document, dialogs, list));
        }
    }
}

RowState PageForm::State(std::int32_t id) const {
    const bool isReadOnly = document_.File().readOnly;
    const FormRow* row = FindRow(id);
    RowState state;
    if (row == nullptr) {
        return state;
    }
    if (KeyListPart* part = PartOf(id)) {
        state = part->State(id);
        state.visible = state.visible && IsRowInUse(document_, id);
        if (state.message.empty() && row->kind == RowKind::List) {
            state.message = ListMessage(id);
        }
    } else if (id == kRowProgram) {
        state.text = ProgramText();
    } else if (const Question* question = QuestionOfOption(id)) {
        state.checked = ChosenOption(document_, *question).row == id;
        state.enabled = !isReadOnly;
    } else {
        state = FieldState(*row);
    }
    return state;
}

RowState PageForm::FieldState(const FormRow& row) const {
    const std::int32_t number = FieldOfRow(row.id);
    RowState state;
    state.visible = IsRowInUse(document_, row.id);
    if (row.kind == RowKind::Check) {
        state.enabled = !document_.File().readOnly;
        state.checked = document_.Text(number) == u"1";
    } else {
        state.readOnly = document_.File().readOnly;
        state.text = document_.Text(number);
        state.note = Note(number);
    }
    if (ShowsMessage(document_, row.id)) {
        state.message = Message(number);
    }
    if (state.readOnly) {
        for (const FormButton& button : row.buttons) {
            state.disabledButtons.push_back(button.id);
        }
    }
    return state;
}

std::u16string PageForm::Message(std::int32_t number) const {
    std::u16string problem = document_.Problem(number);
    if (!problem.empty() || result_ == nullptr) {
        return problem;
    }
    const auto found = std::find_if(
        result_->findings.begin(), result_->findings.end(),
        [number](const Finding& finding) { return FieldOfFinding(finding) == number; });
    return found != result_->findings.end() ? SeverityText(*found) : u"";
}

/// About an entry that is not chosen in the list; what the list itself says is about that one.
std::u16string PageForm::ListMessage(std::int32_t row) const {
    for (const BrandField* field : FieldsByNumber()) {
        if (RowOfField(field->number) == row && !document_.IsParked(field->number)) {
            if (const std::u16string message = Message(field->number); !message.empty()) {
                return std::u16string(field->name) + u": " + message;
            }
        }
    }
    return {};
}

std::u16string PageForm::Note(std::int32_t number) const {
    const BrandField& field = *FindField(number);
    const std::int32_t left = document_.RoomLeft(number);
    if (number == kFieldIconFile && !document_.Icon().empty()) {
        return document_.IsChanged(number) ? u"Symbol gelesen" : u"Symbol im Programm";
    }
    if (field.kind == FieldKind::Number && left >= 0) {
        return u"Zahl bis " + std::u16string(static_cast<std::size_t>(field.width), u'9');
    }
    return RoomText(left, UsableWidth(field, codec_));
}

std::u16string PageForm::ProgramText() const {
    const DocumentFile& file = document_.File();
    std::u16string text = u"Startprogramm: " + file.path;
    if (document_.IsNew()) {
        text += u" (neu, noch nicht gespeichert)";
    }
    if (file.readOnly) {
        text += u" (kann nur gelesen werden: " + file.whyReadOnly + u")";
    }
    return text;
}

void PageForm::SetText(std::int32_t id, std::u16string_view text) {
    const FormRow* row = FindRow(id);
    const std::int32_t number = FieldOfRow(id);
    if (row == nullptr || number == 0 || !IsRowOfText(row->kind) || !IsRowInUse(document_, id)) {
        return;
    }
    HoldOption(document_, number);
    if (row->kind == RowKind::Lines) {
        document_.SetText(number, WithLineBreaks(text), true);
    } else {
        document_.SetText(number, text, true);
    }
}

void PageForm::SetChecked(std::int32_t id, bool checked) {
    const FormRow* row = FindRow(id);
    if (row == nullptr) {
        return;
    }
    if (row->kind == RowKind::Radio && checked) {
        ChooseOption(document_, id);
    } else if (row->kind == RowKind::Check) {
        document_.SetText(id, checked ? u"1" : u"0");
    }
}

void PageForm::Select(std::int32_t id, std::int32_t index) {
    if (KeyListPart* part = PartOf(id)) {
        part->Select(id, index);
    }
}

void PageForm::Press(std::int32_t buttonId) {
    if (document_.File().readOnly) {
        return;
    }
    if (KeyListPart* part = PartOf(buttonId)) {
        const std::int32_t list = buttonId / 100 * 100;
        if (IsRowInUse(document_, list)) {
            HoldRow(list);
            part->Press(buttonId);
        }
        return;
    }
    for (const FormRow& row : page_.rows) {
        if (BrowseButton(row.id) == buttonId && IsRowInUse(document_, row.id)) {
            buttons_.Press(row.id);
        }
    }
}

bool PageForm::Undo(std::int32_t id) {
    if (KeyListPart* part = PartOf(id)) {
        return part->Undo(id);
    }
    const std::int32_t number = FieldOfRow(id);
    if (document_.File().readOnly || number == 0 || !document_.CanUndo(number)) {
        return false;
    }
    document_.Undo(number);
    return true;
}

bool PageForm::RevertRow(std::int32_t id) {
    if (KeyListPart* part = PartOf(id)) {
        part->Revert();
        return true;
    }
    if (const Question* question = QuestionOfOption(id)) {
        RevertQuestion(document_, *question);
        return true;
    }
    const std::int32_t number = FieldOfRow(id);
    if (number == 0) {
        return false;
    }
    HoldOption(document_, number);
    document_.Revert(number);
    return true;
}

void PageForm::SetResult(const PreviewResult* result) {
    result_ = result;
    for (const auto& part : parts_) {
        part->SetAnswers(result != nullptr ? &result->entries : nullptr);
    }
}

void PageForm::SetAnswerer(const EntryAnswerer& answerer) {
    for (const auto& part : parts_) {
        part->SetAnswerer(answerer);
    }
}

std::int32_t PageForm::GoTo(std::int32_t number) {
    const std::int32_t row = RowToGoTo(document_, number);
    if (KeyListPart* part = PartOf(row)) {
        part->SelectField(number);
    }
    return row;
}

/// The list is edited: its answer stays, even when the last entry goes.
void PageForm::HoldRow(std::int32_t list) {
    for (const BrandField* field : FieldsByNumber()) {
        if (RowOfField(field->number) == list) {
            HoldOption(document_, field->number);
            return;
        }
    }
}

KeyListPart* PageForm::PartOf(std::int32_t id) const {
    for (const auto& part : parts_) {
        if (part->Owns(id)) {
            return part.get();
        }
    }
    return nullptr;
}

const FormRow* PageForm::FindRow(std::int32_t id) const {
    const auto found = std::find_if(page_.rows.begin(), page_.rows.end(),
                                    [id](const FormRow& row) { return row.id == id; });
    return id != 0 && found != page_.rows.end() ? &*found : nullptr;
}

}  // namespace tarvex
