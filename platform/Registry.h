#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

/// Root keys, as the numbers that the system gives to their handles.
inline constexpr std::int32_t kHKeyClassesRoot = INT32_MIN;
inline constexpr std::int32_t kHKeyCurrentUser = INT32_MIN + 1;
inline constexpr std::int32_t kHKeyLocalMachine = INT32_MIN + 2;
inline constexpr std::int32_t kHKeyUsers = INT32_MIN + 3;
inline constexpr std::int32_t kNoHKey = -1;

/// Read access to the Windows registry through its ANSI interface. Nothing is ever written. Each
/// call opens the key, reads and closes it. Failures show in the results.
class Registry {
public:
    virtual ~Registry() = default;

    /// The bytes of a text value (REG_SZ) as they are stored, a closing zero included when there is
    /// one. An empty value name means the key's default value. No value when the root, key or value
    /// is missing, cannot be read or is of another type.
    virtual std::optional<std::string> ReadText(std::int32_t root, std::u16string_view key,
                                                std::u16string_view valueName) const = 0;

    /// The names of a key's values in the order of the registry, sub-keys excluded. The list ends
    /// before the first value whose name is longer than `maxNameChars` (bytes of the ANSI
    /// interface) or whose data is larger than `maxDataBytes`. Empty when the key cannot be opened.
    virtual std::vector<std::u16string> ListValueNames(std::int32_t root, std::u16string_view key,
                                                       std::size_t maxNameChars,
                                                       std::size_t maxDataBytes) const = 0;
};

}  // namespace tarvex
