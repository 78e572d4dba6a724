#include "window/keylist/KeyListField.h"

#include <algorithm>
#include <iterator>

#include "configurator/checks/CheckRun.h"
#include "configurator/checks/Checks.h"
#include "launch/RegistryKeyList.h"
#include "text/Text.h"

namespace tarvex {

bool IsDividedList(const KeyListFields& list) {
    return std::any_of(std::begin(kCheckTargets), std::end(kCheckTargets),
                       [&list](const CheckTarget& target) {
                           return target.list.first == list.first && target.entriesAreLists;
                       });
}

std::vector<std::u16string> EntriesOfField(const KeyListFields& list, std::u16string_view text) {
    std::vector<std::u16string> entries;
    if (TrimBlanksAndTabs(text).empty()) {
        return entries;
    }
    const std::u16string marker = KeyListMarkers().list;
    if (IsDividedList(list)) {
        for (std::size_t at = text::FindIgnoreCase(text, marker); at != std::u16string_view::npos;
             at = text::FindIgnoreCase(text, marker)) {
            entries.emplace_back(text.substr(0, at));
            text.remove_prefix(at + marker.size());
        }
    }
    if (entries.empty() || !text::Trim(text).empty()) {
        entries.emplace_back(text);
    }
    return entries;
}

std::u16string JoinEntries(const std::vector<std::u16string>& entries) {
    std::u16string text;
    const KeyListMarkers markers;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        text.append(i > 0 ? markers.list : std::u16string()).append(entries[i]);
    }
    return text;
}

bool IsReadableEntry(std::u16string_view entry) {
    return !ParseKeyListEntry(text::Trim(entry)).error;
}

Findings FindingsOfField(std::int32_t number, std::u16string_view text) {
    Settings settings;
    settings.Set(number, TrimBlanksAndTabs(text));
    Findings findings = CheckSettings(settings, {});
    std::erase_if(findings, [number](const Finding& finding) {
        return finding.problem.field != FindField(number)->name;
    });
    return findings;
}

std::u16string RoomText(std::int32_t left, std::int32_t width) {
    if (left < 0) {
        return text::Decimal(-left) + u" Zeichen zu viel";
    }
    return u"noch " + text::Decimal(left) + u" von " + text::Decimal(width) + u" Zeichen";
}

}  // namespace tarvex
