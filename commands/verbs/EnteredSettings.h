#pragma once

#include <string_view>
#include <vector>

#include "commands/CommandContext.h"
#include "commands/CommandLine.h"

namespace tarvex {

/// Adds the values of NAME=VALUE to the settings. The value "-" is asked for: a line of standard
/// input, at a terminal twice and not shown. `place` names where the assignments stand in the
/// problems that are returned. An empty line is not taken for a password unless `allowEmpty`.
Problems EnterSettings(CommandContext& context, const std::vector<Assignment>& assignments,
                       std::u16string_view place, bool allowEmpty, Settings& settings);

}  // namespace tarvex
