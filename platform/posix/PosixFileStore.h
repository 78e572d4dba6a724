#pragma once

#include "platform/FileStore.h"

namespace tarvex {

/// Files of a POSIX system, replaced in one step; their names are UTF-8. A symbolic link is
/// followed: the file behind it is replaced.
class PosixFileStore : public FileStore {
public:
    std::string ReadAll(std::u16string_view path) override;
    std::u16string WriteNewBeside(std::u16string_view path, std::string_view bytes) override;
    void ReplaceWith(std::u16string_view temp, std::u16string_view path) override;
    void Remove(std::u16string_view path) override;
};

}  // namespace tarvex
