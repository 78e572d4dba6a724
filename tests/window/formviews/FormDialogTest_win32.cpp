#include "window/formviews/FormDialog_win32.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/support/CutTexts_win32.h"
#include "tests/support/GdiLedger_win32.h"
#include "tests/support/SampleForm.h"
#include "tests/support/WindowDriver_win32.h"

namespace tarvex {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr wchar_t kClass[] = L"TarvexDialog";
constexpr UINT kDpiChanged = 0x02E0;

class FormDialogTest : public testing::Test {
protected:
    FormDialogTest() {
        form.rows = {{.kind = RowKind::Line, .id = 1, .label = u"&Name", .hint = u"Der Name."},
                     {.kind = RowKind::Lines, .id = 2, .label = u"&Text"},
                     {.kind = RowKind::List,
                      .id = 3,
                      .label = u"&Liste",
                      .buttons = {{11, u"Bearbeiten", {}, ButtonKey::Enter}}}};
        texts = {u"Exportieren", u"&Exportieren", u"Abbrechen"};
    }

    bool Show(const std::function<void(HWND)>& drive, HWND owner = nullptr) {
        bool accepted = false;
        std::exception_ptr failure;
        WindowDriver::Run(
            [&] {
                try {
                    accepted = FormDialog(owner, form, texts).ShowModal();
                } catch (...) {
                    failure = std::current_exception();
                }
            },
            [&] {
                const HWND window = WindowDriver::WaitFor(kClass);
                WindowDriver::Until([&] { return IsChild(window, FocusOf(window)) != FALSE; });
                drive(window);
            });
        if (failure != nullptr) {
            std::rethrow_exception(failure);
        }
        return accepted;
    }

    static HWND FocusOf(HWND window) {
        GUITHREADINFO info{};
        info.cbSize = sizeof(info);
        GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
        return info.hwndFocus;
    }
    static HWND Control(HWND window, std::int32_t id) {
        HWND found = GetDlgItem(window, FormControlId(id));
        for (HWND child = GetWindow(window, GW_CHILD); child != nullptr && found == nullptr;
             child = GetWindow(child, GW_HWNDNEXT)) {
            found = GetDlgItem(child, FormControlId(id));
        }
        return found;
    }
    static bool IsClosed(HWND window) {
        return WindowDriver::Until([&] { return IsWindow(window) == FALSE; });
    }
    /// Posts the key to the control with the focus, as the keyboard does.
    static void Key(HWND window, WPARAM key) { PostMessageW(FocusOf(window), WM_KEYDOWN, key, 1); }
    static SIZE SizeOf(HWND window) {
        RECT bounds{};
        GetWindowRect(window, &bounds);
        return {bounds.right - bounds.left, bounds.bottom - bounds.top};
    }

    FakeForm form;
    FormDialogTexts texts;
};

TEST_F(FormDialogTest, DefaultButtonAcceptsTheForm) {
    std::u16string title;
    std::u16string ok;
    std::u16string cancel;
    EXPECT_TRUE(Show([&](HWND window) {
        title = WindowDriver::TextOf(window);
        ok = WindowDriver::TextOf(GetDlgItem(window, IDOK));
        cancel = WindowDriver::TextOf(GetDlgItem(window, IDCANCEL));
        SendMessageW(GetDlgItem(window, IDOK), BM_CLICK, 0, 0);
    }));
    EXPECT_EQ(u"Exportieren", title);
    EXPECT_EQ(u"&Exportieren", ok);
    EXPECT_EQ(u"Abbrechen", cancel);
    EXPECT_THAT(form.log, ElementsAre("Accept"));
}

TEST_F(FormDialogTest, FormThatDoesNotAcceptStaysOpenWithItsMessages) {
    form.accepts = false;
    std::u16string message;
    EXPECT_FALSE(Show([&](HWND window) {
        form.states[1].message = u"Der Name fehlt.";
        SendMessageW(GetDlgItem(window, IDOK), BM_CLICK, 0, 0);
        const HWND view = GetParent(Control(window, 1));
        message = WindowDriver::TextOf(GetDlgItem(view, FormControlId(1, FormPart::Hint)));
        SendMessageW(GetDlgItem(window, IDCANCEL), BM_CLICK, 0, 0);
    }));
    EXPECT_EQ(u"Der Name fehlt.", message);
}

TEST_F(FormDialogTest, OtherWaysOutGiveTheFormUp) {
    EXPECT_FALSE(Show([&](HWND window) { PostMessageW(window, WM_CLOSE, 0, 0); }));
    EXPECT_FALSE(Show([&](HWND window) { Key(window, VK_ESCAPE); }));
    EXPECT_FALSE(
        Show([&](HWND window) { SendMessageW(GetDlgItem(window, IDCANCEL), BM_CLICK, 0, 0); }));
    EXPECT_THAT(form.log, IsEmpty());
}

TEST_F(FormDialogTest, EscapeInLinesGivesTheFormUp) {
    form.rows.erase(form.rows.begin());
    EXPECT_FALSE(Show([&](HWND window) { Key(window, VK_ESCAPE); }));
}

TEST_F(FormDialogTest, EnterPressesTheDefaultButton) {
    EXPECT_TRUE(Show([&](HWND window) { Key(window, VK_RETURN); }));
}

TEST_F(FormDialogTest, EnterInLinesGoesIntoTheText) {
    form.rows.erase(form.rows.begin());
    bool entered = false;
    EXPECT_FALSE(Show([&](HWND window) {
        Key(window, VK_RETURN);
        entered = WindowDriver::Until(
            [&] { return WindowDriver::TextOf(Control(window, 2)) == u"\r\n"; });
        PostMessageW(window, WM_CLOSE, 0, 0);
    }));
    EXPECT_TRUE(entered);
}

TEST_F(FormDialogTest, EnterInAListPressesItsButton) {
    form.rows.erase(form.rows.begin(), form.rows.begin() + 2);
    EXPECT_FALSE(Show([&](HWND window) {
        Key(window, VK_RETURN);
        WindowDriver::Until([&] { return !form.log.empty(); });
        PostMessageW(window, WM_CLOSE, 0, 0);
    }));
    EXPECT_THAT(form.log, ElementsAre("Press 11"));
}

TEST_F(FormDialogTest, FirstRowHasTheFocusAndTabEndsAtTheButtons) {
    bool first = false;
    bool last = false;
    Show([&](HWND window) {
        first = FocusOf(window) == Control(window, 1);
        for (const HWND next : {Control(window, 2), Control(window, 3), Control(window, 11),
                                GetDlgItem(window, IDOK), GetDlgItem(window, IDCANCEL)}) {
            Key(window, VK_TAB);
            last = WindowDriver::Until([&] { return FocusOf(window) == next; });
        }
        PostMessageW(window, WM_CLOSE, 0, 0);
    });
    EXPECT_TRUE(first);
    EXPECT_TRUE(last);
}

TEST_F(FormDialogTest, WindowWithOneButtonClosesWithEnter) {
    texts = {u"Probelauf", u"", u"Schließen"};
    bool hasOk = true;
    bool closed = false;
    EXPECT_FALSE(Show([&](HWND window) {
        hasOk = GetDlgItem(window, IDOK) != nullptr;
        Key(window, VK_RETURN);
        closed = IsClosed(window);
    }));
    EXPECT_FALSE(hasOk);
    EXPECT_TRUE(closed);
}

TEST_F(FormDialogTest, OwnerWaitsAndComesBack) {
    const HWND owner = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 100, 100, 900, 700,
                                       nullptr, nullptr, nullptr, nullptr);
    bool enabled = true;
    RECT bounds{};
    Show(
        [&](HWND window) {
            enabled = IsWindowEnabled(owner) != FALSE;
            GetWindowRect(window, &bounds);
            PostMessageW(window, WM_CLOSE, 0, 0);
        },
        owner);
    EXPECT_FALSE(enabled);
    EXPECT_NE(FALSE, IsWindowEnabled(owner));
    EXPECT_EQ(owner, GetActiveWindow());
    EXPECT_NEAR(2 * 100 + 900, bounds.left + bounds.right, 2);
    EXPECT_NEAR(2 * 100 + 700, bounds.top + bounds.bottom, 2);
    DestroyWindow(owner);
}

