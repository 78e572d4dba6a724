#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "text/TextCodec.h"

namespace tarvex {

/// Character codes of a scrambling key; it repeats over longer values and is never empty.
using ScrambleKey = std::span<const std::uint8_t>;

/// The key of the settings, put together from its four pieces.
std::array<std::uint8_t, 13> SettingsKey();

/// Scrambles a value as it is stored in a mark; applied to the stored form it gives the plain value
/// back. Characters that come out as code 0 are dropped: the result is then shorter, and what
/// follows them cannot be read back. `codec` has one byte per character. An application error with
/// number 0x8004000B is raised when it has not.
std::u16string ScrambleBrandValue(std::u16string_view value, const TextCodec& codec);
std::u16string ScrambleBrandValue(std::u16string_view value, const TextCodec& codec,
                                  ScrambleKey key);

/// The plain text of a list of numbers joined by "#", the form of user names and passwords below
/// the brand value scrambling. Empty parts are skipped. A part that is not a number raises runtime
/// error 13, a number above 255 runtime error 5.
std::u16string DecodeNumberList(std::u16string_view list, const TextCodec& codec);
std::u16string DecodeNumberList(std::u16string_view list, const TextCodec& codec, ScrambleKey key);

/// The list of numbers for a plain text.
std::u16string EncodeNumberList(std::u16string_view plain, const TextCodec& codec);
std::u16string EncodeNumberList(std::u16string_view plain, const TextCodec& codec, ScrambleKey key);

}  // namespace tarvex
