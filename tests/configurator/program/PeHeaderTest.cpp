#include "configurator/program/PeHeader.h"

#include <gtest/gtest.h>

#include "tests/support/SyntheticLauncher.h"

namespace tarvex {
namespace {

bool IsProgram32(const SyntheticLauncher& launcher) {
    return ReadPeHeader(launcher.Build()).isProgram32;
}

TEST(PeHeaderTest, ProgramOf32BitsForIntel) {
    EXPECT_TRUE(IsProgram32({}));
}

TEST(PeHeaderTest, OtherProcessorIsRefused) {
    SyntheticLauncher launcher;
    launcher.machine = 0x8664;
    EXPECT_FALSE(IsProgram32(launcher));
}

TEST(PeHeaderTest, HeaderOf64BitsIsRefused) {
    SyntheticLauncher launcher;
    launcher.magic = 0x20b;
    EXPECT_FALSE(IsProgram32(launcher));
}

TEST(PeHeaderTest, FileThatIsNotExecutableIsRefused) {
    SyntheticLauncher launcher;
    launcher.flags = 0x0100;
    EXPECT_FALSE(IsProgram32(launcher));
}

TEST(PeHeaderTest, LibraryIsRefused) {
    SyntheticLauncher launcher;
    launcher.flags = 0x2102;
    EXPECT_FALSE(IsProgram32(launcher));
}

TEST(PeHeaderTest, SignatureCountsInItsDirectoryOnly) {
    SyntheticLauncher launcher;
    EXPECT_FALSE(ReadPeHeader(launcher.Build()).isSigned);
    launcher.signatureSize = 1;
    std::string bytes = launcher.Build();
    EXPECT_TRUE(ReadPeHeader(bytes).isSigned);
    bytes[0x80 + 24 + 92] = 4;  // directories up to the one before it
    EXPECT_FALSE(ReadPeHeader(bytes).isSigned);
    bytes[0x80 + 24 + 92] = 5;
    EXPECT_TRUE(ReadPeHeader(bytes).isSigned);
}

}  // namespace
}  // namespace tarvex
