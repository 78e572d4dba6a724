#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileStore.h"
#include "platform/FolderListing.h"
#include "window/form/UserDialogs.h"

namespace tarvex {

/// The box in which the user chooses the PC that the preview is about: this one, or one of the
/// described PCs of a folder that he has named.
class PcChoice {
public:
    /// All outlive this object.
    PcChoice(UserDialogs& dialogs, FileStore& store, const FolderListing& folders)
        : dialogs_(dialogs), store_(store), folders_(folders) {}

    /// The lines of the box: "dieser PC", the described PCs, and the line that asks for a folder.
    std::vector<std::u16string> Lines() const;

    /// The 0-based line that is chosen.
    std::int32_t Selected() const { return selected_; }

    /// Chooses a line; the last one asks for a folder first and chooses its first PC. True when the
    /// choice is another one than before: the preview is to be worked out anew. Whatever comes of
    /// it, the box then shows Lines and Selected.
    bool Select(std::int32_t line);

    /// For PreviewRequest: the path of the description; empty: this PC.
    std::u16string Pc() const;

    /// The folder of the described PCs, and where the user is asked for another one; empty: none.
    const std::u16string& Folder() const { return folder_; }
    void SetFolder(std::u16string_view folder) { folder_ = folder; }

    /// "diesem PC" or "Kasse", after "auf".
    std::u16string Name() const;

private:
    bool AskForFolder();

    UserDialogs& dialogs_;
    FileStore& store_;
    const FolderListing& folders_;
    std::u16string folder_;
    std::vector<std::u16string> pcs_;  // paths
    std::int32_t selected_ = 0;
};

}  // namespace tarvex
