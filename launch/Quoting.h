#pragma once

#include <string>
#include <string_view>

namespace tarvex {

/// An argument of the Access command line. `trim` removes blanks at both ends first. The text is
/// then enclosed in double quotes, unless its first and last characters already are quotes (a
/// single quote counts as both) and `force` is not set. Quotes inside are not escaped.
std::u16string Quote(std::u16string_view text, bool force = false, bool trim = true);

/// A user name or password as Access expects it: every "/" and every ";" doubled.
std::u16string EscapeCredential(std::u16string_view text);

}  // namespace tarvex
