#pragma once

#include <string>
#include <string_view>

#include "platform/FileFailure.h"

namespace tarvex {

/// The failure that a code of GetLastError stands for.
FileFailure FileFailureOf(unsigned long error);

/// Throws the failure of the call of Windows that was made last.
[[noreturn]] void ThrowLastFileFailure();

/// A path in the form for the system's functions. Throws FileFailure for one that the system
/// refuses and for the name of a device.
std::u16string FilePath(std::u16string_view path);

}  // namespace tarvex
