#include <fcntl.h>
#include <gtest/gtest.h>
#include <termios.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

#include "commands/SystemConsole.h"
#include "platform/FileStore.h"
#include "platform/posix/PosixCleanup.h"
#include "tests/support/ChildProcess_posix.h"

namespace tarvex {
namespace {

/// Takes a standard file's place for the time of a block.
class Redirected {
public:
    Redirected(int standard, int file) : standard_(standard), kept_(dup(standard)) {
        dup2(file, standard);
        close(file);
    }
    Redirected(const Redirected&) = delete;
    Redirected& operator=(const Redirected&) = delete;
    ~Redirected() {
        dup2(kept_, standard_);
        close(kept_);
    }

private:
    int standard_;
    int kept_;
};

TEST(SystemConsoleTest, OutputThatCannotBeWrittenIsTold) {
    SystemConsole console;
    {
        const Redirected full(STDOUT_FILENO, open("/dev/full", O_WRONLY));
        EXPECT_FALSE(console.Out(u"Text\n"));
    }
    {
        const Redirected closed(STDOUT_FILENO, open("/dev/null", O_RDONLY));
        EXPECT_FALSE(console.Out(u"Text\n"));
    }
    {
        const Redirected full(STDERR_FILENO, open("/dev/full", O_WRONLY));
        EXPECT_FALSE(console.Err(u"Text\n"));
    }
    const Redirected fine(STDOUT_FILENO, open("/dev/null", O_WRONLY));
    EXPECT_TRUE(console.Out(u"Text\n"));
}

TEST(SystemConsoleTest, InputIsReadToItsEndByteForByte) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const std::string bytes(
        "\xEF\xBB\xBF"
        "A = \xFF\r\n\0x",
        12);
    ASSERT_EQ(write(ends[1], bytes.data(), bytes.size()), 12);
    close(ends[1]);
    const Redirected input(STDIN_FILENO, ends[0]);
    SystemConsole console;
    EXPECT_FALSE(console.IsInteractive());
    EXPECT_EQ(console.ReadInput(), bytes);
}

TEST(SystemConsoleTest, InputThatIsAFolderIsNamedSo) {
    const Redirected input(STDIN_FILENO, open("/", O_RDONLY));
    SystemConsole console;
    try {
        console.ReadInput();
        FAIL();
    } catch (const FileFailure& failure) {
        EXPECT_EQ(failure.problem, FileProblem::IsFolder);
    }
}

/// A terminal that nobody sees; `Name` is that of the side of the programs.
class Terminal {
public:
    Terminal() : user_(posix_openpt(O_RDWR | O_NOCTTY)) {
        grantpt(user_);
        unlockpt(user_);
        name_ = ptsname(user_);
        program_ = open(name_.c_str(), O_RDWR | O_NOCTTY);
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;
    ~Terminal() {
        close(user_);
        close(program_);
    }

    int User() const { return user_; }
    int Program() const { return program_; }

    bool Echoes() const {
        termios settings{};
        EXPECT_EQ(tcgetattr(program_, &settings), 0);
        return (settings.c_lflag & tcflag_t{ECHO}) != 0;
    }

    bool AwaitSilence() const {
        for (int i = 0; i < 1000 && Echoes(); ++i) {
            usleep(10'000);
        }
        return !Echoes();
    }

private:
    int user_;
    int program_ = -1;
    std::string name_;
};

/// A program that asks for a secret at the terminal and ends with 0 when it got the right one.
pid_t StartPrompt(const Terminal& terminal) {
    const pid_t child = fork();
    if (child == 0) {
        // Whoever runs the tests may have them ignored.
        std::signal(SIGINT, SIG_DFL);
        std::signal(SIGTERM, SIG_DFL);
        dup2(terminal.Program(), STDIN_FILENO);
        dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
        PreparePosixProgram();
        SystemConsole console;
        if (!console.IsInteractive()) {
            _exit(3);
        }
        _exit(console.ReadSecretLine(u"Pwd: ") == u"geheim" ? 0 : 1);
    }
    return child;
}

class PromptTest : public testing::TestWithParam<int> {};

TEST_P(PromptTest, InterruptionGivesTheTerminalItsEchoBack) {
    const Terminal terminal;
    ASSERT_TRUE(terminal.Echoes());
    const pid_t child = StartPrompt(terminal);
    ASSERT_TRUE(terminal.AwaitSilence());
    kill(child, GetParam());
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), GetParam());
    EXPECT_TRUE(terminal.Echoes());
}

INSTANTIATE_TEST_SUITE_P(Signals, PromptTest, testing::Values(SIGINT, SIGTERM));

TEST(SystemConsoleTest, SecretIsReadAndTheEchoComesBack) {
    const Terminal terminal;
    const pid_t child = StartPrompt(terminal);
    ASSERT_TRUE(terminal.AwaitSilence());
    ASSERT_EQ(write(terminal.User(), "geheim\n", 7), 7);
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(terminal.Echoes());
}

}  // namespace
}  // namespace tarvex
