#include "launch/KeyListResolution.h"

#include "launch/RegistryKeyList.h"
#include "text/Text.h"

namespace tarvex {

namespace {

void AddLine(DiagnosticLog& log, std::u16string_view label, std::u16string_view value) {
    log.AddLog(std::u16string(label).append(value));
}

void LogFields(DiagnosticLog& log, const KeyListEntry& entry, std::u16string_view emptyField) {
    const auto add = [&](std::u16string_view label, std::u16string_view field) {
        AddLine(log, label, field.empty() ? emptyField : field);
    };
    add(u" - HKey: ", HKeyName(entry.root));
    add(u" - Schlüssel: ", entry.keyPath);
    add(u" - Wertname: ", entry.valueName);
    add(u" - Unterordner: ", entry.subFolder);
    add(u" - Dateiname: ", entry.fileName);
}

/// The path of the file that an entry leads to; nothing when it leads to none.
std::optional<std::u16string> ResolveEntry(const LaunchEnvironment& environment,
                                           const KeyListMarkers& markers, DiagnosticLog& log,
                                           const std::u16string& text, const KeyListRules& rules) {
    AddLine(log, u"Gespeicherter Wert: ", text);
    const KeyListParse parse = ParseKeyListEntry(text, markers);
    if (parse.error) {
        log.AddLog(LaunchErrorText(*parse.error, environment.program.exeName, text));
        return std::nullopt;
    }
    const KeyListEntry& entry = parse.entry;
    LogFields(log, entry, rules.emptyField);
    const std::u16string value =
        ReadRegistryText(environment, entry.root, entry.keyPath, entry.valueName);
    if (value.empty()) {
        log.AddLog(u"Schlüsselinhalt: <nicht vorhanden oder kein Inhalt>");
        return std::nullopt;
    }
    AddLine(log, u"Schlüsselinhalt: ", value);
    std::optional<std::u16string> path = rules.candidate(log, entry, value);
    if (!path) {
        return std::nullopt;
    }
    if (!rules.pathPrefix.empty()) {
        AddLine(log, rules.pathPrefix, *path);
    }
    if (!environment.files.FileExists(*path)) {
        log.AddLog(rules.missingLine);
        return std::nullopt;
    }
    return path;
}

}  // namespace

std::optional<std::u16string> WalkKeyList(const LaunchEnvironment& environment,
                                          const KeyListMarkers& markers, DiagnosticLog& log,
                                          const std::vector<std::u16string>& entries,
                                          const KeyListRules& rules) {
    log.AddLog(u"Schlüsselliste wird aufgelöst");
    for (const std::u16string& entry : entries) {
        if (auto path = ResolveEntry(environment, markers, log, entry, rules)) {
            return path;
        }
    }
    return std::nullopt;
}

std::optional<std::u16string> PathWithoutFileName(DiagnosticLog& log, const KeyListEntry& entry,
                                                  const std::u16string& value,
                                                  std::u16string_view what) {
    if (!entry.subFolder.empty()) {
        log.AddLog(u"Unterpfad (" + entry.subFolder +
                   u") angegeben, aber kein Dateiname. Pfad kann nicht aufgelöst werden.");
        return std::nullopt;
    }
    if (value.ends_with(u'\\')) {
        std::u16string line =
            u"Schlüsselinhalt enthält einen Pfad und es ist kein Dateiname angegeben. Der ";
        log.AddLog(line.append(what).append(u" kann nicht aufgelöst werden."));
        return std::nullopt;
    }
    return value;
}

KeyListResult ResolveKeyList(LaunchRun& run, std::u16string_view list, const KeyListRules& rules,
                             const KeyListErrors& errors) {
    const KeyListMarkers& markers = run.properties.markers;
    const auto entries = text::SplitList(list, markers.list);
    if (auto path = WalkKeyList(run.environment, markers, run.log, entries, rules)) {
        return {std::move(*path), std::nullopt};
    }
    if (entries.empty()) {
        run.log.AddLog(u"Schlüsselliste konnte nicht aufgelöst werden");
        return {{}, errors.invalid};
    }
    run.log.AddLog(u"Pfad konnte nicht ermittelt werden");
    return {{}, errors.unresolved};
}

}  // namespace tarvex
