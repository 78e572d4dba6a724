#include "window/formviews/FormView_win32.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/win32/Dpi.h"
#include "platform/win32/WideText.h"
#include "tests/support/AccessibleName_win32.h"
#include "tests/support/CutTexts_win32.h"
#include "tests/support/GdiLedger_win32.h"
#include "tests/support/SampleForm.h"
#include "tests/support/WindowDriver_win32.h"
#include "window/formviews/DialogFocus_win32.h"

namespace tarvex {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

LRESULT CALLBACK HostProcedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    static DialogFocus focus;
    return focus.OnMessage(window, message, first, second)
               ? 0
               : DefWindowProcW(window, message, first, second);
}

/// A top-level window with a form in it, on the thread of the test.
class FormViewTest : public testing::Test {
protected:
    void SetUp() override {
        WNDCLASSW description{};
        description.lpfnWndProc = HostProcedure;
        description.lpszClassName = L"FormViewTest";
        RegisterClassW(&description);
        host = CreateWindowExW(WS_EX_CONTROLPARENT, L"FormViewTest", L"", WS_POPUP | WS_VISIBLE, 0,
                               0, 700, 400, nullptr, nullptr, nullptr, nullptr);
        ASSERT_NE(nullptr, host);
        ASSERT_TRUE(view.Create(host, kNormalDpi, true));
        view.onChanged = [this] { ++changes; };
    }
    void TearDown() override {
        DestroyWindow(host);
        Pump();
    }

    void Show(int width = 700, int height = 400) {
        MoveWindow(view.Window(), 0, 0, width, height, TRUE);
        view.SetModel(&form);
        Pump();
    }

    static void Pump() {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }

    HWND Part(std::int32_t id, FormPart part = FormPart::Control) const {
        return GetDlgItem(view.Window(), FormControlId(id, part));
    }
    std::u16string TextOf(std::int32_t id, FormPart part = FormPart::Control) const {
        return WindowDriver::TextOf(Part(id, part));
    }
    bool IsVisible(std::int32_t id, FormPart part = FormPart::Control) const {
        return (GetWindowLongW(Part(id, part), GWL_STYLE) & WS_VISIBLE) != 0;
    }
    bool IsEnabled(std::int32_t id) const { return IsWindowEnabled(Part(id)) != FALSE; }
    RECT PlaceOf(std::int32_t id, FormPart part = FormPart::Control) const {
        RECT place{};
        GetWindowRect(Part(id, part), &place);
        MapWindowPoints(nullptr, view.Window(), reinterpret_cast<POINT*>(&place), 2);
        return place;
    }

