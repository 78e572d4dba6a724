#include "configurator/Model.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "branding/Scrambling.h"
#include "branding/StoredValue.h"
#include "configurator/program/ProgramFields.h"
#include "text/Text.h"

namespace tarvex {
namespace {

/// Position of a line end that is not CR LF, npos when there is none.
std::size_t FindLoneLineEnd(std::u16string_view value) {
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == u'\r' && i + 1 < value.size() && value[i + 1] == u'\n') {
            ++i;
        } else if (value[i] == u'\r' || value[i] == u'\n') {
            return i;
        }
    }
    return std::u16string_view::npos;
}

AcceptedValue AcceptFlag(std::u16string_view value) {
    for (const std::u16string_view yes : {u"1", u"ja", u"true"}) {
        if (text::EqualsIgnoreCase(value, yes)) {
            return {u"1", {}};
        }
    }
    for (const std::u16string_view no : {u"0", u"nein", u"false"}) {
        if (text::EqualsIgnoreCase(value, no)) {
            return {u"0", {}};
        }
    }
    return {{}, u"'" + std::u16string(value) + u"' ist kein Schalterwert (erlaubt: 1 oder 0)."};
}

std::u16string CharacterProblem(const BrandField& field, std::u16string_view value) {
    if (value.find(u'\0') != std::u16string_view::npos) {
        return u"Der Wert enthält das Zeichen mit dem Code 0.";
    }
    if (FindLoneLineEnd(value) != std::u16string_view::npos) {
        return u"Ein Zeilenwechsel im Wert muss aus CR und LF bestehen.";
    }
    if (field.kind == FieldKind::Credential && TrimBlanksAndTabs(value).size() != value.size()) {
        // A settings file cannot hold such a value, and Access is handed it without the blanks.
        return u"Der Wert darf nicht mit einem Leerzeichen oder Tabulator beginnen oder enden.";
    }
    return {};
}

std::int32_t CredentialRoom(const BrandField& field, std::u16string text, const TextCodec& codec) {
    const auto limit = static_cast<std::size_t>(field.width);
    const std::size_t before = text.size();
    while (true) {
        std::u16string longest;
        std::size_t longestList = 0;
        for (char16_t c = u' '; c < 0x7f; ++c) {
            std::u16string candidate = text + c;
            const std::size_t length = EncodeNumberList(candidate, codec).size();
            if (length > longestList) {
                longestList = length;
                longest = std::move(candidate);
            }
        }
        if (longestList > limit) {
            return static_cast<std::int32_t>(text.size() - before);
        }
        text = std::move(longest);
    }
}

}  // namespace

std::u16string ProblemLine(const Problem& problem) {
    std::u16string line = problem.place;
    const auto append = [&line](std::u16string_view part) {
        if (!line.empty()) {
            line += u", ";
        }
        line += part;
    };
    if (problem.line > 0) {
        append(u"Zeile " + text::Decimal(problem.line));
    }
    if (!problem.field.empty()) {
        append(problem.field);
    }
    if (!line.empty()) {
        line += u": ";
    }
    line += problem.text;
    line = text::Replace(line, text::kLineBreak, u" ");
    std::replace_if(
        line.begin(), line.end(), [](char16_t c) { return c < u' ' || c == 0x7f; }, u' ');
    return line;
}

void Append(Problems& problems, Problems more) {
    std::move(more.begin(), more.end(), std::back_inserter(problems));
}

std::u16string_view Settings::Value(std::int32_t number) const {
    const auto found = entries_.find(number);
    return found != entries_.end() ? std::u16string_view(found->second.value)
                                   : std::u16string_view();
}

std::int32_t Settings::Line(std::int32_t number) const {
    const auto found = entries_.find(number);
    return found != entries_.end() ? found->second.line : 0;
}

void Settings::Set(std::int32_t number, std::u16string_view value, std::int32_t line) {
    entries_[number] = {std::u16string(value), line};
}

