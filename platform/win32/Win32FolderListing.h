#pragma once

#include "platform/FolderListing.h"

namespace tarvex {

/// The folders of Windows, hidden files included.
class Win32FolderListing : public FolderListing {
public:
    std::optional<std::vector<std::u16string>> FilesIn(std::u16string_view folder) const override;
};

}  // namespace tarvex
