#include "platform/win32/Win32System.h"

#include <gtest/gtest.h>

#include "platform/win32/WideText.h"
#include "platform/win32/Win32TextCodec.h"
#include "platform/win32/WindowsApi.h"
#include "resources/Version.h"
#include "tests/support/TestFolder.h"
#include "text/Text.h"
#include "util/FileVersionInfo.h"

namespace tarvex {
namespace {

std::u16string OwnPath() {
    wchar_t path[1024] = {};
    GetModuleFileNameW(nullptr, path, 1024);
    return std::u16string(FromWide(path));
}

std::u16string SystemFile(std::u16string_view name) {
    wchar_t path[MAX_PATH] = {};
    GetSystemDirectoryW(path, MAX_PATH);
    return std::u16string(FromWide(path)).append(u"\\").append(name);
}

class Win32VersionResourceTest : public testing::Test {
protected:
    SystemTextCodec ansi;
    Win32VersionResource resource{ansi};
    FileVersionInfo info{resource};
};

TEST_F(Win32VersionResourceTest, LaunchersResourceIsGermanAndComplete) {
    info.SetFullPathName(OwnPath());
    ASSERT_TRUE(info.Available());
    EXPECT_EQ(u"Tarvex", info.CompanyName());
    EXPECT_EQ(u"Startprogramm für Access-Datenbanken", info.FileDescription());
    EXPECT_EQ(text::FromUtf8(TARVEX_VERSION_TEXT), info.FileVersion());
    EXPECT_EQ(u"tarvex", info.InternalName());
    EXPECT_EQ(u"© 2026 Tarvex. Alle Rechte vorbehalten.", info.LegalCopyright());
    EXPECT_EQ(u"Access und Windows sind Marken der Microsoft Corporation.", info.LegalTrademarks());
    EXPECT_EQ(u"tarvex.exe", info.OriginalFilename());
    EXPECT_EQ(u"Tarvex", info.ProductName());
    EXPECT_EQ(text::FromUtf8(TARVEX_VERSION_TEXT), info.ProductVersion());
    EXPECT_EQ(
        u"Öffnet eine Access-Datenbank mit den Einstellungen, die in dieser Datei hinterlegt "
        u"sind.",
        info.Comments());
    EXPECT_EQ(u"Application", info.FileType());
    EXPECT_EQ(u"NT-Win32", info.FileOS());
    EXPECT_EQ(u"", info.FileFlags());
    EXPECT_EQ(TARVEX_VERSION_MAJOR, info.FileVersionMajor());
    EXPECT_EQ(TARVEX_VERSION_MINOR, info.FileVersionMinor());
    EXPECT_EQ(resource.LanguageName(0x0407), info.Language());
    EXPECT_NE(u"", info.Language());
}

TEST_F(Win32VersionResourceTest, FileOfTheSystemIsRead) {
    info.SetFullPathName(SystemFile(u"kernel32.dll"));
    ASSERT_TRUE(info.Available());
    EXPECT_EQ(u"Microsoft Corporation", info.CompanyName());
    EXPECT_EQ(u"DLL", info.FileType());
    EXPECT_EQ(u"kernel32.dll", info.OriginalFilename());
    EXPECT_GE(info.FileVersionMajor(), 5);
}

TEST_F(Win32VersionResourceTest, FilesWithoutVersionResourceAreNotAvailable) {
    const TestFolder folder;
    folder.MakeFile(u"leer.exe", "");
    folder.MakeFile(u"text.exe", "MZ kein Programm");
    for (const std::u16string& path : {folder.Path(u"leer.exe"), folder.Path(u"text.exe"),
                                       folder.Path(u"fehlt.exe"), folder.Path()}) {
        info.SetFullPathName(path);
        EXPECT_FALSE(info.Available());
        EXPECT_EQ(path, info.FullPathName());
    }
}

TEST_F(Win32VersionResourceTest, RelativePathBecomesAbsolute) {
    wchar_t current[MAX_PATH] = {};
    GetCurrentDirectoryW(MAX_PATH, current);
    const std::u16string folder(FromWide(current));
    EXPECT_EQ(folder + (folder.back() == u'\\' ? u"" : u"\\") + u"büro.exe",
              resource.FullPathName(u"büro.exe"));
    EXPECT_EQ(u"", resource.FullPathName(u""));
}

TEST_F(Win32VersionResourceTest, PathOutsideTheCodePageIsReadByItsShortName) {
    const TestFolder folder;
    const std::u16string path = folder.Path(u"Кунден.exe");
    ASSERT_TRUE(CopyFileW(Wide(OwnPath()), Wide(path), TRUE));
    info.SetFullPathName(path);
    EXPECT_TRUE(info.Available());
    EXPECT_EQ(u"Tarvex", info.ProductName());
}

}  // namespace
}  // namespace tarvex
