#pragma once

#include <string>
#include <string_view>

namespace tarvex {

/// What the launcher does with files: it looks for them, and writes its log and a saved report.
/// Failures show in the results. Paths are Windows paths, relative ones start at the current
/// directory.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    /// True when the path names an existing file, hidden, system and read-only ones included. False
    /// for a folder, an empty path, a path that ends in a separator, wildcards, and on any error.
    virtual bool FileExists(std::u16string_view path) const = 0;

    /// Appends the bytes in one write; creates the file when it is missing. Others may read the
    /// file and append to it meanwhile. False when the file cannot be opened or not all bytes could
    /// be written.
    virtual bool Append(std::u16string_view path, std::string_view bytes) = 0;

    /// Writes a file whole. The bytes go to a new file beside `path` first, which then takes the
    /// place of an existing file (read-only, hidden and system ones included); without `overwrite`
    /// an existing file is left alone and the result is false. False on any failure: an existing
    /// file is then as it was.
    virtual bool Write(std::u16string_view path, std::string_view bytes, bool overwrite) = 0;
};

}  // namespace tarvex
