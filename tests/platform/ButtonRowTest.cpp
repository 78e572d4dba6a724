#include "platform/ButtonRow.h"

#include <gtest/gtest.h>

namespace tarvex {
namespace {

/// The row's buttons as "left+width".
std::string Spans(const std::optional<ButtonRow>& row) {
    std::string text;
    for (const ButtonSpan& span : row ? row->buttons : std::vector<ButtonSpan>()) {
        text += (text.empty() ? "" : " ") + std::to_string(span.left) + "+" +
                std::to_string(span.width);
    }
    return text;
}

const ButtonRow kInTheMiddle{300, {{20, 80}, {110, 80}, {200, 80}}};

TEST(WidenButtonsTest, ButtonsThatAreWideEnoughStay) {
    EXPECT_EQ(WidenButtons(kInTheMiddle, 80), std::nullopt);
    EXPECT_EQ(WidenButtons(kInTheMiddle, 10), std::nullopt);
    EXPECT_EQ(WidenButtons({300, {}}, 10), std::nullopt);
}

TEST(WidenButtonsTest, ButtonsGrowIntoTheMarginsFirst) {
    const auto wider = WidenButtons(kInTheMiddle, 86);
    EXPECT_EQ(wider->clientWidth, 300);
    EXPECT_EQ(Spans(wider), "11+86 107+86 203+86");
}

TEST(WidenButtonsTest, TheWindowGrowsWhenTheMarginsAreUsedUp) {
    const auto wider = WidenButtons(kInTheMiddle, 120);
    EXPECT_EQ(wider->clientWidth, 10 + 3 * 120 + 2 * 10 + 10);
    EXPECT_EQ(Spans(wider), "10+120 140+120 270+120");
}

TEST(WidenButtonsTest, ARowAtTheRightStaysThere) {
    const auto wider = WidenButtons({400, {{220, 80}, {310, 80}}}, 100);
    EXPECT_EQ(wider->clientWidth, 400);
    EXPECT_EQ(Spans(wider), "180+100 290+100");
}

TEST(WidenButtonsTest, ARowAtTheRightLetsTheWindowGrow) {
    const auto wider = WidenButtons({200, {{20, 80}, {110, 80}}}, 120);
    EXPECT_EQ(wider->clientWidth, 10 + 120 + 10 + 120 + 10);
    EXPECT_EQ(Spans(wider), "10+120 140+120");
}

TEST(WidenButtonsTest, ASingleButtonStaysInTheMiddle) {
    EXPECT_EQ(Spans(WidenButtons({201, {{60, 80}}}, 100)), "50+100");
}

TEST(WidenButtonsTest, AllButtonsGetTheWidestWidth) {
    const auto wider = WidenButtons({300, {{20, 80}, {110, 120}}}, 100);
    ASSERT_TRUE(wider.has_value());
    EXPECT_EQ(wider->buttons[0].width, 120);
    EXPECT_EQ(wider->buttons[1].width, 120);
}

TEST(WidenButtonsTest, OverlappingButtonsAreSetSideBySide) {
    EXPECT_EQ(Spans(WidenButtons({100, {{10, 50}, {40, 50}}}, 60)), "6+60 66+60");
}

}  // namespace
}  // namespace tarvex
