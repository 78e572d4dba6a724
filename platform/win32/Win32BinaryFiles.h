#pragma once

#include "platform/BinaryFile.h"

namespace tarvex {

/// The files of Windows, opened in binary form.
class Win32BinaryFiles : public BinaryFiles {
public:
    bool FileExists(std::u16string_view path) const override;
    std::unique_ptr<BinaryFile> Open(std::u16string_view path) override;
};

}  // namespace tarvex
