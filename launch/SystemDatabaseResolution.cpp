#include "launch/SystemDatabaseResolution.h"

#include "launch/DatabaseKind.h"
#include "launch/PathHelpers.h"

namespace tarvex {

namespace {

constexpr DatabaseKind kSystemDatabase = {
    u"GetSystemDB",
    u"SysDB: ",
    {DatabaseCandidate, u"SysDB: ", u"SysDB: : Nicht vorhanden an dieser Position",
     launch_error::kSystemDatabaseListInvalid, launch_error::kSystemDatabaseListUnresolved},
    launch_error::kSystemDatabaseNotFound};

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
