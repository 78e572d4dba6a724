#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarvex {

/// Standard input and output of a console program.
class Console {
public:
    virtual ~Console() = default;

    /// Results, and messages for the user. The text has its line ends ("\n") with it. False when
    /// it could not be written whole: the output is closed, or its disk is full.
    virtual bool Out(std::u16string_view text) = 0;
    virtual bool Err(std::u16string_view text) = 0;

    /// True when ReadSecretLine asks a person at a terminal.
    virtual bool IsInteractive() const = 0;

    /// One line of standard input without its line end; nothing at the end of the input. At a
    /// terminal `prompt` is shown first and what is typed is not shown.
    virtual std::optional<std::u16string> ReadSecretLine(std::u16string_view prompt) = 0;

    /// The bytes of standard input up to its end, whatever it is. Throws FileFailure when it cannot
    /// be read.
    virtual std::string ReadInput() = 0;
};

}  // namespace tarvex
