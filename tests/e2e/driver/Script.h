#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

/// One line of a driver's script: a word that says what to do, and its arguments, all separated by
/// tabs, for example "press\tcaption\t&Details".
struct Action {
    std::size_t line = 0;  ///< 1-based
    std::u16string verb;
    std::vector<std::u16string> arguments;
};

/// The actions of a script in UTF-8, with or without byte order mark. Empty lines and lines that
/// start with "#" are left out. "\n", "\r", "\t" and "\\" in an argument stand for the characters.
std::vector<Action> ParseScript(std::string_view utf8);

/// An argument by its 0-based number. Fails when there is none, or no number.
const std::u16string& Argument(const Action& action, std::size_t index);
std::int32_t Number(const Action& action, std::size_t index);

/// The action as one line for people.
std::u16string Describe(const Action& action);

}  // namespace tarvex
