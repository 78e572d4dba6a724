#include "platform/win32/ForegroundAnchor.h"

#include <gtest/gtest.h>

#include "tests/support/WindowDriver_win32.h"

namespace tarvex {
namespace {

class ForegroundAnchorTest : public testing::Test {
protected:
    void SetUp() override {
        anchor.Show({30, 40});
        ASSERT_NE(anchor.Window(), nullptr);
    }

    static HWND ShowWindowOf(HWND owner) {
        const HWND window = CreateWindowExW(0, L"Static", L"", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50,
                                            owner, nullptr, nullptr, nullptr);
        SetForegroundWindow(window);
        EXPECT_EQ(GetForegroundWindow(), window);
        return window;
    }

    static void HandleMessages() {
        for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE;) {
            DispatchMessageW(&message);
        }
    }

    ForegroundAnchor anchor;
};

TEST_F(ForegroundAnchorTest, IsAPixelInFront) {
    RECT bounds{};
    GetWindowRect(anchor.Window(), &bounds);
    const RECT expected{30, 40, 31, 41};
    EXPECT_NE(FALSE, EqualRect(&expected, &bounds));
    EXPECT_NE(FALSE, IsWindowVisible(anchor.Window()));
    EXPECT_EQ(GetForegroundWindow(), anchor.Window());
}

TEST_F(ForegroundAnchorTest, IsAnOrdinaryWindowThatNoTaskbarShows) {
    // The taskbar leaves out what has an owner.
    const HWND owner = GetWindow(anchor.Window(), GW_OWNER);
    ASSERT_NE(owner, nullptr);
    EXPECT_EQ(FALSE, IsWindowVisible(owner));
    EXPECT_EQ(0, GetWindowLongW(anchor.Window(), GWL_EXSTYLE)) << "nor is it topmost";
}

TEST_F(ForegroundAnchorTest, StaysBelowTheWindowThatItOwns) {
    const HWND window = ShowWindowOf(anchor.Window());
    HandleMessages();
    ASSERT_NE(anchor.Window(), nullptr);
    SetForegroundWindow(anchor.Window());
    DestroyWindow(window);
    // The window manager may have nothing in front for a moment when a window goes.
    EXPECT_TRUE(WindowDriver::Until([&] {
        HandleMessages();
        return GetForegroundWindow() == anchor.Window();
    }));
    EXPECT_NE(anchor.Window(), nullptr);
}

TEST_F(ForegroundAnchorTest, GoesWhenAnotherWindowHasTakenItsPlace) {
    const HWND window = ShowWindowOf(nullptr);
    HandleMessages();
    EXPECT_EQ(anchor.Window(), nullptr);
    DestroyWindow(window);
}

TEST(ForegroundAnchor, IsNotThereBeforeItIsShown) {
    EXPECT_EQ(ForegroundAnchor().Window(), nullptr);
}

TEST(ForegroundAnchor, GoesWithTheObject) {
    HWND window = nullptr;
    HWND owner = nullptr;
    {
        ForegroundAnchor anchor;
        anchor.Show({0, 0});
        window = anchor.Window();
        owner = GetWindow(window, GW_OWNER);
    }
    EXPECT_EQ(FALSE, IsWindow(window));
    EXPECT_EQ(FALSE, IsWindow(owner));
}

}  // namespace
}  // namespace tarvex
