#pragma once

#include <cstdint>
#include <string_view>

#include "errors/RaisedError.h"

namespace tarvex {

/// Numbers of the errors that are no application errors: what a failing conversion, collection or
/// file operation raises.
namespace runtime_error {
inline constexpr std::int32_t kInvalidCall = 5;
inline constexpr std::int32_t kOverflow = 6;
inline constexpr std::int32_t kOutOfMemory = 7;
inline constexpr std::int32_t kIndexOutOfRange = 9;
inline constexpr std::int32_t kTypeMismatch = 13;
inline constexpr std::int32_t kInternal = 51;
inline constexpr std::int32_t kBadFileNumber = 52;
inline constexpr std::int32_t kFileNotFound = 53;
inline constexpr std::int32_t kDeviceIo = 57;
inline constexpr std::int32_t kDiskFull = 61;
inline constexpr std::int32_t kPermissionDenied = 70;
inline constexpr std::int32_t kPathFileAccess = 75;
inline constexpr std::int32_t kPathNotFound = 76;
inline constexpr std::int32_t kObjectNotSet = 91;
inline constexpr std::int32_t kDuplicateKey = 457;
}  // namespace runtime_error

/// The runtime error of that number with its German text and no source; `detail` follows the text
/// of an internal error.
RaisedError RuntimeError(std::int32_t number, std::u16string_view detail = {});

}  // namespace tarvex
