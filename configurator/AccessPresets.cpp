#include "configurator/AccessPresets.h"

#include "launch/RegistryKeyList.h"
#include "launch/Resolution.h"

namespace tarvex {
namespace {

/// A version of Office with its Access.
///
/// Known: the set-ups of the Windows Installer (2007 to 2016) write the folder of the program to
/// Access\InstallRoot\Path below the version's key, in the view of their own bitness. 32-bit
/// Office on a 64-bit Windows is thus found in the view that a 32-bit program has, 64-bit Office in
/// the other one, where the launcher looks next. Click-to-Run of 16.0 writes the same value; with
/// that of 15.0 it may be missing. Access 2016, 2019, 2021, 2024 and Microsoft 365 all call
/// themselves 16.0. There is no 13.0.
struct KnownVersion {
    std::u16string_view number;
    std::u16string_view product;
};

constexpr KnownVersion kNewVersions[] = {
    {u"16.0", u"Access 2016 und neuer, Microsoft 365"},
    {u"15.0", u"Access 2013"},
    {u"14.0", u"Access 2010"},
    {u"12.0", u"Access 2007"},
};

/// Their places are those that the launcher looks at by itself; its numbers for them are 3 to 0.
constexpr KnownVersion kOldVersions[] = {
    {u"11.0", u"Access 2003"},
    {u"10.0", u"Access 2002"},
    {u"9.0", u"Access 2000"},
    {u"8.0", u"Access 97"},
};

/// The path that Windows starts for the bare name, as its documentation tells how programs register
/// themselves: the default value is the program's path, Path its folder. Both views share the key
/// since Windows 7 (the table of keys affected by WOW64). The version installed last has written
/// it, Click-to-Run too; it may be missing.
constexpr std::u16string_view kRegisteredPath =
    u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\MSACCESS.EXE";

std::u16string Entry(std::u16string_view key, std::u16string_view value) {
    KeyListEntry entry;
    entry.root = kHKeyLocalMachine;
    entry.keyPath = key;
    entry.valueName = value;
    return BuildKeyListEntry(entry);
}

std::vector<AccessPreset> MakePresets() {
    std::vector<AccessPreset> presets;
    for (const KnownVersion& version : kNewVersions) {
        const std::u16string number(version.number);
        presets.push_back(
            {number,
             Entry(u"SOFTWARE\\Microsoft\\Office\\" + number + u"\\Access\\InstallRoot", u"Path"),
             std::u16string(version.product)});
    }
    std::int32_t launcherNumber = kNewestKnownOffice;
    for (const KnownVersion& version : kOldVersions) {
        const OfficeKeys office = OfficeKeysOfVersion(launcherNumber--);
        for (const std::u16string_view key : office.keys) {
            presets.push_back({std::u16string(version.number), Entry(key, office.valueName),
                               std::u16string(version.product)});
        }
    }
    presets.push_back(
        {{}, Entry(kRegisteredPath, {}), u"zuletzt installiertes Access, Programmdatei"});
    presets.push_back(
        {{}, Entry(kRegisteredPath, u"Path"), u"zuletzt installiertes Access, Ordner"});
    return presets;
}

std::vector<AccessPreset> JoinPresets() {
    std::vector<AccessPreset> joined;
    const KeyListMarkers markers;
    for (const AccessPreset& preset : AccessPresets()) {
        if (!joined.empty() && joined.back().version == preset.version &&
            joined.back().meaning == preset.meaning) {
            joined.back().entry += markers.list + preset.entry;
        } else {
            joined.push_back(preset);
        }
    }
    return joined;
}

}  // namespace

const std::vector<AccessPreset>& AccessPresets() {
    static const std::vector<AccessPreset> presets = MakePresets();
    return presets;
}

const std::vector<AccessPreset>& AccessPresetFields() {
    static const std::vector<AccessPreset> fields = JoinPresets();
    return fields;
}

}  // namespace tarvex
