#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

/// Tells what a folder holds. For tools: the launcher looks for files that it can name.
class FolderListing {
public:
    virtual ~FolderListing() = default;

    /// The names of the files in a folder, without it and in no particular order; folders are left
    /// out. Nothing when the path names no folder or the folder cannot be read.
    virtual std::optional<std::vector<std::u16string>> FilesIn(
        std::u16string_view folder) const = 0;
};

}  // namespace tarvex
