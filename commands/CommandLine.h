#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "commands/CommandTable.h"

namespace tarvex {

/// A NAME=VALUE of the command line, as it was typed.
struct Assignment {
    std::u16string name;
    std::u16string value;  ///< "-" stands for a line of standard input
};

/// What the user asks for. Exactly one of `command` and `usageError` is set.
struct CommandLine {
    CommandKind command = CommandKind::None;
    std::vector<std::u16string> arguments;  ///< told by their places, as many as the command takes
    std::map<Option, std::vector<std::u16string>> options;  ///< with their values; one without: ""
    std::vector<Assignment> assignments;                    ///< of brand and set

    std::u16string usageError;  ///< German, what is wrong and how to call it, two lines

    bool Has(Option option) const { return options.contains(option); }

    /// The value of an option, empty when it was not given.
    std::u16string_view Value(Option option) const;

    /// All values of an option that may be given more than once.
    std::vector<std::u16string> Values(Option option) const;
};

/// Reads the arguments after the program's name. What is wrong with them is in the result. "--help"
/// is read like the command "help", with the name of the command before it.
CommandLine ParseCommandLine(const std::vector<std::u16string>& arguments);

}  // namespace tarvex
