#include "app/frmDebug.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <list>
#include <stdexcept>
#include <utility>

#include "platform/win32/WideText.h"
#include "resources/ResourceIds.h"
#include "tests/support/AccessibleName_win32.h"
#include "tests/support/FakeCommonDialogs.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/FakeUi.h"
#include "tests/support/GdiLedger_win32.h"
#include "tests/support/WindowDriver_win32.h"
#include "text/TextCodec1252.h"

namespace tarvex {
namespace {

RECT InnerRect(HWND window) {
    RECT rect{};
    GetClientRect(window, &rect);
    return rect;
}

/// Where the edit control lies in the window's inner area.
RECT EditRect(HWND window) {
    RECT rect{};
    GetWindowRect(GetDlgItem(window, IDC_TXTDEBUG), &rect);
    MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

bool EditFills(HWND window) {
    const RECT inner = InnerRect(window);
    const RECT edit = EditRect(window);
    return EqualRect(&inner, &edit) != FALSE;
}

/// Where the text lies in the edit control.
RECT TextRect(HWND window) {
    RECT rect{};
    SendDlgItemMessageW(window, IDC_TXTDEBUG, EM_GETRECT, 0, reinterpret_cast<LPARAM>(&rect));
    return rect;
}

/// The distances of the text from the edit control's borders and scroll bars as "left top right";
/// below it the control leaves more, so that it shows whole lines only.
std::string TextMargins(HWND window) {
    const RECT inner = InnerRect(GetDlgItem(window, IDC_TXTDEBUG));
    const RECT text = TextRect(window);
    return std::to_string(text.left) + " " + std::to_string(text.top) + " " +
           std::to_string(inner.right - text.right) +
           (inner.bottom - text.bottom < text.top ? ", less below" : "");
}

LONG FontHeight(HWND control) {
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HGDIOBJ>(SendMessageW(control, WM_GETFONT, 0, 0)), sizeof(font),
               &font);
    return font.lfHeight;
}

/// What that many characters of the control's font take.
SIZE Extent(HWND control, std::size_t count) {
    const std::u16string line(count, u'M');
    const HDC context = GetDC(control);
    const HGDIOBJ before =
        SelectObject(context, reinterpret_cast<HGDIOBJ>(SendMessageW(control, WM_GETFONT, 0, 0)));
    SIZE size{};
    GetTextExtentPoint32W(context, Wide(line), static_cast<int>(count), &size);
    SelectObject(context, before);
    ReleaseDC(control, context);
    return size;
}

bool LinesOf100CharactersFit(HWND window) {
    const RECT text = TextRect(window);
    return text.right - text.left >= Extent(GetDlgItem(window, IDC_TXTDEBUG), 100).cx;
}

constexpr UINT kDpiChanged = 0x02E0;

/// Two monitors side by side, the mouse pointer on the second one. What Wine knows of monitors has
/// one resolution for all.
struct MixedScreens {
    int firstDpi = 96;
    int secondDpi = 96;
    RECT secondArea{1280, 0, 1280 + 3840, 2100};  ///< without the taskbar
};

MixedScreens screens;
char secondMonitor;

HMONITOR SecondMonitor() {
    return reinterpret_cast<HMONITOR>(&secondMonitor);
}

decltype(DefWindowProcW)* handleDefault;
decltype(GetProcAddress)* findFunction;

HMONITOR WINAPI MonitorOfPointer(POINT /*pointer*/, DWORD /*flags*/) {
    return SecondMonitor();
}

HMONITOR WINAPI MonitorOfWindow(HWND window, DWORD /*flags*/) {
    RECT bounds{};
    GetWindowRect(window, &bounds);
    return bounds.left >= screens.secondArea.left ? SecondMonitor() : nullptr;
}

BOOL WINAPI TellMonitor(HMONITOR monitor, MONITORINFO* information) {
    information->rcWork = monitor == SecondMonitor() ? screens.secondArea : RECT{0, 0, 1280, 1024};
    return TRUE;
}

HRESULT WINAPI TellDpi(HMONITOR monitor, int type, UINT* across, UINT* down) {
    const int dpi = monitor == SecondMonitor() ? screens.secondDpi : screens.firstDpi;
    *across = *down = static_cast<UINT>(dpi);
    return type == 0 ? S_OK : E_INVALIDARG;
}

/// A window may be as large as the monitors of the test, which the system does not know.
LRESULT WINAPI AllowEverySize(HWND window, UINT message, WPARAM first, LPARAM second) {
    const LRESULT result = handleDefault(window, message, first, second);
    if (message == WM_GETMINMAXINFO) {
        reinterpret_cast<MINMAXINFO*>(second)->ptMaxTrackSize = {10'000, 10'000};
    }
    return result;
}

FARPROC WINAPI FindFunction(HMODULE module, const char* name) {
    return std::string_view(name) == "GetDpiForMonitor"
               ? reinterpret_cast<FARPROC>(reinterpret_cast<void*>(TellDpi))
               : findFunction(module, name);
}

/// Puts these monitors in the place of the real ones.
class FakeScreens {
public:
    explicit FakeScreens(const MixedScreens& fake) {
        screens = fake;
        handleDefault = DefWindowProcW;
        findFunction = GetProcAddress;
        hooks_.emplace_back("DefWindowProcW", AllowEverySize);
        hooks_.emplace_back("MonitorFromPoint", MonitorOfPointer);
        hooks_.emplace_back("MonitorFromWindow", MonitorOfWindow);
        hooks_.emplace_back("GetMonitorInfoW", TellMonitor);
        hooks_.emplace_back("GetProcAddress", FindFunction);
    }

private:
    std::list<ImportHook> hooks_;
};

BOOL WINAPI TellLargeNoticeFont(UINT action, UINT size, void* result, UINT /*change*/) {
    if (action == SPI_GETNONCLIENTMETRICS && size == sizeof(NONCLIENTMETRICSW)) {
        static_cast<NONCLIENTMETRICSW*>(result)->lfMessageFont.lfHeight = -40;
    }
    return TRUE;
}

std::u16string MenuText(HMENU menu, UINT position) {
    wchar_t text[100] = {};
    GetMenuStringW(menu, position, text, 100, MF_BYPOSITION);
    return std::u16string(FromWide(text));
}

class frmDebugTest : public testing::Test {
protected:
    frmDebugTest() {
        content.caption = u"Kunden Ä - Debug";
        content.text = u"Zeile 1 äöüß €\r\n\r\nZeile 3";
        content.saveFolder = u"C:\\Büro";
        content.saveName = u"Kunden.err";
        content.saveTitle = u"Diagnosetext speichern";
        content.saveFilter = u"Fehlerprotokolle (*.err)|*.err|Alle Dateien (*.*)|*.*";
        files.AddFolder(u"C:\\Büro");
    }

