#include "app/frmStart.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "platform/win32/ForegroundAnchor.h"
#include "tests/support/BitmapFile.h"
#include "tests/support/FakeUi.h"
#include "tests/support/GdiLedger_win32.h"
#include "tests/support/TestFolder.h"
#include "tests/support/WindowDriver_win32.h"

namespace tarvex {
namespace {

/// What is in the foreground when a picture's window begins to go.
HWND inFrontAtEnd = nullptr;

LRESULT CALLBACK OnWindowEvent(int code, WPARAM first, LPARAM second) {
    wchar_t name[100] = {};
    GetClassNameW(reinterpret_cast<HWND>(first), name, 100);
    if (code == HCBT_DESTROYWND && lstrcmpW(name, L"frmStart") == 0) {
        inFrontAtEnd = GetForegroundWindow();
    }
    return CallNextHookEx(nullptr, code, first, second);
}

class frmStartTest : public testing::Test {
protected:
    frmStartTest() { ui.pointerDefault = false; }

    /// Shows a picture and works on the window meanwhile.
    void Show(std::string_view bytes, std::int32_t milliseconds,
              const std::function<void(HWND)>& drive) {
        folder.MakeFile(u"Bild ä.bmp", bytes);
        WindowDriver::Run(
            [&] {
                const DWORD start = GetTickCount();
                EXPECT_TRUE(ShowModal(folder.Path(u"Bild ä.bmp"), milliseconds));
                took = GetTickCount() - start;
            },
            [&] { drive(WindowDriver::WaitFor(L"frmStart")); });
    }

    bool ShowModal(std::u16string path, std::int32_t milliseconds) {
        return frmStart::ShowModal({u"Kunden Ä", std::move(path), milliseconds, 1000}, onHelp, ui,
                                   anchor);
    }

    /// Expects that no window shows, nor is left.
    void ExpectNothing(std::u16string_view path, std::int32_t milliseconds) {
        const DWORD start = GetTickCount();
        EXPECT_FALSE(ShowModal(std::u16string(path), milliseconds));
        EXPECT_EQ(anchor.Window(), nullptr);
        EXPECT_LT(GetTickCount() - start, 1500U);
        EXPECT_FALSE(ui.pointerDefault);
    }

    TestFolder folder;
    FakeUi ui;
    ForegroundAnchor anchor;
    frmStart::Help onHelp = [] {};
    DWORD took = 0;
};

TEST_F(frmStartTest, WindowIsThePictureWithoutBorderInTheMiddleOfTheScreen) {
    RECT bounds{};
    RECT inner{};
    LONG style = 0;
    DWORD context = 0;
    Show(BitmapFile(301, 200), 400, [&](HWND window) {
        GetWindowRect(window, &bounds);
        GetClientRect(window, &inner);
        style = GetWindowLongW(window, GWL_STYLE);
        context = GetWindowContextHelpId(window);
    });
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    EXPECT_EQ(301, inner.right);
    EXPECT_EQ(200, inner.bottom);
    EXPECT_EQ(301, bounds.right - bounds.left);
    EXPECT_EQ(200, bounds.bottom - bounds.top);
    EXPECT_EQ((area.left + area.right - 301) / 2, bounds.left);
    EXPECT_EQ((area.top + area.bottom - 200) / 2, bounds.top);
    EXPECT_EQ(0, style & (WS_BORDER | WS_THICKFRAME));
    EXPECT_EQ(1000U, context);
    EXPECT_TRUE(ui.pointerDefault);
}

TEST_F(frmStartTest, WindowStandsInTheTaskbarUnderItsCaption) {
    std::u16string caption;
    LONG style = 0;
    Show(BitmapFile(20, 10), 300, [&](HWND window) {
        caption = WindowDriver::TextOf(window);
        style = GetWindowLongW(window, GWL_EXSTYLE);
    });
    EXPECT_EQ(u"Kunden Ä", caption);
    EXPECT_EQ(WS_EX_APPWINDOW, style) << "and is not topmost";
}

TEST_F(frmStartTest, WindowIsInFrontAndCoversTheAnchorThatOwnsIt) {
    HWND owner = nullptr;
    RECT bounds{};
    RECT pixel{};
    bool inFront = false;
    Show(BitmapFile(200, 100), 600, [&](HWND window) {
        inFront = WindowDriver::Until([&] { return GetForegroundWindow() == window; });
        owner = GetWindow(window, GW_OWNER);
        GetWindowRect(window, &bounds);
        GetWindowRect(owner, &pixel);
    });
    EXPECT_TRUE(inFront);
    EXPECT_EQ(owner, anchor.Window());
    EXPECT_EQ(1, pixel.right - pixel.left);
    EXPECT_EQ(1, pixel.bottom - pixel.top);
    RECT common{};
    EXPECT_NE(FALSE, IntersectRect(&common, &bounds, &pixel));
    EXPECT_NE(FALSE, EqualRect(&common, &pixel));
}

TEST_F(frmStartTest, AnchorHasTheForegroundBeforeTheTimeClosesTheWindow) {
    const HHOOK hook = SetWindowsHookExW(WH_CBT, OnWindowEvent, nullptr, GetCurrentThreadId());
    inFrontAtEnd = nullptr;
    Show(BitmapFile(20, 10), 300, [](HWND) {});
    EXPECT_NE(nullptr, anchor.Window());
    EXPECT_EQ(anchor.Window(), inFrontAtEnd);
    EXPECT_EQ(anchor.Window(), GetForegroundWindow());
    UnhookWindowsHookEx(hook);
}

TEST_F(frmStartTest, AnchorHasTheForegroundBeforeTheUserClosesTheWindow) {
    const HHOOK hook = SetWindowsHookExW(WH_CBT, OnWindowEvent, nullptr, GetCurrentThreadId());
    inFrontAtEnd = nullptr;
    Show(BitmapFile(20, 10), 9999, [](HWND window) { PostMessageW(window, WM_CLOSE, 0, 0); });
    EXPECT_NE(nullptr, anchor.Window());
    EXPECT_EQ(anchor.Window(), inFrontAtEnd);
    EXPECT_EQ(anchor.Window(), GetForegroundWindow());
    UnhookWindowsHookEx(hook);
}

TEST_F(frmStartTest, ErrorInAHandlerLeavesTheWindowAsAnException) {
    onHelp = [] { throw std::runtime_error("Hilfe"); };
    folder.MakeFile(u"a.bmp", BitmapFile(20, 10));
    bool raised = false;
    WindowDriver::Run(
        [&] {
            try {
                ShowModal(folder.Path(u"a.bmp"), 9999);
            } catch (const std::runtime_error&) {
                raised = true;
            }
        },
        [&] { SendMessageW(WindowDriver::WaitFor(L"frmStart"), WM_HELP, 0, 0); });
    EXPECT_TRUE(raised);
}

TEST_F(frmStartTest, WindowClosesWhenTheTimeIsUp) {
    DWORD shown = 0;
    DWORD gone = 0;
    Show(BitmapFile(20, 10), 700, [&](HWND window) {
        shown = GetTickCount();
        WindowDriver::Until([&] { return IsWindow(window) == FALSE; });
        gone = GetTickCount();
    });
    EXPECT_GE(gone - shown, 600U);
    EXPECT_LT(gone - shown, 1100U);  // the machine may be busy
    EXPECT_GE(took, 700U);
    MSG message;
    EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE));
}

