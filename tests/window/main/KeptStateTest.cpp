#include "window/main/KeptState.h"

#include <gtest/gtest.h>

#include "tests/support/FakeUserSettings.h"

namespace tarvex {
namespace {

class KeptStateTest : public testing::Test {
protected:
    FakeUserSettings settings_;
    KeptState state_{settings_};
};

TEST_F(KeptStateTest, FirstTimeThereIsNothing) {
    EXPECT_EQ(state_.Place(), std::nullopt);
    EXPECT_EQ(state_.PreviewHeight(), std::nullopt);
    EXPECT_EQ(state_.PcFolder(), u"");
}

TEST_F(KeptStateTest, WhatWasKeptIsFoundAgain) {
    const WindowPlace place = {{0, 0, 800, 560}, true};
    state_.SetPlace(place);
    state_.SetPreviewHeight(0);
    state_.SetPcFolder(u"C:\\PCs");
    EXPECT_EQ(state_.Place(), place);
    EXPECT_EQ(state_.PreviewHeight(), 0);
    EXPECT_EQ(state_.PcFolder(), u"C:\\PCs");
}

TEST_F(KeptStateTest, WhatIsNotLegibleIsNothing) {
    settings_.texts = {{u"Fenster", u"x"}, {u"Vorschau", u"-1"}};
    EXPECT_EQ(state_.Place(), std::nullopt);
    EXPECT_EQ(state_.PreviewHeight(), std::nullopt);
}

}  // namespace
}  // namespace tarvex
