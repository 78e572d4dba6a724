#pragma once

#include <string>
#include <string_view>

namespace tarvex {

/// The absolute path that Windows understands by `path` in the form that its functions take at any
/// length: from 248 characters on in the \\?\ notation. A reserved device name ("NUL", "COM1:")
/// becomes a path that starts with \\.\ . Empty when the path is empty, holds a zero character or
/// Windows refuses it.
std::u16string SystemPath(std::u16string_view path);

/// True when the path that SystemPath returned names a device, not a file.
bool IsDevicePath(std::u16string_view systemPath);

/// SystemPath for an operation that cannot do without: throws FileFailure for a path that Windows
/// refuses (PathNotFound) and for the name of a device (NotAFile).
std::u16string FilePath(std::u16string_view path);

}  // namespace tarvex
