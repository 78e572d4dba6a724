#include "window/views/MenuBar_win32.h"

#include "platform/win32/WideText.h"
#include "text/Text.h"

namespace tarvex {

namespace {

constexpr const wchar_t* kNoFiles = L"(noch keine Datei)";

UINT IdOf(Command command) {
    return static_cast<UINT>(kCommandIds + static_cast<int>(command));
}

std::u16string CaptionOf(const MenuEntry& entry) {
    std::u16string caption(entry.caption);
    const std::u16string keys = entry.shortcut.Text();
    return keys.empty() ? caption : caption + u"\t" + keys;
}

HMENU CreatePopup(const Menu& menu) {
    const HMENU popup = CreatePopupMenu();
    for (const MenuEntry& entry : menu.entries) {
        if (entry.command == Command::None) {
            AppendMenuW(popup, MF_SEPARATOR, 0, nullptr);
        } else if (entry.command == Command::RecentFiles) {
            AppendMenuW(popup, MF_STRING | MF_GRAYED, IdOf(entry.command), kNoFiles);
        } else {
            AppendMenuW(popup, MF_STRING, IdOf(entry.command), Wide(CaptionOf(entry)));
        }
    }
    return popup;
}

/// Puts the last files in the place where the menu has them, or says that there are none.
void UpdateRecentFiles(HMENU popup, const std::vector<std::u16string>& files) {
    const UINT none = IdOf(Command::RecentFiles);
    const auto isRecent = [none](UINT id) {
        return id == none || (id >= kRecentIds && id < kRecentIdsEnd);
    };
    int first = 0;
    while (!isRecent(GetMenuItemID(popup, first))) {
        ++first;
    }
    const auto position = static_cast<UINT>(first);
    while (isRecent(GetMenuItemID(popup, first))) {
        DeleteMenu(popup, position, MF_BYPOSITION);
    }
    if (files.empty()) {
        InsertMenuW(popup, position, MF_BYPOSITION | MF_STRING | MF_GRAYED, none, kNoFiles);
    }
    for (std::size_t i = files.size(); i-- > 0;) {
        const std::u16string caption = u"&" + text::Decimal(static_cast<std::int64_t>(i) + 1) +
                                       u" " + text::Replace(files[i], u"&", u"&&");
        InsertMenuW(popup, position, MF_BYPOSITION | MF_STRING, kRecentIds + i, Wide(caption));
    }
}

void UpdatePopup(HMENU popup, const Menu& menu, const MenuStates& states) {
    for (const MenuEntry& entry : menu.entries) {
        const UINT id = IdOf(entry.command);
        if (entry.command == Command::RecentFiles) {
            UpdateRecentFiles(popup, states.recentFiles);
        } else if (entry.command != Command::None) {
            EnableMenuItem(popup, id, states.isEnabled(entry.command) ? MF_ENABLED : MF_GRAYED);
            CheckMenuItem(popup, id, states.isChecked(entry.command) ? MF_CHECKED : MF_UNCHECKED);
        }
    }
}

}  // namespace

HMENU CreateMenuBar() {
    const HMENU bar = CreateMenu();
    for (const Menu& menu : Menus()) {
        AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(CreatePopup(menu)),
                    Wide(std::u16string(menu.caption)));
    }
    return bar;
}

UniqueAccelerators CreateShortcuts() {
    std::vector<ACCEL> keys;
    for (const Menu& menu : Menus()) {
        for (const MenuEntry& entry : menu.entries) {
            const Shortcut& shortcut = entry.shortcut;
            if (shortcut.key == 0 || entry.controlsOwn) {
                continue;
            }
            const int flags =
                FVIRTKEY | (shortcut.ctrl ? FCONTROL : 0) | (shortcut.shift ? FSHIFT : 0);
            keys.push_back({static_cast<BYTE>(flags), static_cast<WORD>(shortcut.key),
                            static_cast<WORD>(IdOf(entry.command))});
        }
    }
    return UniqueAccelerators(CreateAcceleratorTableW(keys.data(), static_cast<int>(keys.size())));
}

void UpdateMenuBar(HMENU bar, const MenuStates& states) {
    int position = 0;
    for (const Menu& menu : Menus()) {
        UpdatePopup(GetSubMenu(bar, position++), menu, states);
    }
}

}  // namespace tarvex
