#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/FolderListing.h"

namespace tarvex {

/// Folders in memory, by the names under which they are asked for.
class FakeFolderListing : public FolderListing {
public:
    std::optional<std::vector<std::u16string>> FilesIn(std::u16string_view folder) const override {
        const auto found = folders.find(std::u16string(folder));
        return found == folders.end() ? std::nullopt : std::optional(found->second);
    }

    std::map<std::u16string, std::vector<std::u16string>> folders;
};

}  // namespace tarvex