    /// Shows the window, works on it and closes it.
    void Show(const std::function<void(HWND)>& drive) {
        WindowDriver::Run(
            [&] {
                frmDebug::ShowModal(content, {dialogs, files, ansi, ui, [&] { onHelp(); }});
            },
            [&] {
                const HWND window = WindowDriver::WaitFor(L"frmDebug");
                drive(window);
                SendMessageW(window, WM_CLOSE, 0, 0);
            });
    }

    void Save(HWND window) { SendMessageW(window, WM_COMMAND, ID_DEBUG_SAVE, 0); }

    void ChooseFile(const std::string& path) {
        dialogs.end = {true, 0};
        dialogs.file = path + '\0';
    }

    DebugWindow content;
    FakeCommonDialogs dialogs;
    FakeFileSystem files;
    TextCodec1252 ansi;
    FakeUi ui;
    std::function<void()> onHelp = [] {};
};

TEST_F(frmDebugTest, ShowsCaptionAndTextWithNothingSelected) {
    std::u16string caption;
    std::u16string text;
    DWORD first = 1;
    DWORD last = 1;
    LRESULT topLine = -1;
    bool isReadOnly = false;
    Show([&](HWND window) {
        const HWND edit = GetDlgItem(window, IDC_TXTDEBUG);
        caption = WindowDriver::TextOf(window);
        text = WindowDriver::TextOf(edit);
        SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&first),
                     reinterpret_cast<LPARAM>(&last));
        topLine = SendMessageW(edit, EM_GETFIRSTVISIBLELINE, 0, 0);
        isReadOnly = (GetWindowLongW(edit, GWL_STYLE) & ES_READONLY) != 0;
    });
    EXPECT_EQ(u"Kunden Ä - Debug", caption);
    EXPECT_EQ(content.text, text);
    EXPECT_EQ(0U, first);
    EXPECT_EQ(0U, last);
    EXPECT_EQ(0, topLine);
    EXPECT_TRUE(isReadOnly);
}

