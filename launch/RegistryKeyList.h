#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "launch/LaunchEnvironment.h"
#include "launch/LaunchErrors.h"

namespace tarvex {

/// One place in the registry and what to make of the text stored there.
struct KeyListEntry {
    std::int32_t root = kNoHKey;
    std::u16string keyPath;    ///< below the root
    std::u16string valueName;  ///< empty: the key's default value
    std::u16string subFolder;  ///< to append to the stored path; empty: none
    std::u16string fileName;   ///< to append to the stored path; empty: none
};

/// The marks that divide a key list and its entries, found without regard to case.
struct KeyListMarkers {
    std::u16string list = u"%|%";
    std::u16string subFolder = u"%|SubDir|%";
    std::u16string fileName = u"%|Filename%|";
};

/// What reading an entry gave.
struct KeyListParse {
    KeyListEntry entry;                ///< as a new one when the entry could not be read
    std::optional<LaunchError> error;  ///< EntryInvalid or EntryWithoutHKey; none: it was read
};

/// Short name of a root key ("HKLM"); empty for any other number.
std::u16string_view HKeyName(std::int32_t root);

/// Root key of a short or long name in any case; kNoHKey for an unknown name.
std::int32_t HKeyFromName(std::u16string_view name);

/// Splits "HKLM\KEY\VALUE[sub-folder mark SUBFOLDER][file-name mark FILE]" into its fields. Never
/// raises: the walk through a list goes on after an entry that cannot be read.
KeyListParse ParseKeyListEntry(std::u16string_view entry, const KeyListMarkers& markers = {});

/// The reverse of ParseKeyListEntry. Empty when the entry's root is not a root key.
std::u16string BuildKeyListEntry(const KeyListEntry& entry, const KeyListMarkers& markers = {});

/// The text of a registry value: cut before its first zero character, or trimmed of blanks when it
/// holds none. Empty when it is missing, unreadable or no text. Raises launch error 1 for kNoHKey.
std::u16string ReadRegistryText(const LaunchEnvironment& environment, std::int32_t root,
                                std::u16string_view keyPath, std::u16string_view valueName);

}  // namespace tarvex
