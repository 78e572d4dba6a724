#pragma once

#include <string>

#include "commands/CommandTable.h"

namespace tarvex {

/// "tarvexcf show DATEI.exe|DATEI.ini [--all] ..." in lines of at most 80 characters, those after
/// the first indented; no line end after the last.
std::u16string UsageLine(const CommandInfo& info);

/// What "tarvexcf --help" says, lines with "\n".
std::u16string GeneralHelp();

/// What "tarvexcf COMMAND --help" says, lines with "\n".
std::u16string CommandHelp(const CommandInfo& info);

/// "--set NAME=WERT": an option as it is typed.
std::u16string OptionForm(const OptionInfo& option);

/// What the exit codes mean, one German line with "\n".
std::u16string_view ExitCodeHelp();

}  // namespace tarvex
