#pragma once

#include "platform/FileStore.h"

namespace tarvex {

/// Files of a POSIX system; a name that is not UTF-8 is one that PosixText made. Two programs that
/// open a file through this class exclude each other (InUse), and one that has a file's FileLock
/// excludes both.
class PosixFileStore : public FileStore {
public:
    bool FileExists(std::u16string_view path) const override;
    std::unique_ptr<BinaryFile> Open(std::u16string_view path) override;
    FileEntry Describe(std::u16string_view path) const override;
    bool IsSameFile(std::u16string_view a, std::u16string_view b) const override;
    std::unique_ptr<FileLock> Lock(std::u16string_view path,
                                   std::chrono::milliseconds patience) override;
    std::string ReadAll(std::u16string_view path) override;
    std::u16string WriteNewBeside(std::u16string_view path, std::string_view bytes) override;
    bool ReplaceWith(std::u16string_view temp, std::u16string_view path,
                     const FileAccess& access) override;
    void PlaceNew(std::u16string_view temp, std::u16string_view path,
                  const FileAccess& access) override;
    void Remove(std::u16string_view path) override;
};

}  // namespace tarvex