TEST_F(frmDebugTest, LongTextOpensAtOnceAndWhole) {
    content.text.clear();
    while (content.text.size() < 200'000) {
        content.text += u"Schlüsselinhalt um Unterpfad ergänzt: C:\\Daten\\Kunden\r\n";
    }
    std::u16string text;
    const DWORD start = GetTickCount();
    DWORD shown = 0;
    Show([&](HWND window) {
        shown = GetTickCount();
        text = WindowDriver::TextOf(GetDlgItem(window, IDC_TXTDEBUG));
    });
    EXPECT_EQ(content.text, text);
    EXPECT_LT(shown - start, 3000U);
}

TEST_F(frmDebugTest, LongTextWithoutLineBreaksOpensAtOnceAndWhole) {
    content.text.assign(200'000, u'x');
    std::u16string text;
    Show([&](HWND window) { text = WindowDriver::TextOf(GetDlgItem(window, IDC_TXTDEBUG)); });
    EXPECT_EQ(content.text, text);
}

TEST_F(frmDebugTest, ZeroCharacterIsShownAsBlank) {
    content.text = std::u16string(u"vor\0nach", 8);
    std::u16string text;
    Show([&](HWND window) { text = WindowDriver::TextOf(GetDlgItem(window, IDC_TXTDEBUG)); });
    EXPECT_EQ(u"vor nach", text);
}

TEST_F(frmDebugTest, TextIsSetInCourierNew) {
    LOGFONTW font{};
    Show([&](HWND window) {
        const LRESULT handle = SendDlgItemMessageW(window, IDC_TXTDEBUG, WM_GETFONT, 0, 0);
        GetObjectW(reinterpret_cast<HGDIOBJ>(handle), sizeof(font), &font);
    });
    EXPECT_EQ(u"Courier New", FromWide(font.lfFaceName));
    EXPECT_LT(font.lfHeight, 0);
}

TEST_F(frmDebugTest, TextFillsTheWindowAtEverySize) {
    bool atStart = false;
    bool whenSmall = false;
    bool whenMaximised = false;
    Show([&](HWND window) {
        atStart = WindowDriver::Until([&] { return EditFills(window); });
        SetWindowPos(window, nullptr, 0, 0, 300, 200, SWP_NOMOVE | SWP_NOZORDER);
        whenSmall = WindowDriver::Until([&] { return EditFills(window); });
        ShowWindow(window, SW_MAXIMIZE);
        whenMaximised =
            WindowDriver::Until([&] { return InnerRect(window).right > 300 && EditFills(window); });
    });
    EXPECT_TRUE(atStart);
    EXPECT_TRUE(whenSmall);
    EXPECT_TRUE(whenMaximised);
}

TEST_F(frmDebugTest, FontFollowsTheMonitorsResolution) {
    LOGFONTW before{};
    LOGFONTW after{};
    RECT bounds{};
    bool fills = false;
    Show([&](HWND window) {
        const HWND edit = GetDlgItem(window, IDC_TXTDEBUG);
        GetObjectW(reinterpret_cast<HGDIOBJ>(SendMessageW(edit, WM_GETFONT, 0, 0)), sizeof(before),
                   &before);
        const RECT suggested = {10, 20, 710, 520};
        SendMessageW(window, kDpiChanged, MAKEWPARAM(192, 192),
                     reinterpret_cast<LPARAM>(&suggested));
        GetObjectW(reinterpret_cast<HGDIOBJ>(SendMessageW(edit, WM_GETFONT, 0, 0)), sizeof(after),
                   &after);
        GetWindowRect(window, &bounds);
        fills = EditFills(window);
    });
    EXPECT_EQ(-13, before.lfHeight);
    EXPECT_EQ(-27, after.lfHeight);
    EXPECT_EQ(700, bounds.right - bounds.left);
    EXPECT_EQ(500, bounds.bottom - bounds.top);
    EXPECT_TRUE(fills);
}

TEST_F(frmDebugTest, WindowOpensForTheScreenWithThePointer) {
    for (const auto& [dpi, fontHeight] : {std::pair{96, -13}, {144, -20}, {192, -27}}) {
        const FakeScreens fake({.firstDpi = 96, .secondDpi = dpi});
        LONG height = 0;
        bool fits = false;
        bool shrunk = false;
        RECT bounds{};
        std::string margins;
        Show([&](HWND window) {
            GetWindowRect(window, &bounds);
            height = FontHeight(GetDlgItem(window, IDC_TXTDEBUG));
            fits = LinesOf100CharactersFit(window);
            margins = TextMargins(window);
            shrunk = TextRect(window).right < Extent(GetDlgItem(window, IDC_TXTDEBUG), 110).cx;
        });
        EXPECT_EQ(height, fontHeight) << dpi;
        EXPECT_TRUE(fits) << dpi;
        EXPECT_TRUE(shrunk) << "no wider than it needs to be at " << dpi;
        EXPECT_EQ(margins, dpi == 96 ? "6 6 6" : dpi == 144 ? "9 9 9" : "12 12 12");
        EXPECT_NEAR(bounds.left + bounds.right, 1280 + 1280 + 3840, 1) << "in the middle";
        EXPECT_NEAR(bounds.top + bounds.bottom, 2100, 1) << "in the middle";
    }
}

TEST_F(frmDebugTest, FirstScreensResolutionDoesNotCount) {
    const FakeScreens fake({.firstDpi = 192, .secondDpi = 96});
    LONG height = 0;
    Show([&](HWND window) { height = FontHeight(GetDlgItem(window, IDC_TXTDEBUG)); });
    EXPECT_EQ(height, -13);
}

TEST_F(frmDebugTest, WindowIsNotLargerThanTheScreenWithThePointer) {
    const FakeScreens fake({.secondDpi = 192, .secondArea = {1280, 40, 1280 + 800, 600}});
    RECT bounds{};
    Show([&](HWND window) { GetWindowRect(window, &bounds); });
    EXPECT_EQ(bounds.left, 1280);
    EXPECT_EQ(bounds.top, 40);
    EXPECT_EQ(bounds.right, 1280 + 800);
    EXPECT_EQ(bounds.bottom, 600);
}

TEST_F(frmDebugTest, LinesStillFitWhenTheWindowMovesToAScreenOfAnotherResolution) {
    for (const int from : {96, 144, 192}) {
        const FakeScreens fake({.secondDpi = from});
        bool fits[3] = {};
        std::string margins;
        Show([&](HWND window) {
            RECT bounds{};
            GetWindowRect(window, &bounds);
            for (int i = 0; i < 3; ++i) {
                const int to = 96 + 48 * i;
                // What the system suggests.
                const RECT moved = {0, 0, MulDiv(bounds.right - bounds.left, to, from),
                                    MulDiv(bounds.bottom - bounds.top, to, from)};
                SendMessageW(window, kDpiChanged, static_cast<WPARAM>(MAKELONG(to, to)),
                             reinterpret_cast<LPARAM>(&moved));
                fits[i] = LinesOf100CharactersFit(window);
            }
            margins = TextMargins(window);
        });
        EXPECT_TRUE(fits[0]) << from << " to 96";
        EXPECT_TRUE(fits[1]) << from << " to 144";
        EXPECT_TRUE(fits[2]) << from << " to 192";
        EXPECT_EQ(margins, "12 12 12");
    }
}

TEST_F(frmDebugTest, TextHasAMarginAtEverySize) {
    ChooseFile("C:\\B\xFCro\\x.err");
    files.failCall = 1;
    std::string atStart;
    std::string whenSmall;
    std::string whenMaximised;
    std::string withNotice;
    Show([&](HWND window) {
        atStart = TextMargins(window);
        SetWindowPos(window, nullptr, 0, 0, 300, 200, SWP_NOMOVE | SWP_NOZORDER);
        whenSmall = TextMargins(window);
        ShowWindow(window, SW_MAXIMIZE);
        WindowDriver::Until([&] { return InnerRect(window).right > 300; });
        whenMaximised = TextMargins(window);
        Save(window);
        withNotice = TextMargins(window);
    });
    EXPECT_EQ(atStart, "6 6 6");
    EXPECT_EQ(whenSmall, "6 6 6");
    EXPECT_EQ(whenMaximised, "6 6 6");
    EXPECT_EQ(withNotice, "6 6 6");
}

TEST_F(frmDebugTest, NoticeLineIsAsHighAsItsFontNeeds) {
    const ImportHook hook("SystemParametersInfoW", TellLargeNoticeFont);
    ChooseFile("C:\\B\xFCro\\x.err");
    files.failCall = 1;
    LONG line = 0;
    LONG font = 0;
    LONG edit = 0;
    LONG inner = 0;
    Show([&](HWND window) {
        Save(window);
        const HWND notice = GetDlgItem(window, IDC_DEBUG_NOTICE);
        line = InnerRect(notice).bottom;
        font = Extent(notice, 1).cy;
        edit = EditRect(window).bottom;
        inner = InnerRect(window).bottom;
    });
    EXPECT_GE(font, 40);
    EXPECT_EQ(line, font + 6);
    EXPECT_EQ(edit + line, inner);
}

TEST_F(frmDebugTest, ScreenReaderIsToldWhatTheTextIs) {
    std::u16string name;
    Show([&](HWND window) { name = AccessibleName(GetDlgItem(window, IDC_TXTDEBUG)); });
    EXPECT_EQ(name, u"Diagnosetext");
}

TEST_F(frmDebugTest, ClosedWindowLeavesNoGdiObjectsBehind) {
    const GdiLedger ledger;
    Show([&](HWND window) {
        const RECT suggested = {10, 20, 710, 520};
        SendMessageW(window, kDpiChanged, MAKEWPARAM(192, 192),
                     reinterpret_cast<LPARAM>(&suggested));
        Save(window);
    });
    EXPECT_EQ(ledger.Open(), "");
    EXPECT_GE(ledger.Taken(), 4) << "two fonts, twice";
}

TEST_F(frmDebugTest, MenuOffersSaveAndClose) {
    std::u16string texts[3];
    int entries = 0;
    int menus = 0;
    Show([&](HWND window) {
        const HMENU bar = GetMenu(window);
        const HMENU file = GetSubMenu(bar, 0);
        menus = GetMenuItemCount(bar);
        entries = GetMenuItemCount(file);
        texts[0] = MenuText(bar, 0);
        texts[1] = MenuText(file, 0);
        texts[2] = MenuText(file, 1);
    });
    EXPECT_EQ(1, menus);
    EXPECT_EQ(2, entries);
    EXPECT_EQ(u"&Datei", texts[0]);
    EXPECT_EQ(u"&Speichern\tStrg+S", texts[1]);
    EXPECT_EQ(u"&Beenden\tEsc", texts[2]);
}

TEST_F(frmDebugTest, CloseEntryClosesTheWindowWithoutAQuitMessage) {
    bool gone = false;
    WindowDriver::Run(
        [&] {
            frmDebug::ShowModal(content, {dialogs, files, ansi, ui, onHelp});
        },
        [&] {
            const HWND window = WindowDriver::WaitFor(L"frmDebug");
            PostMessageW(window, WM_COMMAND, ID_DEBUG_CLOSE, 0);
            gone = WindowDriver::Until([&] { return IsWindow(window) == FALSE; });
        });
    EXPECT_TRUE(gone);
    MSG message;
    EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_NOREMOVE));
}

