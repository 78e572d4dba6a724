#pragma once

#include <string_view>

#include "configurator/Model.h"

namespace tarvex {

/// What in a configuration will not work or is probably not meant: settings that do not fit each
/// other or that the launcher cannot use. `place` names the file in the problems. Empty when there
/// is nothing to say.
Problems CheckSettings(const Settings& settings, std::u16string_view place);

}  // namespace tarvex
