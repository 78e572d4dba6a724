#pragma once

#include <sys/stat.h>

#include "platform/posix/PosixFile.h"

namespace tarvex {

/// Gives a new file, which is its owner's alone so far, the permissions that it shall have. Throws
/// FileFailure.
void SetAccess(const PosixFile& file, const FileAccess& access);

/// Gives a new file owner and permissions of the file `old` whose place it will take; with
/// `access.ownerOnly` the owner alone. False when that must not be given away. Throws FileFailure.
bool TakeAccess(const PosixFile& file, const struct stat& old, const FileAccess& access);

}  // namespace tarvex
