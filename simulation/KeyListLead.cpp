#include "simulation/KeyListLead.h"

#include <optional>
#include <utility>

#include "launch/RegistryKeyList.h"
#include "text/Text.h"

namespace tarvex {
namespace {

std::u16string_view LastLine(std::u16string_view text) {
    const std::size_t end = text.rfind(text::kLineBreak);
    return end == std::u16string_view::npos ? text
                                            : text::Drop(text, end + text::kLineBreak.size());
}

}  // namespace

KeyListLead FollowEntry(const LaunchEnvironment& environment, const KeyListRules& rules,
                        std::u16string_view entry) {
    const KeyListParse parse = ParseKeyListEntry(entry);
    if (parse.error) {
        return {{}, false, u"Der Eintrag nennt keinen Registrierungswert."};
    }
    const std::u16string value =
        ReadRegistryText(environment, parse.entry.root, parse.entry.keyPath, parse.entry.valueName);
    if (value.empty()) {
        return {{}, false, u"Der Schlüssel oder Wert fehlt oder ist leer."};
    }
    DiagnosticLog log;
    std::optional<std::u16string> path = rules.candidate(log, parse.entry, value);
    if (!path) {
        return {{}, false, std::u16string(LastLine(log.Text()))};
    }
    const bool exists = environment.files.FileExists(*path);
    return {std::move(*path), exists, {}};
}

}  // namespace tarvex
