#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "simulation/pc/PcDescription.h"

namespace tarvex {

/// The full path that Windows understands by a path: relative ones, "C:x" and "\x" from the current
/// folder, "/" as "\", doubled "\", "." and ".." resolved, dots and blanks at the end and a single
/// dot at the end of a folder's name dropped; what follows "\\?\" as it stands. "D:x" starts at the
/// root of a drive that is not the current one. A "\" at the end stays only at a root.
///
/// Nothing for a path that names no file or folder on any disk: with "*", "?", other characters
/// that names cannot have, a device ("NUL"), no drive ("1:\x"), or nothing at all.
std::optional<std::u16string> FullWindowsPath(std::u16string_view path,
                                              std::u16string_view currentFolder);

/// The path with what stands before a relative one, as for FullWindowsPath: it means the same in
/// whatever folder. What it is made of stays as it stands.
std::u16string RootedWindowsPath(std::u16string_view path, std::u16string_view currentFolder);

/// True for "C:\..." and "\\server\share...", with "/" too: paths that do not depend on a current
/// folder.
bool IsFullWindowsPath(std::u16string_view path);

/// Where a full path leads a 32-bit program on a 64-bit computer: below the folder System32 to
/// SysWOW64, and by the name Sysnative to System32.
std::u16string PathOf32BitProgram(std::u16string_view fullPath, WindowsVersion windows);

/// True when a part of the path may be the short form that Windows gives to a long name
/// ("KUNDEN~1.MDB").
bool HasShortName(std::u16string_view fullPath);

}  // namespace tarvex
