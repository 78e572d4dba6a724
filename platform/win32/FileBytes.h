#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarvex {

/// Reads from an open file until `count` bytes are there or the file ends. Throws FileFailure.
std::string ReadUpTo(void* file, std::size_t count);

/// Writes all bytes to an open file. False with the reason in GetLastError.
bool WriteAll(void* file, std::string_view bytes);

}  // namespace tarvex
