#include "platform/win32/Win32Files.h"

#include "platform/win32/SystemPath.h"
#include "platform/win32/WideText.h"
#include "platform/win32/WindowsApi.h"
#include "tests/platform/FileSystemContract.h"
#include "tests/support/TestFolder.h"

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
