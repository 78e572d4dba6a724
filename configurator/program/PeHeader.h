#pragma once

#include <string_view>

namespace tarvex {

/// What matters of a Windows program's headers.
struct PeHeader {
    bool isProgram32 = false;  ///< a 32-bit program for Intel processors, no library
    bool isSigned = false;     ///< carries a signature over its bytes
};

/// Reads the headers at the beginning of a file; anything else gives all false.
PeHeader ReadPeHeader(std::string_view bytes);

}  // namespace tarvex