    /// A key as the keyboard sends it to the control with the focus, through the loop of a dialog.
    void Key(WPARAM key, int modifier = 0) {
        BYTE before[256] = {};
        BYTE held[256] = {};
        GetKeyboardState(before);
        held[modifier] = modifier != 0 ? 0x80 : 0;
        SetKeyboardState(held);
        const bool alt = modifier == VK_MENU;
        MSG message{};
        message.hwnd = GetFocus();
        message.message = alt ? WM_SYSKEYDOWN : WM_KEYDOWN;
        message.wParam = key;
        message.lParam = static_cast<LPARAM>(1 | (MapVirtualKeyW(static_cast<UINT>(key), 0) << 16) |
                                             (alt ? 1U << 29 : 0));
        Dispatch(message);
        MSG typed;
        while (PeekMessageW(&typed, nullptr, 0, 0, PM_REMOVE) != FALSE) {
            Dispatch(typed);
        }
        SetKeyboardState(before);
    }
    /// An access key as it is made of a key with Alt.
    void AccessKey(char16_t letter) {
        MSG message{};
        message.hwnd = GetFocus();
        message.message = WM_SYSCHAR;
        message.wParam = letter;
        message.lParam = 1 | (1 << 29);
        Dispatch(message);
        Pump();
    }
    void Dispatch(MSG& message) const {
        if (IsDialogMessageW(host, &message) == FALSE) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    void Focus(std::int32_t id) {
        view.FocusRow(id);
        ASSERT_EQ(Part(id), GetFocus());
    }

    FakeForm form;
    FormView view;
    HWND host = nullptr;
    int changes = 0;
};

TEST_F(FormViewTest, LineShowsItsTextAndTellsWhatIsEntered) {
    form.rows = {{.kind = RowKind::Line, .id = 1, .label = u"&Ordner"}};
    form.states[1].text = u"C:\\Büro €";
    Show();
    EXPECT_EQ(u"C:\\Büro €", TextOf(1));
    SetWindowTextW(Part(1), L"D:\\Daten");
    EXPECT_THAT(form.log, ElementsAre("Text 1 D:\\Daten"));
    EXPECT_EQ(1, changes);
}

TEST_F(FormViewTest, ReadOnlyLineCannotBeEdited) {
    form.rows = {{.kind = RowKind::Line, .id = 1}};
    form.states[1].readOnly = true;
    Show();
    EXPECT_NE(0, GetWindowLongW(Part(1), GWL_STYLE) & ES_READONLY);
    form.states[1].readOnly = false;
    view.Refresh();
    EXPECT_EQ(0, GetWindowLongW(Part(1), GWL_STYLE) & ES_READONLY);
}

TEST_F(FormViewTest, SecretIsMaskedUntilItsButtonShowsIt) {
    form.rows = {{.kind = RowKind::Secret, .id = 1, .label = u"&Kennwort"}};
    form.states[1].text = u"geheim";
    Show();
    EXPECT_EQ(0x25CF, SendMessageW(Part(1), EM_GETPASSWORDCHAR, 0, 0));
    EXPECT_EQ(u"Anzeigen", TextOf(1, FormPart::Reveal));
    SendMessageW(Part(1, FormPart::Reveal), BM_CLICK, 0, 0);
    EXPECT_EQ(0, SendMessageW(Part(1), EM_GETPASSWORDCHAR, 0, 0));
    EXPECT_EQ(u"Verbergen", TextOf(1, FormPart::Reveal));
    SendMessageW(Part(1, FormPart::Reveal), BM_CLICK, 0, 0);
    EXPECT_EQ(0x25CF, SendMessageW(Part(1), EM_GETPASSWORDCHAR, 0, 0));
    EXPECT_THAT(form.log, IsEmpty());
}

TEST_F(FormViewTest, LinesTakeEnterAndLetTabMoveOn) {
    form.rows = {{.kind = RowKind::Lines, .id = 1, .label = u"Text"},
                 {.kind = RowKind::Line, .id = 2, .label = u"Name"}};
    Show();
    Focus(1);
    Key('A');
    Key(VK_RETURN);
    Key('B');
    EXPECT_EQ(u"a\r\nb", form.states[1].text);
    Key(VK_TAB);
    EXPECT_EQ(Part(2), GetFocus());
    EXPECT_EQ(u"a\r\nb", form.states[1].text);
}

TEST_F(FormViewTest, LinesTellATextThatAnotherProgramEnters) {
    form.rows = {{.kind = RowKind::Lines, .id = 1, .label = u"Text"}};
    form.states[1].text = u"alt";
    Show();
    EXPECT_THAT(form.log, IsEmpty()) << "what the view itself shows is not told";
    SetWindowTextW(Part(1), L"a\r\nb");
    EXPECT_THAT(form.log, ElementsAre("Text 1 a\r\nb"));
    EXPECT_EQ(1, changes);
}

TEST_F(FormViewTest, CheckBoxTellsBothItsStates) {
    form.rows = {{.kind = RowKind::Check, .id = 1, .label = u"&Exklusiv"}};
    Show();
    SendMessageW(Part(1), BM_CLICK, 0, 0);
    SendMessageW(Part(1), BM_CLICK, 0, 0);
    EXPECT_THAT(form.log, ElementsAre("Checked 1", "Unchecked 1"));
    form.states[1].checked = true;
    view.Refresh();
    EXPECT_EQ(BST_CHECKED, SendMessageW(Part(1), BM_GETCHECK, 0, 0));
}

class FormViewOptions : public FormViewTest {
protected:
    FormViewOptions() {
        form.rows = {{.kind = RowKind::Radio, .id = 1, .label = u"&eins", .group = 1},
                     {.kind = RowKind::Line, .id = 2, .label = u"Text"},
                     {.kind = RowKind::Radio, .id = 3, .label = u"&zwei", .group = 1},
                     {.kind = RowKind::Radio, .id = 4, .label = u"&drei", .group = 2}};
        form.states[1].checked = true;
    }
    bool IsChecked(std::int32_t id) const {
        return SendMessageW(Part(id), BM_GETCHECK, 0, 0) == BST_CHECKED;
    }
};

TEST_F(FormViewOptions, OptionsOfAGroupExcludeEachOther) {
    Show();
    EXPECT_TRUE(IsChecked(1));
    SendMessageW(Part(3), BM_CLICK, 0, 0);
    EXPECT_THAT(form.log, ElementsAre("Checked 3"));
    EXPECT_FALSE(IsChecked(1));
    EXPECT_TRUE(IsChecked(3));
}

TEST_F(FormViewOptions, ArrowsGoThroughTheGroupAlsoOverOtherRows) {
    Show();
    Focus(1);
    Key(VK_DOWN);
    EXPECT_EQ(Part(3), GetFocus());
    EXPECT_TRUE(IsChecked(3));
    Key(VK_DOWN);
    EXPECT_EQ(Part(1), GetFocus());
    Key(VK_UP);
    EXPECT_TRUE(IsChecked(3));
    EXPECT_THAT(form.log, ElementsAre("Checked 3", "Checked 1", "Checked 3"));
}

TEST_F(FormViewOptions, TabReachesTheChosenOptionOnly) {
    form.rows.push_back({.kind = RowKind::Line, .id = 5, .label = u"Ende"});
    form.states[1].checked = false;
    form.states[3].checked = true;
    Show();
    Focus(2);
    Key(VK_TAB);
    EXPECT_EQ(Part(3), GetFocus());
    Key(VK_TAB);
    EXPECT_EQ(Part(4), GetFocus());
    Key(VK_TAB);
    EXPECT_EQ(Part(5), GetFocus());
    Key(VK_TAB);
    EXPECT_EQ(Part(2), GetFocus());
}

TEST_F(FormViewOptions, FocusAloneChoosesNothing) {
    Show();
    Focus(3);
    EXPECT_THAT(form.log, IsEmpty());
}

TEST_F(FormViewTest, ChoiceShowsItsLinesAndTellsTheChosenOne) {
    form.rows = {{.kind = RowKind::Choice, .id = 1, .label = u"&Version"}};
    form.states[1].choices = {u"2000", u"2003", u"2010"};
    form.states[1].selected = 1;
    Show();
    EXPECT_EQ(3, SendMessageW(Part(1), CB_GETCOUNT, 0, 0));
    EXPECT_EQ(u"2003", TextOf(1));
    Focus(1);
    Key(VK_DOWN);
    EXPECT_THAT(form.log, ElementsAre("Select 1 2"));
    form.states[1].choices = {u"2016"};
    form.states[1].selected = 0;
    view.Refresh();
    EXPECT_EQ(1, SendMessageW(Part(1), CB_GETCOUNT, 0, 0));
    EXPECT_EQ(u"2016", TextOf(1));
}

class FormViewList : public FormViewTest {
protected:
    FormViewList() {
        form.rows = {{.kind = RowKind::List,
                      .id = 1,
                      .label = u"&Schlüssel",
                      .buttons = {{11, u"Neu", {}, ButtonKey::Insert},
                                  {12, u"Bearbeiten", {}, ButtonKey::Enter},
                                  {13, u"Löschen", {}, ButtonKey::Delete},
                                  {14, u"Auf", {}, ButtonKey::Up},
                                  {15, u"Ab", {}, ButtonKey::Down},
                                  {16, u"Einfügen", {}, ButtonKey::Paste}},
                      .columns = {u"Schlüssel", u"Wert"}}};
        form.states[1].items = {{u"A", u"1"}, {u"B", u"2"}, {u"C", u"3"}};
        form.states[1].selected = 1;
    }
    LRESULT Ask(UINT message, WPARAM first = 0, LPARAM second = 0) const {
        return SendMessageW(Part(1), message, first, second);
    }
    LRESULT Selected() const {
        return Ask(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED);
    }
    std::u16string Cell(int line, int column) const {
        wchar_t text[100] = {};
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = text;
        item.cchTextMax = 100;
        Ask(LVM_GETITEMTEXTW, static_cast<WPARAM>(line), reinterpret_cast<LPARAM>(&item));
        return std::u16string(FromWide(text));
    }
};

TEST_F(FormViewList, ListShowsItsLinesAndTheChosenOne) {
    Show();
    EXPECT_EQ(3, Ask(LVM_GETITEMCOUNT));
    EXPECT_EQ(u"B", Cell(1, 0));
    EXPECT_EQ(u"3", Cell(2, 1));
    EXPECT_EQ(1, Selected());
    EXPECT_THAT(form.log, IsEmpty());
}

TEST_F(FormViewList, ListFollowsTheModel) {
    Show();
    form.states[1].items = {{u"A", u"1"}, {u"X", u"9"}};
    form.states[1].selected = 0;
    view.Refresh();
    EXPECT_EQ(2, Ask(LVM_GETITEMCOUNT));
    EXPECT_EQ(u"X", Cell(1, 0));
    EXPECT_EQ(u"9", Cell(1, 1));
    EXPECT_EQ(0, Selected());
    form.states[1].items.push_back({u"Neu", u"5"});
    form.states[1].selected = -1;
    view.Refresh();
    EXPECT_EQ(u"Neu", Cell(2, 0));
    EXPECT_EQ(-1, Selected());
    Pump();
    EXPECT_THAT(form.log, IsEmpty());
}

TEST_F(FormViewList, ChosenLineIsNotLostWhenTheStateIsShownAgainBeforeItIsTold) {
    Show();
    LVITEMW chosen{};
    chosen.state = chosen.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    Ask(LVM_SETITEMSTATE, 2, reinterpret_cast<LPARAM>(&chosen));
    view.Refresh();
    EXPECT_EQ(2, Selected());
    Pump();
    EXPECT_EQ(2, Selected());
    EXPECT_THAT(form.log, ElementsAre("Select 1 2"));
}

TEST_F(FormViewList, ChosenLineIsToldOnce) {
    Show();
    Focus(1);
    Key(VK_DOWN);
    EXPECT_THAT(form.log, ElementsAre("Select 1 2"));
}

TEST_F(FormViewList, KeysPressTheButtons) {
    Show();
    Focus(1);
    Key(VK_INSERT);
    Key(VK_RETURN);
    Key(VK_DELETE);
    Key(VK_UP, VK_MENU);
    Key(VK_DOWN, VK_MENU);
    Key('V', VK_CONTROL);
    Key(VK_INSERT, VK_SHIFT);
    EXPECT_THAT(form.log, ElementsAre("Press 11", "Press 12", "Press 13", "Press 14", "Press 15",
                                      "Press 16", "Press 16"));
}

TEST_F(FormViewList, KeysOfDisabledButtonsDoNothing) {
    form.states[1].disabledButtons = {12, 13};
    Show();
    Focus(1);
    Key(VK_RETURN);
    Key(VK_DELETE);
    EXPECT_THAT(form.log, IsEmpty());
}

TEST_F(FormViewList, DoubleClickOnALinePressesTheButtonOfEnter) {
    Show();
    NMITEMACTIVATE click{};
    click.hdr = {Part(1), static_cast<UINT_PTR>(FormControlId(1)), static_cast<UINT>(NM_DBLCLK)};
    click.iItem = -1;
    SendMessageW(view.Window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&click));
    EXPECT_THAT(form.log, IsEmpty());
    click.iItem = 1;
    SendMessageW(view.Window(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&click));
    EXPECT_THAT(form.log, ElementsAre("Press 12"));
}

