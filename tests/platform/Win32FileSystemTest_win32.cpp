#include "platform/win32/Win32Files.h"

#include <map>

#include "platform/win32/Handles.h"
#include "platform/win32/SystemPath.h"
#include "platform/win32/WideText.h"
#include "tests/platform/FileSystemContract.h"
#include "tests/support/TestFolder.h"
#include "text/Text.h"

namespace tarvex {

namespace {

class Win32World : public TestFolder {
public:
    FileSystem& files() { return files_; }

private:
    Win32FileSystem files_;
};

/// Keeps a file open so that nobody else may open it.
class LockedFile {
public:
    explicit LockedFile(const std::u16string& path)
        : handle_(CreateFileW(Wide(path), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr)) {}
    LockedFile(const LockedFile&) = delete;
    LockedFile& operator=(const LockedFile&) = delete;
    ~LockedFile() { CloseHandle(handle_); }
    bool Locked() const { return handle_ != INVALID_HANDLE_VALUE; }

private:
    HANDLE handle_;
};

/// Programs that append entries to one file, all at the same time.
class Appenders {
public:
    static constexpr int kPrograms = 8;
    static constexpr int kEntries = 50;

    /// Starts them; they append when told to.
    explicit Appenders(const std::u16string& file) {
        const std::u16string event = u"Tarvex appenders " + text::Decimal(GetCurrentProcessId());
        start_ = UniqueEvent(CreateEventW(nullptr, TRUE, FALSE, Wide(event)));
        const std::u16string program =
            u"Z:" + text::Replace(text::FromUtf8(TARVEX_APPENDER), u"/", u"\\");
        for (int i = 0; i < kPrograms; ++i) {
            std::u16string line = u"\"";
            line.append(program).append(u"\" \"").append(file).append(u"\" ").append(Name(i));
            line.append(u" ").append(text::Decimal(kEntries)).append(u" \"").append(event);
            line.append(u"\"");
            STARTUPINFOW startup{};
            startup.cb = sizeof(startup);
            PROCESS_INFORMATION started{};
            if (CreateProcessW(nullptr, Wide(line), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                               &startup, &started) == FALSE) {
                ADD_FAILURE() << GetLastError();
                continue;
            }
            CloseHandle(started.hThread);
            programs_.emplace_back(started.hProcess);
        }
    }

    /// Lets them append and waits until they have ended; how many entries failed.
    int Append() {
        SetEvent(start_.Get());
        int failed = 0;
        for (const UniqueProcess& program : programs_) {
            EXPECT_EQ(WaitForSingleObject(program.Get(), 60000), WAIT_OBJECT_0);
            DWORD code = 0;
            GetExitCodeProcess(program.Get(), &code);
            failed += static_cast<int>(code);
        }
        return failed;
    }

    static std::u16string Name(int program) { return u"P" + text::Decimal(program); }

