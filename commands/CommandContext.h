#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "commands/Environment.h"
#include "configurator/SettingsSource.h"

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
    const FolderListing& Folders() const { return environment_.folders; }

    /// The bytes of an input file; "-" and "/dev/stdin" are the standard input. Nothing when it
    /// cannot be read: the reason is added to the problems.
    std::optional<std::string> Read(const std::u16string& file, Problems& problems) const;

    /// The settings of an input file; what cannot be read is among its problems.
    LoadedSettings Load(const std::u16string& file) const;

    /// Writes what was asked for to the output, as it is.
    void Out(std::u16string_view text);

    /// Writes a line to the error output, the program's name before it.
    void Err(std::u16string_view line);

    /// Writes problems to the error output.
    void Tell(const Problems& problems);

    /// Tells the problems, or without any what was done, a line without its end. Returns the exit
    /// code.
    int Finish(const Problems& problems, std::u16string_view done);

    /// False when not everything that was asked for could be written to the output.
    bool OutputIsWhole() const { return outputIsWhole_; }

private:
    ConfiguratorEnvironment environment_;
    bool quiet_;
    bool outputIsWhole_ = true;
};

/// The folder of a file as its name is written, without a separator at the end; empty: the current
/// one.
std::u16string FolderOf(std::u16string_view file);

/// True when an argument stands for the standard input or output: "-" or the name of its device.
bool IsStandardInput(std::u16string_view file);
bool IsStandardOutput(std::u16string_view file);

}  // namespace tarvex
