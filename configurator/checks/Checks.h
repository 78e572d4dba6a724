#pragma once

#include <string>
#include <string_view>

#include "configurator/LauncherImage.h"
#include "configurator/checks/Finding.h"
#include "platform/FileStore.h"

namespace tarvex {

/// The folder that the launcher stands in, or will stand in, for findings about files beside it.
struct LauncherFolder {
    FileStore* store = nullptr;  ///< not owned; null: no file is looked at
    std::u16string path;         ///< with either separator; empty: the current folder
};

/// What in a configuration will not work or is probably not meant: settings that do not fit each
/// other or that the launcher cannot use. `place` names the file in the findings, which are in the
/// order of their lines. Passwords are never in their texts. Empty when there is nothing to say.
Findings CheckSettings(const Settings& settings, std::u16string_view place,
                       const LauncherFolder& folder = {});

/// What is to be said about a launcher file apart from its settings: that it cannot be used or not
/// be changed any more, is not configured, or is of another version. Empty for a configured
/// launcher of this version.
Findings CheckLauncher(const LauncherImage& image, std::u16string_view place);

/// The part of CheckLauncher that says which fields the launcher lacks, or has beyond those that
/// are known here.
Findings CheckVersion(const LauncherImage& image, std::u16string_view place);

}  // namespace tarvex
