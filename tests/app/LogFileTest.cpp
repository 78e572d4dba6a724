#include "app/LogFile.h"

#include <gtest/gtest.h>

#include <new>

#include "tests/support/FakeApp.h"
#include "tests/support/FakeFileSystem.h"
#include "text/TextCodec1252.h"

namespace tarvex {
namespace {

class LogFileTest : public testing::Test {
protected:
    FakeFileSystem files;
    FakeClock clock;
    TextCodec1252 codec;
    ProgramInfo program{u"C:\\Prog", u"Kunden", u""};

    void SetUp() override { files.AddFolder(u"C:\\Prog"); }
};

TEST_F(LogFileTest, EntryIsTimeTextAndEmptyLineInAnsi) {
    LogFile log(files, clock, codec, program);
    log.Append(u"\"C:\\Büro\\msaccess.exe\"");
    EXPECT_EQ(files.Bytes(u"C:\\Prog\\Kunden.log"),
              "[24.12.2004 08:15:00]\r\n\"C:\\B\xFCro\\msaccess.exe\"\r\n\r\n");
}

TEST_F(LogFileTest, EntriesFollowEachOtherOldestFirst) {
    LogFile log(files, clock, codec, program);
    log.Append(u"eins");
    clock.now = u"24.12.2004 08:16:00";
    log.Append(u"zwei");
    EXPECT_EQ(files.Bytes(u"C:\\Prog\\Kunden.log"),
              "[24.12.2004 08:15:00]\r\neins\r\n\r\n[24.12.2004 08:16:00]\r\nzwei\r\n\r\n");
}

TEST_F(LogFileTest, OnlyTheLastExtensionOfTheLauncherIsReplaced) {
    program.exeName = u"Kunden.v2";
    LogFile(files, clock, codec, program).Append(u"eins");
    EXPECT_TRUE(files.Bytes(u"C:\\Prog\\Kunden.v2.log"));
}

TEST_F(LogFileTest, ExceptionLosesTheEntryOnly) {
    struct : Clock {
        std::u16string GeneralDateTime() const override { throw std::bad_alloc(); }
        std::uint32_t Milliseconds() const override { return 0; }
    } failing;
    LogFile log(files, failing, codec, program);
    EXPECT_NO_THROW(log.Append(u"eins"));
    EXPECT_TRUE(files.log.empty());
}

TEST_F(LogFileTest, FailureIsIgnoredAndTheOldEntriesStay) {
    files.AddFile(u"C:\\Prog\\Kunden.log", "alt", true);
    LogFile(files, clock, codec, program).Append(u"eins");
    EXPECT_EQ(files.Bytes(u"C:\\Prog\\Kunden.log"), "alt");
    EXPECT_EQ(files.log, std::vector<std::u16string>{u"append C:\\Prog\\Kunden.log"});
}

}  // namespace
}  // namespace tarvex
