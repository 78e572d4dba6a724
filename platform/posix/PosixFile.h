#pragma once

#include <sys/types.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/FileStore.h"

namespace tarvex {

/// An open file descriptor; closes with the object.
class PosixFile {
public:
    /// Opens an existing file as open(2) does. Throws FileFailure, also when it is not a regular
    /// file.
    PosixFile(const std::string& path, int flags);

    /// Creates a file for writing; none when there is one of that name. Throws FileFailure.
    static std::optional<PosixFile> CreateNew(const std::string& path);

    PosixFile(PosixFile&& other) noexcept;
    PosixFile& operator=(PosixFile&& other) = delete;
    ~PosixFile();

    int Get() const { return descriptor_; }

    /// From the file's position on, until `count` bytes are there or the file ends.
    std::string ReadUpTo(std::size_t count) const;
    void WriteAll(std::string_view bytes) const;

    /// Waits until the content is on the disk.
    void Flush() const;

private:
    explicit PosixFile(int descriptor) : descriptor_(descriptor) {}

    int descriptor_;
};

/// The path in UTF-8. Throws FileFailure when it is empty or holds a zero character.
std::string PosixPath(std::u16string_view path);

/// The folder's part of a path, with its closing "/"; empty for a bare file name.
std::string FolderPrefix(const std::string& path);

/// The failure that errno stands for, of an operation on `path`.
FileFailure PosixFailure(int error, const std::string& path = {});

}  // namespace tarvex
