#include "launch/KeyListResolution.h"

#include "launch/RegistryKeyList.h"
#include "text/Text.h"

namespace tarvex {

namespace {

std::u16string Line(std::u16string_view label, std::u16string_view value) {
    return std::u16string(label).append(value);
}

void LogFields(DiagnosticLog& log, const KeyListEntry& entry) {
    log.AddLog(Line(u" - HKey: ", DashIfEmpty(HKeyName(entry.root))));
    log.AddLog(Line(u" - Schlüssel: ", DashIfEmpty(entry.keyPath)));
    log.AddLog(Line(u" - Wertname: ", DashIfEmpty(entry.valueName)));
    log.AddLog(Line(u" - Unterordner: ", DashIfEmpty(entry.subFolder)));
    log.AddLog(Line(u" - Dateiname: ", DashIfEmpty(entry.fileName)));
}

/// The path of the file that an entry leads to; nothing when it leads to none.
std::optional<std::u16string> ResolveEntry(LaunchRun& run, const std::u16string& text,
                                           const KeyListRules& rules) {
    run.log.AddLog(Line(u"Gespeicherter Wert: ", text));
    const KeyListParse parse = ParseKeyListEntry(text, run.properties.markers);
    if (parse.launchError != 0) {
        run.log.AddLog(LaunchErrorText(parse.launchError, run.environment.program.exeName, text));
        return std::nullopt;
    }
    const KeyListEntry& entry = parse.entry;
    LogFields(run.log, entry);
    const std::u16string value =
        ReadRegistryText(run.environment, entry.root, entry.keyPath, entry.valueName);
    if (value.empty()) {
        run.log.AddLog(u"Schlüsselinhalt: <nicht vorhanden oder kein Inhalt>");
        return std::nullopt;
    }
    run.log.AddLog(Line(u"Schlüsselinhalt: ", value));
    std::optional<std::u16string> path = rules.candidate(run.log, entry, value);
    if (path) {
        run.log.AddLog(Line(rules.pathPrefix, *path));
        if (!run.environment.files.FileExists(*path)) {
            run.log.AddLog(rules.missingLine);
            path.reset();
        }
    }
    return path;
}

}  // namespace

KeyListResult ResolveKeyList(LaunchRun& run, std::u16string_view list, const KeyListRules& rules) {
    run.log.AddLog(u"Schlüsselliste wird aufgelöst");
    const auto entries = text::SplitList(list, run.properties.markers.list);
    if (entries.empty()) {
        run.log.AddLog(u"Schlüsselliste konnte nicht aufgelöst werden");
        return {{}, rules.invalidError};
    }
    for (const std::u16string& entry : entries) {
        if (auto path = ResolveEntry(run, entry, rules)) {
            return {std::move(*path), 0};
        }
    }
    run.log.AddLog(u"Pfad konnte nicht ermittelt werden");
    return {{}, rules.unresolvedError};
}

}  // namespace tarvex
