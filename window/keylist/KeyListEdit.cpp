#include "window/keylist/KeyListEdit.h"

#include <algorithm>
#include <utility>

#include "text/Text.h"
#include "window/keylist/KeyListField.h"

namespace tarvex {
namespace {

bool IsFree(std::u16string_view text) {
    return TrimBlanksAndTabs(text).empty();
}

}  // namespace

KeyListEdit::KeyListEdit(Document& document, const KeyListFields& list)
    : document_(document), list_(list), base_(Current()) {}

std::vector<KeyListEdit::Line> KeyListEdit::Lines() const {
    std::vector<Line> lines;
    for (const std::int32_t number : list_.Numbers()) {
        std::vector<std::u16string> entries = EntriesOfField(list_, document_.Text(number));
        for (std::size_t i = 0; i < entries.size(); ++i) {
            lines.push_back({number, i, entries.size(), std::move(entries[i])});
        }
    }
    return lines;
}

std::size_t KeyListEdit::Room() const {
    const Texts texts = Current();
    return static_cast<std::size_t>(std::count_if(texts.begin(), texts.end(), IsFree));
}

std::vector<std::u16string> KeyListEdit::EntriesOf(const Line& line) const {
    std::vector<std::u16string> entries = EntriesOfField(list_, document_.Text(line.number));
    entries.resize(line.count);
    return entries;
}

KeyListEdit::Line KeyListEdit::NewLine() const {
    const auto numbers = list_.Numbers();
    const auto* free = std::find_if(numbers.begin(), numbers.end(), [this](std::int32_t number) {
        return IsFree(document_.Text(number));
    });
    return {free == numbers.end() ? list_.first : *free, 0, 1, {}};
}

void KeyListEdit::Add(const std::vector<std::u16string>& texts) {
    Texts fields = Current();
    const auto firstFree = [&fields] {
        return std::find_if_not(fields.rbegin(), fields.rend(), IsFree).base();
    };
    if (static_cast<std::size_t>(fields.end() - firstFree()) < texts.size()) {
        std::stable_partition(fields.begin(), fields.end(),
                              [](const std::u16string& text) { return !IsFree(text); });
    }
    auto place = firstFree();
    for (auto text = texts.begin(); text != texts.end() && place != fields.end(); ++text) {
        *place++ = *text;
    }
    Apply(fields);
}

void KeyListEdit::Change(std::size_t line, std::u16string_view entry) {
    const Line changed = Lines().at(line);
    Texts fields = Current();
    std::vector<std::u16string> entries = EntriesOf(changed);
    entries.at(changed.position) = entry;
    fields.at(static_cast<std::size_t>(changed.number - list_.first)) = JoinEntries(entries);
    Apply(fields);
}

void KeyListEdit::Remove(std::size_t line) {
    const Line removed = Lines().at(line);
    Texts fields = Current();
    const auto field = fields.begin() + (removed.number - list_.first);
    std::vector<std::u16string> entries = EntriesOfField(list_, *field);
    entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(removed.position));
    *field = JoinEntries(entries);
    if (IsFree(*field)) {
        field->clear();
        std::rotate(field, field + 1, std::find_if(field + 1, fields.end(), IsFree));
    }
    Apply(fields);
}

bool KeyListEdit::CanMove(std::size_t line, bool up) const {
    return up ? line > 0 : line + 1 < Lines().size();
}

KeyListEdit::Texts KeyListEdit::Moved(std::size_t line, bool up) const {
    std::vector<Line> lines = Lines();
    std::swap(lines.at(line).entry, lines.at(up ? line - 1 : line + 1).entry);
    std::array<std::vector<std::u16string>, KeyListFields::kCount> entries;
    for (Line& each : lines) {
        entries.at(static_cast<std::size_t>(each.number - list_.first))
            .push_back(std::move(each.entry));
    }
    Texts fields = Current();
    for (const std::size_t moved : {line, up ? line - 1 : line + 1}) {
        const auto index = static_cast<std::size_t>(lines.at(moved).number - list_.first);
        fields.at(index) = JoinEntries(entries.at(index));
    }
    return fields;
}

void KeyListEdit::Move(std::size_t line, bool up) {
    if (CanMove(line, up)) {
        Apply(Moved(line, up));
    }
}

void KeyListEdit::Revert() {
    Texts fields;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        fields[i] = document_.Saved().Value(list_.first + static_cast<std::int32_t>(i));
    }
    Apply(fields);
}

bool KeyListEdit::Undo() {
    const Texts current = Current();
    if (!steps_.empty() && current == steps_.back().before) {
        steps_.pop_back();  // something else has taken it back
    }
    const Texts& known = steps_.empty() ? base_ : steps_.back().after;
    if (current != known) {
        TakeBack(current, known, false);
        return true;
    }
    if (steps_.empty()) {
        return false;
    }
    TakeBack(current, steps_.back().before, true);
    steps_.pop_back();
    return true;
}

KeyListEdit::Texts KeyListEdit::Current() const {
    Texts texts;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        texts[i] = document_.Text(list_.first + static_cast<std::int32_t>(i));
    }
    return texts;
}

void KeyListEdit::Apply(const Texts& texts) {
    const Texts before = Current();
    if (texts == before) {
        return;
    }
    for (std::size_t i = 0; i < texts.size(); ++i) {
        document_.SetText(list_.first + static_cast<std::int32_t>(i), texts[i]);
    }
    steps_.push_back({before, texts});
}

void KeyListEdit::TakeBack(const Texts& current, const Texts& target, bool whole) {
    for (std::size_t i = 0; i < target.size(); ++i) {
        if (current[i] == target[i]) {
            continue;
        }
        const std::int32_t number = list_.first + static_cast<std::int32_t>(i);
        const bool undone = document_.CanUndo(number);
        document_.Undo(number);
        if (whole || !undone) {
            document_.SetText(number, target[i]);
        }
    }
}

}  // namespace tarvex