TEST_F(FormViewList, LineChosenJustBeforeAButtonIsToldFirst) {
    Show();
    LVITEMW item{};
    item.state = item.stateMask = LVIS_SELECTED;
    Ask(LVM_SETITEMSTATE, 2, reinterpret_cast<LPARAM>(&item));
    SendMessageW(Part(13), BM_CLICK, 0, 0);
    Pump();
    EXPECT_THAT(form.log, ElementsAre("Select 1 2", "Press 13"));
}

TEST_F(FormViewList, FocusMovesToTheListWhenItsButtonIsSwitchedOff) {
    Show();
    Focus(14);
    form.states[1].disabledButtons = {14};
    Key(VK_RETURN);
    EXPECT_THAT(form.log, ElementsAre("Press 14"));
    EXPECT_EQ(Part(1), GetFocus());
}

TEST_F(FormViewTest, OutputShowsItsTextInAFixedFont) {
    form.rows = {{.kind = RowKind::Output, .id = 1, .label = u"Protokoll"}};
    form.states[1].text = u"Zeile 1\r\nZeile 2";
    Show();
    EXPECT_EQ(u"Zeile 1\r\nZeile 2", TextOf(1));
    EXPECT_NE(0, GetWindowLongW(Part(1), GWL_STYLE) & ES_READONLY);
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HGDIOBJ>(SendMessageW(Part(1), WM_GETFONT, 0, 0)), sizeof(font),
               &font);
    EXPECT_EQ(u"Courier New", FromWide(font.lfFaceName));
    Focus(1);
    Key('A', VK_CONTROL);
    EXPECT_EQ(MAKELRESULT(0, 16), SendMessageW(Part(1), EM_GETSEL, 0, 0));
}

