#include "window/main/Menu.h"

#include <gtest/gtest.h>

#include <set>

#include "text/Text.h"

namespace tarvex {
namespace {

char16_t AccessKeyOf(std::u16string_view caption) {
    const std::size_t at = caption.find(u'&');
    return at + 1 < caption.size() ? text::Fold(caption[at + 1]) : u'\0';
}

TEST(MenuTest, EveryCommandIsInAMenuOnce) {
    std::multiset<Command> found;
    for (const Menu& menu : Menus()) {
        for (const MenuEntry& entry : menu.entries) {
            found.insert(entry.command);
        }
    }
    for (int i = 1; i <= static_cast<int>(Command::About); ++i) {
        EXPECT_EQ(found.count(static_cast<Command>(i)), 1U) << i;
    }
}

TEST(MenuTest, AccessKeysOfOneMenuDiffer) {
    std::set<char16_t> bar;
    for (const Menu& menu : Menus()) {
        EXPECT_TRUE(bar.insert(AccessKeyOf(menu.caption)).second) << text::ToUtf8(menu.caption);
        std::set<char16_t> keys;
        for (const MenuEntry& entry : menu.entries) {
            if (!entry.caption.empty()) {
                EXPECT_NE(AccessKeyOf(entry.caption), u'\0') << text::ToUtf8(entry.caption);
                EXPECT_TRUE(keys.insert(AccessKeyOf(entry.caption)).second)
                    << text::ToUtf8(entry.caption);
            }
        }
    }
}

TEST(MenuTest, ShortcutsDiffer) {
    std::set<std::u16string> shortcuts;
    for (const Menu& menu : Menus()) {
        for (const MenuEntry& entry : menu.entries) {
            const std::u16string keys = entry.shortcut.Text();
            EXPECT_TRUE(keys.empty() || shortcuts.insert(keys).second) << text::ToUtf8(keys);
        }
    }
}

TEST(MenuTest, ShortcutsAreNamedAsOnAGermanKeyboard) {
    EXPECT_EQ((Shortcut{u'S', true, true}.Text()), u"Strg+Umschalt+S");
    EXPECT_EQ((Shortcut{0x75, false, false}.Text()), u"F6");
    EXPECT_EQ((Shortcut{0x75, false, true}.Text()), u"Umschalt+F6");
    EXPECT_EQ((Shortcut{0x22, true, false}.Text()), u"Strg+Bild ab");
    EXPECT_EQ(Shortcut{}.Text(), u"");
}

TEST(MenuTest, ButtonsHaveNamesOfTheirCommands) {
    std::u16string captions;
    for (const MenuEntry& button : ToolButtons()) {
        text::AppendWithSeparator(captions, button.caption, u" ");
    }
    EXPECT_EQ(captions, u"Öffnen Speichern Prüfen Probelauf Starten");
}

}  // namespace
}  // namespace tarvex
