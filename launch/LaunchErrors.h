#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "launch/LaunchEnvironment.h"

namespace tarvex {

/// Errors of the launch engine by their codes.
enum class LaunchError : std::int32_t {
    HKeyMissing = 1,
    AccessPathNotInRegistry = 2,
    AccessNotFound = 3,
    EntryInvalid = 4,
    DatabaseNotFound = 5,
    DatabaseNeeded = 6,
    ProfileNotFound = 7,
    EntryWithoutHKey = 8,
    SystemDatabaseNotFound = 9,
    AccessListInvalid = 10,
    AccessListUnresolved = 11,
    DatabaseListInvalid = 12,
    DatabaseListUnresolved = 13,
    SystemDatabaseListInvalid = 14,
    SystemDatabaseListUnresolved = 15,
    ValueNotAllowed = 16,
    AccVersionNotAllowed = 17,
};

/// The number under which the error is raised: 0x80040400 plus its code as a signed number.
constexpr std::int32_t NumberOf(LaunchError error) {
    return std::int32_t{-2147220480} + static_cast<std::int32_t>(error);
}

/// A value for a placeholder: absent leaves the placeholder, an empty text removes it.
using LaunchErrorValue = std::optional<std::u16string_view>;

/// The German text of an error, empty for an unknown code. `exeName` is the launcher's file name
/// without extension; a folder before it is left out.
std::u16string LaunchErrorText(LaunchError error, std::u16string_view exeName,
                               LaunchErrorValue value1 = std::nullopt,
                               LaunchErrorValue value2 = std::nullopt);

/// Makes line breaks of "@@", then puts the values in the place of "##"; both marks stay as they
/// are inside a value.
std::u16string FillLaunchErrorText(std::u16string_view text, LaunchErrorValue value1,
                                   LaunchErrorValue value2 = std::nullopt);

/// Raises an error of the launch engine with its text. Its source is "Tarvex/cuTarvex", with ": "
/// and the name of the procedure when there is one. A busy mouse pointer becomes the default one.
[[noreturn]] void RaiseLaunchError(const LaunchEnvironment& environment, LaunchError error,
                                   std::u16string_view procedure = {},
                                   LaunchErrorValue value1 = std::nullopt,
                                   LaunchErrorValue value2 = std::nullopt);

/// Raises the exception being handled again, whatever it is, as a numbered error with ": " and the
/// procedure added to its source, and the failing line in brackets when it is known. The source of
/// an exception that names none is "Tarvex". The pointer as above. Call it inside a catch block
/// only.
[[noreturn]] void PassOnLaunchError(const LaunchEnvironment& environment,
                                    std::u16string_view procedure);

}  // namespace tarvex
