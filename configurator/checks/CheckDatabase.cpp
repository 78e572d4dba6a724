#include <algorithm>
#include <iterator>

#include "branding/LaunchFields.h"
#include "configurator/checks/CheckRun.h"
#include "launch/RegistryKeyList.h"
#include "launch/Resolution.h"
#include "text/Text.h"

namespace tarvex {
namespace {

/// The settings that need a database by themselves, as the launcher judges them.
std::vector<std::int32_t> SettingsThatNeedADatabase(const CheckRun& run) {
    std::vector<std::int32_t> numbers;
    for (const LaunchTextField& text : kLaunchTextFields) {
        LaunchProperties alone;
        alone.*text.property = run.Value(text.field);
        if (NeedsDatabase(alone)) {
            numbers.push_back(text.field);
        }
    }
    for (const LaunchOptionField& option : kLaunchOptionFields) {
        LaunchProperties alone;
        alone.*option.property = run.IsOn(option.field);
        if (NeedsDatabase(alone)) {
            numbers.push_back(option.field);
        }
    }
    return numbers;
}

/// Access 97 to 2003 keep their folders under keys that the launcher knows, and open no .accdb.
bool IsPlaceOfOldAccess(std::u16string_view entry) {
    const KeyListParse parse = ParseKeyListEntry(entry);
    for (std::int32_t version = 0; version <= kNewestKnownOffice; ++version) {
        for (const std::u16string_view key : OfficeKeysOfVersion(version).keys) {
            if (text::EqualsIgnoreCase(key, parse.entry.keyPath)) {
                return true;
            }
        }
    }
    return false;
}

bool AccessMayBeNew(const CheckRun& run) {
    const auto numbers = kAccRegList.Numbers();
    return run.IsSet(kFieldAccPath) ||
           std::any_of(numbers.begin(), numbers.end(), [&run](std::int32_t number) {
               return run.IsSet(number) && !IsPlaceOfOldAccess(run.Value(number));
           });
}

bool IsNewFormat(std::u16string_view name) {
    const std::u16string_view extensions[] = {u".accdb", u".accde", u".accdr"};
    return std::any_of(
        std::begin(extensions), std::end(extensions),
        [name](std::u16string_view end) { return text::EndsWithIgnoreCase(name, end); });
}

/// The first field that names a database of the new format; 0 when none does.
std::int32_t FieldOfNewFormat(const CheckRun& run) {
    for (const std::int32_t number : kDBRegList.Numbers()) {
        if (IsNewFormat(run.Value(number))) {
            return number;  // the file name ends an entry
        }
    }
    return !run.HasKeyList(kDBRegList) && IsNewFormat(run.Value(kFieldDBFilename))
               ? kFieldDBFilename
               : 0;
}

}  // namespace

void CheckDatabase(CheckRun& run) {
    if (run.HasKeyList(kDBRegList) || run.IsSet(kFieldDBFilename)) {
        return;
    }
    if (!run.IsSet(kFieldDBPath)) {
        if (AccessMayBeNew(run)) {
            run.Report(u"database-search-accdb", kFieldDBFilename,
                       u"Gesucht wird eine Datenbank, die wie das Startprogramm heißt, mit den "
                       u"Endungen .mdb, .mde und .mda; eine .accdb-Datei wird so nie gefunden. Für "
                       u"eine solche den Dateinamen angeben.");
        }
        return;
    }
    run.Report(u"database-path-alone", kFieldDBPath,
               u"Der Pfad wird nicht verwendet, solange DBFilename leer ist; es wird ohne "
               u"Datenbank gestartet.");
    for (const std::int32_t number : SettingsThatNeedADatabase(run)) {
        run.Report(u"option-needs-database", number,
                   u"Die Einstellung braucht eine Datenbank, es ist aber keine auffindbar, solange "
                   u"DBPath ohne DBFilename steht.");
    }
}

void CheckWorkgroup(CheckRun& run) {
    const bool hasList = run.HasKeyList(kSysDBRegList);
    if (!hasList && run.IsSet(kFieldSysDBPath) && !run.IsSet(kFieldSysDBFilename)) {
        run.Report(u"workgroup-path-alone", kFieldSysDBPath,
                   u"Der Pfad wird nicht verwendet, solange SysDBFilename leer ist.");
    }
    if (run.IsSet(kFieldPwd) && !run.IsSet(kFieldUser)) {
        run.Report(u"password-without-user", kFieldPwd,
                   u"Das Kennwort wird nicht verwendet, solange User leer ist.");
    }
    const std::int32_t database = FieldOfNewFormat(run);
    if (database != 0 && (hasList || run.IsSet(kFieldSysDBFilename) || run.IsSet(kFieldUser))) {
        run.Report(u"accdb-workgroup", database,
                   u"Eine Datenbank dieses Formats kennt keine Arbeitsgruppen; "
                   u"Arbeitsgruppendatei, User und Pwd wirken bei ihr nicht.");
    }
    if (run.Value(kFieldEditPwd).find_first_of(u" /") != std::u16string_view::npos) {
        run.Report(u"password-not-typable", kFieldEditPwd,
                   u"Das Kennwort enthält ein Leerzeichen oder '/' und lässt sich nach /D nicht "
                   u"eingeben. Ein anderes wählen.");
    }
}

}  // namespace tarvex
