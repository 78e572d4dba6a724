#include "launch/DatabaseKind.h"

#include <utility>

#include "launch/PathHelpers.h"

namespace tarvex {

std::optional<std::u16string> DatabaseCandidate(DiagnosticLog& log, const KeyListEntry& entry,
                                                const std::u16string& value) {
    if (!entry.subFolder.empty()) {
        if (entry.fileName.empty()) {
            log.AddLog(u"Unterpfad (" + entry.subFolder +
                       u") angegeben, aber kein Dateiname. Pfad kann nicht aufgelöst werden.");
            return std::nullopt;
        }
        std::u16string path = JoinPath(JoinPath(value, entry.subFolder), entry.fileName);
        log.AddLog(u"Schlüsselinhalt um Unterpfad ergänzt: " + path);
        return path;
    }
    if (!entry.fileName.empty()) {
        return JoinPath(value, entry.fileName);
    }
    if (value.ends_with(u'\\')) {
        log.AddLog(
            u"Schlüsselinhalt enthält einen Pfad und es ist kein Dateiname angegeben. Der "
            u"Datenbankname kann nicht aufgelöst werden.");
        return std::nullopt;
    }
    return value;
}

std::optional<std::u16string> ResolveDatabaseList(LaunchRun& run, const DatabaseKind& kind,
                                                  std::u16string_view list) {
    KeyListResult result = ResolveKeyList(run, list, kind.listRules);
    if (result.launchError != 0) {
        run.RaiseOrNote(result.launchError, kind.procedure);
        return std::nullopt;
    }
    return std::move(result.path);
}

std::u16string CombinePathFile(LaunchRun& run, const DatabaseKind& kind, std::u16string_view folder,
                               std::u16string_view fileName) {
    if (fileName.empty()) {
        run.log.AddLog(u"Kein Dateiname angegeben, Pfad kann nicht ermittelt werden");
        return {};
    }
    std::u16string path = RelToAbs(folder, run.environment.program.folder, &run.log);
    run.log.AddLog(u"Berechneter Pfad: " + path);
    path.append(fileName);
    run.log.AddLog(std::u16string(kind.prefix).append(u": ").append(path));
    return path;
}

void CheckDatabaseFile(LaunchRun& run, const DatabaseKind& kind, const std::u16string& path) {
    std::u16string line(kind.prefix);
    if (run.environment.files.FileExists(path)) {
        run.log.AddLog(line.append(u"OK"));
        return;
    }
    run.log.AddLog(line.append(path).append(u" ist nicht vorhanden!"));
    run.RaiseOrNote(kind.notFoundError, kind.procedure, path);
}

}  // namespace tarvex
