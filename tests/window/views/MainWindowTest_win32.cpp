#include "window/views/MainWindow_win32.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/win32/WideText.h"
#include "tests/support/AccessibleName_win32.h"
#include "tests/support/CutTexts_win32.h"
#include "tests/support/FakeFolderListing.h"
#include "tests/support/WindowDriver_win32.h"
#include "tests/window/files/FilesWorld.h"
#include "window/files/StartPageForm.h"
#include "window/formviews/FontOnScreen_win32.h"
#include "window/formviews/FormControls_win32.h"

namespace tarvex {
namespace {

using testing::IsEmpty;

constexpr UINT kDpiChanged = 0x02E0;

/// The main window over files in memory, with a configured launcher open.
class MainWindowTest : public testing::Test, public FilesWorld {
protected:
    void Run(const std::function<void(HWND window)>& drive,
             const std::u16string& file = kLauncher) {
        MainWindow shown(model_, userSettings);
        ASSERT_TRUE(shown.Make());
        WindowDriver::Run([&shown, &file] { shown.Run(file); },
                          [&drive] { drive(WindowDriver::WaitFor(L"TarvexMain")); });
    }

    static HWND Form(HWND window) { return FindWindowExW(window, nullptr, L"TarvexForm", nullptr); }
    static HWND Field(HWND window, std::int32_t row) {
        return GetDlgItem(Form(window), FormControlId(row, FormPart::Control));
    }
    static bool Shows(HWND window, std::int32_t row) {
        return WindowDriver::Until([window, row] { return Field(window, row) != nullptr; });
    }
    static void Do(HWND window, Command command) {
        SendMessageW(window, WM_COMMAND,
                     static_cast<WPARAM>(kCommandIds + static_cast<int>(command)), 0);
    }
    static HWND Focus(HWND window) {
        GUITHREADINFO info{};
        info.cbSize = sizeof(info);
        GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
        return info.hwndFocus;
    }
    static std::u16string LineOf(HWND list, WPARAM line) {
        std::u16string text(
            static_cast<std::size_t>(SendMessageW(list, LB_GETTEXTLEN, line, 0)) + 1, u'\0');
        SendMessageW(list, LB_GETTEXT, line, reinterpret_cast<LPARAM>(text.data()));
        text.pop_back();
        return text;
    }
    static void Close(HWND window) { PostMessageW(window, WM_CLOSE, 0, 0); }

    FakeFolderListing folders_;
    MainModel model_{
        {{store, codec, dialogs, userSettings, starter, u"C:\\Tarvex\\tarvexcf.exe"}, folders_}};
};

TEST_F(MainWindowTest, ShowsTheFileThatItWasStartedWith) {
    Run([](HWND window) {
        EXPECT_TRUE(Shows(window, kFieldAppName));
        EXPECT_EQ(WindowDriver::TextOf(window), u"Kunden.exe – Tarvex-Konfiguration");
        EXPECT_EQ(WindowDriver::TextOf(Field(window, kFieldAppName)), u"Kunden");
        Close(window);
    });
}

TEST_F(MainWindowTest, StartPageFillsTheWindowAtOnce) {
    Run(
        [](HWND window) {
            EXPECT_TRUE(WindowDriver::Until([window] {
                return Focus(window) == Field(window, StartPageForm::kNew);
            })) << "is first";
            RECT inner{};
            GetClientRect(window, &inner);
            RECT page{};
            GetWindowRect(Form(window), &page);
            MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&page), 2);
            EXPECT_EQ(page.right, inner.right);
            EXPECT_GT(page.bottom - page.top, (inner.bottom - inner.top) * 3 / 4);
            RECT button{};
            GetWindowRect(Field(window, StartPageForm::kNew), &button);
            MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&button), 2);
            RECT seen{};
            IntersectRect(&seen, &button, &page);
            EXPECT_NE(FALSE, EqualRect(&seen, &button));
            EXPECT_GT(button.right, button.left);
            EXPECT_THAT(CutTexts(window), IsEmpty());
            Close(window);
        },
        u"");
}

