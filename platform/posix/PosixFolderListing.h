#pragma once

#include "platform/FolderListing.h"

namespace tarvex {

/// The folders of a POSIX system. A symbolic link to a file counts as a file.
class PosixFolderListing : public FolderListing {
public:
    std::optional<std::vector<std::u16string>> FilesIn(std::u16string_view folder) const override;
};

}  // namespace tarvex
