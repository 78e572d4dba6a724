#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "launch/LaunchEnvironment.h"

namespace tarvex {

/// Codes of the launch errors.
namespace launch_error {
inline constexpr std::int32_t kHKeyMissing = 1;
inline constexpr std::int32_t kAccessPathNotInRegistry = 2;
inline constexpr std::int32_t kAccessNotFound = 3;
inline constexpr std::int32_t kEntryInvalid = 4;
inline constexpr std::int32_t kDatabaseNotFound = 5;
inline constexpr std::int32_t kDatabaseNeeded = 6;
inline constexpr std::int32_t kProfileNotFound = 7;
inline constexpr std::int32_t kEntryWithoutHKey = 8;
inline constexpr std::int32_t kSystemDatabaseNotFound = 9;
inline constexpr std::int32_t kAccessListInvalid = 10;
inline constexpr std::int32_t kAccessListUnresolved = 11;
inline constexpr std::int32_t kDatabaseListInvalid = 12;
inline constexpr std::int32_t kDatabaseListUnresolved = 13;
inline constexpr std::int32_t kSystemDatabaseListInvalid = 14;
inline constexpr std::int32_t kSystemDatabaseListUnresolved = 15;
inline constexpr std::int32_t kValueNotAllowed = 16;
inline constexpr std::int32_t kAccVersionNotAllowed = 17;
}  // namespace launch_error

/// A value for a placeholder: absent leaves the placeholder, an empty text removes it.
using LaunchErrorValue = std::optional<std::u16string_view>;

/// Number with which a launch error is raised: 0x80040400 plus its code as a signed number.
constexpr std::int32_t LaunchErrorNumber(std::int32_t code) {
    return std::int32_t{-2147220480} + code;
}

/// The German text of a launch error code, empty for an unknown code. `exeName` is the launcher's
/// file name without extension; a folder before it is left out.
std::u16string LaunchErrorText(std::int32_t code, std::u16string_view exeName,
                               LaunchErrorValue value1 = std::nullopt,
                               LaunchErrorValue value2 = std::nullopt);

/// Makes line breaks of "@@", then puts the values in the place of "##"; both marks stay as they
/// are inside a value.
std::u16string FillLaunchErrorText(std::u16string_view text, LaunchErrorValue value1,
                                   LaunchErrorValue value2 = std::nullopt);

/// Raises an error of the launch engine, after resetting a busy mouse pointer.
/// A negative `number` is a negated launch code: its number and source ("Tarvex" or
/// "Tarvex/SOURCE") are made here, its text too when `description` is empty. Any other number
/// passes on the exception being handled, whose number stays and whose source and description
/// stay when they are not given (an empty source becomes "Tarvex"); such a call stands in a catch
/// block. A `procedure` is appended to
/// the source with ": ", and the failing line in parentheses when it is known.
[[noreturn]] void RaiseLaunchError(const LaunchEnvironment& environment, std::int32_t number,
                                   std::u16string_view source, std::u16string_view procedure,
                                   std::u16string_view description = {},
                                   LaunchErrorValue value1 = std::nullopt,
                                   LaunchErrorValue value2 = std::nullopt);

}  // namespace tarvex