std::u16string_view TrimBlanksAndTabs(std::u16string_view text) {
    const std::size_t first = text.find_first_not_of(u" \t");
    if (first == std::u16string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(u" \t") - first + 1);
}

void Settings::SetAll(const Settings& more) {
    for (const auto& [number, entry] : more.entries_) {
        entries_[number] = entry;
    }
    if (more.Has(kFieldIconFile)) {
        icon_ = more.icon_;
    }
}

AcceptedValue AcceptValue(const BrandField& field, std::u16string_view entered,
                          const TextCodec& codec) {
    if (IsProgramField(field.number)) {
        return AcceptProgramValue(field, entered);
    }
    const std::u16string_view value =
        field.kind == FieldKind::Credential ? entered : TrimBlanksAndTabs(entered);
    if (value.empty()) {
        return {};
    }
    if (field.kind == FieldKind::Flag) {
        return AcceptFlag(value);
    }
    if (std::u16string problem = CharacterProblem(field, value); !problem.empty()) {
        return {{}, std::move(problem)};
    }
    StoredValue stored = MakeStoredValue(field, value, codec);
    if (!stored.problem.empty()) {
        return {{}, std::move(stored.problem)};
    }
    return {std::u16string(value), {}};
}

std::size_t NameDistance(std::u16string_view a, std::u16string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j) {
        row[j] = j;
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t change = text::Fold(a[i]) == text::Fold(b[j]) ? 0 : 1;
            const std::size_t best = std::min({row[j] + 1, row[j + 1] + 1, diagonal + change});
            diagonal = std::exchange(row[j + 1], best);
        }
    }
    return row[b.size()];
}

std::u16string UnknownNameText(std::u16string_view name) {
    std::vector<std::u16string_view> known;
    for (const BrandField* field : FieldsByNumber()) {
        known.push_back(field->name);
    }
    return UnknownNameText(name, known);
}

std::u16string UnknownNameText(std::u16string_view name,
                               const std::vector<std::u16string_view>& known) {
    const auto nearest = std::min_element(known.begin(), known.end(),
                                          [name](std::u16string_view a, std::u16string_view b) {
                                              return NameDistance(a, name) < NameDistance(b, name);
                                          });
    return u"Unbekannter Name '" + std::u16string(name) + u"'; gemeint ist vielleicht " +
           std::u16string(*nearest) + u".";
}

const std::vector<const BrandField*>& FieldsByNumber() {
    static const std::vector<const BrandField*> fields = [] {
        std::vector<const BrandField*> sorted;
        sorted.reserve(kBrandFields.size() + kProgramFields.size());
        for (const BrandField& field : kBrandFields) {
            sorted.push_back(&field);
        }
        for (const BrandField& field : kProgramFields) {
            sorted.push_back(&field);
        }
        std::sort(sorted.begin(), sorted.end(),
                  [](const BrandField* a, const BrandField* b) { return a->number < b->number; });
        return sorted;
    }();
    return fields;
}

const BrandField* FindField(std::int32_t number) {
    return IsProgramField(number)
               ? &kProgramFields.at(static_cast<std::size_t>(number - kFieldIconFile))
               : FindBrandField(number);
}

const BrandField* FindFieldByName(std::u16string_view name) {
    const auto found = std::find_if(
        kProgramFields.begin(), kProgramFields.end(),
        [name](const BrandField& field) { return text::EqualsIgnoreCase(field.name, name); });
    return found != kProgramFields.end() ? &*found : FindBrandFieldByName(name);
}

std::int32_t UsableWidth(const BrandField& field, const TextCodec& codec) {
    return field.kind == FieldKind::Credential ? CredentialRoom(field, {}, codec) : field.width;
}

std::int32_t RoomAfterCredential(const BrandField& field, std::u16string_view text,
                                 const TextCodec& codec) {
    return CredentialRoom(field, std::u16string(text), codec);
}

}  // namespace tarvex
