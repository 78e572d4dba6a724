#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/win32/SystemLibrary.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32System.h"
#include "platform/win32/WindowsApi.h"
#include "tests/support/FakeDllSearch_win32.h"
#include "tests/support/TestFolder.h"
#include "text/Text.h"

namespace tarvex {

namespace {

TEST(Win32StringTableTest, TextsComeAsTheyAreStored) {
    const Win32StringTable table;
    EXPECT_EQ(table.Load(117), u"Prüfung äöüÄÖÜß €");
    EXPECT_EQ(table.Load(126), u"Zeile eins\r\nZeile zwei \"zitiert\" \\Pfad");
    EXPECT_EQ(table.Load(65535), u"Die letzte");
}

TEST(Win32StringTableTest, MissingTextsAreEmpty) {
    const Win32StringTable table;
    EXPECT_EQ(table.Load(118), u"");
    EXPECT_EQ(table.Load(5000), u"");
    EXPECT_EQ(table.Load(65536 + 117), u"");
    EXPECT_EQ(table.Load(-65536 + 117), u"");
    EXPECT_EQ(table.Load(-1), u"");
}

std::u16string UserFormat(LCTYPE type) {
    wchar_t format[80];
    return std::u16string(FromWide(
        {format,
         static_cast<std::size_t>(GetLocaleInfoW(LOCALE_USER_DEFAULT, type, format, 80) - 1)}));
}

/// The time now, formatted by the pictures of the user's settings.
std::u16string ByPictures() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    wchar_t date[80];
    wchar_t time[80];
    GetDateFormatW(LOCALE_USER_DEFAULT, 0, &now, Wide(UserFormat(LOCALE_SSHORTDATE)), date, 80);
    GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &now, Wide(UserFormat(LOCALE_STIMEFORMAT)), time, 80);
    return std::u16string(FromWide(date)) + u" " + std::u16string(FromWide(time));
}

TEST(Win32ClockTest, DateAndTimeFollowTheUsersSettings) {
    std::u16string before;
    std::u16string text;
    do {  // until no second passes in between
        before = ByPictures();
        text = Win32Clock().GeneralDateTime();
    } while (before != ByPictures());
    EXPECT_EQ(text, before);
}

TEST(Win32ClockTest, GermanSettingsGiveTwoDigitsAndFullYear) {
    if (UserFormat(LOCALE_SSHORTDATE) != u"dd.MM.yyyy" ||
        UserFormat(LOCALE_STIMEFORMAT) != u"HH:mm:ss") {
        GTEST_SKIP() << "other settings";
    }
    std::u16string text = Win32Clock().GeneralDateTime();
    for (char16_t& unit : text) {
        unit = text::IsDigits({&unit, 1}) ? u'0' : unit;
    }
    EXPECT_EQ(text, u"00.00.0000 00:00:00");
}

TEST(Win32ProgramInfoTest, NamesTheRunningProgram) {
    const ProgramInfo info = ReadProgramInfo();
    const std::u16string path = info.folder + u"\\" + info.exeName + u".exe";
    EXPECT_EQ(info.exeName, u"platform_tests");
    EXPECT_NE(GetFileAttributesW(Wide(path)), INVALID_FILE_ATTRIBUTES);
    EXPECT_TRUE(text::EndsWithIgnoreCase(FromWide(GetCommandLineW()), info.arguments));
    EXPECT_FALSE(info.arguments.starts_with(u' '));
}

std::u16string PathOf(const wchar_t* library) {
    wchar_t path[MAX_PATH] = L"";
    GetModuleFileNameW(GetModuleHandleW(library), path, MAX_PATH);
    return std::u16string(FromWide(path));
}

