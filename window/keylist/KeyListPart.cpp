#include "window/keylist/KeyListPart.h"

#include <algorithm>
#include <utility>

#include "text/Text.h"
#include "window/form/BoxTexts.h"
#include "window/keylist/KeyListField.h"
#include "window/keylist/PresetsForm.h"
#include "window/keylist/RegistryKeyText.h"

namespace tarvex {
namespace {

constexpr std::u16string_view kMark = u" (!)";

std::u16string CountText(std::size_t count) {
    return text::Decimal(static_cast<std::int64_t>(count));
}

/// The stored entries that a copied text consists of, one a line or divided by list markers; none
/// when it holds anything else.
std::vector<std::u16string> StoredEntries(const KeyListFields& list, std::u16string_view text) {
    std::vector<std::u16string> entries;
    for (const std::u16string_view line : text::Split(text, u'\n')) {
        const std::u16string_view rest = text::Left(line, line.find(u'\r'));
        for (const std::u16string& entry : EntriesOfField(list, rest)) {
            if (!EntryFromText(entry, TextPlace::List).value_or(CopiedEntry()).isWhole) {
                return {};
            }
            entries.emplace_back(TrimBlanksAndTabs(entry));
        }
    }
    return entries;
}

bool IsUnusable(const KeyListEdit::Line& line) {
    if (!IsReadableEntry(line.entry)) {
        return true;
    }
    const Findings findings = FindingsOfField(line.number, line.entry);
    return std::any_of(findings.begin(), findings.end(),
                       [](const Finding& finding) { return finding.severity == Severity::Error; });
}

/// "03", of a field with several entries "03.2".
std::u16string NumberText(const KeyListFields& list, const KeyListEdit::Line& line) {
    std::u16string text = text::Decimal(line.number - list.first + 1, 2);
    if (line.count > 1) {
        text += u"." + text::Decimal(static_cast<std::int64_t>(line.position) + 1);
    }
    return text;
}

std::vector<std::u16string> Columns(const KeyListEdit::Line& line, std::u16string number) {
    const KeyListParse parse = ParseKeyListEntry(text::Trim(line.entry));
    if (parse.error) {
        return {std::move(number), line.entry.empty() ? u"(leer)" : line.entry, {}, {}, {}};
    }
    const KeyListEntry& entry = parse.entry;
    return {std::move(number), std::u16string(HKeyName(entry.root)) + u"\\" + entry.keyPath,
            entry.valueName.empty() ? u"(Standard)" : entry.valueName, entry.subFolder,
            entry.fileName};
}

}  // namespace

std::int32_t KeyListRow(const KeyListFields& list) {
    if (list.first == kAccRegList.first) {
        return 6000;
    }
    if (list.first == kDBRegList.first) {
        return 6100;
    }
    return list.first == kPicRegList.first ? 6200 : 6300;
}

void KeyListPart::AppendRows(std::vector<FormRow>& rows, const KeyListFields& list,
                             std::int32_t indent) {
    const std::int32_t row = KeyListRow(list);
    const std::u16string_view first = FindField(list.Field(1))->name;
    FormRow entries{
        .kind = RowKind::List,
        .id = row,
        .label = u"Schlüssell&iste",
        .name = std::u16string(text::Left(first, first.size() - 2)) + u"01-10",
        .hint =
            u"Die Einträge gelten von oben nach unten; der erste, der zu einer Datei führt, "
            u"wird genommen.",
        .indent = indent,
        .lines = 6,
        .buttons = {{row + kNewButton, u"Ne&u…", u"Neuer Eintrag", ButtonKey::Insert},
                    {row + kEditButton, u"Bea&rbeiten…", u"Eintrag bearbeiten", ButtonKey::Enter},
                    {row + kDeleteButton, u"Lös&chen", u"Eintrag löschen", ButtonKey::Delete},
                    {row + kUpButton, u"Nach &oben", u"Eintrag nach oben", ButtonKey::Up},
                    {row + kDownButton, u"Nach un&ten", u"Eintrag nach unten", ButtonKey::Down},
                    {row + kPasteButton, u"Einfü&gen", u"Eintrag aus der Zwischenablage einfügen",
                     ButtonKey::Paste}},
        .columns = {u"Nr.", u"Schlüssel", u"Wert", u"Unterordner", u"Datei"}};
    if (list.first == kAccRegList.first) {
        entries.buttons.push_back(
            {row + kPresetsButton, u"&Vorgaben…", u"Bekannte Orte von Access", ButtonKey::None});
    }
    rows.push_back(std::move(entries));
    rows.push_back({.kind = RowKind::Line,
                    .id = row + kAnswerRow,
                    .label = u"Eintrag führt &zu",
                    .hint = u"Auf dem PC der Vorschau",
                    .indent = indent});
}

KeyListPart::KeyListPart(Document& document, UserDialogs& dialogs, const KeyListFields& list)
    : document_(document), dialogs_(dialogs), edit_(document, list), row_(KeyListRow(list)) {}

RowState KeyListPart::State(std::int32_t id) const {
    return id == row_ ? ListState() : AnswerState();
}

RowState KeyListPart::ListState() const {
    RowState state;
    const std::vector<KeyListEdit::Line> lines = edit_.Lines();
    for (const KeyListEdit::Line& line : lines) {
        std::u16string number = NumberText(edit_.List(), line);
        if (IsUnusable(line) || !document_.Problem(line.number).empty()) {
            number += kMark;
        }
        state.items.push_back(Columns(line, std::move(number)));
    }
    state.selected = Selected(lines.size());
    state.disabledButtons = DisabledButtons(lines.size());
    if (state.selected < 0) {
        return state;
    }
    const KeyListEdit::Line& line = lines.at(static_cast<std::size_t>(state.selected));
    state.message = document_.Problem(line.number);
    const Findings findings = FindingsOfField(line.number, line.entry);
    if (state.message.empty() && !findings.empty()) {
        state.message = findings.front().problem.text;
    }
    state.note = RoomText(document_.RoomLeft(line.number), FindField(line.number)->width);
    return state;
}

RowState KeyListPart::AnswerState() const {
    RowState state;
    state.readOnly = true;
    const std::vector<KeyListEdit::Line> lines = edit_.Lines();
    const std::int32_t selected = Selected(lines.size());
    if (selected < 0 || answers_ == nullptr) {
        return state;
    }
    const KeyListEdit::Line& line = lines.at(static_cast<std::size_t>(selected));
    const auto answer =
        answers_->find({edit_.List().first, std::u16string(TrimBlanksAndTabs(line.entry))});
    if (answer != answers_->end()) {
        state.text = answer->second.text;
    }
    return state;
}

std::int32_t KeyListPart::Selected(std::size_t lines) const {
    return std::min(selected_, static_cast<std::int32_t>(lines) - 1);
}

std::vector<std::int32_t> KeyListPart::DisabledButtons(std::size_t lines) const {
    const std::int32_t selected = Selected(lines);
    const auto line = static_cast<std::size_t>(std::max(selected, 0));
    const bool canChange = !document_.File().readOnly;
    std::vector<std::int32_t> disabled;
    const auto allow = [&](std::int32_t button, bool allowed) {
        if (!canChange || !allowed) {
            disabled.push_back(row_ + button);
        }
    };
    allow(kNewButton, edit_.Room() > 0);
    allow(kEditButton, selected >= 0);
    allow(kDeleteButton, selected >= 0);
    allow(kUpButton, selected >= 0 && edit_.CanMove(line, true));
    allow(kDownButton, selected >= 0 && edit_.CanMove(line, false));
    allow(kPasteButton, true);
    if (row_ == KeyListRow(kAccRegList)) {
        allow(kPresetsButton, true);
    }
    return disabled;
}

void KeyListPart::Select(std::int32_t id, std::int32_t index) {
    if (id == row_) {
        selected_ = index;
    }
}

void KeyListPart::SelectField(std::int32_t number) {
    const std::vector<KeyListEdit::Line> lines = edit_.Lines();
    const auto found =
        std::find_if(lines.begin(), lines.end(),
                     [number](const KeyListEdit::Line& line) { return line.number == number; });
    if (found != lines.end()) {
        selected_ = static_cast<std::int32_t>(found - lines.begin());
    }
}

void KeyListPart::Press(std::int32_t buttonId) {
    const std::size_t count = edit_.Lines().size();
    const std::vector<std::int32_t> disabled = DisabledButtons(count);
    if (std::find(disabled.begin(), disabled.end(), buttonId) != disabled.end()) {
        return;
    }
    selected_ = Selected(count);
    const auto line = static_cast<std::size_t>(std::max(selected_, 0));
    switch (buttonId - row_) {
        case kNewButton:
            AddEntry(nullptr);
            break;
        case kEditButton:
            EditEntry(line);
            break;
        case kDeleteButton:
            edit_.Remove(line);
            break;
        case kUpButton:
            edit_.Move(line, true);
            --selected_;
            break;
        case kDownButton:
            edit_.Move(line, false);
            ++selected_;
            break;
        case kPasteButton:
            Paste();
            break;
        case kPresetsButton: {
            PresetsForm form(edit_);
            dialogs_.ShowForm(form, {u"Bekannte Orte von Access", {}, u"Schließen", true});
            break;
        }
        default:
            break;
    }
}

bool KeyListPart::Undo(std::int32_t id) {
    return id == row_ && !document_.File().readOnly && edit_.Undo();
}

void KeyListPart::AddEntry(const KeyListEntry* copied) {
    KeyEntryForm form(edit_, edit_.NewLine(), answerer_);
    if (copied != nullptr) {
        form.Enter(*copied);
    }
    if (dialogs_.ShowForm(form, {u"Neuer Eintrag", u"OK", u"Abbrechen"})) {
        edit_.Add({form.Entry()});
        selected_ = static_cast<std::int32_t>(edit_.Lines().size()) - 1;
    }
}

void KeyListPart::EditEntry(std::size_t line) {
    const KeyListEdit::Line edited = edit_.Lines().at(line);
    KeyEntryForm form(edit_, edited, answerer_);
    if (dialogs_.ShowForm(form, {u"Eintrag bearbeiten", u"OK", u"Abbrechen"}) &&
        form.Entry() != edited.entry) {
        edit_.Change(line, form.Entry());
    }
}

void KeyListPart::Paste() {
    const std::u16string text = dialogs_.Clipboard();
    const std::vector<std::u16string> entries = StoredEntries(edit_.List(), text);
    const std::size_t room = edit_.Room();
    if (entries.size() > 1 && room >= entries.size()) {
        edit_.Add(entries);
        selected_ = static_cast<std::int32_t>(edit_.Lines().size()) - 1;
        return;
    }
    const auto copied = EntryFromText(text, TextPlace::List);
    if (!copied) {
        TellUser(dialogs_, BoxIcon::Information,
                 u"In der Zwischenablage steht weder ein Eintrag einer Schlüsselliste noch ein "
                 u"Schlüssel aus dem Registrierungs-Editor.");
    } else if (room == 0) {
        TellUser(dialogs_, BoxIcon::Information,
                 u"Die Schlüsselliste ist voll: Alle zehn Felder sind belegt. Löschen Sie zuerst "
                 u"einen Eintrag.");
    } else if (entries.size() > 1) {
        TellUser(dialogs_, BoxIcon::Information,
                 u"In der Zwischenablage stehen " + CountText(entries.size()) +
                     u" Einträge. Freie Felder in der Schlüsselliste: " + CountText(room) + u".");
    } else {
        AddEntry(&copied->entry);
    }
}

}  // namespace tarvex
