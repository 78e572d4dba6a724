#pragma once

#include <string>
#include <string_view>

#include "commands/Environment.h"
#include "configurator/Model.h"

namespace tarvex {

inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;
inline constexpr int kWrongUsage = 2;

/// What a command works with, and how it tells what came of it.
class CommandContext {
public:
    /// With `quiet` results that only say that all went well are left out.
    CommandContext(const ConfiguratorEnvironment& environment, bool quiet)
        : environment_(environment), quiet_(quiet) {}

    FileStore& Store() const { return environment_.store; }
    const TextCodec& Codec() const { return environment_.codec; }
    Console& GetConsole() const { return environment_.console; }

    /// The bytes of an input file; "-" is the standard input.
    std::string ReadInput(std::u16string_view file) const;

    /// Writes what was asked for to the output, as it is.
    void Out(std::u16string_view text) const { environment_.console.Out(text); }

    /// Writes a line to the error output, the program's name before it.
    void Err(std::u16string_view line) const;

    /// Tells the problems, or without any what was done, a line without its end. Returns the exit
    /// code.
    int Finish(const Problems& problems, std::u16string_view done) const;

private:
    ConfiguratorEnvironment environment_;
    bool quiet_;
};

}  // namespace tarvex
