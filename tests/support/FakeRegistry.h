#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/Registry.h"

namespace tarvex {

/// A registry in memory. Keys and value names are found without regard to case; values keep the
/// order in which they were set.
class FakeRegistry : public Registry {
public:
    struct Value {
        std::u16string name;
        std::string bytes;
        bool isText = false;
    };
    struct Key {
        std::int32_t root = kNoHKey;
        std::u16string path;
        std::vector<Value> values;
    };

    /// Everything in it, in the order in which it came.
    const std::vector<Key>& Keys() const { return keys_; }

    /// Adds or replaces a text value, creating the key. `bytes` are stored as they are: give the
    /// closing zero that real values carry, as in std::string("C:\\Daten\0", 9).
    void SetText(std::int32_t root, std::u16string_view key, std::u16string_view valueName,
                 std::string bytes);

    /// As SetText with the closing zero added.
    void SetTextZ(std::int32_t root, std::u16string_view key, std::u16string_view valueName,
                  std::string text);

    /// Adds or replaces a value of another type with `size` bytes of data, creating the key.
    void SetOther(std::int32_t root, std::u16string_view key, std::u16string_view valueName,
                  std::size_t size = 4);

    /// Creates a key without values.
    void AddKey(std::int32_t root, std::u16string_view key);

    std::vector<std::u16string> ListValueNames(std::int32_t root, std::u16string_view key,
                                               std::size_t maxNameChars,
                                               std::size_t maxDataBytes) const override;

    /// Every call in order: "read HKLM\KEY\VALUE" and "list HKLM\KEY", with the arguments as they
    /// were given.
    mutable std::vector<std::u16string> log;

    /// Number of the call (1: the first one in `log`) that finds nothing; 0: none does.
    std::size_t failCall = 0;

    /// The 64-bit view, which makes this the registry of a 64-bit system; null: a 32-bit system.
    const FakeRegistry* view64 = nullptr;

    /// How often it was asked which of the two the system is.
    mutable int timesAsked = 0;

protected:
    std::optional<std::string> ReadTextInView(View view, std::int32_t root, std::u16string_view key,
                                              std::u16string_view valueName) const override;
    bool Has64BitView() const override;

private:
    const Key* FindKey(std::int32_t root, std::u16string_view path) const;
    Key& EnsureKey(std::int32_t root, std::u16string_view path);
    void SetValue(std::int32_t root, std::u16string_view key, Value value);
    bool Record(std::u16string_view verb, std::int32_t root, std::u16string_view rest) const;

    std::vector<Key> keys_;
};

}  // namespace tarvex
