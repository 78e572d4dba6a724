#include "window/form/BoxTexts.h"

#include <algorithm>

#include "text/Text.h"

namespace tarvex {
namespace {

/// More lines would make a box higher than a small screen.
constexpr std::size_t kMostLines = 12;

}  // namespace

std::u16string ProblemList(const Problems& problems, std::u16string_view file) {
    std::u16string list;
    const std::size_t shown = problems.size() > kMostLines ? kMostLines - 1 : problems.size();
    for (std::size_t i = 0; i < shown; ++i) {
        Problem problem = problems[i];
        if (problem.place == file) {
            problem.place.clear();
        }
        text::AppendWithSeparator(list, ProblemLine(problem), u"\n");
    }
    if (shown < problems.size()) {
        list += u"\n… und " + text::Decimal(static_cast<std::int64_t>(problems.size() - shown)) +
                u" weitere";
    }
    return list;
}

Problems ProblemsOf(const Findings& findings) {
    Problems problems;
    for (const Finding& finding : findings) {
        problems.push_back(finding.problem);
    }
    return problems;
}

std::u16string FieldNames(const std::vector<std::int32_t>& numbers) {
    std::u16string names;
    for (const std::int32_t number : numbers) {
        text::AppendWithSeparator(names, FindField(number)->name, u", ");
    }
    return names;
}

void TellUser(UserDialogs& dialogs, BoxIcon icon, std::u16string_view text) {
    dialogs.Ask({icon, std::u16string(text), {u"OK"}, 0});
}

bool UserAgrees(UserDialogs& dialogs, BoxIcon icon, std::u16string_view text,
                std::u16string_view caption) {
    return dialogs.Ask({icon, std::u16string(text), {std::u16string(caption), u"Abbrechen"}, 1}) ==
           0;
}

}  // namespace tarvex
