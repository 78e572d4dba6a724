#pragma once

#include <string>

#include "launch/LaunchRun.h"

namespace tarvex {

/// Finds the workgroup database: through its key list, in the configured folder, or under the
/// configured name in the launcher's folder. Returns its unquoted path; empty when none is
/// configured. Raises launch errors 9, 14 and 15; in test mode they are noted.
std::u16string ResolveSystemDatabase(LaunchRun& run);

}  // namespace tarvex
