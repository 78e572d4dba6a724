#pragma once

#include <string>
#include <string_view>

#include "launch/DiagnosticLog.h"
#include "platform/ProgramInfo.h"

namespace tarvex {

/// The text with the separator at its end; an empty text stays empty.
std::u16string AddSep(std::u16string_view text, char16_t separator = u'\\');

/// Folder and file name with exactly one "\" added between them where the folder does not end in
/// one; an empty folder gives the name alone.
std::u16string JoinPath(std::u16string_view folder, std::u16string_view name);

/// Full path of a file beside the launcher that has the launcher's name and this extension:
/// CompanionPath(program, u".log") is "C:\Prog\Kunden.log" for C:\Prog\Kunden.exe.
std::u16string CompanionPath(const ProgramInfo& program, std::u16string_view extension);

/// True for what RelToAbs takes for absolute: "\\server\..." and "C:\...".
bool IsAbsoluteFolder(std::u16string_view folder);

/// A configured folder as an absolute one that ends in "\". Absolute are folders that begin with
/// "\\" or have ":\" after their first character; every other one starts at `launcherFolder`.
/// Only a folder that begins with "..\" is walked level by level, never above a drive's root or a
/// network share; in all others the text stays as it was typed. Empty for an empty folder. The
/// steps taken for a relative folder are written to `log` when there is one.
std::u16string RelToAbs(std::u16string_view folder, std::u16string_view launcherFolder,
                        DiagnosticLog* log = nullptr);

/// True for the names of pictures that the launcher shows, which end in .bmp or .jpg.
bool IsPictureName(std::u16string_view path);

/// What follows the last "\" of a path, or the last "/" with `slash`; the whole path when it has
/// none.
std::u16string_view FileNamePart(std::u16string_view path, bool slash = false);

/// What precedes the last "\" of a path, or the last "/" with `slash`; empty when it has none.
std::u16string_view FolderPart(std::u16string_view path, bool slash = false);

}  // namespace tarvex
