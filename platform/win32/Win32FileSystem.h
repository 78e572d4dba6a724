#pragma once

#include "platform/FileSystem.h"

namespace tarvex {

/// The files of Windows.
class Win32FileSystem : public FileSystem {
public:
    bool FileExists(std::u16string_view path) const override;
    bool Append(std::u16string_view path, std::string_view bytes) override;
    bool Write(std::u16string_view path, std::string_view bytes, bool overwrite) override;
};

}  // namespace tarvex
