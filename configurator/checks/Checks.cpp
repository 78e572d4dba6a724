#include "configurator/checks/Checks.h"

#include <algorithm>
#include <utility>

#include "configurator/checks/CheckRun.h"

namespace tarvex {

std::u16string FieldName(std::int32_t number) {
    return std::u16string(FindField(number)->name);
}

std::u16string Quoted(std::u16string_view text) {
    return u"'" + std::u16string(text) + u"'";
}

std::u16string EntryText(std::u16string_view entry) {
    return u"Der Eintrag " + Quoted(entry) + u" ";
}

bool CheckRun::HasKeyList(const KeyListFields& list) const {
    const auto numbers = list.Numbers();
    return std::any_of(numbers.begin(), numbers.end(),
                       [this](std::int32_t number) { return IsSet(number); });
}

void CheckRun::Report(FindingId kind, std::int32_t number, std::u16string text) {
    findings_.emplace_back(
        kind, Problem{place_, settings_.Line(number), FieldName(number), std::move(text)});
}

Findings CheckRun::Take() {
    std::stable_sort(findings_.begin(), findings_.end(), [](const Finding& a, const Finding& b) {
        return a.problem.line < b.problem.line;
    });
    return std::move(findings_);
}

Findings CheckSettings(const Settings& settings, std::u16string_view place,
                       const LauncherFolder& folder) {
    CheckRun run(settings, place, folder);
    CheckAccess(run);
    CheckPathFields(run);
    CheckKeyLists(run);
    CheckDatabase(run);
    CheckWorkgroup(run);
    CheckPicture(run);
    CheckTexts(run);
    CheckIcon(run);
    return run.Take();
}

}  // namespace tarvex
