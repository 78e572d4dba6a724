#include "window/keylist/KeyEntryForm.h"

#include <algorithm>
#include <array>
#include <utility>

#include "text/Text.h"
#include "window/keylist/KeyListField.h"
#include "window/keylist/RegistryKeyText.h"

namespace tarvex {
namespace {

/// In the order of the drop-down list: what vendors use most comes first.
constexpr std::array<std::u16string_view, 4> kRoots = {u"HKEY_LOCAL_MACHINE", u"HKEY_CURRENT_USER",
                                                       u"HKEY_CLASSES_ROOT", u"HKEY_USERS"};

std::vector<FormRow> MakeRows(const KeyListFields& list) {
    const bool isAccess = list.first == kAccRegList.first;
    const bool isPicture = list.first == kPicRegList.first;
    std::u16string fileHint = u"Wird angehängt; leer: der Wert ist schon der volle Pfad der Datei";
    if (isAccess) {
        fileHint = u"Wird hier nicht beachtet, gesucht wird immer msaccess.exe";
    } else if (isPicture) {
        fileHint = u"Wird angehängt (.bmp oder .jpg); leer: der Wert ist schon der volle Pfad";
    }
    return {
        {RowKind::Choice, KeyEntryForm::kRootRow, u"&Hauptschlüssel"},
        {.kind = RowKind::Line,
         .id = KeyEntryForm::kKeyRow,
         .label = u"&Schlüssel",
         .hint = u"Auch ein ganzer Pfad, wie ihn der Registrierungs-Editor kopiert"},
        {.kind = RowKind::Line,
         .id = KeyEntryForm::kValueRow,
         .label = u"&Wertname",
         .hint = u"Leer: der Standardwert des Schlüssels"},
        {.kind = RowKind::Line,
         .id = KeyEntryForm::kSubFolderRow,
         .label = u"&Unterordner",
         .hint = u"Wird an den Ordner angehängt, der im Wert steht; leer: keiner"},
        {.kind = RowKind::Line,
         .id = KeyEntryForm::kFileRow,
         .label = u"&Dateiname",
         .hint = std::move(fileHint)},
        {.kind = RowKind::Line,
         .id = KeyEntryForm::kStoredRow,
         .label = u"&Gespeichert als",
         .hint = u"So steht er im Startprogramm"},
        {.kind = RowKind::Line,
         .id = KeyEntryForm::kAnswerRow,
         .label = u"&Führt zu",
         .hint = u"Auf dem PC der Vorschau"},
    };
}

KeyListEntry FieldsOf(std::u16string_view text) {
    KeyListParse parse = ParseKeyListEntry(text::Trim(text));
    if (parse.error) {
        // What cannot be read stands in one piece where it can be mended.
        parse.entry.root = text.empty() ? kHKeyLocalMachine : kNoHKey;
        parse.entry.keyPath = text;
    }
    return parse.entry;
}

std::u16string_view WithoutSeparators(std::u16string_view key) {
    while (key.ends_with(u'\\')) {
        key.remove_suffix(1);
    }
    return key;
}

bool Same(const KeyListEntry& a, const KeyListEntry& b) {
    return a.root == b.root && a.keyPath == b.keyPath && a.valueName == b.valueName &&
           a.subFolder == b.subFolder && a.fileName == b.fileName;
}

/// Blanks at the ends are lost when a text is stored, and the engine writes one "\" after a key.
bool ReadsTheSame(const KeyListEntry& a, const KeyListEntry& b) {
    const auto same = [](std::u16string_view left, std::u16string_view right) {
        return TrimBlanksAndTabs(left) == TrimBlanksAndTabs(right);
    };
    return a.root == b.root && same(WithoutSeparators(a.keyPath), WithoutSeparators(b.keyPath)) &&
           same(a.valueName, b.valueName) && same(a.subFolder, b.subFolder) &&
           same(a.fileName, b.fileName);
}

}  // namespace

KeyEntryForm::KeyEntryForm(const KeyListEdit& edit, KeyListEdit::Line line, EntryAnswerer answer)
    : list_(edit.List()),
      line_(std::move(line)),
      before_(edit.EntriesOf(line_)),
      answerer_(std::move(answer)),
      rows_(MakeRows(list_)),
      scratch_(edit.Target()),
      original_(FieldsOf(line_.entry)),
      entry_(original_) {
    scratch_.SetListener({});
    Compose();
}

void KeyEntryForm::Enter(const KeyListEntry& entry) {
    entry_ = entry;
    Compose();
}

RowState KeyEntryForm::State(std::int32_t id) const {
    RowState state;
    if (const auto found = messages_.find(id); found != messages_.end()) {
        state.message = found->second;
    }
    switch (id) {
        case kRootRow:
            for (const std::u16string_view root : kRoots) {
                std::u16string choice(root);
                choice.append(u" (").append(HKeyName(HKeyFromName(root))).append(u")");
                if (HKeyFromName(root) == entry_.root) {
                    state.selected = static_cast<std::int32_t>(state.choices.size());
                }
                state.choices.push_back(std::move(choice));
            }
            break;
        case kStoredRow:
            state.readOnly = true;
            state.text = stored_;
            state.note = RoomText(scratch_.RoomLeft(line_.number), FindField(line_.number)->width);
            break;
        case kAnswerRow:
            state.readOnly = true;
            state.visible = answerer_ != nullptr;
            state.text = answer_.text;
            break;
        default:
            if (const auto field = FieldOfRow(id); field != nullptr) {
                state.text = entry_.*field;
            }
            // An entry for Access names no file; one that does anyway can be mended.
            state.visible = id != kFileRow || list_.first != kAccRegList.first ||
                            !original_.fileName.empty() || !entry_.fileName.empty();
            break;
    }
    return state;
}

std::u16string KeyListEntry::*KeyEntryForm::FieldOfRow(std::int32_t id) {
    switch (id) {
        case kKeyRow:
            return &KeyListEntry::keyPath;
        case kValueRow:
            return &KeyListEntry::valueName;
        case kSubFolderRow:
            return &KeyListEntry::subFolder;
        case kFileRow:
            return &KeyListEntry::fileName;
        default:
            return nullptr;
    }
}

void KeyEntryForm::SetText(std::int32_t id, std::u16string_view text) {
    const auto field = FieldOfRow(id);
    if (field == nullptr) {
        return;
    }
    entry_.*field = text;
    if (id == kKeyRow) {
        if (const auto whole = EntryFromText(text, TextPlace::Key)) {
            entry_.root = whole->entry.root;
            entry_.keyPath = whole->entry.keyPath;
            if (whole->isWhole) {
                entry_ = whole->entry;
            }
        }
    }
    Compose();
}

void KeyEntryForm::Select(std::int32_t id, std::int32_t index) {
    if (id == kRootRow && index >= 0) {
        entry_.root = HKeyFromName(kRoots.at(static_cast<std::size_t>(index)));
        Compose();
    }
}

bool KeyEntryForm::Accept() {
    tried_ = true;
    Compose();
    return !refused_;
}

bool KeyEntryForm::IsChanged() const {
    return line_.entry.empty() || !Same(entry_, original_);
}

void KeyEntryForm::Compose() {
    stored_ = IsChanged() ? BuildKeyListEntry(entry_) : line_.entry;
    if (IsChanged() && entry_.keyPath.empty()) {
        stored_.clear();  // the root alone is no entry
    }
    std::vector<std::u16string> entries = before_;
    entries.at(line_.position) = stored_;
    const std::u16string text = JoinEntries(entries);
    scratch_.SetText(line_.number, text);
    messages_.clear();
    refused_ = false;
    if (IsChanged()) {
        CheckForm(text, entries);
    }
    if (!stored_.empty()) {
        AddFindings();
    }
    answer_ = answerer_ && !stored_.empty() ? answerer_(list_, stored_) : EntryAnswer();
}

void KeyEntryForm::CheckForm(const std::u16string& text,
                             const std::vector<std::u16string>& entries) {
    if (entry_.root == kNoHKey) {
        Refuse(kRootRow, u"Bitte den Hauptschlüssel wählen.");
        return;
    }
    if (entry_.keyPath.empty()) {
        const bool isUntouched =
            entry_.valueName.empty() && entry_.subFolder.empty() && entry_.fileName.empty();
        Refuse(kKeyRow, tried_ || !isUntouched ? u"Der Schlüssel fehlt." : u"");
        return;
    }
    if (entry_.valueName.find(u'\\') != std::u16string::npos) {
        Refuse(kValueRow,
               u"Ein Wertname mit '\\' lässt sich nicht angeben: Was davor steht, gälte als "
               u"Schlüssel.");
        return;
    }
    if (const std::u16string problem = scratch_.Problem(line_.number); !problem.empty()) {
        Refuse(kStoredRow, problem);
        return;
    }
    const KeyListParse parse = ParseKeyListEntry(TrimBlanksAndTabs(stored_));
    if (parse.error || !ReadsTheSame(parse.entry, entry_) ||
        EntriesOfField(list_, text) != entries) {
        Refuse(kStoredRow,
               u"Das Startprogramm läse hier etwas anderes, weil der Text eine Marke ergibt "
               u"('%|SubDir|%', '%|Filename%|' oder '%|%').");
    }
}

void KeyEntryForm::AddFindings() {
    for (const Finding& finding : FindingsOfField(line_.number, stored_)) {
        std::u16string& message = messages_[RowOfFinding(finding)];
        if (message.empty()) {
            message = finding.problem.text;
        }
    }
}

std::int32_t KeyEntryForm::RowOfFinding(const Finding& finding) const {
    for (const std::u16string_view id : {u"key-list-entry", u"key-variable", u"key-separator",
                                         u"key-wow6432node", u"key-expandable"}) {
        if (finding.id == id) {
            return kKeyRow;
        }
    }
    for (const std::u16string_view id :
         {u"access-entry-file", u"picture-type", u"picture-entry-without-file",
          u"sub-folder-without-file"}) {
        if (finding.id == id) {
            return kFileRow;
        }
    }
    if (finding.id.starts_with(u"path-") || finding.id.starts_with(u"file-name-")) {
        // Both parts are paths: the one without which the finding is gone is meant.
        KeyListEntry entry = FieldsOf(stored_);
        entry.subFolder.clear();
        const Findings rest = FindingsOfField(line_.number, BuildKeyListEntry(entry));
        const bool stays = std::any_of(rest.begin(), rest.end(), [&](const Finding& other) {
            return other.id == finding.id && other.problem.text == finding.problem.text;
        });
        return stays ? kFileRow : kSubFolderRow;
    }
    return kStoredRow;
}

void KeyEntryForm::Refuse(std::int32_t row, std::u16string_view message) {
    refused_ = true;
    messages_[row] = message;
}

}  // namespace tarvex
