#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tarvex {

/// A file opened for reading and writing bytes at a position. Positions are 0-based byte offsets.
/// Every operation throws FileFailure when the system refuses it. The file closes with the object.
class BinaryFile {
public:
    virtual ~BinaryFile() = default;

    /// Length in bytes.
    virtual std::int64_t Size() const = 0;

    /// Moves the position; it may lie behind the end.
    virtual void Seek(std::int64_t position) = 0;

    /// Up to `count` bytes from the position on, fewer at the end of the file; moves the position
    /// behind the bytes read.
    virtual std::string Read(std::size_t count) = 0;

    /// Writes all bytes at the position, growing the file where needed; moves the position behind
    /// them.
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

}  // namespace tarvex
