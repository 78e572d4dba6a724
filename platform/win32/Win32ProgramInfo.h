#pragma once

#include "platform/ProgramInfo.h"

namespace tarvex {

/// What the system knows about the running program.
ProgramInfo ReadProgramInfo();

}  // namespace tarvex
