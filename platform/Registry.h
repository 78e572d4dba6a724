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

/// The bytes of a text value that count: up to its first zero, or without the blanks around them
/// when it holds none.
std::string_view CountingBytes(std::string_view storedBytes);

/// Read access to the Windows registry through its ANSI interface. Nothing is ever written. Each
/// read opens the key, reads and closes it. Failures show in the results.
///
/// 64-bit Windows gives programs of 32 bits a view of their own of HKLM\SOFTWARE and some other
/// keys; what 64-bit programs write there is seen in the 64-bit view only.
class Registry {
public:
    virtual ~Registry() = default;

    /// The bytes of a text value (REG_SZ) as they are stored, a closing zero included when there is
    /// one. An empty value name means the key's default value. No value when the root, key or value
    /// is missing, cannot be read or is of another type.
    ///
    /// Reads in the program's own view, where 32-bit Access and most installers leave their texts.
    /// When there is none or no byte of it counts, and the system is a 64-bit one, the result is
    /// that of one more read in the 64-bit view. A key that both views share is then read twice,
    /// which takes a few microseconds. A 32-bit system is read once.
    std::optional<std::string> ReadText(std::int32_t root, std::u16string_view key,
                                        std::u16string_view valueName) const;

    /// The names of a key's values in the order of the registry, sub-keys excluded. The list ends
    /// before the first value whose name is longer than `maxNameChars` (bytes of the ANSI
    /// interface) or whose data is larger than `maxDataBytes`. Empty when the key cannot be opened.
    ///
    /// Always of the program's own view: the names serve to look up Access profiles, and every
    /// Access whose profile key is known is a 32-bit program that would not find one elsewhere.
    virtual std::vector<std::u16string> ListValueNames(std::int32_t root, std::u16string_view key,
                                                       std::size_t maxNameChars,
                                                       std::size_t maxDataBytes) const = 0;

    enum class View { kOwn, k64Bit };

    /// One read for ReadText, in one view. For those who stand between a registry and its reader.
    virtual std::optional<std::string> ReadTextInView(View view, std::int32_t root,
                                                      std::u16string_view key,
                                                      std::u16string_view valueName) const = 0;

    /// Whether this is a 32-bit program on a 64-bit system. ReadText asks at most once, and not
    /// before a text is missing.
    virtual bool Has64BitView() const = 0;

private:
    mutable std::optional<bool> has64BitView_;
};

}  // namespace tarvex
