#pragma once

#include <sys/stat.h>
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

    /// Creates a file for writing that is its owner's alone; none when there is one of that name.
    /// Throws FileFailure.
    static std::optional<PosixFile> CreateNew(const std::string& path);

    PosixFile(PosixFile&& other) noexcept;
    PosixFile& operator=(PosixFile&& other) = delete;
    ~PosixFile();

    int Get() const { return descriptor_; }

    struct stat Status() const;

    void WriteAll(std::string_view bytes) const;

    /// Waits until the content is on the disk.
    void Flush() const;

private:
    explicit PosixFile(int descriptor) : descriptor_(descriptor) {}

    int descriptor_;
};

/// From the position of an open file, pipe or terminal on, until `count` bytes are there or it
/// ends. Throws FileFailure.
std::string ReadUpTo(int descriptor, std::size_t count);

/// The path as the system takes it: UTF-8, and a lone low surrogate from U+DC80 to U+DCFF as the
/// one byte that PosixText made it of. Throws FileFailure when it is empty or holds a zero
/// character.
std::string PosixPath(std::u16string_view path);

/// A name that the system gave, whose bytes need not be UTF-8. What is not becomes, byte by byte,
/// a lone low surrogate from U+DC80 to U+DCFF: text that no name in UTF-8 can be, from which
/// PosixPath gets the bytes back, and which messages show as U+FFFD.
std::u16string PosixText(std::string_view bytes);

/// The folder's part of a path, with its closing "/"; empty for a bare file name.
std::string FolderPrefix(const std::string& path);

/// The failure that errno stands for, of an operation on `path`.
FileFailure PosixFailure(int error, const std::string& path = {});

/// Throws FileFailure unless it is the status of a regular file.
void RequireRegular(const struct stat& status);

}  // namespace tarvex