TEST_F(FormDialogTest, WindowIsAsLargeAsItsContentButNotLargerThanTheScreen) {
    SIZE small{};
    SIZE large{};
    Show([&](HWND window) {
        small = SizeOf(window);
        PostMessageW(window, WM_CLOSE, 0, 0);
    });
    for (int i = 0; i < 60; ++i) {
        form.rows.push_back({.kind = RowKind::Line, .id = 100 + i, .label = u"Name"});
    }
    Show([&](HWND window) {
        large = SizeOf(window);
        PostMessageW(window, WM_CLOSE, 0, 0);
    });
    EXPECT_EQ(small.cx, large.cx);
    EXPECT_LT(small.cy, 500);
    const RECT area = WorkAreaAtPointer();
    EXPECT_EQ(area.bottom - area.top, large.cy);
}

TEST_F(FormDialogTest, LargeWindowCanBeResizedAndItsRowsGrow) {
    texts.large = true;
    form.rows = {{.kind = RowKind::Output, .id = 1, .label = u"Protokoll", .grows = true}};
    SIZE before{};
    SIZE after{};
    Show([&](HWND window) {
        before = SizeOf(Control(window, 1));
        const SIZE size = SizeOf(window);
        SetWindowPos(window, nullptr, 0, 0, size.cx + 100, size.cy + 50,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        after = SizeOf(Control(window, 1));
        PostMessageW(window, WM_CLOSE, 0, 0);
    });
    EXPECT_EQ(before.cx + 100, after.cx);
    EXPECT_EQ(before.cy + 50, after.cy);
}

TEST_F(FormDialogTest, WindowFollowsTheScreensResolution) {
    form = SampleForm();
    LONG before = 0;
    LONG after = 0;
    std::vector<std::string> cut;
    Show([&](HWND window) {
        before = SizeOf(GetDlgItem(window, IDOK)).cy;
        const RECT suggested = {10, 20, 1010, 1020};
        SendMessageW(window, kDpiChanged, MAKEWPARAM(192, 192),
                     reinterpret_cast<LPARAM>(&suggested));
        after = SizeOf(GetDlgItem(window, IDOK)).cy;
        cut = CutTexts(window);
        PostMessageW(window, WM_CLOSE, 0, 0);
    });
    EXPECT_NEAR(2 * before, after, 6);
    EXPECT_THAT(cut, IsEmpty());
}

TEST_F(FormDialogTest, FailureOfTheFormIsRaised) {
    form.raises = true;
    EXPECT_THROW(Show([&](HWND window) { SendMessageW(GetDlgItem(window, IDOK), BM_CLICK, 0, 0); }),
                 std::runtime_error);
    EXPECT_THROW(Show([&](HWND window) { SendMessageW(Control(window, 11), BM_CLICK, 0, 0); }),
                 std::runtime_error);
}

TEST_F(FormDialogTest, EverythingTakenFromTheSystemIsGivenBack) {
    form = SampleForm();
    const GdiLedger ledger;
    Show([&](HWND window) { PostMessageW(window, WM_CLOSE, 0, 0); });
    EXPECT_GT(ledger.Taken(), 0);
    EXPECT_EQ("", ledger.Open());
}

}  // namespace
}  // namespace tarvex