TEST_F(frmDebugTest, EscapeClosesTheWindow) {
    bool gone = false;
    WindowDriver::Run(
        [&] {
            frmDebug::ShowModal(content, {dialogs, files, ansi, ui, onHelp});
        },
        [&] {
            const HWND window = WindowDriver::WaitFor(L"frmDebug");
            PostMessageW(GetDlgItem(window, IDC_TXTDEBUG), WM_KEYDOWN, VK_ESCAPE, 0);
            gone = WindowDriver::Until([&] { return IsWindow(window) == FALSE; });
        });
    EXPECT_TRUE(gone);
}

TEST_F(frmDebugTest, KeysAreBoundToTheirCommands) {
    const HACCEL table = LoadAcceleratorsW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDR_DEBUG));
    ACCEL keys[4] = {};
    ASSERT_EQ(3, CopyAcceleratorTableW(table, keys, 4));
    EXPECT_EQ('S', keys[0].key);
    EXPECT_EQ(FVIRTKEY | FCONTROL, keys[0].fVirt & ~0x80);
    EXPECT_EQ(ID_DEBUG_SAVE, keys[0].cmd);
    EXPECT_EQ('A', keys[1].key);
    EXPECT_EQ(FVIRTKEY | FCONTROL, keys[1].fVirt & ~0x80);
    EXPECT_EQ(ID_DEBUG_SELECTALL, keys[1].cmd);
    EXPECT_EQ(VK_ESCAPE, keys[2].key);
    EXPECT_EQ(FVIRTKEY, keys[2].fVirt & ~0x80);
    EXPECT_EQ(ID_DEBUG_CLOSE, keys[2].cmd);
}

