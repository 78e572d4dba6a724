#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileStore.h"
#include "platform/FolderListing.h"
#include "simulation/pc/PcFile.h"

namespace tarvex {

/// A description and the name under which it was found.
struct SelectedPc {
    std::u16string path;
    PcFile file;
};

/// The descriptions to work on, or why there are none.
struct PcSelection {
    std::vector<SelectedPc> pcs;
    Problems problems;
};

/// Reads the descriptions that the paths name: files, or folders, which stand for their "*.pc" in
/// the order of their names. With a pattern only those are read whose file name matches it, with or
/// without its extension and whatever the case; "*" stands for any characters, "?" for one. A file
/// that is named twice is read once. No file at all is a problem.
PcSelection SelectPcs(FileStore& files, const FolderListing& folders,
                      const std::vector<std::u16string>& paths, std::u16string_view pattern);

/// Reads one description. Nothing when it cannot be read or is none of a computer on which
/// something is started; the problems say why.
std::optional<SelectedPc> SelectPc(FileStore& files, std::u16string_view path, Problems& problems);

/// Whether the whole text matches, as for SelectPcs.
bool MatchesPattern(std::u16string_view text, std::u16string_view pattern);

}  // namespace tarvex
