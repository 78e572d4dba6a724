#include "commands/BashCompletion.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "text/Text.h"

namespace tarvex {
namespace {

/// What bash itself offers at the end of a command line, one word a line.
std::string Offered(const std::string& words) {
    const std::string script = text::ToUtf8(BashCompletion()) +
                               "\ncompopt() { :; }\n"
                               "COMP_WORDS=(" +
                               words +
                               ")\n"
                               "COMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n"
                               "_tarvexcf\n"
                               "printf '%s\\n' \"${COMPREPLY[@]}\"\n";
    std::FILE* const file = std::fopen("completion.bash", "w");
    std::fwrite(script.data(), 1, script.size(), file);
    std::fclose(file);
    std::FILE* const pipe = popen("bash completion.bash 2>&1", "r");
    std::string out;
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) {
        out += static_cast<char>(c);
    }
    EXPECT_EQ(pclose(pipe), 0) << out;
    std::remove("completion.bash");
    return out;
}

TEST(BashCompletionTest, FirstWordIsACommand) {
    EXPECT_EQ(Offered("tarvexcf s"), "set\nshow\nsimulate\n");
}

TEST(BashCompletionTest, OptionsAreThoseOfTheCommand) {
    EXPECT_EQ(Offered("tarvexcf export --"),
              "--help\n--force\n--no-secrets\n--dry-run\n--codepage\n--quiet\n");
}

TEST(BashCompletionTest, NamesOfFieldsFollowTheFile) {
    EXPECT_EQ(Offered("tarvexcf get --reveal K.exe Sys"),
              "SysDBFilename\nSysDBPath\nSysDBRegList01\nSysDBRegList02\nSysDBRegList03\nSysDBRegLi"
              "st04\nSysDBRegList05\nSysDBRegList06\nSysDBRegList07\nSysDBRegList08\nSysDBRegList09"
              "\nSysDBRegList10\n");
    EXPECT_EQ(Offered("tarvexcf set K.exe Cm"), "Cmd=\n");
    EXPECT_EQ(Offered("tarvexcf set K.exe Icon"), "IconFile=\n");
    EXPECT_EQ(Offered("tarvexcf brand T.exe K.exe --set Cm"), "Cmd=\n");
}

TEST(BashCompletionTest, ValuesOfOptions) {
    EXPECT_EQ(Offered("tarvexcf show --codepage 8"), "874\n");
    EXPECT_EQ(Offered("tarvexcf help unset x"), "\n");
}

}  // namespace
}  // namespace tarvex
