#include "app/DebugFormSize.h"

#include <gtest/gtest.h>

namespace tarvex {
namespace {

/// The log window of a Windows 10 on a large screen; the font has 10 points.
DebugFormMeasures MeasuresAt(int percent) {
    switch (percent) {
        case 100:
            return {{16, 59}, {17, 17}, {8, 16}, 6, {3840, 2120}};
        case 150:
            return {{22, 84}, {26, 26}, {12, 23}, 9, {3840, 2120}};
        default:
            return {{26, 108}, {34, 34}, {16, 31}, 12, {3840, 2120}};
    }
}

PixelSize TextSize(const DebugFormMeasures& measures, const PixelSize& window) {
    const int margins = 2 * measures.margin;
    return {window.width - measures.frame.width - measures.scrollBars.width - margins,
            window.height - measures.frame.height - measures.scrollBars.height - margins};
}

TEST(DebugFormSizeTest, LinesOf100CharactersFitAtEveryResolution) {
    for (const int percent : {100, 150, 200}) {
        const DebugFormMeasures measures = MeasuresAt(percent);
        const PixelSize text = TextSize(measures, DebugFormSize(measures));
        EXPECT_GE(text.width, 100 * measures.cell.width) << percent;
        EXPECT_LE(text.width, 103 * measures.cell.width) << percent;
        EXPECT_EQ(text.height, 32 * measures.cell.height) << percent;
    }
}

TEST(DebugFormSizeTest, LinesOf100CharactersFitAfterAMoveToAnotherScreen) {
    for (const int from : {100, 150, 200}) {
        const PixelSize window = DebugFormSize(MeasuresAt(from));
        for (const int to : {100, 150, 200}) {
            const DebugFormMeasures there = MeasuresAt(to);
            const PixelSize scaled = {window.width * to / from, window.height * to / from};
            EXPECT_GE(TextSize(there, scaled).width, 100 * there.cell.width)
                << from << " to " << to;
        }
    }
}

TEST(DebugFormSizeTest, WindowIsNotLargerThanTheScreen) {
    DebugFormMeasures measures = MeasuresAt(200);
    measures.screen = {1280, 680};
    const PixelSize window = DebugFormSize(measures);
    EXPECT_EQ(window.width, 1280);
    EXPECT_EQ(window.height, 680);
    measures.screen = {1280, 2120};
    EXPECT_EQ(DebugFormSize(measures).width, 1280);
    EXPECT_EQ(DebugFormSize(measures).height, 108 + 34 + 32 * 31 + 24);
}

TEST(DebugFormSizeTest, SizeAt100PercentIsTheSumOfItsParts) {
    const PixelSize window = DebugFormSize(MeasuresAt(100));
    EXPECT_EQ(window.width, 16 + 17 + 102 * 8 + 12);
    EXPECT_EQ(window.height, 59 + 17 + 32 * 16 + 12);
}

}  // namespace
}  // namespace tarvex
