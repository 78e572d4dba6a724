#include "platform/win32/Win32Dialogs.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "platform/win32/WideText.h"
#include "platform/win32/WindowsApi.h"

namespace tarvex {

namespace {

/// What is pressed in the box that is shown next, one button each 50 ms, and what the box showed.
struct Presses {
    std::vector<int> buttons;
    std::u16string text;
    std::u16string title;
};

Presses* presses = nullptr;
constexpr int kTextItem = 65535;

std::u16string TextOf(HWND window) {
    wchar_t text[200];
    const int length = GetWindowTextW(window, text, 200);
    return std::u16string(FromWide({text, static_cast<std::size_t>(length)}));
}

void CALLBACK PressNext(HWND /*window*/, UINT /*message*/, UINT_PTR timer, DWORD /*time*/) {
    const HWND box = GetActiveWindow();
    if (box == nullptr) {
        return;
    }
    presses->title = TextOf(box);
    presses->text = TextOf(GetDlgItem(box, kTextItem));
    const int button = presses->buttons.front();
    if (presses->buttons.size() == 1) {
        KillTimer(nullptr, timer);
    } else {
        presses->buttons.erase(presses->buttons.begin());
    }
    if (button == IDHELP) {
        // F1: a press of the help button does not reach the box below Wine.
        HELPINFO help{};
        help.cbSize = sizeof help;
        help.hItemHandle = box;
        SendMessageW(box, WM_HELP, 0, reinterpret_cast<LPARAM>(&help));
        return;
    }
    PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
}

class Win32UiTest : public testing::Test {
protected:
    int Show(const MessageBoxRequest& request, std::vector<int> buttons) {
        pressed.buttons = std::move(buttons);
        presses = &pressed;
        SetTimer(nullptr, 0, 50, PressNext);
        return ui.ShowMessageBox(request);
    }

    Presses pressed;
    Win32Ui ui;
};

TEST_F(Win32UiTest, PointerRemembersWhetherItIsBusy) {
    EXPECT_TRUE(ui.PointerIsDefault());
    ui.SetPointerBusy();
    EXPECT_FALSE(ui.PointerIsDefault());
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_WAIT));
    ui.SetPointerDefault();
    EXPECT_TRUE(ui.PointerIsDefault());
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_ARROW));
}

TEST_F(Win32UiTest, BoxShowsTextAndTitleAndReturnsTheButton) {
    EXPECT_EQ(Show({u"Prüfung äöüß €", u"Größe", MB_YESNO | MB_ICONWARNING, u"", -1}, {IDNO}),
              IDNO);
    EXPECT_EQ(pressed.text, u"Prüfung äöüß €");
    EXPECT_EQ(pressed.title, u"Größe");
}

TEST_F(Win32UiTest, LettersOutsideTheCodePageShowAsTheNearestOnes) {
    if (GetACP() != 1252) {
        GTEST_SKIP() << "code page " << GetACP();
    }
    Show({u"Łódź ā", u"Ğ", MB_OK, u"", -1}, {IDOK});
    EXPECT_EQ(pressed.text, u"Lódz a");
    EXPECT_EQ(pressed.title, u"G");
    Show({u"Łódź ā", u"Ğ", MB_OK | MB_HELP, u"", -1}, {IDOK});
    EXPECT_EQ(pressed.text, u"Lódz a");
    EXPECT_EQ(pressed.title, u"G");
}

TEST_F(Win32UiTest, HelpOpensTheTopicAndTheBoxStays) {
    std::vector<std::u16string> opened;
    ui.SetHelpOpener([&opened](const std::u16string& file, std::int32_t context) {
        opened.push_back(file + u"#" + std::u16string(1, static_cast<char16_t>(u'0' + context)));
    });
    EXPECT_EQ(Show({u"Text", u"Titel", MB_OKCANCEL | MB_HELP, u"C:\\Prog\\Hilfe.chm", 7},
                   {IDHELP, IDHELP, IDCANCEL}),
              IDCANCEL);
    EXPECT_EQ(opened,
              (std::vector<std::u16string>{u"C:\\Prog\\Hilfe.chm#7", u"C:\\Prog\\Hilfe.chm#7"}));
    EXPECT_EQ(pressed.text, u"Text");
    EXPECT_EQ(pressed.title, u"Titel");
}

TEST_F(Win32UiTest, FailingHelpDoesNotEndTheBox) {
    int calls = 0;
    ui.SetHelpOpener([&calls](const std::u16string&, std::int32_t) {
        ++calls;
        throw std::runtime_error("no help");
    });
    EXPECT_EQ(Show({u"Text", u"Titel", MB_OKCANCEL | MB_HELP, u"Hilfe.hlp", 0}, {IDHELP, IDOK}),
              IDOK);
    EXPECT_EQ(calls, 1);
}

TEST_F(Win32UiTest, HelpWithoutAnOpenerDoesNothing) {
    EXPECT_EQ(Show({u"Text", u"Titel", MB_OKCANCEL | MB_HELP, u"Hilfe.hlp", 0}, {IDHELP, IDOK}),
              IDOK);
}

}  // namespace

}  // namespace tarvex
