#include "simulation/pc/DescribedFiles.h"

#include <utility>

#include "launch/PathHelpers.h"
#include "simulation/pc/Names.h"
#include "simulation/pc/RegistryNames.h"
#include "simulation/pc/WindowsPaths.h"

namespace tarvex {
namespace {

std::u16string Folded(std::u16string_view path) {
    while (path.ends_with(u'\\')) {
        path.remove_suffix(1);
    }
    return FoldedName(path);
}

/// True when a set holds the path or a folder above it.
bool HoldsOrAbove(const std::set<std::u16string>& set, std::u16string_view folded) {
    for (; !folded.empty(); folded = FolderPart(folded)) {
        if (set.contains(std::u16string(folded))) {
            return true;
        }
    }
    return false;
}

bool EndsInSeparator(std::u16string_view path) {
    return path.ends_with(u'\\') || path.ends_with(u'/');
}

}  // namespace

DescribedFiles::DescribedFiles(const PcDescription& description)
    : is64Bit_(description.is64Bit),
      windows_(description.windows),
      currentFolder_(description.currentFolder.empty() ? FolderPart(description.program)
                                                       : description.currentFolder) {
    AddFile(description.program);
    for (const std::u16string& path : description.files) {
        AddFile(path);
    }
    for (const std::u16string& path : description.missing) {
        if (const auto full = FullWindowsPath(path, currentFolder_);
            full && !IsRegistryName(path)) {
            missing_.insert(Folded(*full));
        }
    }
    for (const std::u16string& path : description.complete) {
        if (path == u"*") {
            isAllComplete_ = true;
        } else if (const auto full = FullWindowsPath(path, currentFolder_);
                   full && !IsRegistryName(path)) {
            complete_.insert(Folded(*full));
        }
    }
}

void DescribedFiles::AddFile(std::u16string_view path) {
    const auto full = FullWindowsPath(path, currentFolder_);
    if (!full) {
        return;
    }
    std::u16string folded = Folded(*full);
    AddFolder(std::u16string(FolderPart(folded)));
    if (EndsInSeparator(path)) {
        AddFolder(std::move(folded));
    } else {
        files_.insert(std::move(folded));
    }
}

void DescribedFiles::AddFolder(std::u16string path) {
    // A folder that is known has known parents.
    while (!path.empty() && folders_.insert(path).second) {
        path = FolderPart(path);
    }
}

bool DescribedFiles::FileExists(std::u16string_view path) const {
    const auto full = FullWindowsPath(path, currentFolder_);
    std::u16string what(full ? *full : path);
    Presence presence = Presence::NotThere;
    if (full && !EndsInSeparator(path)) {
        what = is64Bit_ ? PathOf32BitProgram(*full, windows_) : *full;
        presence = PresenceOf(what);
    }
    if (listener != nullptr && !path.empty()) {
        listener->OnAsked(Asked::File, what, presence);
    }
    return presence == Presence::There;
}

bool DescribedFiles::Append(std::u16string_view path, std::string_view bytes) {
    static_cast<void>(path);
    static_cast<void>(bytes);
    return true;
}

bool DescribedFiles::Write(std::u16string_view path, std::string_view bytes, bool overwrite) {
    static_cast<void>(path);
    static_cast<void>(bytes);
    static_cast<void>(overwrite);
    return true;
}

Presence DescribedFiles::PresenceOf(std::u16string_view fullPath) const {
    const std::u16string folded = Folded(fullPath);
    if (HoldsOrAbove(missing_, folded) || folders_.contains(folded)) {
        return Presence::NotThere;
    }
    if (files_.contains(folded)) {
        return Presence::There;
    }
    if (HasShortName(fullPath)) {
        return Presence::NotDescribed;
    }
    return isAllComplete_ || HoldsOrAbove(complete_, folded) ? Presence::NotThere
                                                             : Presence::NotDescribed;
}

}  // namespace tarvex