TEST_F(FormViewTest, OutputBreaksLongLinesWhereItsRowSaysSo) {
    form.rows = {{.kind = RowKind::Output, .id = 1, .label = u"Protokoll"},
                 {.kind = RowKind::Output, .id = 2, .label = u"Befehl", .wraps = true}};
    form.states[1].text = form.states[2].text = std::u16string(300, u'x') + u" y";
    Show();
    EXPECT_EQ(1, SendMessageW(Part(1), EM_GETLINECOUNT, 0, 0));
    EXPECT_LT(1, SendMessageW(Part(2), EM_GETLINECOUNT, 0, 0));
    EXPECT_EQ(form.states[2].text, TextOf(2));
    EXPECT_EQ(0, GetWindowLongW(Part(2), GWL_STYLE) & WS_HSCROLL);
}

TEST_F(FormViewTest, ButtonsAreTold) {
    form.rows = {{.kind = RowKind::Buttons, .buttons = {{11, u"&Neu"}, {12, u"&Öffnen"}}},
                 {.kind = RowKind::Line, .id = 1, .buttons = {{13, u"..."}}}};
    Show();
    SendMessageW(Part(12), BM_CLICK, 0, 0);
    SendMessageW(Part(13), BM_CLICK, 0, 0);
    EXPECT_THAT(form.log, ElementsAre("Press 12", "Press 13"));
    Focus(11);
    Key(VK_RETURN);
    EXPECT_EQ("Press 11", form.log.back());
}

