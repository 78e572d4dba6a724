#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "launch/LaunchRun.h"

namespace tarvex {

/// Key of the Access profiles below HKEY_LOCAL_MACHINE for Office version 0 (8.0) to 3 (11.0);
/// empty for any other number.
std::u16string_view ProfileKey(std::int32_t version);

/// Returns " /Profile " with the quoted profile name, or nothing when no profile is configured.
/// When asked to, looks the profile up and raises launch error 7; in test mode it is noted.
std::u16string ResolveProfile(LaunchRun& run);

}  // namespace tarvex
