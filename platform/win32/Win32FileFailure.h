#pragma once

#include "platform/FileFailure.h"

namespace tarvex {

/// The failure that a code of GetLastError stands for.
FileFailure FileFailureOf(unsigned long error);

/// Throws the failure of the call of Windows that was made last.
[[noreturn]] void ThrowLastFileFailure();

}  // namespace tarvex