TEST(SystemLibraryTest, LibraryOfTheSameNameElsewhereIsNotTaken) {
    ASSERT_EQ(GetModuleHandleW(L"wtsapi32.dll"), nullptr) << "a loaded one would be taken again";
    TestFolder folder;
    std::u16string planted = u"Z:" + text::FromUtf8(TARVEX_PLANTED);
    planted = text::Replace(planted, u"/", u"\\");
    ASSERT_TRUE(CopyFileW(Wide(planted), Wide(folder.Path(u"wtsapi32.dll")), TRUE));
    // A folder that a name alone is looked for in before the system's.
    const SystemLibrary kernel(u"kernel32.dll");
    auto* const setFolder = kernel.Function<BOOL WINAPI(LPCWSTR)>("SetDllDirectoryW");
    setFolder(Wide(folder.Path()));
    const SystemLibrary library(u"wtsapi32.dll");
    setFolder(nullptr);
    ASSERT_TRUE(library.Loaded());
    EXPECT_NE(library.Function<void()>("WTSFreeMemory"), nullptr);
    EXPECT_EQ(folder.Names(), std::vector<std::u16string>{u"wtsapi32.dll"});
    wchar_t system[MAX_PATH];
    GetSystemDirectoryW(system, MAX_PATH);
    EXPECT_TRUE(text::StartsWithIgnoreCase(PathOf(L"wtsapi32.dll"), FromWide(system)));
}

TEST(SystemLibraryTest, MissingLibraryAndMissingFunctionAreNull) {
    const SystemLibrary missing(u"tarvexfehlt.dll");
    EXPECT_FALSE(missing.Loaded());
    EXPECT_EQ(missing.Function<void()>("Fehlt"), nullptr);
    EXPECT_EQ(SystemLibrary(u"kernel32.dll").Function<void()>("TarvexFehlt"), nullptr);
}

using Calls = std::vector<std::string>;

TEST(DllSearchTest, OnlyTheSystemFolderCounts) {
    const FakeDllSearch search({.hasDefault = true, .hasFolder = true});
    RestrictDllSearch();
    EXPECT_EQ(search.Calls(), Calls{"default 2048"});  // LOAD_LIBRARY_SEARCH_SYSTEM32
}

TEST(DllSearchTest, OlderSystemLeavesOutTheCurrentFolder) {
    const FakeDllSearch search({.hasDefault = false, .hasFolder = true});
    RestrictDllSearch();
    EXPECT_EQ(search.Calls(), Calls{"folder ''"});
}

TEST(DllSearchTest, SystemThatRefusesLeavesOutTheCurrentFolder) {
    const FakeDllSearch search({.hasDefault = true, .hasFolder = true, .refuses = true});
    RestrictDllSearch();
    EXPECT_EQ(search.Calls(), (Calls{"default 2048", "folder ''"}));
}

TEST(DllSearchTest, ChildInheritsNoFolder) {
    const FakeDllSearch search({.hasDefault = false, .hasFolder = true});
    RestoreDllSearchForChild();
    EXPECT_EQ(search.Calls(), Calls{"folder none"});
}

TEST(DllSearchTest, SystemWithNeitherFunctionIsLeftAsItIs) {
    const FakeDllSearch search({.hasDefault = false, .hasFolder = false});
    RestrictDllSearch();
    RestoreDllSearchForChild();
    EXPECT_EQ(search.Calls(), Calls{});
}

TEST(GrowingBufferTest, CallsAgainUntilTheTextFits) {
    int calls = 0;
    const std::u16string text = ReadGrowing([&calls](wchar_t* buffer, unsigned long size) {
        ++calls;
        if (size < 1000) {
            return GrowingRead{0, true};
        }
        std::fill_n(buffer, 900, L'x');
        return GrowingRead{900, false};
    });
    EXPECT_EQ(text, std::u16string(900, u'x'));
    EXPECT_EQ(calls, 3);
}

TEST(GrowingBufferTest, GivesUpWhenNoSizeIsEnough) {
    EXPECT_EQ(ReadGrowing([](wchar_t*, unsigned long) { return GrowingRead{0, true}; }), u"");
}

}  // namespace

}  // namespace tarvex
