#pragma once

#include <string>
#include <string_view>

#include "configurator/checks/Finding.h"

namespace tarvex {

/// What a settings file says.
struct ParsedSettings {
    Settings settings;  ///< with problems: the values that had none
    Problems problems;  ///< what cannot be read, in the order of the lines
    Findings warnings;  ///< what was read but is probably not meant, in the order of the lines
};

/// Reads a settings file: UTF-8, with or without byte order mark, or UTF-16 of either byte order
/// with one. Lines are "Name = Value", "[Section]", empty, or comments, which begin with ";" or
/// "#". Blanks and tabs around name and value are dropped, everything else is literal.
///
/// An indented line (it begins with a blank or tab) directly below continues the value: the value
/// goes on after a CR LF with what follows the first character. A "|" after the blanks and tabs is
/// dropped with them and makes the rest literal, so that any text can be written. Without it, a
/// line that reads like a field of its own ("Name =" with a known name) is refused. Lines of blanks
/// are empty lines of the text when an indented line follows, otherwise they say nothing.
///
/// A file that is something else altogether gives one problem. Lines that are not understood are
/// not repeated in the problems: they may hold a password. `name` names the file.
ParsedSettings ParseSettings(std::string_view bytes, std::u16string_view name,
                             const TextCodec& codec);

/// The settings as such a file in UTF-8, in sections and with comments. ParseSettings gives the
/// same values back, provided that AcceptValue accepts each of them and gives it back unchanged.
std::string WriteSettings(const Settings& settings, std::u16string_view title);

}  // namespace tarvex
