#pragma once

#include "platform/FileStore.h"

namespace tarvex {

/// Files of a POSIX system; their names are UTF-8. A symbolic link is followed: the file that it
/// leads to is replaced. Two programs that open a file through this class exclude each other
/// (InUse).
class PosixFileStore : public FileStore {
public:
    bool FileExists(std::u16string_view path) const override;
    std::unique_ptr<BinaryFile> Open(std::u16string_view path) override;
    std::string ReadAll(std::u16string_view path) override;
    std::u16string WriteNewBeside(std::u16string_view path, std::string_view bytes) override;
    void ReplaceWith(std::u16string_view temp, std::u16string_view path) override;
    void Remove(std::u16string_view path) override;
};

}  // namespace tarvex