TEST_F(frmDebugTest, SelectAllSelectsTheWholeText) {
    DWORD first = 1;
    DWORD last = 1;
    Show([&](HWND window) {
        SendMessageW(window, WM_COMMAND, ID_DEBUG_SELECTALL, 0);
        SendDlgItemMessageW(window, IDC_TXTDEBUG, EM_GETSEL, reinterpret_cast<WPARAM>(&first),
                            reinterpret_cast<LPARAM>(&last));
    });
    EXPECT_EQ(0U, first);
    EXPECT_EQ(content.text.size(), last);
}

TEST_F(frmDebugTest, SaveProposesTheGivenNameAndFolder) {
    HWND shown = nullptr;
    Show([&](HWND window) {
        shown = window;
        Save(window);
    });
    ASSERT_EQ(1U, dialogs.saveCalls.size());
    const FileDialogCall& call = dialogs.saveCalls[0];
    EXPECT_EQ("Diagnosetext speichern", call.title);
    EXPECT_EQ("C:\\B\xFCro", call.folder);
    EXPECT_STREQ("Kunden.err", call.file.c_str());
    EXPECT_EQ("err", call.defaultExtension);
    EXPECT_EQ(std::string_view("Fehlerprotokolle (*.err)\0*.err\0Alle Dateien (*.*)\0*.*\0\0", 55),
              call.filter);
    EXPECT_EQ(shown, call.owner);
}

