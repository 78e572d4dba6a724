#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tarvex {

/// A program that was started together with everything it starts itself; what still runs of them
/// is ended with this object, and nothing else.
class StartedProgram {
public:
    StartedProgram() = default;
    StartedProgram(const StartedProgram&) = delete;
    StartedProgram& operator=(const StartedProgram&) = delete;
    ~StartedProgram();

    /// Starts a file with a raw command line, which is handed on unchanged. An empty application
    /// takes the program's name from the command line; an empty folder is the driver's own. Returns
    /// the system's error number, 0 on success.
    std::uint32_t Start(const std::u16string& application, const std::u16string& commandLine,
                        const std::u16string& folder);

    bool Started() const { return process_ != nullptr; }
    std::uint32_t Id() const { return id_; }
    void* Process() const { return process_; }  ///< its handle, this object's

    /// Waits for its end; false when it still runs after that time.
    bool WaitForEnd(std::uint32_t milliseconds) const;

    /// Waits until it waits for its user for the first time; false when it does not in that time.
    bool WaitForIdle(std::uint32_t milliseconds) const;

    /// Nothing while it runs.
    std::optional<std::uint32_t> ExitCode() const;

    /// How many processes run that it started, and itself.
    std::uint32_t RunningProcesses() const;

    /// The error mode that it has set; nothing when it does not answer within that time.
    std::optional<std::uint32_t> ErrorMode(std::uint32_t milliseconds) const;

    /// Handles that it has open; 0 when the system does not tell.
    std::uint32_t Handles() const;

private:
    void* process_ = nullptr;
    void* job_ = nullptr;
    std::uint32_t id_ = 0;
};

}  // namespace tarvex
