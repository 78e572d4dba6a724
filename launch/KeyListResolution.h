#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "launch/LaunchRun.h"

namespace tarvex {

/// What a walk through a key list makes of its entries, and how the log tells it.
struct KeyListRules {
    /// The path that an entry and the text stored for it stand for; nothing when they name none or
    /// one that is not accepted. Writes what it does to the log.
    std::optional<std::u16string> (*candidate)(DiagnosticLog& log, const KeyListEntry& entry,
                                               const std::u16string& value);
    std::u16string_view emptyField;   ///< how the log shows an empty field of an entry
    std::u16string_view pathPrefix;   ///< stands before a path in the log; empty: it is not logged
    std::u16string_view missingLine;  ///< log line for a path without a file
};

// How the key lists of the resolution steps are walked through.
extern const KeyListRules kAccessListRules;
extern const KeyListRules kDatabaseListRules;
extern const KeyListRules kSystemDatabaseListRules;

/// Tries the entries in order up to the first that leads to an existing file, and logs every step.
/// Returns the file's path; nothing when no entry leads to one. An entry that cannot be read is
/// logged and passed over; what follows the entry that is taken is neither read nor logged.
std::optional<std::u16string> WalkKeyList(const LaunchEnvironment& environment,
                                          const KeyListMarkers& markers, DiagnosticLog& log,
                                          const std::vector<std::u16string>& entries,
                                          const KeyListRules& rules);

/// The path for an entry that names no file: the stored text itself. Nothing, and the reason in the
/// log, when the entry names a sub-folder or the text is a folder; `what` is that which cannot be
/// found then ("Datenbankname").
std::optional<std::u16string> PathWithoutFileName(DiagnosticLog& log, const KeyListEntry& entry,
                                                  const std::u16string& value,
                                                  std::u16string_view what);

/// The launch errors of a step's key list.
struct KeyListErrors {
    LaunchError invalid;     ///< it has no entries
    LaunchError unresolved;  ///< no entry leads to a file
};

/// What resolving a key list came to.
struct KeyListResult {
    std::u16string path;               ///< of an existing file; empty on failure
    std::optional<LaunchError> error;  ///< none: found
};

/// Divides a list at its markers and walks through it.
KeyListResult ResolveKeyList(LaunchRun& run, std::u16string_view list, const KeyListRules& rules,
                             const KeyListErrors& errors);

}  // namespace tarvex
