#pragma once

#include <string>
#include <string_view>

namespace tarvex {

/// Files as a program needs them that replaces a finished file in one step: everybody sees the old
/// content or the new one, never a half of it, even when the machine loses its power. Every call
/// throws FileFailure when the system refuses it.
class FileStore {
public:
    virtual ~FileStore() = default;

    /// The bytes of an existing file. A folder is refused (AccessDenied).
    virtual std::string ReadAll(std::u16string_view path) = 0;

    /// Writes the bytes to a new file in the folder of `path`, flushed to the disk, and returns its
    /// path. `path` itself need not exist and is not touched; when it is a file, the new one gets
    /// its permission bits. Nothing is left behind when the call fails.
    virtual std::u16string WriteNewBeside(std::u16string_view path, std::string_view bytes) = 0;

    /// Flushes `temp`, which may have been changed since WriteNewBeside, and gives it the name
    /// `path` in one step, in place of the file there if there is one. A read-only file is not
    /// replaced (AccessDenied). On failure both files are as they were; `temp` is the caller's to
    /// remove.
    virtual void ReplaceWith(std::u16string_view temp, std::u16string_view path) = 0;

    /// Deletes a file.
    virtual void Remove(std::u16string_view path) = 0;
};

}  // namespace tarvex