TEST_F(FormViewTest, HiddenAndDisabledRowsFollowTheModel) {
    form.rows = {{.kind = RowKind::Line, .id = 1, .label = u"Ordner", .buttons = {{11, u"..."}}},
                 {.kind = RowKind::Check, .id = 2, .label = u"Exklusiv"}};
    form.states[1].enabled = false;
    form.states[2].visible = false;
    Show();
    EXPECT_FALSE(IsEnabled(1));
    EXPECT_FALSE(IsEnabled(11));
    EXPECT_FALSE(IsVisible(2));
    form.states.clear();
    view.Refresh();
    EXPECT_TRUE(IsEnabled(1));
    EXPECT_TRUE(IsEnabled(11));
    EXPECT_TRUE(IsVisible(2));
}

TEST_F(FormViewTest, MessageTakesThePlaceOfTheHint) {
    form.rows = {{.kind = RowKind::Line, .id = 1, .label = u"Ordner", .hint = u"Nur der Ordner."}};
    form.states[1].note = u"noch 3 Zeichen";
    Show();
    EXPECT_EQ(u"Nur der Ordner.", TextOf(1, FormPart::Hint));
    EXPECT_EQ(u"noch 3 Zeichen", TextOf(1, FormPart::Note));
    EXPECT_FALSE(IsVisible(1, FormPart::Icon));
    form.states[1].message = u"Der Ordner ist zu lang.";
    view.Refresh();
    EXPECT_EQ(u"Der Ordner ist zu lang.", TextOf(1, FormPart::Hint));
    EXPECT_TRUE(IsVisible(1, FormPart::Icon));
    form.states[1].message.clear();
    view.Refresh();
    EXPECT_EQ(u"Nur der Ordner.", TextOf(1, FormPart::Hint));
    EXPECT_FALSE(IsVisible(1, FormPart::Icon));
}