TEST_F(frmStartTest, ClickLeavesTheWindowOpen) {
    bool open = false;
    Show(BitmapFile(200, 100), 600, [&](HWND window) {
        SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(50, 50));
        SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(50, 50));
        Sleep(100);
        open = IsWindow(window) != FALSE;
    });
    EXPECT_TRUE(open);
}

TEST_F(frmStartTest, ClosingTheWindowEndsItEarly) {
    Show(BitmapFile(20, 10), 9999, [](HWND window) { PostMessageW(window, WM_CLOSE, 0, 0); });
    EXPECT_LT(took, 5000U);
    EXPECT_TRUE(ui.pointerDefault);
}

TEST_F(frmStartTest, AltF4EndsItEarly) {
    Show(BitmapFile(20, 10), 9999,
         [](HWND window) { PostMessageW(window, WM_SYSKEYDOWN, VK_F4, 0x20000001); });
    EXPECT_LT(took, 5000U);
}

TEST_F(frmStartTest, HelpKeyOpensHelp) {
    int calls = 0;
    onHelp = [&] { ++calls; };
    Show(BitmapFile(20, 10), 300, [](HWND window) { SendMessageW(window, WM_HELP, 0, 0); });
    EXPECT_EQ(1, calls);
}

TEST_F(frmStartTest, PictureLargerThanTheScreenBeginsOnTheScreen) {
    RECT bounds{};
    RECT inner{};
    Show(BitmapFile(4000, 3000), 300, [&](HWND window) {
        GetWindowRect(window, &bounds);
        GetClientRect(window, &inner);
    });
    EXPECT_EQ(0, bounds.left);
    EXPECT_EQ(0, bounds.top);
    EXPECT_EQ(4000, inner.right);
    EXPECT_EQ(3000, inner.bottom);
    EXPECT_LT(took, 5000U);
}

TEST_F(frmStartTest, DamagedPictureShowsNothing) {
    const std::string whole = BitmapFile(200, 100);
    const std::string damaged[] = {
        {}, "BM", whole.substr(0, 30), std::string(500, 'x'), "\xFF\xD8\xFF\xE0 kein Bild"};
    for (const std::string& bytes : damaged) {
        folder.MakeFile(u"a.bmp", bytes);
        ExpectNothing(folder.Path(u"a.bmp"), 5000);
    }
}

TEST_F(frmStartTest, PictureTooLargeForTheMemoryShowsNothing) {
    std::string bytes = BitmapFile(4, 4);
    bytes[20] = '\x7F';  // a width of 2 130 706 436 pixels
    bytes[21] = '\x7F';
    folder.MakeFile(u"a.bmp", bytes);
    ExpectNothing(folder.Path(u"a.bmp"), 5000);
}

TEST_F(frmStartTest, MissingPictureShowsNothing) {
    ExpectNothing(folder.Path(u"fehlt.bmp"), 5000);
    ExpectNothing(u"", 5000);
    ExpectNothing(folder.Path(), 5000);
}

TEST_F(frmStartTest, PictureLeavesNoGdiObjectsBehind) {
    const GdiLedger ledger;
    Show(BitmapFile(20, 10), 9999, [](HWND window) {
        RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        PostMessageW(window, WM_CLOSE, 0, 0);
    });
    EXPECT_EQ(ledger.Open(), "");
    EXPECT_GE(ledger.Taken(), 3 + 2) << "the picture, and a context each time it was painted";
}

TEST_F(frmStartTest, NoTimeShowsNothing) {
    folder.MakeFile(u"a.bmp", BitmapFile(4, 4));
    ExpectNothing(folder.Path(u"a.bmp"), 0);
    ExpectNothing(folder.Path(u"a.bmp"), -1);
}

}  // namespace
}  // namespace tarvex
