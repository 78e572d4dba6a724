#pragma once

#include <functional>
#include <map>
#include <string>

#include "platform/FileStore.h"
#include "platform/FileSystem.h"

namespace tarvex {

/// The files of Windows for a program that looks for them.
class Win32FileSystem : public FileSystem {
public:
    bool FileExists(std::u16string_view path) const override;
    bool Append(std::u16string_view path, std::string_view bytes) override;
    bool Write(std::u16string_view path, std::string_view bytes, bool overwrite) override;
};

/// The files of Windows for a program that changes them. Access rights take the place of permission
/// bits; a new file gets those that its folder has for new ones, whatever its model has. The owner
/// of a replaced file is the one who replaces it.
class Win32FileStore : public FileStore {
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

private:
    /// The file at `temp` has got its name, or is gone.
    void Settle(std::u16string_view temp);

    /// True when the file at `temp` has no rights of its folder.
    bool IsOwnerOnly(std::u16string_view temp) const;

    /// The files that WriteNewBeside made, and whether they are IsOwnerOnly.
    std::map<std::u16string, bool, std::less<>> temporaries_;
};

}  // namespace tarvex