TEST_F(MainWindowTest, NothingOnAnyPageIsCut) {
    for (const int dpi : {96, 144, 192, 240}) {
        SCOPED_TRACE(dpi);
        Run([dpi](HWND window) {
            ASSERT_TRUE(Shows(window, kFieldAppName));
            const RECT bounds = {0, 0, Scaled(800, dpi), Scaled(560, dpi)};
            SendMessageW(window, kDpiChanged, static_cast<WPARAM>(MAKELONG(dpi, dpi)),
                         reinterpret_cast<LPARAM>(&bounds));
            const HWND pages = GetDlgItem(window, kPageListId);
            const LRESULT count = SendMessageW(pages, LB_GETCOUNT, 0, 0);
            EXPECT_EQ(count, 9);
            for (LRESULT page = 0; page < count; ++page) {
                SCOPED_TRACE(page);
                EXPECT_THAT(CutTexts(window), IsEmpty());
                Do(window, Command::NextPage);
            }
            Close(window);
        });
    }
}

TEST_F(MainWindowTest, DistanceOfTheToolBarsCaptionsGrowsWithTheResolution) {
    for (const int dpi : {96, 192}) {
        SCOPED_TRACE(dpi);
        Run([dpi](HWND window) {
            ASSERT_TRUE(Shows(window, kFieldAppName));
            const RECT bounds = {0, 0, Scaled(800, dpi), Scaled(560, dpi)};
            SendMessageW(window, kDpiChanged, static_cast<WPARAM>(MAKELONG(dpi, dpi)),
                         reinterpret_cast<LPARAM>(&bounds));
            const HWND bar = FindWindowExW(window, nullptr, L"ToolbarWindow32", nullptr);
            const FontOnScreen font(reinterpret_cast<HFONT>(SendMessageW(bar, WM_GETFONT, 0, 0)));
            WPARAM index = 0;
            for (const MenuEntry& entry : ToolButtons()) {
                RECT button{};
                SendMessageW(bar, TB_GETITEMRECT, index++, reinterpret_cast<LPARAM>(&button));
                EXPECT_EQ(button.right - button.left,
                          font.WidthOf(entry.caption) + Scaled(16, dpi));
            }
            Close(window);
        });
    }
}

TEST_F(MainWindowTest, EveryControlHasAName) {
    Run([](HWND window) {
        ASSERT_TRUE(Shows(window, kFieldAppName));
        EXPECT_EQ(AccessibleName(GetDlgItem(window, kSearchId)), u"Suche:");
        EXPECT_EQ(AccessibleName(GetDlgItem(window, kPreviewLineId)), u"Befehlszeile");
        EXPECT_EQ(AccessibleName(GetDlgItem(window, kPreviewTextId)), u"Protokoll der Vorschau");
        EXPECT_EQ(AccessibleName(GetDlgItem(window, kFindingsButtonId)), u"Keine Hinweise");
        Close(window);
    });
}

