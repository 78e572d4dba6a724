#pragma once

#include <string>
#include <string_view>

#include "platform/FileStore.h"

namespace tarvex {

/// As FileStore::Describe.
FileEntry DescribeFile(std::u16string_view path);

/// As FileStore::IsSameFile.
bool IsSameSystemFile(std::u16string_view a, std::u16string_view b);

/// The file that a symbolic link leads to; another path as it is. `path` is one that SystemPath
/// returned, and so is the result.
std::u16string FollowLink(const std::u16string& path);

/// Throws FileFailure when there is something at `path` that must not be replaced or changed: a
/// folder, a read-only file, one that is in use. `path` is one that SystemPath returned.
void RequireReplaceable(const std::u16string& path);

}  // namespace tarvex
