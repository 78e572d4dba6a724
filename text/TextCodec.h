#pragma once

#include <string>
#include <string_view>

namespace tarvex {

/// Converts between UTF-16 and an ANSI code page: the form in which texts reach the system's "...A"
/// functions, the log file and the scrambled settings.
class TextCodec {
public:
    virtual ~TextCodec() = default;

    /// The text in the code page; a character that the code page does not hold becomes "?".
    /// Zero characters are kept.
    virtual std::string ToAnsi(std::u16string_view text) const = 0;

    /// The reverse; every byte of a single-byte code page yields exactly one UTF-16 unit.
    virtual std::u16string FromAnsi(std::string_view bytes) const = 0;
};

}  // namespace tarvex
