#include <optional>
#include <utility>

#include "launch/KeyListResolution.h"
#include "launch/PathHelpers.h"
#include "launch/Resolution.h"

namespace tarvex {

namespace {

// Kept: the prefixes keep their own colon and blank, so that some lines show two colons. Support
// reads the log by these lines.

/// What the searches for the database and for the workgroup database have in common, with the
/// texts and errors in which they differ.
struct DatabaseKind {
    std::u16string_view procedure;  ///< name of the step in the source of its errors
    std::u16string_view prefix;     ///< stands before paths in the log: "Datenbank: "
    KeyListRules listRules;
    KeyListErrors listErrors;
    LaunchError notFoundError;  ///< of a path without a file
};

/// The path that a key list entry of a database and the text stored for it stand for.
std::optional<std::u16string> DatabaseCandidate(DiagnosticLog& log, const KeyListEntry& entry,
                                                const std::u16string& value) {
    if (entry.fileName.empty()) {
        return PathWithoutFileName(log, entry, value, u"Datenbankname");
    }
    if (entry.subFolder.empty()) {
        return JoinPath(value, entry.fileName);
    }
    std::u16string path = JoinPath(JoinPath(value, entry.subFolder), entry.fileName);
    log.AddLog(u"Schlüsselinhalt um Unterpfad ergänzt: " + path);
    return path;
}

}  // namespace

constexpr KeyListRules kDatabaseListRules = {DatabaseCandidate, u"-", u"Datenbank: ",
                                             u"Datenbank: : Nicht vorhanden an dieser Position"};
constexpr KeyListRules kSystemDatabaseListRules = {DatabaseCandidate, u"-", u"SysDB: ",
                                                   u"SysDB: : Nicht vorhanden an dieser Position"};

namespace {

/// Resolves the key list of a database. Raises the errors of a list that leads to nothing; in test
/// mode it notes them and returns nothing.
std::optional<std::u16string> ResolveDatabaseList(LaunchRun& run, const DatabaseKind& kind,
                                                  std::u16string_view list) {
    KeyListResult result = ResolveKeyList(run, list, kind.listRules, kind.listErrors);
    if (result.error) {
        run.RaiseOrNote(*result.error, kind.procedure);
        return std::nullopt;
    }
    return std::move(result.path);
}

/// Joins a configured folder, made absolute, and a file name. Empty without a file name.
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

/// Logs whether the file exists. Raises the error of a missing one; in test mode it notes it.
void CheckDatabaseFile(LaunchRun& run, const DatabaseKind& kind, const std::u16string& path) {
    std::u16string line(kind.prefix);
    if (run.environment.files.FileExists(path)) {
        run.log.AddLog(line.append(u"OK"));
        return;
    }
    run.log.AddLog(line.append(path).append(u" ist nicht vorhanden!"));
    run.RaiseOrNote(kind.notFoundError, kind.procedure, path);
}

constexpr DatabaseKind kDatabase = {
    u"GetDBPath",
    u"Datenbank: ",
    kDatabaseListRules,
    {LaunchError::DatabaseListInvalid, LaunchError::DatabaseListUnresolved},
    LaunchError::DatabaseNotFound};

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

constexpr DatabaseKind kSystemDatabase = {
    u"GetSystemDB",
    u"SysDB: ",
    kSystemDatabaseListRules,
    {LaunchError::SystemDatabaseListInvalid, LaunchError::SystemDatabaseListUnresolved},
    LaunchError::SystemDatabaseNotFound};

std::u16string ConfiguredPath(LaunchRun& run) {
    const LaunchProperties& properties = run.properties;
    if (!properties.systemDBPath.empty()) {
        return CombinePathFile(run, kSystemDatabase, properties.systemDBPath,
                               properties.systemDBFilename);
    }
    if (properties.systemDBFilename.empty()) {
        run.log.AddLog(u"Keine SysDB");
        return {};
    }
    std::u16string path = JoinPath(run.environment.program.folder, properties.systemDBFilename);
    run.log.AddLog(u"SysDB: " + path);
    return path;
}

}  // namespace

bool NeedsDatabase(const LaunchProperties& properties) {
    return !properties.macro.empty() || !properties.cmd.empty() || properties.optionRuntime ||
           properties.optionReadOnly || properties.optionCompact || properties.optionRepair ||
           properties.optionDecompile;
}

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
        // Kept: the missing comma in the list, because support searches logs for this line.
        run.log.AddLog(
            u"Datenbank nicht angegeben, aber eine der Optionen /Runtime, /ReadOnly, /Compact, "
            u"/Repair /Decompile/Macro/Cmd");
        run.RaiseOrNote(LaunchError::DatabaseNeeded, kDatabase.procedure);
    }
    return path;
}

std::u16string ResolveSystemDatabase(LaunchRun& run) {
    run.log.AddLog(u"[SysDB-Pfad]", true);
    const std::u16string& list = run.properties.systemDBRegListString;
    std::u16string path =
        list.empty() ? ConfiguredPath(run)
                     : ResolveDatabaseList(run, kSystemDatabase, list).value_or(std::u16string());
    if (!path.empty()) {
        CheckDatabaseFile(run, kSystemDatabase, path);
    }
    return path;
}

}  // namespace tarvex
