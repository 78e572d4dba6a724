#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tarvex {

/// Why an operation on an open file or an open itself failed.
enum class FileProblem {
    NotFound,      ///< the file does not exist
    PathNotFound,  ///< its folder does not exist
    AccessDenied,  ///< read-only file or medium, or no right
    InUse,         ///< another program has the file open
    DiskFull,      ///< no room for the data
    Device         ///< any other failure of reading or writing
};

/// Thrown by file operations that cannot report a failure through their result.
struct FileFailure {
    FileProblem problem;
};

/// A file opened for reading and writing bytes at a position. Positions are 0-based byte offsets.
/// Every operation throws FileFailure when the system refuses it. The file closes with the object.
class BinaryFile {
public:
    virtual ~BinaryFile() = default;

    /// Length in bytes.
    virtual std::int64_t Size() const = 0;

    /// Moves the position; it may lie after the end.
    virtual void Seek(std::int64_t position) = 0;

    /// Up to `count` bytes from the position on, fewer at the end of the file; moves the position
    /// to the end of the bytes read.
    virtual std::string Read(std::size_t count) = 0;

    /// Writes all bytes at the position, growing the file where needed; moves the position to
    /// their end.
    virtual void Write(std::string_view bytes) = 0;
};

/// Finds and opens files for BinaryFile.
class BinaryFiles {
public:
    virtual ~BinaryFiles() = default;

    /// As FileSystem::FileExists.
    virtual bool FileExists(std::u16string_view path) const = 0;

    /// Opens an existing file for reading and writing; others may read it meanwhile. Never creates
    /// one. Throws FileFailure; never returns null.
    virtual std::unique_ptr<BinaryFile> Open(std::u16string_view path) = 0;
};

/// Files as a program needs them that changes a copy and puts it in the place of the finished file
/// in one step: everybody sees the old content or the new one, never a half of it, even when the
/// machine loses its power. Every call but FileExists throws FileFailure when the system refuses
/// it.
class FileStore : public BinaryFiles {
public:
    /// The bytes of an existing file. A folder is refused (AccessDenied).
    virtual std::string ReadAll(std::u16string_view path) = 0;

    /// Writes the bytes to a new file in the folder of `path`, flushed to the disk, and returns its
    /// path. `path` itself need not exist and is not touched; when it is a file, the new one gets
    /// its permission bits. No file is left when the call fails.
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