TEST_F(frmDebugTest, ProposedNameHoldsNoCharacterThatTheDialogRefuses) {
    content.saveName = u"Кунд ä.err";
    Show([&](HWND window) { Save(window); });
    ASSERT_EQ(1U, dialogs.saveCalls.size());
    EXPECT_STREQ("____ \xE4.err", dialogs.saveCalls[0].file.c_str());
}

TEST_F(frmDebugTest, CancelledSaveWritesNothing) {
    bool fills = false;
    Show([&](HWND window) {
        Save(window);
        fills = EditFills(window);
    });
    EXPECT_TRUE(files.log.empty());
    EXPECT_TRUE(fills);
}

TEST_F(frmDebugTest, SavedFileHoldsTheTextInTheCodePage) {
    ChooseFile("C:\\B\xFCro\\x.err");
    Show([&](HWND window) { Save(window); });
    EXPECT_EQ("Zeile 1 \xE4\xF6\xFC\xDF \x80\r\n\r\nZeile 3", files.Bytes(u"C:\\Büro\\x.err"));
}

TEST_F(frmDebugTest, SaveReplacesALongerReadOnlyFile) {
    files.AddFile(u"C:\\Büro\\x.err", std::string(500, 'x'), true);
    ChooseFile("C:\\B\xFCro\\x.err");
    content.text = u"kurz";
    Show([&](HWND window) { Save(window); });
    EXPECT_EQ("kurz", files.Bytes(u"C:\\Büro\\x.err"));
}

