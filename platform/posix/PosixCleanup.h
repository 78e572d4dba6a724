#pragma once

#include <termios.h>
#include <csignal>

#include <string>

namespace tarvex {

/// Prepares a console program: an interruption (Ctrl+C, SIGTERM, a closed terminal) ends it as
/// before, but deletes its temporary files first and gives the terminal its echo back. Standard
/// input, output or error that the caller has closed stays unusable, but its number is taken, so
/// that no file that is opened later is written to in its place. To be called once, at the start.
void PreparePosixProgram();

/// While it lives no interruption is noticed; it is noticed after that.
class InterruptPause {
public:
    InterruptPause();
    InterruptPause(const InterruptPause&) = delete;
    InterruptPause& operator=(const InterruptPause&) = delete;
    ~InterruptPause();

private:
    sigset_t before_;
};

/// An interruption deletes the file `path` until ForgetTemporary is called for it. Paths that are
/// too long for the system, and more than a few at a time, are not noted.
void NoteTemporary(const std::string& path);
void ForgetTemporary(const std::string& path);

/// An interruption sets the terminal `file` to `settings`; with null nothing, as at the start.
void RestoreTerminalOnInterrupt(int file, const termios* settings);

}  // namespace tarvex
