#pragma once

#include <array>
#include <memory>

#include "text/TextCodec.h"

namespace tarvex {

/// The numbers of the single-byte ANSI code pages of Windows.
inline constexpr std::array<int, 10> kCodePages = {874,  1250, 1251, 1252, 1253,
                                                   1254, 1255, 1256, 1257, 1258};

/// The codec of one of these code pages, with the same bytes on every system as on a Windows that
/// has it: every byte is one character, and what only resembles one becomes "?". Null for any other
/// number.
std::unique_ptr<TextCodec> MakeCodePage(int number);

}  // namespace tarvex
