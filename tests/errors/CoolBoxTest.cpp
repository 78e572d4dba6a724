#include <gtest/gtest.h>

#include <stdexcept>

#include "errors/muCoolBox.h"
#include "tests/support/FakeCaptionBoxApi.h"

namespace tarvex {
namespace {

using Log = std::vector<std::u16string>;
using Captions = std::map<int, std::u16string>;

class CoolBoxTest : public testing::Test {
protected:
    CoolBoxTest() {
        api.systemTimer = 32767;
        api.items = {1, 2, 3, 4, 5, 6, 7};
    }

    int Show(std::u16string_view caption1, std::u16string_view caption2 = {},
             std::u16string_view caption3 = {}, std::uint32_t style = 16,
             WindowHandle owner = nullptr) {
        return box.Show(owner, u"Text", u"Titel", caption1, caption2, caption3, style);
    }

    FakeCaptionBoxApi api;
    muCoolBox box{api};
    int window = 0;
};

TEST_F(CoolBoxTest, ThreeCaptionsRenameAbortRetryIgnore) {
    api.answer = 4;
    EXPECT_EQ(Show(u"&Beenden", u"&Details", u"&Hilfe"), 2);
    EXPECT_EQ(api.style, 16u | 2u);
    EXPECT_EQ(api.log,
              (Log{u"start keiner 88 25", u"box keiner Titel: Text", u"stop keiner 32767",
                   u"text 3 &Beenden", u"text 4 &Details", u"text 5 &Hilfe", u"fit 3 4 5"}));
}

TEST_F(CoolBoxTest, TwoCaptionsRenameYesNo) {
    api.answer = 6;
    EXPECT_EQ(Show(u"&Beenden", u"&Details"), 1);
    EXPECT_EQ(api.style, 16u | 4u);
    EXPECT_EQ(api.captions, (Captions{{6, u"&Beenden"}, {7, u"&Details"}}));
}

TEST_F(CoolBoxTest, OneCaptionRenamesTheSingleButton) {
    api.items = {2};
    EXPECT_EQ(Show(u"&Schließen", {}, {}, 48), 1);
    EXPECT_EQ(api.style, 48u);
    EXPECT_EQ(api.captions, (Captions{{2, u"&Schließen"}}));
}

TEST_F(CoolBoxTest, TheSingleButtonMayBeItemOne) {
    api.items = {1};
    Show(u"&Schließen");
    EXPECT_EQ(api.captions, (Captions{{1, u"&Schließen"}}));
}

TEST_F(CoolBoxTest, AThirdCaptionAloneMakesThreeButtons) {
    Show(u"Eins", {}, u"Drei");
    EXPECT_EQ(api.style, 16u | 2u);
    EXPECT_EQ(api.captions, (Captions{{3, u"Eins"}, {4, u""}, {5, u"Drei"}}));
}

TEST_F(CoolBoxTest, TheCallersFlagsAreKept) {
    Show(u"a", u"b", u"c", 0x2130);
    EXPECT_EQ(api.style, 0x2132u);
    Show(u"a", u"b", {}, 0x2130);
    EXPECT_EQ(api.style, 0x2134u);
}

TEST_F(CoolBoxTest, ATimerOfAnOwnerIsStoppedByItsNumber) {
    Show(u"a", u"b", {}, 16, &window);
    EXPECT_EQ(api.log, (Log{u"start Fenster 88 25", u"box Fenster Titel: Text", u"stop Fenster 88",
                            u"text 6 a", u"text 7 b", u"fit 6 7"}));
}

TEST_F(CoolBoxTest, WithoutActiveWindowTheBoxKeepsItsCaptions) {
    api.boxIsActive = false;
    api.answer = 5;
    EXPECT_EQ(Show(u"a", u"b", u"c"), 3);
    EXPECT_EQ(api.captions, Captions());
    EXPECT_FALSE(api.TimerRuns());
}

TEST_F(CoolBoxTest, EachCallUsesItsOwnCaptions) {
    Show(u"a", u"b", u"c");
    Show(u"d", u"e");
    EXPECT_EQ(api.captions, (Captions{{6, u"d"}, {7, u"e"}}));
    Show(u"f");
    EXPECT_EQ(api.captions, (Captions{{2, u"f"}}));
}

TEST_F(CoolBoxTest, ABoxClosedBeforeTheTimerIsDueStopsIt) {
    api.timerFires = false;
    Show(u"a", u"b", u"c");
    EXPECT_EQ(api.log.back(), u"stop keiner 32767");
    api.log.clear();
    api.FireTimer();
    EXPECT_EQ(api.log, Log()) << "the next window's buttons are not renamed";
}

TEST_F(CoolBoxTest, NoExceptionLeavesTheTimer) {
    api.inTimer = [] { throw std::runtime_error("Text zu lang"); };
    api.answer = 7;
    EXPECT_EQ(Show(u"a", u"b"), 2);
    EXPECT_FALSE(api.TimerRuns());
}

TEST_F(CoolBoxTest, TheAnswerIsThePositionOfTheButton) {
    const std::pair<int, int> positions[] = {{1, 1}, {3, 1}, {6, 1},  {4, 2},  {7, 2},
                                             {2, 3}, {5, 3}, {10, 3}, {11, 3}, {99, 3}};
    for (const auto& [systemButton, position] : positions) {
        api.answer = systemButton;
        EXPECT_EQ(Show(u"a", u"b", u"c"), position) << systemButton;
    }
}

TEST_F(CoolBoxTest, ABoxThatCannotBeShownIsAnsweredByTheFirstButton) {
    api.answer = 0;
    api.timerFires = false;
    EXPECT_EQ(Show(u"a", u"b", u"c"), 1);
}

}  // namespace
}  // namespace tarvex