TEST_F(FormViewTest, CaretStaysWhileTheUserTypes) {
    form.rows = {{.kind = RowKind::Line, .id = 1, .label = u"Ordner"}};
    form.states[1].text = u"Kunden";
    Show();
    Focus(1);
    SendMessageW(Part(1), EM_SETSEL, 2, 2);
    Key('X');
    EXPECT_EQ(u"Kuxnden", form.states[1].text);
    EXPECT_EQ(MAKELRESULT(3, 3), SendMessageW(Part(1), EM_GETSEL, 0, 0));
}

TEST_F(FormViewTest, TextOfTheModelLeavesTheCaretWhereItWas) {
    form.rows = {{.kind = RowKind::Line, .id = 1, .label = u"Ordner"}};
    form.states[1].text = u"Kunden";
    Show();
    Focus(1);
    SendMessageW(Part(1), EM_SETSEL, 1, 4);
    form.states[1].text = u"KUNDEN";
    view.Refresh();
    EXPECT_EQ(u"KUNDEN", TextOf(1));
    EXPECT_EQ(MAKELRESULT(1, 4), SendMessageW(Part(1), EM_GETSEL, 0, 0));
    EXPECT_THAT(form.log, IsEmpty());
}

TEST_F(FormViewTest, UndoIsTheModels) {
    form.rows = {{.kind = RowKind::Line, .id = 1, .label = u"Ordner"}};
    form.canUndo = true;
    Show();
    Focus(1);
    Key('Z', VK_CONTROL);
    EXPECT_THAT(form.log, ElementsAre("Undo 1"));
    EXPECT_EQ(u"zurück", TextOf(1));
    view.Undo();
    SendMessageW(Part(1), WM_UNDO, 0, 0);
    EXPECT_THAT(form.log, ElementsAre("Undo 1", "Undo 1", "Undo 1"));
}

TEST_F(FormViewTest, UndoIsTheControlsWhenTheModelHasNone) {
    form.rows = {{.kind = RowKind::Line, .id = 1, .label = u"Ordner"}};
    Show();
    Focus(1);
    Key('X');
    Key('Z', VK_CONTROL);
    EXPECT_EQ(u"", TextOf(1));
    EXPECT_EQ(u"", form.states[1].text);
}

TEST_F(FormViewTest, UndoWorksInCheckBoxesToo) {
    form.rows = {{.kind = RowKind::Check, .id = 1, .label = u"Exklusiv"}};
    Show();
    Focus(1);
    Key('Z', VK_CONTROL);
    EXPECT_THAT(form.log, ElementsAre("Undo 1"));
}

TEST_F(FormViewTest, AccessKeyOfALabelMovesTheFocusToItsControl) {
    form.rows = {{.kind = RowKind::Line, .id = 1, .label = u"&Ordner", .name = u"DBPath"},
                 {.kind = RowKind::Line, .id = 2, .label = u"&Datei", .name = u"DBName"},
                 {.kind = RowKind::List, .id = 3, .label = u"&Liste"}};
    Show();
    Focus(1);
    AccessKey(u'd');
    EXPECT_EQ(Part(2), GetFocus());
    AccessKey(u'l');
    EXPECT_EQ(Part(3), GetFocus());
}

