#pragma once

#include <string>

#include "launch/LaunchProperties.h"

namespace tarvex {

/// What the resolution steps found.
struct ResolvedParts {
    std::u16string access;           ///< quoted
    std::u16string database;         ///< unquoted; empty: none
    std::u16string systemDatabase;   ///< unquoted; empty: none
    std::u16string profileArgument;  ///< with its switch; empty: none
};

/// The command line of Access in two forms that differ in the credentials only.
struct CommandLines {
    std::u16string real;
    std::u16string hiddenUserPW;
};

/// Joins the parts, the options and the texts of the properties into the command line.
CommandLines ComposeCommandLine(const ResolvedParts& parts, const LaunchProperties& properties);

}  // namespace tarvex
