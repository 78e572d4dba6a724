#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tarvex {

/// Why an operation on an open file or an open itself failed.
enum class FileProblem {
    NotFound,        ///< the file does not exist
    PathNotFound,    ///< its folder does not exist, or it is no path
    AccessDenied,    ///< read-only file, or no right
    InUse,           ///< another program has the file open, or it is a program that runs
    DiskFull,        ///< no room for the data
    Device,          ///< any other failure of reading or writing
    IsFolder,        ///< a folder, where a file is needed
    NotAFile,        ///< a pipe, a device or the like, where a file is needed
    ReadOnlyMedium,  ///< the medium or the file system cannot be written to
    Exists,          ///< a new file was to be made, and there is something of that name
    Locked           ///< another program kept the file's FileLock for the whole time of waiting
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

/// What a name stands for; a symbolic link stands for what it leads to.
enum class FileKind {
    None,     ///< nothing
    Regular,  ///< a file with content
    Folder,
    Other  ///< a pipe, a device, a socket
};

/// What there is under a name.
struct FileEntry {
    FileKind kind = FileKind::None;
    bool isLink = false;      ///< the name is a symbolic link; of kind None: it leads nowhere
    std::uint32_t names = 1;  ///< of a regular file: the hard links to it, this one included
};

/// Who may read and write a file that is put in its place.
struct FileAccess {
    bool ownerOnly = false;     ///< its owner alone, whatever was there before
    std::u16string model = {};  ///< of a new file: as those of this one; empty: as new files have
};

/// The right to read, change and replace a file, which all programs ask for that change it through
/// a FileStore. It ends with the object.
class FileLock {
public:
    virtual ~FileLock() = default;
};

/// Files as a program needs them that changes a copy and puts it in the place of the finished file
/// in one step: everybody sees the old content or the new one, never a half of it, even when the
/// machine loses its power. Every call but FileExists throws FileFailure when the system refuses
/// it. Symbolic links are followed, but for the name that PlaceNew makes.
class FileStore : public BinaryFiles {
public:
    /// What there is under a name.
    virtual FileEntry Describe(std::u16string_view path) const = 0;

    /// True when both names lead to the same existing file, however they are written.
    virtual bool IsSameFile(std::u16string_view a, std::u16string_view b) const = 0;

    /// Waits for the right to change an existing file, `patience` at most, then fails with Locked.
    /// A file that must not be written to is refused at once, one that is in use after a second.
    /// Meanwhile Open may refuse the file (InUse); the other calls work.
    virtual std::unique_ptr<FileLock> Lock(std::u16string_view path,
                                           std::chrono::milliseconds patience) = 0;

    /// The bytes of an existing file.
    virtual std::string ReadAll(std::u16string_view path) = 0;

    /// Writes the bytes to a new file in the folder of `path`, flushed to the disk, and returns its
    /// path. `path` itself need not exist and is not touched. The new file is its owner's alone. No
    /// file is left when the call fails, and none when the program is interrupted before it was
    /// placed or removed.
    virtual std::u16string WriteNewBeside(std::u16string_view path, std::string_view bytes) = 0;

    /// Flushes `temp`, which may have been changed since WriteNewBeside, and gives it the name
    /// `path` in one step, in place of the file there if there is one; a new file gets `access`,
    /// and so does a replaced one with `ownerOnly`: otherwise owner and permissions stay. False
    /// when the owner could not be kept. A read-only file is not replaced (AccessDenied), nor is
    /// what is no file. On failure both files are as they were; `temp` is the caller's to remove.
    virtual bool ReplaceWith(std::u16string_view temp, std::u16string_view path,
                             const FileAccess& access) = 0;

    /// As ReplaceWith for a name that nothing has yet; fails with Exists when there is anything of
    /// that name. Of two programs that do this at the same time one fails.
    virtual void PlaceNew(std::u16string_view temp, std::u16string_view path,
                          const FileAccess& access) = 0;

    /// Deletes a file.
    virtual void Remove(std::u16string_view path) = 0;
};

}  // namespace tarvex
