#pragma once

#include <string>
#include <string_view>

namespace tarvex {

/// Starts programs that the user asks for.
class ProgramStarter {
public:
    virtual ~ProgramStarter() = default;

    /// Starts the program with at most one argument, which is quoted where it must be; empty: none.
    /// The program's folder becomes its current one. Returns at once; the result is the German
    /// reason why it could not be started, empty when it was.
    virtual std::u16string Start(std::u16string_view program, std::u16string_view argument) = 0;
};

}  // namespace tarvex