TEST_F(frmDebugTest, FailedSaveSaysSoBelowTheTextUntilOneSucceeds) {
    ChooseFile("C:\\B\xFCro\\x.err");
    files.failCall = 1;
    std::u16string notice;
    bool shown = false;
    RECT edit{};
    RECT inner{};
    bool shownAfterSuccess = true;
    bool fillsAfterSuccess = false;
    Show([&](HWND window) {
        Save(window);
        const HWND control = GetDlgItem(window, IDC_DEBUG_NOTICE);
        notice = WindowDriver::TextOf(control);
        shown = IsWindowVisible(control) != FALSE;
        edit = EditRect(window);
        inner = InnerRect(window);
        files.failCall = 0;
        Save(window);
        shownAfterSuccess = IsWindowVisible(control) != FALSE;
        fillsAfterSuccess = EditFills(window);
    });
    EXPECT_EQ(u"Speichern fehlgeschlagen: C:\\Büro\\x.err", notice);
    EXPECT_TRUE(shown);
    EXPECT_LT(edit.bottom, inner.bottom);
    EXPECT_TRUE(ui.boxes.empty());
    EXPECT_FALSE(shownAfterSuccess);
    EXPECT_TRUE(fillsAfterSuccess);
}

TEST_F(frmDebugTest, HelpKeyOpensHelp) {
    int calls = 0;
    onHelp = [&] { ++calls; };
    content.helpContext = 1000;
    DWORD context = 0;
    Show([&](HWND window) {
        context = GetWindowContextHelpId(window);
        HELPINFO help{};
        help.cbSize = sizeof(help);
        SendMessageW(window, WM_HELP, 0, reinterpret_cast<LPARAM>(&help));
    });
    EXPECT_EQ(1, calls);
    EXPECT_EQ(1000U, context);
}

LRESULT CALLBACK RefuseCreation(HWND window, UINT message, WPARAM first, LPARAM second) {
    return message == WM_NCCREATE ? FALSE : DefWindowProcW(window, message, first, second);
}

TEST_F(frmDebugTest, TextIsToldInABoxWhenTheWindowCannotBeMade) {
    // A class of the same name whose windows are never created takes the window's place.
    const HINSTANCE program = GetModuleHandleW(nullptr);
    UnregisterClassW(L"frmDebug", program);
    WNDCLASSEXW refusing{};
    refusing.cbSize = sizeof(refusing);
    refusing.lpfnWndProc = RefuseCreation;
    refusing.hInstance = program;
    refusing.lpszClassName = L"frmDebug";
    ASSERT_NE(RegisterClassExW(&refusing), 0);
    content.text = u"Tarvex - Erweiterte Fehlerinformationen:" + std::u16string(2000, u'ä');
    frmDebug::ShowModal(content, {dialogs, files, ansi, ui, [&] { onHelp(); }});
    UnregisterClassW(L"frmDebug", program);
    ASSERT_EQ(ui.boxes.size(), 1u);
    EXPECT_EQ(ui.boxes.front().title, u"Kunden Ä - Debug");
    EXPECT_EQ(ui.boxes.front().text, content.text.substr(0, 1500));
    EXPECT_EQ(ui.boxes.front().style, 16u);
}

TEST_F(frmDebugTest, ErrorInAHandlerLeavesTheWindowAsAnException) {
    onHelp = [] { throw std::runtime_error("Hilfe"); };
    bool raised = false;
    WindowDriver::Run(
        [&] {
            try {
                frmDebug::ShowModal(content, {dialogs, files, ansi, ui, onHelp});
            } catch (const std::runtime_error&) {
                raised = true;
            }
        },
        [&] { SendMessageW(WindowDriver::WaitFor(L"frmDebug"), WM_HELP, 0, 0); });
    EXPECT_TRUE(raised);
}

}  // namespace
}  // namespace tarvex
