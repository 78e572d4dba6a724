#include <gtest/gtest.h>

#include "platform/win32/SystemLibrary.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32System.h"
#include "platform/win32/WindowsApi.h"
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

TEST(SystemLibraryTest, LibraryBesideTheProgramIsNotTaken) {
    TestFolder folder;
    folder.MakeFile(u"version.dll", "no library");
    wchar_t before[MAX_PATH];
    GetCurrentDirectoryW(MAX_PATH, before);
    SetCurrentDirectoryW(Wide(folder.Path()));
    const SystemLibrary library(u"version.dll");
    SetCurrentDirectoryW(before);
    ASSERT_TRUE(library.Loaded());
    EXPECT_NE(library.Function<decltype(GetFileVersionInfoSizeW)>("GetFileVersionInfoSizeW"),
              nullptr);
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(GetModuleHandleW(L"version.dll"), path, MAX_PATH);
    wchar_t system[MAX_PATH];
    GetSystemDirectoryW(system, MAX_PATH);
    EXPECT_TRUE(text::StartsWithIgnoreCase(FromWide(path), FromWide(system)));
}

TEST(SystemLibraryTest, MissingLibraryAndMissingFunctionAreNull) {
    const SystemLibrary missing(u"tarvexfehlt.dll");
    EXPECT_FALSE(missing.Loaded());
    EXPECT_EQ(missing.Function<void()>("Fehlt"), nullptr);
    EXPECT_EQ(SystemLibrary(u"kernel32.dll").Function<void()>("TarvexFehlt"), nullptr);
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
