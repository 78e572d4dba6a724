#pragma once

#include <string>
#include <vector>

#include "commands/Environment.h"

namespace tarvex {

/// Does what the arguments after the program's name ask for and returns the exit code: 0 done, 1
/// refused or failed, 2 wrong usage. Results go to the console's output, problems to its error
/// output, one line each.
int RunCommand(const std::vector<std::u16string>& arguments,
               const ConfiguratorEnvironment& environment);

}  // namespace tarvex
