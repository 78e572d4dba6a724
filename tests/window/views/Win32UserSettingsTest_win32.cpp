#include "window/views/Win32UserSettings_win32.h"

#include <gtest/gtest.h>

#include "tests/support/ScratchRegistry_win32.h"

namespace tarvex {
namespace {

constexpr const char16_t* kKey = u"Software\\Tarvex\\Konfiguration";

class Win32UserSettingsTest : public testing::Test {
protected:
    Win32UserSettingsTest() {
        // Under a key that lasts as long as the system runs, the system makes no lasting one.
        scratch_.AddKey(kHKeyCurrentUser, kKey);
    }

    ScratchRegistry scratch_;
    Win32UserSettings settings_;
};

TEST_F(Win32UserSettingsTest, TextIsFoundAgain) {
    EXPECT_EQ(settings_.Read(u"Datei1"), u"");
    settings_.Write(u"Datei1", u"C:\\Grün\\Łódź.exe");
    EXPECT_EQ(settings_.Read(u"Datei1"), u"C:\\Grün\\Łódź.exe");
    EXPECT_EQ(settings_.Read(u"Datei2"), u"");
}

TEST_F(Win32UserSettingsTest, TextStandsUnderTheKeyOfTheProgram) {
    settings_.Write(u"Fenster", u"0,0,800,560");
    EXPECT_EQ(scratch_.registry().ReadText(kHKeyCurrentUser, kKey, u"Fenster"),
              std::string("0,0,800,560\0", 12));
}

TEST_F(Win32UserSettingsTest, EmptyTextRemovesTheName) {
    settings_.Write(u"Datei1", u"C:\\A.exe");
    settings_.Write(u"Datei1", u"");
    EXPECT_EQ(scratch_.registry().ReadText(kHKeyCurrentUser, kKey, u"Datei1"), std::nullopt);
}

TEST_F(Win32UserSettingsTest, ValueOfAnotherKindIsNone) {
    scratch_.SetOther(kHKeyCurrentUser, kKey, u"Vorschau", 4);
    EXPECT_EQ(settings_.Read(u"Vorschau"), u"");
}

TEST_F(Win32UserSettingsTest, TextWithoutItsClosingZeroIsRead) {
    scratch_.SetText(kHKeyCurrentUser, kKey, u"PCs", "C:\\PCs");
    EXPECT_EQ(settings_.Read(u"PCs"), u"C:\\PCs");
}

}  // namespace
}  // namespace tarvex