    /// The entry as a program of that name writes it.
    static std::string Entry(int program, int number) {
        return text::ToUtf8(Name(program) + u" entry " + text::Decimal(number) + u": ") +
               std::string(500, 'x');
    }

private:
    using UniqueEvent = UniqueHandle<HANDLE, CloseHandle>;
    UniqueEvent start_;
    std::vector<UniqueProcess> programs_;
};

/// Every entry of the appenders is in the file once and whole, each program's in order.
void ExpectAllEntries(const std::string& bytes) {
    std::map<int, int> last;
    int lines = 0;
    for (std::size_t at = 0; at < bytes.size(); ++lines) {
        const std::size_t end = bytes.find("\r\n", at);
        ASSERT_NE(end, std::string::npos) << bytes.substr(at);
        ASSERT_EQ(bytes[at], 'P');
        const int program = bytes[at + 1] - '0';
        ASSERT_EQ(bytes.substr(at, end - at), Appenders::Entry(program, ++last[program]));
        at = end + 2;
    }
    EXPECT_EQ(lines, Appenders::kPrograms * Appenders::kEntries);
    EXPECT_EQ(last.size(), std::size_t{Appenders::kPrograms});
}

}  // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(Win32, FileSystemContract, Win32World);

namespace {

TEST(Win32FileSystemTest, DevicesAreNoFiles) {
    Win32World world;
    for (const std::u16string_view name : {u"NUL", u"nul", u"CON", u"COM1", u"LPT1", u"AUX"}) {
        EXPECT_FALSE(world.files().FileExists(name)) << GetLastError();
        EXPECT_FALSE(world.files().Write(name, "x", true));
    }
    EXPECT_FALSE(world.files().FileExists(world.Path(u"NUL")));
    EXPECT_FALSE(world.files().FileExists(u"\\\\.\\PhysicalDrive0"));
    EXPECT_FALSE(world.files().FileExists(u"C:"));
    EXPECT_FALSE(world.files().FileExists(u"C:\\"));
    EXPECT_FALSE(world.files().FileExists(u"Ungültig|<>"));
    EXPECT_FALSE(world.files().FileExists(std::u16string_view(u"C:\\windows\\win.ini\0x", 20)));
    EXPECT_FALSE(world.files().FileExists(u"\\\\?\\"));
}

TEST(Win32FileSystemTest, HiddenAndSystemFilesExistAndAreReplaced) {
    Win32World world;
    world.MakeFile(u"Start.err", "alt");
    const std::u16string path = world.Path(u"Start.err");
    SetFileAttributesW(Wide(path),
                       FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_READONLY);
    EXPECT_TRUE(world.files().FileExists(path));
    EXPECT_TRUE(world.files().Write(path, "neu", true));
    EXPECT_EQ(world.Bytes(u"Start.err"), "neu");
    EXPECT_EQ(world.Names(), std::vector<std::u16string>{u"Start.err"});
}

TEST(Win32FileSystemTest, LockedFileExistsButIsLeftAlone) {
    Win32World world;
    world.MakeFile(u"Start.err", "alt");
    world.MakeReadOnly(u"Start.err");
    const std::u16string path = world.Path(u"Start.err");
    {
        const LockedFile locked(path);
        ASSERT_TRUE(locked.Locked());
        EXPECT_TRUE(world.files().FileExists(path));
        EXPECT_FALSE(world.files().Append(path, "neu"));
        EXPECT_FALSE(world.files().Write(path, "neu", true));
    }
    EXPECT_EQ(world.Bytes(u"Start.err"), "alt");
    EXPECT_NE(GetFileAttributesW(Wide(path)) & FILE_ATTRIBUTE_READONLY, 0u);
    EXPECT_EQ(world.Names(), std::vector<std::u16string>{u"Start.err"});
}

TEST(Win32FileSystemTest, ManyProgramsAppendToOneFileAndNoEntryIsLost) {
    Win32World world;
    EXPECT_EQ(Appenders(world.Path(u"Start.log")).Append(), 0);
    ExpectAllEntries(world.Bytes(u"Start.log").value_or(""));
}

TEST(Win32FileSystemTest, ProgramsAppendToAFileThatAnotherHoldsOpenForAppending) {
    Win32World world;
    const std::u16string path = world.Path(u"Start.log");
    const UniqueFile open(CreateFileW(Wide(path), FILE_APPEND_DATA,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS, 0,
                                      nullptr));
    ASSERT_TRUE(open);
    EXPECT_EQ(Appenders(path).Append(), 0);
    ExpectAllEntries(world.Bytes(u"Start.log").value_or(""));
}

TEST(Win32FileSystemTest, AppendsToAFileThatMayNotBeRead) {
    Win32World world;
    const std::u16string path = world.Path(u"Start.log");
    {
        const UniqueFile open(CreateFileW(Wide(path), FILE_APPEND_DATA, FILE_SHARE_WRITE, nullptr,
                                          OPEN_ALWAYS, 0, nullptr));
        ASSERT_TRUE(open);
        EXPECT_TRUE(world.files().Append(path, "eins\r\n"));
    }
    EXPECT_EQ(world.Bytes(u"Start.log"), "eins\r\n");
}

TEST(Win32FileSystemTest, WriterWhoKeepsItsTurnDoesNotHinderTheOthersForLong) {
    Win32World world;
    const std::u16string path = world.Path(u"Start.log");
    const UniqueFile open(CreateFileW(Wide(path), FILE_APPEND_DATA | FILE_READ_DATA,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS, 0,
                                      nullptr));
    ASSERT_TRUE(LockFile(open.Get(), 0x7FFFFFFF, 0, 1, 0));
    const DWORD before = GetTickCount();
    EXPECT_TRUE(world.files().Append(path, "eins\r\n"));
    EXPECT_GE(GetTickCount() - before, 900U);
    EXPECT_LE(GetTickCount() - before, 10000U);
    EXPECT_EQ(world.Bytes(u"Start.log"), "eins\r\n");
}

TEST(Win32FileSystemTest, FailedWritesLeaveNothingBehind) {
    Win32World world;
    world.MakeFile(u"Start.err", "alt");
    world.MakeFolder(u"Ordner");
    EXPECT_FALSE(world.files().Write(world.Path(u"Start.err"), "neu", false));
    EXPECT_FALSE(world.files().Write(world.Path(u"Ordner"), "neu", true));
    EXPECT_EQ(world.Names(), (std::vector<std::u16string>{u"Ordner", u"Start.err"}));
}

TEST(Win32FileSystemTest, PathsLongerThanMaxPathWork) {
    Win32World world;
    std::u16string folder;
    for (int level = 0; level < 4; ++level) {
        folder += (level == 0 ? u"" : u"\\") + std::u16string(100, u'ä');
        world.MakeFolder(folder);
    }
    const std::u16string path = world.Path(folder + u"\\Kunden.log");
    ASSERT_GT(path.size(), 400u);
    EXPECT_FALSE(world.files().FileExists(path));
    EXPECT_TRUE(world.files().Append(path, "eins"));
    EXPECT_TRUE(world.files().FileExists(path));
    EXPECT_TRUE(world.files().Write(path, "zwei", true));
    EXPECT_EQ(world.Bytes(folder + u"\\Kunden.log"), "zwei");
    EXPECT_TRUE(world.files().FileExists(u"\\\\?\\" + path));
}

TEST(SystemPathTest, ShortPathsStayAndLongOnesTakeTheLongNotation) {
    const std::u16string name(300, u'x');
    EXPECT_EQ(SystemPath(u"C:\\Daten\\a.mdb"), u"C:\\Daten\\a.mdb");
    EXPECT_EQ(SystemPath(u"C:/Daten/../a.mdb"), u"C:\\a.mdb");
    EXPECT_EQ(SystemPath(u"\\\\Server\\Daten\\a.mdb"), u"\\\\Server\\Daten\\a.mdb");
    EXPECT_EQ(SystemPath(u"C:\\" + name), u"\\\\?\\C:\\" + name);
    EXPECT_EQ(SystemPath(u"\\\\Server\\Daten\\" + name), u"\\\\?\\UNC\\Server\\Daten\\" + name);
    EXPECT_EQ(SystemPath(u"\\\\?\\C:\\" + name), u"\\\\?\\C:\\" + name);
    EXPECT_EQ(SystemPath(u""), u"");
}

TEST(SystemPathTest, LongNotationBeginsWhereFoldersNeedIt) {
    const std::u16string longest = u"C:\\" + std::u16string(244, u'x');
    EXPECT_EQ(SystemPath(longest), longest);
    EXPECT_EQ(SystemPath(longest + u"x"), u"\\\\?\\" + longest + u"x");
}

}  // namespace

}  // namespace tarvex
