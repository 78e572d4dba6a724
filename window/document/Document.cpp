#include "window/document/Document.h"

#include <algorithm>
#include <utility>

#include "branding/StoredValue.h"
#include "configurator/program/ProgramFields.h"
#include "launch/PathHelpers.h"
#include "text/Text.h"

namespace tarvex {
namespace {

bool SameValue(const BrandField& field, std::u16string_view a, std::u16string_view b) {
    // An empty switch is off, like "0".
    const auto off = [](std::u16string_view value) { return value.empty() || value == u"0"; };
    return a == b || (field.kind == FieldKind::Flag && off(a) && off(b));
}

}  // namespace

Document::Document(DocumentFile file, Settings saved, const TextCodec& codec)
    : file_(std::move(file)), saved_(std::move(saved)), codec_(codec) {
    KeepSavedIcon();
}

std::u16string_view Document::Name() const {
    return FileNamePart(file_.path);
}

std::u16string_view Document::Folder() const {
    return std::u16string_view(file_.path).substr(0, file_.path.size() - Name().size());
}

std::u16string_view Document::Text(std::int32_t number) const {
    const auto found = edited_.find(number);
    return found != edited_.end() ? std::u16string_view(found->second.text) : saved_.Value(number);
}

void Document::SetText(std::int32_t number, std::u16string_view text, bool typed) {
    if (!file_.readOnly && text != Text(number)) {
        Change(number, std::u16string(text), typed);
        Tell();
    }
}

bool Document::CanUndo(std::int32_t number) const {
    const auto found = edited_.find(number);
    return found != edited_.end() && !found->second.before.empty();
}

void Document::Undo(std::int32_t number) {
    if (file_.readOnly || !CanUndo(number)) {
        return;
    }
    Edited& edited = edited_[number];
    edited.text = std::move(edited.before.back());
    edited.before.pop_back();
    typingIn_ = 0;
    Tell();
}

void Document::Revert(std::int32_t number) {
    if (file_.readOnly) {
        return;
    }
    if (number == kFieldIconFile) {
        KeepSavedIcon();
    }
    SetText(number, saved_.Value(number));
}

bool Document::IsChanged(std::int32_t number) const {
    const AcceptedValue accepted = Accepted(number);
    return !accepted.problem.empty() ||
           !SameValue(*FindField(number), accepted.value, saved_.Value(number));
}

std::u16string Document::Problem(std::int32_t number) const {
    return Accepted(number).problem;
}

std::int32_t Document::RoomLeft(std::int32_t number) const {
    const BrandField& field = *FindField(number);
    if (field.kind == FieldKind::Credential) {
        return CredentialRoomLeft(field);
    }
    const std::u16string_view text = TrimBlanksAndTabs(Text(number));
    const std::size_t stored =
        IsProgramField(number) ? 0 : MakeStoredValue(field, text, codec_).length;
    return field.width - static_cast<std::int32_t>(std::max(text.size(), stored));
}

void Document::SetParked(const std::set<std::int32_t>& numbers, bool parked) {
    if (file_.readOnly) {
        return;
    }
    for (const std::int32_t number : numbers) {
        if (parked) {
            parked_.insert(number);
        } else {
            parked_.erase(number);
        }
    }
    Tell();
}

std::vector<std::int32_t> Document::ParkedTexts() const {
    std::vector<std::int32_t> numbers;
    for (const std::int32_t number : parked_) {
        if (!TrimBlanksAndTabs(Text(number)).empty()) {
            numbers.push_back(number);
        }
    }
    return numbers;
}

Settings Document::Values(Problems* problems) const {
    Settings values;
    for (const BrandField* field : FieldsByNumber()) {
        const bool isKnown = saved_.Has(field->number) || !Text(field->number).empty() ||
                             emptyTexts_.contains(field->number);
        if (!isKnown || IsParked(field->number)) {
            continue;
        }
        AcceptedValue accepted = Accepted(field->number);
        if (accepted.problem.empty()) {
            values.Set(field->number, accepted.value);
        } else if (problems != nullptr) {
            problems->push_back(
                {file_.path, 0, std::u16string(field->name), std::move(accepted.problem)});
        }
    }
    if (values.Has(kFieldIconFile)) {
        values.SetIcon(Icon());
    }
    return values;
}

Settings Document::ChangesFrom(const Settings& stored) const {
    const Settings values = Values();
    Settings changes;
    for (const BrandField* field : FieldsByNumber()) {
        const std::int32_t number = field->number;
        const bool sameIcon = number != kFieldIconFile || values.Icon() == stored.Icon();
        const bool isNewText = emptyTexts_.contains(number) && !stored.Has(number);
        if (!SameValue(*field, values.Value(number), stored.Value(number)) || !sameIcon ||
            isNewText) {
            changes.Set(number, values.Value(number));
        }
    }
    if (changes.Has(kFieldIconFile)) {
        changes.SetIcon(values.Icon());
    }
    return changes;
}

bool Document::IsDirty() const {
    const auto wouldBeLost = [this](const auto& field) {
        const auto& [number, edited] = field;
        return IsParked(number) ? !edited.text.empty() && edited.text != saved_.Value(number)
                                : !Problem(number).empty();
    };
    return IsNew() || !Changes().Entries().empty() ||
           std::any_of(edited_.begin(), edited_.end(), wouldBeLost);
}

void Document::SetSaved(DocumentFile file, Settings saved) {
    for (const std::int32_t number : ParkedTexts()) {
        Change(number, {}, false);
    }
    file_ = std::move(file);
    saved_ = std::move(saved);
    KeepSavedIcon();
    typingIn_ = 0;
    Tell();
}

void Document::Enter(const Settings& settings) {
    if (file_.readOnly) {
        return;
    }
    for (const auto& [number, entry] : settings.Entries()) {
        parked_.erase(number);
        if (entry.value != Text(number)) {
            Change(number, entry.value, false);
        }
        if (IsProgramField(number) && number != kFieldIconFile && entry.value.empty()) {
            emptyTexts_.insert(number);
        }
    }
    if (settings.Has(kFieldIconFile)) {
        icons_.insert_or_assign(std::u16string(IconName()), settings.Icon());
    }
    Tell();
}

void Document::SetIcon(std::string bytes) {
    if (!file_.readOnly) {
        icons_.insert_or_assign(std::u16string(IconName()), std::move(bytes));
        Tell();
    }
}

const std::string& Document::Icon() const {
    static const std::string none;
    const auto found = icons_.find(IconName());
    return found != icons_.end() ? found->second : none;
}

void Document::Change(std::int32_t number, std::u16string text, bool typed) {
    const std::u16string before(Text(number));
    Stroke stroke = Stroke::Replace;
    if (text.size() == before.size() + 1) {
        stroke = Stroke::Insert;
    } else if (text.size() + 1 == before.size()) {
        stroke = Stroke::Delete;
    }
    const bool goesOn = stroke == Stroke::Insert
                            ? lastStroke_ != Stroke::Delete
                            : stroke == Stroke::Delete && lastStroke_ == stroke;
    emptyTexts_.erase(number);
    Edited& edited = edited_[number];
    if (!typed || typingIn_ != number || !goesOn) {
        edited.before.push_back(before);
    }
    edited.text = std::move(text);
    typingIn_ = typed ? number : 0;
    lastStroke_ = stroke;
}

AcceptedValue Document::Accepted(std::int32_t number) const {
    if (Text(number) == saved_.Value(number)) {
        return {std::u16string(Text(number)), {}};
    }
    return AcceptValue(*FindField(number), Text(number), codec_);
}

std::int32_t Document::CredentialRoomLeft(const BrandField& field) const {
    std::u16string_view text = Text(field.number);
    const auto width = static_cast<std::size_t>(field.width);
    const StoredValue stored = MakeStoredValue(field, text, codec_);
    if (stored.length == 0) {  // nothing to store, or a character that cannot be
        return UsableWidth(field, codec_) - static_cast<std::int32_t>(text.size());
    }
    if (stored.length <= width) {
        return RoomAfterCredential(field, text, codec_);
    }
    std::int32_t tooMany = 0;
    while (MakeStoredValue(field, text, codec_).length > width) {
        text.remove_suffix(1);
        ++tooMany;
    }
    return -tooMany;
}

std::u16string_view Document::IconName() const {
    return text::Trim(Text(kFieldIconFile));
}

void Document::KeepSavedIcon() {
    icons_.insert_or_assign(std::u16string(saved_.Value(kFieldIconFile)), saved_.Icon());
}

void Document::Tell() const {
    if (listener_) {
        listener_();
    }
}

}  // namespace tarvex
