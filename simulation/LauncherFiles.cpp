#include "simulation/LauncherFiles.h"

#include "launch/PathHelpers.h"
#include "simulation/pc/WindowsPaths.h"
#include "text/Text.h"

namespace tarvex {

LauncherFiles::LauncherFiles(const FileSystem& files, const ProgramInfo& program)
    : files_(files), folder_(program.folder), program_(CompanionPath(program, u".exe")) {}

bool LauncherFiles::FileExists(std::u16string_view path) const {
    if (const auto known = answers_.find(path); known != answers_.end()) {
        return known->second;
    }
    const auto full = FullWindowsPath(path, folder_);
    const bool isProgram = full && !path.ends_with(u'\\') && !path.ends_with(u'/') &&
                           text::EqualsIgnoreCase(*full, program_);
    const bool exists = isProgram || files_.FileExists(RootedWindowsPath(path, folder_));
    answers_.emplace(path, exists);
    return exists;
}

}  // namespace tarvex
