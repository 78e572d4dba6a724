#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "platform/FileStore.h"

namespace tarvex {

/// As FileStore::Lock for a path that SystemPath returned. A file that anybody has open cannot be
/// replaced on Windows, so that the lock is a file of its own, "~NAME.lock" in the same folder. The
/// system deletes it when the lock, or the program, ends.
std::unique_ptr<FileLock> LockFileBeside(const std::u16string& path,
                                         std::chrono::milliseconds patience);

}  // namespace tarvex
