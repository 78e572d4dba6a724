#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "launch/LaunchRun.h"

namespace tarvex {

/// Finds the Access executable: through its key list, at the configured path, or through the
/// registry keys of the Office version, the first of these that is configured. Returns its path
/// quoted for the command line. Raises launch errors 2, 3, 10 and 11; in test mode a missing file
/// (3) is only noted.
std::u16string ResolveAccess(LaunchRun& run);

/// Where a version of Office keeps the folder of Access: the first of these keys below
/// HKEY_LOCAL_MACHINE that has the value.
struct OfficeKeys {
    std::vector<std::u16string_view> keys;
    std::u16string_view valueName;
};

/// The newest version whose keys are known: 11.0.
inline constexpr std::int32_t kNewestKnownOffice = 3;

/// The keys of Office version 0 (8.0) to 3 (11.0); -1, not set, means 0. No keys for any other
/// number.
OfficeKeys OfficeKeysOfVersion(std::int32_t version);

/// Finds the database: through its key list, in the configured folder, or in the launcher's folder
/// under the configured name or the launcher's own. Returns its unquoted path; empty when there is
/// no database and no option needs one. Raises launch errors 5, 6, 12 and 13; in test mode they
/// are noted.
std::u16string ResolveDatabase(LaunchRun& run);

/// Whether Access would not do what it is told without a database: for a macro, a command text and
/// most of the options.
bool NeedsDatabase(const LaunchProperties& properties);

/// Finds the workgroup database: through its key list, in the configured folder, or under the
/// configured name in the launcher's folder. Returns its unquoted path; empty when none is
/// configured. Raises launch errors 9, 14 and 15; in test mode they are noted.
std::u16string ResolveSystemDatabase(LaunchRun& run);

/// Key of the Access profiles below HKEY_LOCAL_MACHINE for Office version 0 (8.0) to 3 (11.0);
/// empty for any other number.
std::u16string_view ProfileKey(std::int32_t version);

/// Returns " /Profile " with the quoted profile name, or nothing when no profile is configured.
/// When asked to, looks the profile up and raises launch error 7; in test mode it is noted.
std::u16string ResolveProfile(LaunchRun& run);

}  // namespace tarvex
