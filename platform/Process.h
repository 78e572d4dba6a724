#pragma once

#include <cstdint>
#include <string_view>

namespace tarvex {

/// Starts other programs.
class Process {
public:
    virtual ~Process() = default;

    /// Starts a command line as a new process, its window maximised and with the focus, and does
    /// not wait for it. Returns the process id, 0 when it could not be started.
    virtual std::uint32_t StartMaximised(std::u16string_view commandLine) = 0;
};

}  // namespace tarvex
