#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

/// Everything that the main window does on a menu entry, a key or a button.
enum class Command {
    None,  ///< a line between two entries of a menu
    New,
    Open,
    Save,
    SaveAs,
    Import,
    Export,
    CarryOver,
    Compare,
    RecentFiles,  ///< the place of the last files, each an entry of its own
    Exit,
    Undo,
    Revert,
    Search,
    Replace,
    TogglePreview,
    Refresh,
    NextArea,
    PreviousArea,
    NextPage,
    PreviousPage,
    Check,
    DryRun,
    Start,
    AsCommand,
    CompareLog,
    DescribePc,
    ChoosePcs,
    PageHelp,
    About
};

/// A key with Ctrl, Shift or neither. Codes are those of Windows: capital letters for themselves.
struct Shortcut {
    std::int32_t key = 0;  ///< 0: none
    bool ctrl = false;
    bool shift = false;

    /// As German keyboards are labelled ("Strg+Umschalt+S"); empty for none.
    std::u16string Text() const;
};

struct MenuEntry {
    Command command = Command::None;
    std::u16string_view caption = {};  ///< "&" before the access key
    Shortcut shortcut = {};
    /// The shortcut is only shown: the control that has the focus takes the key itself.
    bool controlsOwn = false;
};

struct Menu {
    std::u16string_view caption;
    std::vector<MenuEntry> entries;
};

/// The menus of the main window, from left to right.
const std::vector<Menu>& Menus();

/// The commands that have a button of their own above the pages, from left to right.
const std::vector<MenuEntry>& ToolButtons();

}  // namespace tarvex