TEST_F(FormViewTest, TabFollowsTheOrderOfTheRows) {
    form.rows = {{.kind = RowKind::Line, .id = 1, .label = u"Ordner", .buttons = {{11, u"..."}}},
                 {.kind = RowKind::Secret, .id = 2, .label = u"Kennwort"},
                 {.kind = RowKind::Lines, .id = 3, .label = u"Text"},
                 {.kind = RowKind::Check, .id = 4, .label = u"Exklusiv"},
                 {.kind = RowKind::Choice, .id = 5, .label = u"Version"},
                 {.kind = RowKind::List, .id = 6, .buttons = {{12, u"Neu"}}},
                 {.kind = RowKind::Output, .id = 7},
                 {.kind = RowKind::Buttons, .buttons = {{13, u"Hilfe"}}}};
    Show();
    Focus(1);
    for (const HWND next : {Part(11), Part(2), Part(2, FormPart::Reveal), Part(3), Part(4), Part(5),
                            Part(6), Part(12), Part(7), Part(13), Part(1)}) {
        Key(VK_TAB);
        EXPECT_EQ(next, GetFocus());
    }
}

class FormViewLong : public FormViewTest {
protected:
    FormViewLong() {
        for (std::int32_t id = 1; id <= 30; ++id) {
            form.rows.push_back({.kind = RowKind::Line, .id = id, .label = u"Ordner"});
        }
    }
    bool IsInSight(std::int32_t id) const {
        const RECT place = PlaceOf(id);
        return place.top >= 0 && place.bottom <= 400;
    }
    int ScrollPosition() const { return GetScrollPos(view.Window(), SB_VERT); }
};

TEST_F(FormViewLong, RowWithTheFocusIsInSight) {
    Show();
    EXPECT_FALSE(IsInSight(30));
    Focus(30);
    EXPECT_TRUE(IsInSight(30));
    EXPECT_EQ(30, view.FocusedRow());
    Focus(1);
    EXPECT_TRUE(IsInSight(1));
    EXPECT_EQ(0, ScrollPosition());
}

TEST_F(FormViewLong, RowThatTabReachesComesIntoSight) {
    Show();
    Focus(1);
    Key(VK_TAB, VK_SHIFT);
    EXPECT_EQ(Part(30), GetFocus());
    EXPECT_TRUE(IsInSight(30));
}

