#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "configurator/Model.h"

namespace tarvex {

inline constexpr std::uint32_t kRegTypeText = 1;            // REG_SZ
inline constexpr std::uint32_t kRegTypeExpandableText = 2;  // REG_EXPAND_SZ
inline constexpr std::uint32_t kRegTypeBinary = 3;          // REG_BINARY
inline constexpr std::uint32_t kRegTypeNumber = 4;          // REG_DWORD
inline constexpr std::uint32_t kRegTypeTexts = 7;           // REG_MULTI_SZ

/// One value as the registry stores it.
struct RegFileValue {
    std::u16string name;  ///< empty: the key's default value
    std::uint32_t type = kRegTypeText;
    /// As stored: texts in UTF-16, low byte first, with their closing zero where there is one.
    /// Nothing: the file deletes the value.
    std::optional<std::string> data;
};

/// One key of a file, with what the file says of it there.
struct RegFileKey {
    std::u16string path;  ///< with its root: "HKEY_LOCAL_MACHINE\SOFTWARE\X"
    bool deleted = false;
    std::vector<RegFileValue> values;
};

/// What a registry file says, in its order; a key may come twice. With problems the keys hold what
/// had none.
struct ParsedRegFile {
    std::vector<RegFileKey> keys;
    Problems problems;
};

/// Reads a file as regedit and "reg export" write it: "Windows Registry Editor Version 5.00"
/// (UTF-16 with a byte order mark, or UTF-8), or "REGEDIT4", whose texts are in `ansi`. `name`
/// names the file in the problems.
ParsedRegFile ParseRegFile(std::string_view bytes, std::u16string_view name, const TextCodec& ansi);

}  // namespace tarvex
