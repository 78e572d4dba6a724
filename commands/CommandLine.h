#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

enum class CommandKind { None, Brand, Set, Show, Export, Check, Fields };

/// A NAME=VALUE of the command line, as it was typed.
struct Assignment {
    std::u16string name;
    std::u16string value;  ///< "-" stands for a line of standard input
};

/// What the user asks for. Exactly one of `command`, `usageError` and `answer` is set.
struct CommandLine {
    CommandKind command = CommandKind::None;
    std::u16string input;     ///< the template, or the file to work on
    std::u16string output;    ///< of brand and export
    std::u16string settings;  ///< the settings file of brand
    std::vector<Assignment> assignments;
    bool force = false;
    bool reveal = false;
    bool json = false;

    std::u16string usageError;  ///< German, what is wrong and how to call it, lines with "\n"
    std::u16string answer;      ///< the help or version text asked for, lines with "\n"
};

/// Reads the arguments after the program's name. What is wrong with them is in the result.
CommandLine ParseCommandLine(const std::vector<std::u16string>& arguments);

}  // namespace tarvex
