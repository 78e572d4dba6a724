#pragma once

#include <string>
#include <string_view>

#include "configurator/Model.h"

namespace tarvex {

/// What a settings file says. With problems the settings hold the values that had none.
struct ParsedSettings {
    Settings settings;
    Problems problems;
};

/// Reads a settings file (UTF-8, a byte order mark is skipped). Lines are "Name = Value",
/// "[Section]", empty, or comments, which begin with ";" or "#". A line that begins with a blank
/// or tab continues the value on the line above it: the value goes on after a CR LF with the rest
/// of that line. Blanks at both ends of the whole value are dropped, everything else is literal.
/// `name` names the file in the problems.
ParsedSettings ParseSettings(std::string_view bytes, std::u16string_view name,
                             const TextCodec& codec);

/// The settings as such a file, in sections and with comments. ParseSettings gives the same values
/// back, provided that AcceptValue accepts each of them.
std::string WriteSettings(const Settings& settings, std::u16string_view title);

}  // namespace tarvex
