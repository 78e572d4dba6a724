#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/FileStore.h"

namespace tarvex {

/// The failure that a code of GetLastError stands for.
FileFailure FileFailureOf(unsigned long error);

/// Throws the failure of the call of Windows that was made last.
[[noreturn]] void ThrowLastFileFailure();

/// Reads from an open file until `count` bytes are there or the file ends. Throws FileFailure.
std::string ReadUpTo(void* file, std::size_t count);

/// Writes all bytes to an open file. False with the reason in GetLastError.
bool WriteAll(void* file, std::string_view bytes);

/// A new file of a name of its own in the folder of `path`, holding the bytes, flushed to the disk
/// and closed; returns its path. Empty on failure with the reason in `error`, a code of
/// GetLastError; no file is left then. `path` is one that SystemPath returned. `security` is null
/// or the SECURITY_ATTRIBUTES of the new file, whose rights can be changed later.
std::u16string WriteNewFileBeside(const std::u16string& path, std::string_view bytes,
                                  unsigned long& error, void* security = nullptr);

}  // namespace tarvex
