#pragma once

#include <cstdint>
#include <string_view>

namespace tarvex {

/// Starts another program and lets it come to the front. No call raises.
class Process {
public:
    virtual ~Process() = default;

    /// Starts a command line as a new process, its window maximised, and does not wait for it.
    /// Returns the process id, 0 when it could not be started.
    virtual std::uint32_t StartMaximised(std::u16string_view commandLine) = 0;

    /// Hands the foreground on to that process, whose window may else open behind others. False
    /// when the system refuses: the user has turned to another program meanwhile.
    virtual bool AllowForeground(std::uint32_t processId) = 0;

    /// True when a window of another program is in the foreground.
    virtual bool OtherInForeground() const = 0;

    /// Handles the messages of this program's windows for at most that many milliseconds. True when
    /// the process started last has ended.
    virtual bool HandleMessages(std::uint32_t milliseconds) = 0;
};

}  // namespace tarvex
