#include "platform/win32/Win32Dialogs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <vector>

#include "errors/muCoolBox.h"
#include "platform/win32/WideText.h"
#include "platform/win32/WindowsApi.h"
#include "tests/support/GdiLedger_win32.h"

namespace tarvex {
namespace {

struct SeenButton {
    std::u16string caption;
    RECT place{};  ///< in the box's client area
    LONG captionWidth = 0;
};

/// Looks at the open box from its own message loop and presses a button.
struct BoxUser {
    std::vector<int> items;
    int press = 0;
    int looks = 0;
    std::u16string text;
    std::u16string title;
    std::vector<SeenButton> buttons;
    RECT client{};
    RECT window{};
};

BoxUser user;

std::u16string TextOf(HWND window) {
    std::array<wchar_t, 512> buffer{};
    const int length = GetWindowTextW(window, buffer.data(), static_cast<int>(buffer.size()));
    return std::u16string(FromWide({buffer.data(), static_cast<std::size_t>(length)}));
}

SeenButton Look(HWND box, HWND button) {
    SeenButton seen;
    seen.caption = TextOf(button);
    GetWindowRect(button, &seen.place);
    MapWindowPoints(nullptr, box, reinterpret_cast<POINT*>(&seen.place), 2);
    std::u16string visible = seen.caption;
    visible.erase(std::remove(visible.begin(), visible.end(), u'&'), visible.end());
    const HDC context = GetDC(button);
    SelectObject(context, reinterpret_cast<HFONT>(SendMessageW(button, WM_GETFONT, 0, 0)));
    SIZE size{};
    GetTextExtentPoint32W(context, Wide(visible), static_cast<int>(visible.size()), &size);
    ReleaseDC(button, context);
    seen.captionWidth = size.cx;
    return seen;
}

/// The only button of a plain box: item 2 on Windows, item 1 on Wine.
constexpr int kSingleButton = -1;

HWND ButtonOf(HWND box, int item) {
    if (item != kSingleButton) {
        return GetDlgItem(box, item);
    }
    const HWND button = GetDlgItem(box, IDCANCEL);
    return button != nullptr ? button : GetDlgItem(box, IDOK);
}

void CALLBACK UseBox(HWND /*window*/, UINT /*message*/, UINT_PTR id, DWORD /*time*/) {
    const HWND box = GetActiveWindow();
    // The renaming has had its turn by the fifth look.
    if (box == nullptr || ++user.looks < 5) {
        return;
    }
    KillTimer(nullptr, id);
    user.title = TextOf(box);
    user.text = TextOf(GetDlgItem(box, 0xFFFF));
    GetClientRect(box, &user.client);
    GetWindowRect(box, &user.window);
    for (const int item : user.items) {
        user.buttons.push_back(Look(box, ButtonOf(box, item)));
    }
    PostMessageW(ButtonOf(box, user.press), BM_CLICK, 0, 0);
}

class Win32CaptionBoxApiTest : public testing::Test {
protected:
    int Show(std::vector<int> items, int press, const std::vector<std::u16string>& captions,
             std::u16string_view text = u"Prüfung: äöüß €", std::u16string_view title = u"Übung") {
        user = BoxUser();
        user.items = std::move(items);
        user.press = press;
        SetTimer(nullptr, 0, 50, UseBox);
        return muCoolBox(api).Show(nullptr, text, title, captions[0], captions[1], captions[2],
                                   MB_ICONHAND);
    }

    static void ExpectCaptions(const std::vector<std::u16string>& expected) {
        ASSERT_EQ(user.buttons.size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_EQ(user.buttons[i].caption, expected[i]);
        }
    }

    static void ExpectButtonsFit() {
        LONG end = 0;
        for (const SeenButton& button : user.buttons) {
            EXPECT_GE(button.place.right - button.place.left, button.captionWidth + 4);
            EXPECT_GE(button.place.left, end) << "buttons stand side by side";
            end = button.place.right;
        }
        EXPECT_LE(end, user.client.right) << "inside the box";
    }

    Win32CaptionBoxApi api;
};

TEST_F(Win32CaptionBoxApiTest, ThreeButtonsBearTheCaptions) {
    EXPECT_EQ(Show({3, 4, 5}, 4, {u"&Beenden", u"&Details", u"&Öffnen"}), 2);
    ExpectCaptions({u"&Beenden", u"&Details", u"&Öffnen"});
    ExpectButtonsFit();
    EXPECT_EQ(user.title, u"Übung");
    EXPECT_EQ(user.text, u"Prüfung: äöüß €");
}

TEST_F(Win32CaptionBoxApiTest, EachOfThreeButtonsHasItsPosition) {
    EXPECT_EQ(Show({3}, 3, {u"a", u"b", u"c"}), 1);
    EXPECT_EQ(Show({3}, 5, {u"a", u"b", u"c"}), 3);
}

TEST_F(Win32CaptionBoxApiTest, TwoButtonsBearTheCaptions) {
    EXPECT_EQ(Show({6, 7}, 7, {u"&Beenden", u"&Details", u""}), 2);
    ExpectCaptions({u"&Beenden", u"&Details"});
    EXPECT_EQ(Show({6, 7}, 6, {u"&Ende", u"&Mehr", u""}), 1);
    ExpectCaptions({u"&Ende", u"&Mehr"});
}

TEST_F(Win32CaptionBoxApiTest, ASingleButtonBearsItsCaption) {
    Show({kSingleButton}, kSingleButton, {u"S&chließen", u"", u""});
    ExpectCaptions({u"S&chließen"});
    ExpectButtonsFit();
}

TEST_F(Win32CaptionBoxApiTest, MeasuringCaptionsGivesEveryDeviceContextBack) {
    const GdiLedger ledger;
    Show({}, 4, {u"&Beenden", u"&Details", u"&Hilfe"});
    EXPECT_EQ(ledger.Open(), "");
    EXPECT_EQ(ledger.Taken(), 3);
}

TEST_F(Win32CaptionBoxApiTest, LettersOutsideTheCodePageShowAsTheNearestOnes) {
    if (GetACP() != 1252) {
        GTEST_SKIP() << "code page " << GetACP();
    }
    Show({6, 7}, 6, {u"&Ōffnen", u"&Kōnec", u""}, u"Łódź ā", u"Ğ");
    ExpectCaptions({u"&Offnen", u"&Konec"});
    EXPECT_EQ(user.text, u"Lódz a");
    EXPECT_EQ(user.title, u"G");
}

TEST_F(Win32CaptionBoxApiTest, LongCaptionsMakeButtonsAndBoxWider) {
    Show({3, 4, 5}, 3, {u"a", u"b", u"c"});
    const LONG narrow = user.window.right - user.window.left;
    const LONG middle = user.window.right + user.window.left;
    const std::u16string caption = u"&Eine Beschriftung, die in keinen gewöhnlichen Knopf passt";
    EXPECT_EQ(Show({3, 4, 5}, 5, {u"&Beenden", caption, u"&Hilfe"}), 3);
    ExpectCaptions({u"&Beenden", caption, u"&Hilfe"});
    ExpectButtonsFit();
    EXPECT_GT(user.window.right - user.window.left, narrow);
    EXPECT_NEAR(user.window.right + user.window.left, middle, 2) << "still in the middle";
}

}  // namespace
}  // namespace tarvex
