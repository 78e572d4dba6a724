#include "app/LaunchSwitches.h"

#include <gtest/gtest.h>

namespace tarvex {
namespace {

TEST(LaunchSwitchesTest, NoTextGivesNoSwitch) {
    const LaunchSwitches switches = ParseLaunchSwitches(u"");
    EXPECT_FALSE(switches.test);
    EXPECT_FALSE(switches.info);
    EXPECT_FALSE(switches.compact);
    EXPECT_FALSE(switches.repair);
    EXPECT_EQ(switches.infoPassword, u"");
}

TEST(LaunchSwitchesTest, NamesAreComparedWithoutRegardToCase) {
    EXPECT_TRUE(ParseLaunchSwitches(u"/t").test);
    EXPECT_TRUE(ParseLaunchSwitches(u"/T").test);
    EXPECT_TRUE(ParseLaunchSwitches(u"/d").info);
    EXPECT_TRUE(ParseLaunchSwitches(u"/compact").compact);
    EXPECT_TRUE(ParseLaunchSwitches(u"/COMPACT").compact);
    EXPECT_TRUE(ParseLaunchSwitches(u"/RePaiR").repair);
}

TEST(LaunchSwitchesTest, BlanksAroundANameDoNotMatter) {
    EXPECT_TRUE(ParseLaunchSwitches(u"  /  T  ").test);
}

TEST(LaunchSwitchesTest, SwitchesNeedNoBlankBetweenThem) {
    const LaunchSwitches switches = ParseLaunchSwitches(u"/T/Compact/repair");
    EXPECT_TRUE(switches.test);
    EXPECT_TRUE(switches.compact);
    EXPECT_TRUE(switches.repair);
}

TEST(LaunchSwitchesTest, TextBeforeTheFirstSlashIsNoSwitch) {
    EXPECT_FALSE(ParseLaunchSwitches(u"T").test);
    EXPECT_FALSE(ParseLaunchSwitches(u"T /Compact").test);
    EXPECT_TRUE(ParseLaunchSwitches(u"T /Compact").compact);
}

TEST(LaunchSwitchesTest, UnknownNamesChangeNothing) {
    const LaunchSwitches switches = ParseLaunchSwitches(
        u"/X /Test /TT /DD /xD /Dx /Compacts /xCompact /Rep /xRepair /Repairs / //");
    EXPECT_FALSE(switches.test);
    EXPECT_FALSE(switches.info);
    EXPECT_FALSE(switches.compact);
    EXPECT_FALSE(switches.repair);
}

TEST(LaunchSwitchesTest, SlashWithoutNameDoesNotHideTheNextSwitch) {
    EXPECT_TRUE(ParseLaunchSwitches(u"//T").test);
    EXPECT_TRUE(ParseLaunchSwitches(u"/ /T").test);
}

TEST(LaunchSwitchesTest, FirstWordBehindDIsThePassword) {
    EXPECT_EQ(ParseLaunchSwitches(u"/D geheim").infoPassword, u"geheim");
    EXPECT_EQ(ParseLaunchSwitches(u"/D   geheim   extra").infoPassword, u"geheim");
    EXPECT_EQ(ParseLaunchSwitches(u"/D").infoPassword, u"");
    EXPECT_EQ(ParseLaunchSwitches(u"/T geheim /D").infoPassword, u"");
}

TEST(LaunchSwitchesTest, QuotationMarksBelongToThePassword) {
    EXPECT_EQ(ParseLaunchSwitches(u"/D \"ge heim\"").infoPassword, u"\"ge");
}

TEST(LaunchSwitchesTest, PasswordEndsAtASlash) {
    EXPECT_EQ(ParseLaunchSwitches(u"/D a/b").infoPassword, u"a");
    EXPECT_TRUE(ParseLaunchSwitches(u"/D a/T").test);
}

TEST(LaunchSwitchesTest, LastPasswordOfSeveralCounts) {
    EXPECT_EQ(ParseLaunchSwitches(u"/D eins /D zwei").infoPassword, u"zwei");
    EXPECT_EQ(ParseLaunchSwitches(u"/D eins /D").infoPassword, u"eins");
}

}  // namespace
}  // namespace tarvex
