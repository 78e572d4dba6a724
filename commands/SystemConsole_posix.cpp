#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>

#include "commands/SystemConsole.h"
#include "platform/posix/PosixCleanup.h"
#include "platform/posix/PosixFile.h"
#include "text/Text.h"

namespace tarvex {
namespace {

bool WriteAll(int file, std::u16string_view text) {
    const std::string utf8 = text::ToUtf8(text);
    std::string_view rest = utf8;
    while (!rest.empty()) {
        const ssize_t written = write(file, rest.data(), rest.size());
        if (written < 0 && errno != EINTR) {
            return false;
        }
        rest.remove_prefix(written > 0 ? static_cast<std::size_t>(written) : 0);
    }
    return true;
}

/// Keeps what is typed off the screen, until an interruption at the latest; does nothing when the
/// input is not a terminal.
class EchoOff {
public:
    explicit EchoOff(int file) : file_(file), isTerminal_(tcgetattr(file, &before_) == 0) {
        if (isTerminal_) {
            RestoreTerminalOnInterrupt(file_, &before_);
            termios silent = before_;
            silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
            tcsetattr(file_, TCSAFLUSH, &silent);
        }
    }
    EchoOff(const EchoOff&) = delete;
    EchoOff& operator=(const EchoOff&) = delete;
    ~EchoOff() {
        if (isTerminal_) {
            tcsetattr(file_, TCSAFLUSH, &before_);
            RestoreTerminalOnInterrupt(file_, nullptr);
        }
    }

    bool IsTerminal() const { return isTerminal_; }

private:
    int file_;
    termios before_{};
    bool isTerminal_;
};

}  // namespace

bool SystemConsole::Out(std::u16string_view text) {
    return WriteAll(STDOUT_FILENO, text);
}

bool SystemConsole::Err(std::u16string_view text) {
    return WriteAll(STDERR_FILENO, text);
}

bool SystemConsole::IsInteractive() const {
    return isatty(STDIN_FILENO) != 0;
}

std::optional<std::u16string> SystemConsole::ReadSecretLine(std::u16string_view prompt) {
    const EchoOff silence(STDIN_FILENO);
    if (silence.IsTerminal()) {
        Err(prompt);
    }
    // Byte by byte: what follows the line belongs to the next value.
    std::string line;
    char byte = 0;
    bool ended = false;
    bool any = false;
    while (!ended) {
        const ssize_t count = read(STDIN_FILENO, &byte, 1);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            break;
        }
        any = true;
        ended = byte == '\n';
        if (!ended) {
            line += byte;
        }
    }
    if (silence.IsTerminal()) {
        Err(u"\n");
    }
    if (!any) {
        return std::nullopt;
    }
    if (line.ends_with('\r')) {
        line.pop_back();
    }
    return text::FromUtf8(line);
}

std::string SystemConsole::ReadInput() {
    return ReadUpTo(STDIN_FILENO, SIZE_MAX);
}

}  // namespace tarvex