TEST_F(MainWindowTest, ListOfPagesChoosesThePage) {
    Run([](HWND window) {
        ASSERT_TRUE(Shows(window, kFieldAppName));
        const HWND pages = GetDlgItem(window, kPageListId);
        SendMessageW(pages, LB_SETCURSEL, 4, 0);
        SendMessageW(window, WM_COMMAND, MAKEWPARAM(kPageListId, LBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(pages));
        EXPECT_NE(Field(window, kFieldRuntime), nullptr);
        EXPECT_EQ(Field(window, kFieldAppName), nullptr);
        Close(window);
    });
}

TEST_F(MainWindowTest, F6GoesFromAreaToArea) {
    Run([](HWND window) {
        ASSERT_TRUE(Shows(window, kFieldAppName));
        EXPECT_TRUE(WindowDriver::Until(
            [window] { return Focus(window) == Field(window, kFieldAppName); }));
        Do(window, Command::NextArea);
        EXPECT_EQ(Focus(window), GetDlgItem(window, kPreviewPcId));
        Do(window, Command::NextArea);
        EXPECT_EQ(Focus(window), GetDlgItem(window, kPageListId));
        Do(window, Command::NextArea);
        EXPECT_EQ(Focus(window), Field(window, kFieldAppName));
        Do(window, Command::PreviousArea);
        EXPECT_EQ(Focus(window), GetDlgItem(window, kPageListId));
        Close(window);
    });
}

TEST_F(MainWindowTest, SearchLeadsToTheField) {
    Run([](HWND window) {
        ASSERT_TRUE(Shows(window, kFieldAppName));
        Do(window, Command::Search);
        const HWND box = GetDlgItem(window, kSearchId);
        EXPECT_EQ(Focus(window), box);
        SetWindowTextW(box, L"ErrDebug");
        const HWND hits = GetDlgItem(window, kSearchHitsId);
        EXPECT_TRUE(IsWindowVisible(hits));
        EXPECT_EQ(SendMessageW(hits, LB_GETCOUNT, 0, 0), 1);
        PostMessageW(box, WM_KEYDOWN, VK_RETURN, 0);
        EXPECT_TRUE(WindowDriver::Until(
            [window] { return Focus(window) == Field(window, kFieldErrDebugText); }));
        EXPECT_FALSE(IsWindowVisible(hits));
        Close(window);
    });
}

TEST_F(MainWindowTest, NothingFoundCannotBeChosen) {
    Run([](HWND window) {
        ASSERT_TRUE(Shows(window, kFieldAppName));
        Do(window, Command::Search);
        SetWindowTextW(GetDlgItem(window, kSearchId), L"Pfad");
        const HWND hits = GetDlgItem(window, kSearchHitsId);
        EXPECT_EQ(SendMessageW(hits, LB_GETCURSEL, 0, 0), 0);
        SetWindowTextW(GetDlgItem(window, kSearchId), L"gibt es nicht");
        EXPECT_EQ(LineOf(hits, 0), u"Nichts gefunden");
        EXPECT_EQ(SendMessageW(hits, LB_GETCURSEL, 0, 0), -1);
        Close(window);
    });
}

TEST_F(MainWindowTest, FoundLinesAreNotCut) {
    dialogs.answers = {1};  // not to be saved
    Run([](HWND window) {
        ASSERT_TRUE(Shows(window, kFieldAppName));
        Do(window, Command::NextPage);
        Do(window, Command::NextPage);
        ASSERT_TRUE(Shows(window, kFieldDBFilename));
        const std::u16string wide(85, u'd');
        SetWindowTextW(Field(window, kFieldDBFilename), Wide(wide));
        Do(window, Command::Search);
        SetWindowTextW(GetDlgItem(window, kSearchId), L"ddd");
        const HWND hits = GetDlgItem(window, kSearchHitsId);
        EXPECT_EQ(LineOf(hits, 0), u"Datenbank: Dateiname (DBFilename) = " + wide);
        RECT inner{};
        GetClientRect(hits, &inner);
        const FontOnScreen font(reinterpret_cast<HFONT>(SendMessageW(hits, WM_GETFONT, 0, 0)));
        EXPECT_LE(font.WidthOf(LineOf(hits, 0)), inner.right);
        RECT place{};
        GetWindowRect(hits, &place);
        MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&place), 2);
        EXPECT_GE(place.left, 0);

        SetWindowPos(window, nullptr, 0, 0, 640, 480, SWP_NOMOVE | SWP_NOZORDER);
        const std::u16string cut = LineOf(hits, 0);
        EXPECT_TRUE(cut.starts_with(u"Datenbank: Dateiname (DBFilename) = ddd"));
        EXPECT_TRUE(cut.ends_with(u"d…"));
        GetClientRect(hits, &inner);
        EXPECT_LE(font.WidthOf(cut), inner.right);
        Close(window);
    });
}

TEST_F(MainWindowTest, FoldedPreviewShowsTheCommandLineOnly) {
    Run([](HWND window) {
        ASSERT_TRUE(Shows(window, kFieldAppName));
        const HWND text = GetDlgItem(window, kPreviewTextId);
        EXPECT_TRUE(WindowDriver::Until([text] { return IsWindowVisible(text) != FALSE; }));
        Do(window, Command::TogglePreview);
        EXPECT_FALSE(IsWindowVisible(text));
        EXPECT_TRUE(IsWindowVisible(GetDlgItem(window, kPreviewLineId)));
        Do(window, Command::Check);
        EXPECT_TRUE(IsWindowVisible(GetDlgItem(window, kFindingsId)));
        EXPECT_FALSE(IsWindowVisible(text));
        Close(window);
    });
}

TEST_F(MainWindowTest, UnsavedChangesAreAskedForOnEveryWayOut) {
    Run([this](HWND window) {
        ASSERT_TRUE(Shows(window, kFieldAppName));
        SetWindowTextW(Field(window, kFieldAppName), L"Artikel");
        SendMessageW(window, WM_CLOSE, 0, 0);
        EXPECT_TRUE(IsWindow(window));
        EXPECT_EQ(SendMessageW(window, WM_QUERYENDSESSION, 0, 0), FALSE);
        EXPECT_EQ(dialogs.log.size(), 2U);
        dialogs.answers = {1};
        Close(window);
    });
    EXPECT_EQ(dialogs.log.size(), 3U);
    EXPECT_EQ(Stored(kLauncher).Value(kFieldAppName), u"Kunden");
}

}  // namespace
}  // namespace tarvex
