#pragma once

#include "platform/FileStore.h"

namespace tarvex {

/// The files of Windows, replaced in one step.
class Win32FileStore : public FileStore {
public:
    std::string ReadAll(std::u16string_view path) override;
    std::u16string WriteNewBeside(std::u16string_view path, std::string_view bytes) override;
    void ReplaceWith(std::u16string_view temp, std::u16string_view path) override;
    void Remove(std::u16string_view path) override;
};

}  // namespace tarvex
