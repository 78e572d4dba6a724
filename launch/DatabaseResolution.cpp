#include "launch/DatabaseResolution.h"

#include "launch/DatabaseKind.h"
#include "launch/PathHelpers.h"

namespace tarvex {

namespace {

constexpr DatabaseKind kDatabase = {
    u"GetDBPath",
    u"Datenbank: ",
    {DatabaseCandidate, u"Datenbank: ", u"Datenbank: : Nicht vorhanden an dieser Position",
     launch_error::kDatabaseListInvalid, launch_error::kDatabaseListUnresolved},
    launch_error::kDatabaseNotFound};

/// The database named like the launcher in its folder; empty when there is none.
std::u16string SearchOwnName(LaunchRun& run) {
    run.log.AddLog(u"Kein Dateiname angegeben, im aktuellen Verzeichnis suchen");
    for (const std::u16string_view extension : {u".mdb", u".mde", u".mda"}) {
        std::u16string candidate = CompanionPath(run.environment.program, extension);
        run.log.AddLog(u"Suche nach: " + candidate);
        if (run.environment.files.FileExists(candidate)) {
            run.log.AddLog(u" - OK: " + candidate);
            return candidate;
        }
        run.log.AddLog(u" - nicht vorhanden");
    }
    run.log.AddLog(u"Keine Datenbank gefunden");
    return {};
}

std::u16string SearchProgramFolder(LaunchRun& run) {
    run.log.AddLog(u"Kein Pfad angegeben, im aktuellen Verzeichnis suchen");
    if (run.properties.dbFilename.empty()) {
        return SearchOwnName(run);
    }
    std::u16string path = JoinPath(run.environment.program.folder, run.properties.dbFilename);
    run.log.AddLog(u"Datenbank: " + path);
    return path;
}

bool NeedsDatabase(const LaunchProperties& properties) {
    return !properties.macro.empty() || !properties.cmd.empty() || properties.optionRuntime ||
           properties.optionReadOnly || properties.optionCompact || properties.optionRepair ||
           properties.optionDecompile;
}

}  // namespace

std::u16string ResolveDatabase(LaunchRun& run) {
    run.log.AddLog(u"[Datenbank-Pfad]", true);
    const LaunchProperties& properties = run.properties;
    std::u16string path;
    if (!properties.dbRegListString.empty()) {
        auto found = ResolveDatabaseList(run, kDatabase, properties.dbRegListString);
        if (!found) {
            return {};
        }
        path = std::move(*found);
    } else if (!properties.dbPath.empty()) {
        path = CombinePathFile(run, kDatabase, properties.dbPath, properties.dbFilename);
    } else {
        path = SearchProgramFolder(run);
    }
    if (!path.empty()) {
        CheckDatabaseFile(run, kDatabase, path);
    } else if (NeedsDatabase(properties)) {
        run.log.AddLog(
            u"Datenbank nicht angegeben, aber eine der Optionen /Runtime, /ReadOnly, /Compact, "
            u"/Repair /Decompile/Macro/Cmd");
        run.RaiseOrNote(launch_error::kDatabaseNeeded, kDatabase.procedure);
    }
    return path;
}

}  // namespace tarvex
