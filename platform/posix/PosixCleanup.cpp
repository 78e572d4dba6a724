#include "platform/posix/PosixCleanup.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <climits>
#include <csignal>

namespace tarvex {

namespace {

constexpr int kInterruptions[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};

/// A handler may use neither the heap nor text objects: the signal may have come in the middle of
/// their work. The first character is 0 when the slot is free.
using Slot = std::array<char, PATH_MAX>;
std::array<Slot, 8> temporaries;

termios terminalSettings;
volatile std::sig_atomic_t terminal = -1;

void CleanUpAndEnd(int signal) {
    for (const Slot& slot : temporaries) {
        if (slot[0] != '\0') {
            unlink(slot.data());
        }
    }
    if (terminal >= 0) {
        tcsetattr(terminal, TCSANOW, &terminalSettings);
    }
    // The caller sees what ended the program only when the signal itself does. It is blocked while
    // its handler runs and comes when that returns.
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

sigset_t Interruptions() {
    sigset_t set;
    sigemptyset(&set);
    for (const int signal : kInterruptions) {
        sigaddset(&set, signal);
    }
    return set;
}

Slot* Find(const std::string& path) {
    const auto found = std::find_if(temporaries.begin(), temporaries.end(),
                                    [&path](const Slot& slot) { return path == slot.data(); });
    return found == temporaries.end() ? nullptr : &*found;
}

void OccupyStandardFiles() {
    for (const int file : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(file, F_GETFD) < 0) {
            // Gets the lowest free number, which is this one, for the direction that nobody uses.
            open("/dev/null", file == STDIN_FILENO ? O_WRONLY : O_RDONLY);
        }
    }
}

}  // namespace

void PreparePosixProgram() {
    OccupyStandardFiles();
    struct sigaction action {};
    action.sa_handler = CleanUpAndEnd;
    action.sa_mask = Interruptions();
    for (const int signal : kInterruptions) {
        struct sigaction before {};
        sigaction(signal, nullptr, &before);
        // Whoever starts a program with a signal ignored (nohup) wants it to go on.
        if (before.sa_handler != SIG_IGN) {
            sigaction(signal, &action, nullptr);
        }
    }
}

InterruptPause::InterruptPause() {
    const sigset_t set = Interruptions();
    sigprocmask(SIG_BLOCK, &set, &before_);
}

InterruptPause::~InterruptPause() {
    sigprocmask(SIG_SETMASK, &before_, nullptr);
}

void NoteTemporary(const std::string& path) {
    const InterruptPause pause;
    Slot* const slot = Find({});
    if (slot != nullptr && path.size() < slot->size()) {
        *std::copy(path.begin(), path.end(), slot->begin()) = '\0';
    }
}

void ForgetTemporary(const std::string& path) {
    const InterruptPause pause;
    if (Slot* const slot = Find(path)) {
        slot->front() = '\0';
    }
}

void RestoreTerminalOnInterrupt(int file, const termios* settings) {
    const InterruptPause pause;
    terminal = settings == nullptr ? -1 : file;
    if (settings != nullptr) {
        terminalSettings = *settings;
    }
}

}  // namespace tarvex
