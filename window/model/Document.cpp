#include "window/model/Document.h"

#include <utility>

#include "branding/Scrambling.h"
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
    : file_(std::move(file)), saved_(std::move(saved)), codec_(codec), icon_(saved_.Icon()) {}

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
    edited.typing = false;
    Tell();
}

void Document::Revert(std::int32_t number) {
    SetText(number, saved_.Value(number));
    if (number == kFieldIconFile) {
        icon_ = saved_.Icon();
    }
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
        const auto stored =
            static_cast<std::int32_t>(EncodeNumberList(Text(number), codec_).size());
        const std::int32_t usable = UsableWidth(field, codec_);
        // A character takes up to four in the list of numbers.
        const std::int32_t certain = (field.width - stored) / 4;
        return Text(number).empty() ? usable : certain;
    }
    return field.width - static_cast<std::int32_t>(TrimBlanksAndTabs(Text(number)).size());
}

void Document::SetParked(const std::set<std::int32_t>& numbers, bool parked) {
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
        if (!Text(number).empty()) {
            numbers.push_back(number);
        }
    }
    return numbers;
}

Settings Document::Values(Problems* problems) const {
    Settings values;
    for (const BrandField* field : FieldsByNumber()) {
        const bool known = edited_.contains(field->number) || saved_.Has(field->number);
        if (!known || IsParked(field->number)) {
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
        values.SetIcon(icon_);
    }
    return values;
}

Settings Document::Changes() const {
    const Settings values = Values();
    Settings changes;
    for (const BrandField* field : FieldsByNumber()) {
        const std::int32_t number = field->number;
        const bool sameIcon = number != kFieldIconFile || values.Icon() == saved_.Icon();
        if (!SameValue(*field, values.Value(number), saved_.Value(number)) || !sameIcon) {
            changes.Set(number, values.Value(number));
        }
    }
    if (changes.Has(kFieldIconFile)) {
        changes.SetIcon(values.Icon());
    }
    return changes;
}

void Document::SetSaved(DocumentFile file, Settings saved) {
    file_ = std::move(file);
    saved_ = std::move(saved);
    for (auto& [number, edited] : edited_) {
        edited.typing = false;
    }
    Tell();
}

void Document::Enter(const Settings& settings) {
    if (file_.readOnly) {
        return;
    }
    for (const auto& [number, entry] : settings.Entries()) {
        if (entry.value != Text(number)) {
            Change(number, entry.value, false);
        }
    }
    if (settings.Has(kFieldIconFile)) {
        icon_ = settings.Icon();
    }
    Tell();
}

void Document::SetIcon(std::string bytes) {
    icon_ = std::move(bytes);
    Tell();
}

void Document::Change(std::int32_t number, std::u16string text, bool typed) {
    const std::u16string before(Text(number));
    Edited& edited = edited_[number];
    if (!typed || !edited.typing) {
        edited.before.push_back(before);
    }
    edited.text = std::move(text);
    edited.typing = typed;
}

AcceptedValue Document::Accepted(std::int32_t number) const {
    return AcceptValue(*FindField(number), Text(number), codec_);
}

void Document::Tell() const {
    if (listener_) {
        listener_();
    }
}

}  // namespace tarvex
