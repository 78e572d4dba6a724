#include "launch/Resolution.h"

#include <optional>
#include <utility>
#include <vector>

#include "launch/KeyListResolution.h"
#include "launch/PathHelpers.h"
#include "launch/Quoting.h"
#include "launch/RegistryKeyList.h"
#include "text/Text.h"

namespace tarvex {

namespace {

constexpr std::u16string_view kProcedure = u"GetAccessPath";
constexpr std::u16string_view kExecutable = u"msaccess.exe";

std::optional<std::u16string> Candidate(DiagnosticLog& log, const KeyListEntry& entry,
                                        const std::u16string& value) {
    if (text::EndsWithIgnoreCase(value, kExecutable)) {
        return value;
    }
    std::u16string path = AddSep(value);
    if (!entry.subFolder.empty()) {
        path.append(AddSep(entry.subFolder));
        log.AddLog(u"Schlüssel um Unterpfad ergänzt: " + path);
    }
    return path.append(kExecutable);
}

std::u16string FromKeyList(LaunchRun& run) {
    KeyListResult result =
        ResolveKeyList(run, run.properties.accRegListString, kAccessListRules,
                       {LaunchError::AccessListInvalid, LaunchError::AccessListUnresolved});
    if (result.error) {
        run.Raise(*result.error, kProcedure);
    }
    return std::move(result.path);
}

std::u16string FromExplicitPath(LaunchRun& run) {
    std::u16string_view folder = run.properties.accPath;
    if (text::EndsWithIgnoreCase(folder, kExecutable)) {
        folder.remove_suffix(kExecutable.size());
    }
    std::u16string path =
        JoinPath(RelToAbs(folder, run.environment.program.folder, &run.log), kExecutable);
    run.log.AddLog(u"Absoluter Pfad wird verwendet: " + path);
    return path;
}

std::u16string FromOfficeKeys(LaunchRun& run) {
    run.log.AddLog(u"Office-Schlüssel wird verwendet");
    const OfficeKeys office = OfficeKeysOfVersion(run.accVersion);
    for (const std::u16string_view key : office.keys) {
        run.log.AddLog(std::u16string(u"Schlüssel: ").append(key));
        const std::u16string value =
            ReadRegistryText(run.environment, kHKeyLocalMachine, key, office.valueName);
        run.log.AddLog(u"Schlüsselinhalt: " + value);
        if (!value.empty()) {
            std::u16string path = JoinPath(value, kExecutable);
            run.log.AddLog(u"Verwendeter Pfad: " + path);
            return path;
        }
    }
    run.log.AddLog(u"Pfad konnte nicht ermittelt werden");
    run.Raise(LaunchError::AccessPathNotInRegistry, kProcedure);
}

std::u16string FindExecutable(LaunchRun& run) {
    if (!run.properties.accRegListString.empty()) {
        return FromKeyList(run);
    }
    return run.properties.accPath.empty() ? FromOfficeKeys(run) : FromExplicitPath(run);
}

}  // namespace

constexpr KeyListRules kAccessListRules = {Candidate, u"-", u"Access-EXE: ",
                                           u"Access-EXE: Nicht vorhanden an dieser Position"};

OfficeKeys OfficeKeysOfVersion(std::int32_t version) {
    switch (version) {
        case -1:
        case 0:
            return {{u"SOFTWARE\\Microsoft\\Office\\8.0\\Common\\InstallRoot"}, u"OfficeBin"};
        case 1:
            return {{u"SOFTWARE\\Microsoft\\Office\\9.0\\Access\\InstallRoot",
                     u"SOFTWARE\\Microsoft\\Office\\9.0\\Common\\InstallRoot"},
                    u"Path"};
        case 2:
            return {{u"SOFTWARE\\Microsoft\\Office\\10.0\\Access\\InstallRoot",
                     u"SOFTWARE\\Microsoft\\Office\\10.0\\Common\\InstallRoot"},
                    u"Path"};
        case 3:
            return {{u"SOFTWARE\\Microsoft\\Office\\11.0\\Access\\InstallRoot",
                     u"SOFTWARE\\Microsoft\\Office\\11.0\\Common\\InstallRoot"},
                    u"Path"};
        default:
            return {};
    }
}

std::u16string ResolveAccess(LaunchRun& run) {
    run.log.AddLog(u"[Access-Pfad]", true);
    const std::u16string path = FindExecutable(run);
    if (run.environment.files.FileExists(path)) {
        run.log.AddLog(u"Access-EXE: OK");
    } else {
        run.log.AddLog(u"Datei existiert nicht: " + path);
        run.RaiseOrNote(LaunchError::AccessNotFound, kProcedure, path);
    }
    return Quote(path);
}

}  // namespace tarvex
