#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarvex {

/// Writes JSON in UTF-8, value by value; the caller keeps the order of keys, values and ends.
class Json {
public:
    Json& Begin(char bracket);  ///< '{' or '['
    Json& End();
    Json& Key(std::string_view key);
    Json& Value(std::u16string_view text);
    Json& Value(std::int64_t number);
    template <std::same_as<bool> T>  // numbers and pointers must not end up here
    Json& Value(T truth) {
        return Word(truth ? "true" : "false");
    }
    Json& Null() { return Word("null"); }

    template <typename T>
    Json& Member(std::string_view key, const T& value) {
        return Key(key).Value(value);
    }

    const std::string& Text() const { return text_; }

private:
    void Separate();
    Json& Word(std::string_view word);

    std::string text_;
    std::string open_;  ///< the closing brackets still to come, innermost last
    bool first_ = true;
};

}  // namespace tarvex
