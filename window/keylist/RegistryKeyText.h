#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "launch/RegistryKeyList.h"

namespace tarvex {

/// A key of the registry as other programs write it.
struct RegistryKey {
    std::int32_t root = kNoHKey;
    std::u16string path;  ///< below the root, without "\" at its ends
};

/// Takes a full key path apart: "HKEY_LOCAL_MACHINE\SOFTWARE\X", "HKLM\SOFTWARE\X", with the name
/// of the computer before it as the registry editor shows and copies it ("Computer\HKEY_...",
/// whatever Windows calls it), as a line of a .reg file ("[HKEY_...]"), or as PowerShell writes it
/// ("HKLM:\...", "Registry::HKEY_..."). Nothing when the text names no root key.
std::optional<RegistryKey> SplitRegistryKey(std::u16string_view text);

/// Where a copied text is entered.
enum class TextPlace {
    List,  ///< in place of an entry
    Key    ///< in place of a key: without a mark of an entry all of the text is the key
};

/// What a copied text stands for.
struct CopiedEntry {
    KeyListEntry entry;
    bool isWhole = false;  ///< it is a stored entry; else only its root and key are known
};

/// Reads a stored entry of a key list or a full key path. In place of an entry, a short root name
/// at its beginning speaks for a stored one: the registry editor writes long names. Only the first
/// line counts. Nothing for any other text.
std::optional<CopiedEntry> EntryFromText(std::u16string_view text, TextPlace place);

}  // namespace tarvex
