#include "window/main/WindowPlace.h"

#include <gtest/gtest.h>

namespace tarvex {
namespace {

const std::vector<ScreenArea> kScreens = {{0, 0, 1920, 1040}, {1920, 200, 3200, 1200}};

TEST(WindowPlaceTest, TextGivesThePlaceBack) {
    const WindowPlace place = {{-8, 20, 792, 580}, false};
    EXPECT_EQ(PlaceText(place), u"-8,20,792,580");
    EXPECT_EQ(ReadPlace(u"-8,20,792,580"), place);
    const WindowPlace maximised = {{0, 0, 800, 560}, true};
    EXPECT_EQ(PlaceText(maximised), u"0,0,800,560,max");
    EXPECT_EQ(ReadPlace(u"0,0,800,560,max"), maximised);
}

TEST(WindowPlaceTest, OtherTextsAreNoPlace) {
    for (const std::u16string_view text : {u"", u"1,2,3", u"a,b,c,d", u"0,0,0,560", u"800,0,0,560",
                                           u"0,0,800,2000000", u"-2000000000,0,2000000000,5"}) {
        EXPECT_EQ(ReadPlace(text), std::nullopt);
    }
}

TEST(WindowPlaceTest, PlaceOnAScreenStays) {
    const ScreenArea onSecond = {2000, 300, 2800, 860};
    EXPECT_EQ(BroughtBack(onSecond, kScreens), onSecond);
    const ScreenArea partlyOut = {1000, 900, 2600, 1900};
    EXPECT_EQ(BroughtBack(partlyOut, kScreens), partlyOut);
    const ScreenArea maximisedFrame = {-700, 0, 100, 560};
    EXPECT_EQ(BroughtBack(maximisedFrame, kScreens), maximisedFrame);
}

TEST(WindowPlaceTest, PlaceOnAScreenThatIsGoneComesBack) {
    EXPECT_EQ(BroughtBack({4000, 300, 4800, 860}, kScreens), (ScreenArea{1120, 300, 1920, 860}));
    EXPECT_EQ(BroughtBack({-3000, -900, -2200, -340}, kScreens), (ScreenArea{0, 0, 800, 560}));
}

TEST(WindowPlaceTest, TitleBarThatNobodyCanReachComesBack) {
    EXPECT_EQ(BroughtBack({100, -30, 900, 530}, kScreens), (ScreenArea{100, 0, 900, 560}));
    EXPECT_EQ(BroughtBack({-701, 0, 99, 560}, kScreens), (ScreenArea{0, 0, 800, 560}));
    EXPECT_EQ(BroughtBack({2000, 100, 2800, 660}, kScreens), (ScreenArea{2000, 200, 2800, 760}));
    EXPECT_EQ(BroughtBack({2000, 190, 2800, 750}, kScreens), (ScreenArea{2000, 200, 2800, 760}));
}

TEST(WindowPlaceTest, WindowIsNotLargerThanTheScreenItComesBackTo) {
    EXPECT_EQ(BroughtBack({5000, 0, 9000, 3000}, kScreens), (ScreenArea{0, 0, 1920, 1040}));
}

}  // namespace
}  // namespace tarvex
