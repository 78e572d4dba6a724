#pragma once

#include <cstdint>
#include <map>
#include <random>
#include <string>

#include "tests/launch/RandomLaunch.h"

namespace tarvex {

/// Settings under the numbers of their fields.
using DrawnSettings = std::map<std::int32_t, std::u16string>;

/// What a launcher can be told of a drawn launch: its properties as fields, key lists spread over
/// theirs, and a picture that is looked for where the database is. The same launch gives the same
/// settings.
DrawnSettings SettingsOf(const RandomLaunch& launch);

}  // namespace tarvex
