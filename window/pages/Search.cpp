#include "window/pages/Search.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "text/Text.h"
#include "window/keylist/KeyListPart.h"

namespace tarvex {
namespace {

/// How well a place fits; the better ones first.
enum class Match { Start, Inside, Hint, Value };

constexpr std::size_t kNone = std::u16string_view::npos;

/// A label as it is read: without the mark of its access key.
std::u16string Plain(std::u16string_view label) {
    std::u16string plain;
    for (std::size_t i = 0; i < label.size(); ++i) {
        if (label[i] == u'&' && i + 1 < label.size()) {
            ++i;
        }
        plain += label[i];
    }
    return plain;
}

constexpr KeyListFields kLists[] = {kAccRegList, kDBRegList, kPicRegList, kSysDBRegList};

/// Rows that the user enters or chooses something in.
bool IsSetting(const FormRow& row) {
    const bool isAnswer = std::any_of(std::begin(kLists), std::end(kLists), [&](const auto& list) {
        return row.id == KeyListRow(list) + KeyListPart::kAnswerRow;
    });
    return row.id != 0 && row.kind != RowKind::Heading && row.kind != RowKind::Text &&
           row.kind != RowKind::Output && row.kind != RowKind::Buttons && !isAnswer;
}

class Finder {
public:
    Finder(std::u16string_view searched, const Document& document)
        : searched_(searched), document_(document) {}

    void AddPage(std::size_t number, const Page& page) {
        if (const auto match = MatchOfName(page.title)) {
            Add(*match, {number, 0, std::u16string(page.title)});
        }
        for (const FormRow& row : page.rows) {
            if (IsSetting(row)) {
                AddRow(number, page, row);
            }
        }
    }

    std::vector<SearchHit> Take() {
        std::stable_sort(found_.begin(), found_.end(), [](const auto& left, const auto& right) {
            return left.first < right.first;
        });
        std::vector<SearchHit> hits;
        for (auto& [match, hit] : found_) {
            hits.push_back(std::move(hit));
        }
        return hits;
    }

private:
    bool Contains(std::u16string_view text) const {
        return text::FindIgnoreCase(text, searched_) != kNone;
    }

    std::optional<Match> MatchOfName(std::u16string_view name) const {
        if (text::StartsWithIgnoreCase(name, searched_)) {
            return Match::Start;
        }
        return Contains(name) ? std::optional(Match::Inside) : std::nullopt;
    }

    /// The numbers of the fields that the row edits.
    static std::vector<std::int32_t> FieldsOf(const FormRow& row) {
        for (const KeyListFields& list : kLists) {
            if (row.id == KeyListRow(list)) {
                const auto numbers = list.Numbers();
                return {numbers.begin(), numbers.end()};
            }
        }
        if (FindField(row.id) != nullptr) {
            return {row.id};
        }
        return {};
    }

    /// The first value of the row that holds the text; empty when there is none.
    std::u16string MatchingValue(const FormRow& row,
                                 const std::vector<std::int32_t>& fields) const {
        if (row.kind == RowKind::Secret || row.kind == RowKind::Check) {
            return {};
        }
        for (const std::int32_t number : fields) {
            const bool isSecret = FindField(number)->kind == FieldKind::Credential;
            if (!isSecret && Contains(document_.Text(number))) {
                return std::u16string(document_.Text(number));
            }
        }
        return {};
    }

    void AddRow(std::size_t number, const Page& page, const FormRow& row) {
        if (const std::int32_t field = FieldOfRow(row.id); field != 0 && field != row.id) {
            return;  // the field has another row
        }
        const std::u16string label = Plain(row.label);
        const std::vector<std::int32_t> fields = FieldsOf(row);
        std::vector<Match> matches;
        std::vector<std::u16string_view> names = {label, row.name};
        for (const std::int32_t field : fields) {
            names.push_back(FindField(field)->name);
        }
        for (const std::u16string_view name : names) {
            if (const auto match = MatchOfName(name)) {
                matches.push_back(*match);
            }
        }
        if (Contains(row.hint)) {
            matches.push_back(Match::Hint);
        }
        const std::u16string value = MatchingValue(row, fields);
        if (!value.empty()) {
            matches.push_back(Match::Value);
        }
        if (matches.empty()) {
            return;
        }
        const Match best = *std::min_element(matches.begin(), matches.end());
        std::u16string text(page.title);
        text.append(u": ").append(label);
        if (!row.name.empty()) {
            text.append(u" (").append(row.name).append(u")");
        }
        if (best == Match::Value) {
            text.append(u" = ").append(text::Replace(value, text::kLineBreak, u" "));
        }
        Add(best, {number, row.id, std::move(text)});
    }

    void Add(Match match, SearchHit hit) { found_.emplace_back(match, std::move(hit)); }

    std::u16string_view searched_;
    const Document& document_;
    std::vector<std::pair<Match, SearchHit>> found_;
};

}  // namespace

std::vector<SearchHit> FindSettings(std::u16string_view searched, const std::vector<Page>& pages,
                                    const Document& document) {
    searched = TrimBlanksAndTabs(searched);
    if (searched.empty()) {
        return {};
    }
    Finder finder(searched, document);
    for (std::size_t number = 0; number < pages.size(); ++number) {
        finder.AddPage(number, pages[number]);
    }
    return finder.Take();
}

}  // namespace tarvex
