#pragma once

#include <cstdint>
#include <string_view>

#include "errors/RaisedError.h"

namespace tarvex {

/// Errors that are not of the application: what a failing conversion, collection or file operation
/// raises. They are raised under their own numbers.
enum class RuntimeError : std::int32_t {
    InvalidCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    IndexOutOfRange = 9,
    TypeMismatch = 13,
    Internal = 51,
    BadFileNumber = 52,
    FileNotFound = 53,
    DeviceIo = 57,
    DiskFull = 61,
    PermissionDenied = 70,
    PathFileAccess = 75,
    PathNotFound = 76,
    ObjectNotSet = 91,
    DuplicateKey = 457,
};

/// The number under which the error is raised.
constexpr std::int32_t NumberOf(RuntimeError error) {
    return static_cast<std::int32_t>(error);
}

/// The error with its German text and no source, ready to be thrown; `detail` follows the text of
/// an internal error.
RaisedError MakeError(RuntimeError error, std::u16string_view detail = {});

}  // namespace tarvex
