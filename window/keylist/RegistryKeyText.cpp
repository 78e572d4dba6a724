#include "window/keylist/RegistryKeyText.h"

#include <utility>

#include "configurator/Model.h"
#include "text/Text.h"

namespace tarvex {
namespace {

constexpr std::size_t kNone = std::u16string_view::npos;

/// Long names are those of the registry editor, and no key has one.
bool IsLongName(std::u16string_view name) {
    return text::StartsWithIgnoreCase(name, u"HKEY_") && HKeyFromName(name) != kNoHKey;
}

std::u16string_view FirstPart(std::u16string_view path) {
    return text::Left(path, path.find(u'\\'));
}

std::u16string_view WithoutFirstPart(std::u16string_view path) {
    const std::size_t separator = path.find(u'\\');
    return separator == kNone ? std::u16string_view() : text::Drop(path, separator + 1);
}

/// The text without what stands around a key path.
std::u16string_view Unwrapped(std::u16string_view text) {
    text = TrimBlanksAndTabs(text::Left(text, text.find_first_of(u"\r\n")));
    for (const auto& [open, close] : {std::pair(u'[', u']'), std::pair(u'"', u'"')}) {
        if (text.starts_with(open)) {
            text.remove_prefix(1);
            text = text::Left(text, text.find(close));
        }
    }
    return text;
}

bool HoldsMark(std::u16string_view text) {
    const KeyListMarkers markers;
    return text::FindIgnoreCase(text, markers.subFolder) != kNone ||
           text::FindIgnoreCase(text, markers.fileName) != kNone;
}

}  // namespace

std::optional<RegistryKey> SplitRegistryKey(std::u16string_view text) {
    text = Unwrapped(text);
    if (const std::size_t provider = text.find(u"::"); provider != kNone) {
        text = text::Drop(text, provider + 2);
    }
    if (text.find(u'\\') == kNone) {
        return std::nullopt;
    }
    const std::u16string_view second = FirstPart(WithoutFirstPart(text));
    const bool isComputer = text::EqualsIgnoreCase(FirstPart(text), u"Computer");
    if (IsLongName(second) || (isComputer && HKeyFromName(second) != kNoHKey)) {
        text = WithoutFirstPart(text);
    }
    std::u16string_view name = FirstPart(text);
    if (name.ends_with(u':')) {
        name.remove_suffix(1);
    }
    RegistryKey key;
    key.root = HKeyFromName(name);
    if (key.root == kNoHKey) {
        return std::nullopt;
    }
    std::u16string_view path = WithoutFirstPart(text);
    while (path.starts_with(u'\\')) {
        path.remove_prefix(1);
    }
    while (path.ends_with(u'\\')) {
        path.remove_suffix(1);
    }
    key.path = path;
    return key;
}

std::optional<CopiedEntry> EntryFromText(std::u16string_view text, TextPlace place) {
    const std::u16string_view line =
        TrimBlanksAndTabs(text::Left(text, text.find_first_of(u"\r\n")));
    KeyListParse parse = ParseKeyListEntry(line);
    const bool isStored =
        HoldsMark(line) || (place == TextPlace::List && !IsLongName(FirstPart(line)));
    if (!parse.error && isStored) {
        return CopiedEntry{std::move(parse.entry), true};
    }
    std::optional<RegistryKey> key = SplitRegistryKey(text);
    if (!key) {
        return std::nullopt;
    }
    CopiedEntry copied;
    copied.entry.root = key->root;
    copied.entry.keyPath = std::move(key->path);
    return copied;
}

}  // namespace tarvex
