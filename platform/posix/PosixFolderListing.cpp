#include "platform/posix/PosixFolderListing.h"

#include <dirent.h>
#include <sys/stat.h>

#include <memory>

#include "platform/posix/PosixFile.h"

namespace tarvex {

namespace {

struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};

}  // namespace

std::optional<std::vector<std::u16string>> PosixFolderListing::FilesIn(
    std::u16string_view folder) const {
    std::string path;
    try {
        path = PosixPath(folder);
    } catch (const FileFailure&) {
        return std::nullopt;
    }
    const std::unique_ptr<DIR, CloseFolder> opened(opendir(path.c_str()));
    if (!opened) {
        return std::nullopt;
    }
    std::vector<std::u16string> names;
    while (const dirent* entry = readdir(opened.get())) {
        struct stat status {};
        if (stat((path + "/" + entry->d_name).c_str(), &status) == 0 && S_ISREG(status.st_mode)) {
            names.push_back(PosixText(entry->d_name));
        }
    }
    return names;
}

}  // namespace tarvex
