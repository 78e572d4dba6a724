#include "window/document/ReplaceText.h"

#include <optional>
#include <utility>

#include "text/Text.h"
#include "window/keylist/KeyListField.h"

namespace tarvex {
namespace {

constexpr std::size_t kNone = std::u16string_view::npos;

std::u16string Replaced(std::u16string_view text, const TextReplacement& replacement) {
    const auto find = [&](std::size_t from) {
        return replacement.matchCase ? text.find(replacement.find, from)
                                     : text::FindIgnoreCase(text, replacement.find, from);
    };
    std::u16string result;
    std::size_t done = 0;
    for (std::size_t at = find(0); at != kNone; at = find(done)) {
        result.append(text.substr(done, at - done)).append(replacement.replacement);
        done = at + replacement.find.size();
    }
    return result.append(text.substr(done));
}

/// The list that the field belongs to; nothing when it is no key-list entry.
std::optional<KeyListFields> ListOfField(std::int32_t number) {
    for (const KeyListFields& list : {kAccRegList, kDBRegList, kPicRegList, kSysDBRegList}) {
        if (number >= list.Field(1) && number <= list.Field(KeyListFields::kCount)) {
            return list;
        }
    }
    return std::nullopt;
}

std::size_t UnreadableEntries(const KeyListFields& list, std::u16string_view text) {
    std::size_t count = 0;
    for (const std::u16string& entry : EntriesOfField(list, text)) {
        count += IsReadableEntry(entry) ? 0U : 1U;
    }
    return count;
}

std::u16string ProblemOf(const ReplaceChange& change, Document& scratch) {
    scratch.SetText(change.number, change.after);
    std::u16string problem = scratch.Problem(change.number);
    const auto list = ListOfField(change.number);
    if (problem.empty() && list &&
        UnreadableEntries(*list, change.after) > UnreadableEntries(*list, change.before)) {
        problem = u"Das Startprogramm kann den Eintrag so nicht mehr lesen.";
    }
    return problem;
}

}  // namespace

std::vector<ReplaceChange> FindReplacements(const Document& document,
                                            const TextReplacement& replacement) {
    std::vector<ReplaceChange> changes;
    if (replacement.find.empty()) {
        return changes;
    }
    Document scratch = document;
    scratch.SetListener({});
    for (const BrandField* field : FieldsByNumber()) {
        const bool isPath = FindBrandField(field->number) != nullptr &&
                            (field->kind == FieldKind::Path || field->kind == FieldKind::KeyList);
        const std::u16string_view text = document.Text(field->number);
        if (!isPath || text.empty()) {
            continue;
        }
        ReplaceChange change{field->number, std::u16string(text), Replaced(text, replacement), {}};
        if (change.after != change.before) {
            change.problem = ProblemOf(change, scratch);
            changes.push_back(std::move(change));
        }
    }
    return changes;
}

void ApplyReplacements(Document& document, const std::vector<ReplaceChange>& changes) {
    for (const ReplaceChange& change : changes) {
        if (change.problem.empty()) {
            document.SetText(change.number, change.after);
        }
    }
}

}  // namespace tarvex
