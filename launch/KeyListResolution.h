#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "launch/LaunchRun.h"

namespace tarvex {

/// What a step makes of the entries of its key list.
struct KeyListRules {
    /// The path that an entry and the text stored for it stand for; nothing when they name none.
    /// Writes what it does to the log.
    std::optional<std::u16string> (*candidate)(DiagnosticLog& log, const KeyListEntry& entry,
                                               const std::u16string& value);
    std::u16string_view pathPrefix;   ///< stands before the path in the log
    std::u16string_view missingLine;  ///< log line for a path without a file
    std::int32_t invalidError;        ///< launch error of a list that cannot be divided
    std::int32_t unresolvedError;     ///< launch error when no entry leads to a file
};

/// What resolving a key list came to.
struct KeyListResult {
    std::u16string path;           ///< of an existing file; empty on failure
    std::int32_t launchError = 0;  ///< 0: found; otherwise the code to raise
};

/// Walks through the entries of a list in order up to the first that leads to an existing file,
/// and logs every step. An entry that cannot be read is logged and passed over.
KeyListResult ResolveKeyList(LaunchRun& run, std::u16string_view list, const KeyListRules& rules);

}  // namespace tarvex
