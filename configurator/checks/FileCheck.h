#pragma once

#include <string_view>

#include "configurator/checks/Checks.h"
#include "configurator/checks/Finding.h"

namespace tarvex {

/// Everything that there is to say about a launcher or a settings file: what cannot be read, what
/// hinders a change, and what CheckSettings finds. `name` names the file.
Findings CheckFile(std::string_view bytes, std::u16string_view name, const TextCodec& codec,
                   const LauncherFolder& folder);

}  // namespace tarvex
