#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "launch/KeyListResolution.h"
#include "launch/LaunchRun.h"

namespace tarvex {

/// What the searches for the database and for the workgroup database have in common, with the
/// texts and errors in which they differ.
struct DatabaseKind {
    std::u16string_view procedure;  ///< name of the step in the source of its errors
    std::u16string_view prefix;     ///< stands before paths in the log: "Datenbank: "
    KeyListRules listRules;
    std::int32_t notFoundError;  ///< launch error for a path without a file
};

/// The path that a key list entry of a database and the text stored for it stand for.
std::optional<std::u16string> DatabaseCandidate(DiagnosticLog& log, const KeyListEntry& entry,
                                                const std::u16string& value);

/// Resolves the key list of a database. Raises the errors of a list that leads to nothing; in test
/// mode it notes them and returns nothing.
std::optional<std::u16string> ResolveDatabaseList(LaunchRun& run, const DatabaseKind& kind,
                                                  std::u16string_view list);

/// Joins a configured folder, made absolute, and a file name. Empty without a file name.
std::u16string CombinePathFile(LaunchRun& run, const DatabaseKind& kind, std::u16string_view folder,
                               std::u16string_view fileName);

/// Logs whether the file exists. Raises the error of a missing one; in test mode it notes it.
void CheckDatabaseFile(LaunchRun& run, const DatabaseKind& kind, const std::u16string& path);

}  // namespace tarvex