TEST_F(FormViewLong, WheelScrolls) {
    Show();
    const LONG before = PlaceOf(1).top;
    SendMessageW(Part(1), WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
    const LONG after = PlaceOf(1).top;
    EXPECT_LT(after, before);
    EXPECT_EQ(before - after, ScrollPosition());
    SendMessageW(view.Window(), WM_MOUSEWHEEL, MAKEWPARAM(0, 10 * WHEEL_DELTA), 0);
    EXPECT_EQ(before, PlaceOf(1).top);
}

TEST_F(FormViewLong, ScrollBarScrolls) {
    Show();
    SendMessageW(view.Window(), WM_VSCROLL, SB_BOTTOM, 0);
    EXPECT_TRUE(IsInSight(30));
    SendMessageW(view.Window(), WM_VSCROLL, SB_PAGEUP, 0);
    EXPECT_FALSE(IsInSight(30));
    SendMessageW(view.Window(), WM_VSCROLL, SB_TOP, 0);
    EXPECT_TRUE(IsInSight(1));
}

TEST_F(FormViewLong, ControlsStayWhereTheyAreWhenTheScrollBarComes) {
    Show();
    const RECT scrolling = PlaceOf(1);
    EXPECT_NE(0, GetWindowLongW(view.Window(), GWL_STYLE) & WS_VSCROLL);
    MoveWindow(view.Window(), 0, 0, 700, 4000, TRUE);
    const RECT whole = PlaceOf(1);
    EXPECT_EQ(0, GetWindowLongW(view.Window(), GWL_STYLE) & WS_VSCROLL);
    EXPECT_EQ(scrolling.left, whole.left);
    EXPECT_EQ(scrolling.right, whole.right);
}

TEST_F(FormViewLong, AnotherFormBeginsAtItsTop) {
    Show();
    Focus(30);
    FakeForm other;
    other.rows = form.rows;
    other.states[1].text = u"anders";
    view.SetModel(&other);
    EXPECT_EQ(0, ScrollPosition());
    EXPECT_EQ(u"anders", TextOf(1));
    EXPECT_TRUE(IsInSight(1));
    view.SetModel(nullptr);
    EXPECT_EQ(nullptr, GetWindow(view.Window(), GW_CHILD));
}

TEST_F(FormViewTest, EverythingIsScaledWithTheResolution) {
    form.rows = {{.kind = RowKind::Line, .id = 1, .label = u"&Ordner", .hint = u"Nur der Ordner."}};
    Show();
    const RECT before = PlaceOf(1);
    const LONG hintBefore = PlaceOf(1, FormPart::Hint).bottom;
    MoveWindow(view.Window(), 0, 0, 1400, 800, TRUE);
    view.SetDpi(192);
    const RECT after = PlaceOf(1);
    EXPECT_EQ(22, after.top);
    EXPECT_EQ(11, before.top);
    EXPECT_NEAR(2 * (before.bottom - before.top), after.bottom - after.top, 6);
    EXPECT_NEAR(2 * hintBefore, PlaceOf(1, FormPart::Hint).bottom, 8);
    EXPECT_NEAR(2 * before.left, after.left, 4);
}

TEST_F(FormViewTest, NoTextIsCutAtAnyResolution) {
    form = SampleForm();
    Show();
    EXPECT_THAT(CutTexts(view.Window()), IsEmpty());
    for (const int dpi : {120, 144, 168, 192, 240}) {
        MoveWindow(view.Window(), 0, 0, Scaled(600, dpi), Scaled(330, dpi), TRUE);
        view.SetDpi(dpi);
        EXPECT_THAT(CutTexts(view.Window()), IsEmpty()) << dpi;
    }
}

TEST_F(FormViewTest, ScreenReadersGetNames) {
    form = SampleForm();
    Show();
    EXPECT_EQ(u"Ordner:", AccessibleName(Part(3)));
    EXPECT_EQ(u"Kennwort:", AccessibleName(Part(5)));
    EXPECT_EQ(u"Meldung:", AccessibleName(Part(6)));
    EXPECT_EQ(u"Exklusiv öffnen", AccessibleName(Part(7)));
    EXPECT_EQ(u"Neu ...", AccessibleName(Part(110)));
}

/// For lists, which the fake of the system does not name, the rule that Windows goes by.
TEST_F(FormViewTest, LabelsStandDirectlyBeforeTheirControls) {
    form = SampleForm();
    Show();
    for (const std::int32_t id : {3, 4, 5, 6, 9, 10, 11}) {
        EXPECT_EQ(Part(id, FormPart::Label), GetWindow(Part(id), GW_HWNDPREV)) << id;
    }
}

TEST_F(FormViewTest, FailuresOfTheModelAreHandedOn) {
    form.rows = {{.kind = RowKind::Buttons, .buttons = {{11, u"Neu"}}}};
    form.raises = true;
    std::string failure;
    view.onFailure = [&](const std::exception_ptr& raised) {
        try {
            std::rethrow_exception(raised);
        } catch (const std::exception& exception) {
            failure = exception.what();
        }
    };
    Show();
    SendMessageW(Part(11), BM_CLICK, 0, 0);
    EXPECT_EQ("form failed", failure);
    failure.clear();
    Focus(11);
    Key(VK_RETURN);
    EXPECT_EQ("form failed", failure);
}

TEST_F(FormViewTest, EverythingTakenFromTheSystemIsGivenBack) {
    const GdiLedger ledger;
    {
        FormView other;
        FakeForm sample = SampleForm();
        ASSERT_TRUE(other.Create(host, kNormalDpi, true));
        MoveWindow(other.Window(), 0, 0, 700, 400, TRUE);
        other.SetModel(&sample);
        other.SetDpi(192);
        UpdateWindow(other.Window());
        other.SetModel(nullptr);
    }
    EXPECT_GT(ledger.Taken(), 0);
    EXPECT_EQ("", ledger.Open());
}

}  // namespace
}  // namespace tarvex
