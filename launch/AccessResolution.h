#pragma once

#include <string>

#include "launch/LaunchRun.h"

namespace tarvex {

/// Finds the Access executable: through its key list, at the configured path, or through the
/// registry keys of the Office version, the first of these that is configured. Returns its path
/// quoted for the command line. Raises launch errors 2, 3, 10 and 11; in test mode a missing file
/// (3) is only noted.
std::u16string ResolveAccess(LaunchRun& run);

}  // namespace tarvex
