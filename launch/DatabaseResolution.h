#pragma once

#include <string>

#include "launch/LaunchRun.h"

namespace tarvex {

/// Finds the database: through its key list, in the configured folder, or in the launcher's folder
/// under the configured name or the launcher's own. Returns its unquoted path; empty when there is
/// no database and no option needs one. Raises launch errors 5, 6, 12 and 13; in test mode they
/// are noted.
std::u16string ResolveDatabase(LaunchRun& run);

}  // namespace tarvex
