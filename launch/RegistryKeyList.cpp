#include "launch/RegistryKeyList.h"

#include <algorithm>
#include <iterator>

#include "launch/PathHelpers.h"
#include "text/Text.h"

namespace tarvex {

namespace {

constexpr std::size_t kNone = std::u16string_view::npos;

struct RootKey {
    std::int32_t number;
    std::u16string_view shortName;
    std::u16string_view longName;
};

constexpr RootKey kRootKeys[] = {
    {kHKeyLocalMachine, u"HKLM", u"HKEY_LOCAL_MACHINE"},
    {kHKeyClassesRoot, u"HKCR", u"HKEY_CLASSES_ROOT"},
    {kHKeyUsers, u"HKU", u"HKEY_USERS"},
    {kHKeyCurrentUser, u"HKCU", u"HKEY_CURRENT_USER"},
};

/// Cuts the text at the first marker and returns what followed it; empty without a marker.
std::u16string_view CutAtMarker(std::u16string_view& text, std::u16string_view marker) {
    const std::size_t position = text::FindIgnoreCase(text, marker);
    if (position == kNone) {
        return {};
    }
    const std::u16string_view field = text::Drop(text, position + marker.size());
    text = text::Left(text, position);
    return field;
}

KeyListParse Failed(LaunchError error) {
    KeyListParse result;
    result.error = error;
    return result;
}

}  // namespace

std::u16string_view HKeyName(std::int32_t root) {
    const auto* found = std::find_if(std::begin(kRootKeys), std::end(kRootKeys),
                                     [root](const RootKey& key) { return key.number == root; });
    return found == std::end(kRootKeys) ? std::u16string_view() : found->shortName;
}

std::int32_t HKeyFromName(std::u16string_view name) {
    const auto* found =
        std::find_if(std::begin(kRootKeys), std::end(kRootKeys), [name](const RootKey& key) {
            return text::EqualsIgnoreCase(name, key.longName) ||
                   text::EqualsIgnoreCase(name, key.shortName);
        });
    return found == std::end(kRootKeys) ? kNoHKey : found->number;
}

KeyListParse ParseKeyListEntry(std::u16string_view entry, const KeyListMarkers& markers) {
    // The file name goes first: a sub-folder mark after its mark belongs to the file name.
    const std::u16string_view fileName = CutAtMarker(entry, markers.fileName);
    const std::u16string_view subFolder = CutAtMarker(entry, markers.subFolder);
    const std::u16string_view fullKey = FolderPart(entry);
    const std::size_t rootEnd = fullKey.find(u'\\');
    if (rootEnd == kNone) {
        return Failed(LaunchError::EntryInvalid);
    }
    const std::int32_t root = HKeyFromName(text::Left(fullKey, rootEnd));
    if (root == kNoHKey) {
        return Failed(LaunchError::EntryWithoutHKey);
    }
    KeyListParse result;
    result.entry.root = root;
    result.entry.keyPath = text::Drop(fullKey, rootEnd + 1);
    result.entry.valueName = FileNamePart(entry);
    result.entry.subFolder = subFolder;
    result.entry.fileName = fileName;
    return result;
}

std::u16string BuildKeyListEntry(const KeyListEntry& entry, const KeyListMarkers& markers) {
    std::u16string result(HKeyName(entry.root));
    if (result.empty()) {
        return result;
    }
    result.append(u"\\").append(AddSep(entry.keyPath)).append(entry.valueName);
    if (!entry.subFolder.empty()) {
        result.append(markers.subFolder).append(entry.subFolder);
    }
    if (!entry.fileName.empty()) {
        result.append(markers.fileName).append(entry.fileName);
    }
    return result;
}

std::u16string ReadRegistryText(const LaunchEnvironment& environment, std::int32_t root,
                                std::u16string_view keyPath, std::u16string_view valueName) {
    if (root == kNoHKey) {
        RaiseLaunchError(environment, LaunchError::HKeyMissing);
    }
    const auto bytes = environment.registry.ReadText(root, keyPath, valueName);
    if (!bytes) {
        return {};
    }
    return environment.codec.FromAnsi(CountingBytes(*bytes));
}

}  // namespace tarvex
