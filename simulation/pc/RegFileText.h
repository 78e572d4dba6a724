#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "simulation/pc/RegFile.h"

namespace tarvex {

/// The keys as a registry file of version 5.00, in UTF-16 with a byte order mark, as regedit writes
/// it. A text that such a file cannot hold between quotes is written byte by byte.
std::string WriteRegFile(const std::vector<RegFileKey>& keys);

}  // namespace tarvex
