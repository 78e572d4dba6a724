#include "app/LaunchSwitches.h"

#include <vector>

#include "text/Text.h"

namespace tarvex {

namespace {

std::vector<std::u16string_view> Words(std::u16string_view piece) {
    std::vector<std::u16string_view> words;
    for (const std::u16string_view word : text::Split(piece, u' ')) {
        if (!word.empty()) {
            words.push_back(word);
        }
    }
    return words;
}

}  // namespace

LaunchSwitches ParseLaunchSwitches(std::u16string_view arguments) {
    LaunchSwitches switches;
    const std::vector<std::u16string_view> pieces = text::Split(arguments, u'/');
    for (std::size_t i = 1; i < pieces.size(); ++i) {
        const std::vector<std::u16string_view> words = Words(pieces[i]);
        if (words.empty()) {
            continue;
        }
        const std::u16string_view name = words.front();
        if (text::EqualsIgnoreCase(name, u"T")) {
            switches.test = true;
        } else if (text::EqualsIgnoreCase(name, u"D")) {
            switches.info = true;
            if (words.size() > 1) {
                switches.infoPassword = words[1];
            }
        } else if (text::EqualsIgnoreCase(name, u"Compact")) {
            switches.compact = true;
        } else if (text::EqualsIgnoreCase(name, u"Repair")) {
            switches.repair = true;
        }
    }
    return switches;
}

}  // namespace tarvex
