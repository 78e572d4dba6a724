#pragma once

#include <string>
#include <string_view>

namespace tarvex {

/// A new file of a name of its own in the folder of `path`, holding the bytes, flushed to the disk
/// and closed; returns its path. Empty on failure with the reason in `error`, a code of
/// GetLastError; nothing is left behind then. `path` is one that SystemPath returned.
std::u16string WriteNewFileBeside(const std::u16string& path, std::string_view bytes,
                                  unsigned long& error);

}  // namespace tarvex
