#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/win32/Handles.h"
#include "window/files/RecentFiles.h"
#include "window/main/Menu.h"

namespace tarvex {

/// Ids by which the menu, the accelerators and the tool bar name a command, and the last files.
inline constexpr int kCommandIds = 100;
inline constexpr int kRecentIds = 300;
inline constexpr int kRecentIdsEnd = kRecentIds + static_cast<int>(RecentFiles::kMost);

using UniqueAccelerators = UniqueHandle<HACCEL, DestroyAcceleratorTable>;

/// The menus as a window takes them over.
HMENU CreateMenuBar();

/// The shortcuts of the menus, but for those that the controls see to themselves.
UniqueAccelerators CreateShortcuts();

/// What the entries of the menus are like at the moment.
struct MenuStates {
    std::function<bool(Command)> isEnabled;
    std::function<bool(Command)> isChecked;
    std::vector<std::u16string> recentFiles;  ///< full paths
};

/// Brings the menu of the window up to date; for WM_INITMENUPOPUP.
void UpdateMenuBar(HMENU bar, const MenuStates& states);

}  // namespace tarvex
