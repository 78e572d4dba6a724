#pragma once

#include <string_view>
#include <vector>

namespace tarvex {

enum class CommandKind {
    None,
    Brand,
    Set,
    Unset,
    Get,
    Show,
    Diff,
    Export,
    Check,
    Simulate,
    Collect,
    Fields,
    Presets,
    Help,
    Completion,
    Man,
    Version
};

enum class Option {
    All,
    Codepage,
    Drop,
    DryRun,
    Force,
    From,
    Help,
    Ignore,
    Json,
    NoSecrets,
    Quiet,
    Reveal,
    Run,
    Set,
    Settings,
    Strict,
    Text
};

/// What a shell offers for an argument or an option's value.
enum class Words { None, Assignments, CodePages, Commands, FieldNames, Files, Folders, Shells };

/// An argument that is told by its place.
struct ArgumentInfo {
    std::u16string_view name;  ///< as the usage line writes it
    Words words = Words::Files;
    bool repeats = false;   ///< one or more; only of the last argument
    bool optional = false;  ///< only of the last argument
};

struct OptionInfo {
    Option option;
    std::string_view name;       ///< without the dashes before it
    std::u16string_view value;   ///< name of its value in the usage line; empty: it takes none
    std::u16string_view help;    ///< German, one line, no full stop
    Words words = Words::Files;  ///< of the value
    bool repeats = false;        ///< may be given more than once
};

struct CommandInfo {
    CommandKind kind;
    std::u16string_view name;
    std::u16string_view summary;  ///< German, one line, no full stop
    std::vector<ArgumentInfo> arguments;
    std::vector<OptionInfo> options;
    std::u16string_view details;  ///< German paragraphs, lines with "\n"; may be empty
};

/// All commands in the order in which help lists them. Usage lines, help, shell completion and
/// manual page are made from this table, and the command line is read by it.
const std::vector<CommandInfo>& CommandTable();

/// Null for an unknown name.
const CommandInfo* FindCommand(std::u16string_view name);

}  // namespace tarvex
