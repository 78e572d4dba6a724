#pragma once

#include <string>
#include <string_view>

#include "configurator/checks/Checks.h"
#include "launch/RegistryKeyList.h"

namespace tarvex {

/// A file that the launcher looks for: by a key list, or by a path and a file name.
struct CheckTarget {
    KeyListFields list;
    std::int32_t path;
    std::int32_t fileName;  ///< 0: the file has a fixed name
    bool entriesAreLists;   ///< entries are joined to one list and divided at its marker
};

inline constexpr CheckTarget kAccessTarget{kAccRegList, kFieldAccPath, 0, true};
inline constexpr CheckTarget kDatabaseTarget{kDBRegList, kFieldDBPath, kFieldDBFilename, true};
inline constexpr CheckTarget kWorkgroupTarget{kSysDBRegList, kFieldSysDBPath, kFieldSysDBFilename,
                                              true};
inline constexpr CheckTarget kPictureTarget{kPicRegList, kFieldPicPath, kFieldPicFilename, false};

/// All of them.
inline constexpr CheckTarget kCheckTargets[] = {kAccessTarget, kDatabaseTarget, kPictureTarget,
                                                kWorkgroupTarget};

/// The settings that are checked, and what was found so far. Refers to objects that outlive it.
class CheckRun {
public:
    CheckRun(const Settings& settings, std::u16string_view place, const LauncherFolder& folder)
        : settings_(settings), place_(place), folder_(folder) {}

    const Settings& All() const { return settings_; }
    const LauncherFolder& Folder() const { return folder_; }

    std::u16string_view Value(std::int32_t number) const { return settings_.Value(number); }
    bool IsSet(std::int32_t number) const { return !Value(number).empty(); }
    bool IsOn(std::int32_t number) const { return Value(number) == u"1"; }
    bool HasKeyList(const KeyListFields& list) const;

    void Report(FindingId kind, std::int32_t number, std::u16string text);

    /// The findings in the order of their lines. Once only.
    Findings Take();

private:
    const Settings& settings_;
    std::u16string place_;
    const LauncherFolder& folder_;
    Findings findings_;
};

/// Name of a field as the settings file has it.
std::u16string FieldName(std::int32_t number);

/// The text between single quotes.
std::u16string Quoted(std::u16string_view text);

/// "Der Eintrag '...' ", to which the rest of a sentence is added.
std::u16string EntryText(std::u16string_view entry);

/// What a path is joined to decides which forms of it work.
enum class PathUse {
    LauncherFolder,  ///< a folder or program; relative to the launcher
    FileName,        ///< appended to the folder field, or to the launcher's folder
    EntryFolder,     ///< sub-folder of a key list entry, appended to the stored text
    EntryFile        ///< file name of such an entry
};

/// Reports what Windows or the launcher would not understand in a path of that field.
void CheckPath(CheckRun& run, std::int32_t number, std::u16string_view path, PathUse use);

/// The name of an environment variable with its percent signs ("%APPDATA%"); empty when the text
/// holds none.
std::u16string_view FindVariable(std::u16string_view text);

/// Reports markers of a key list entry that are misspelt, left over or in the wrong places; false
/// when there were any, and the entry is not what its author meant.
bool CheckMarkers(CheckRun& run, std::int32_t number, std::u16string_view text,
                  const KeyListEntry& entry);

// The checks by topic. Each adds its findings to the run.
void CheckPathFields(CheckRun& run);
void CheckKeyLists(CheckRun& run);
void CheckAccess(CheckRun& run);
void CheckDatabase(CheckRun& run);
void CheckWorkgroup(CheckRun& run);
void CheckPicture(CheckRun& run);
void CheckTexts(CheckRun& run);
void CheckIcon(CheckRun& run);

}  // namespace tarvex
