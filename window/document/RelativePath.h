#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarvex {

/// A full path as the launcher takes it from its own folder: "Daten" for C:\Prog\Daten and a
/// launcher in C:\Prog, "." for that folder itself. Nothing when the path does not lie there or
/// below, or when the launcher would not come back to it. Case is ignored, as Windows does;
/// `launcherFolder` may end in "\" or not.
std::optional<std::u16string> RelativeFolder(std::u16string_view folder,
                                             std::u16string_view launcherFolder);

}  // namespace tarvex
