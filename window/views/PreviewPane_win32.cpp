#include "window/views/PreviewPane_win32.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/win32/Dpi.h"
#include "platform/win32/WideText.h"
#include "window/formviews/ChildControl_win32.h"
#include "window/formviews/FontOnScreen_win32.h"

namespace tarvex {

namespace {

// At kNormalDpi.
constexpr int kGap = 6;
constexpr int kPcsWidth = 170;
constexpr int kButtonWidth = 110;
constexpr int kListedPcs = 12;  // lines of the opened box

void Move(HWND control, int left, int top, int width, int height) {
    SetWindowPos(control, nullptr, left, top, std::max(width, 0), std::max(height, 0),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

void SetTextOnce(HWND control, const std::u16string& before, const std::u16string& text,
                 bool always) {
    if (always || before != text) {
        SetWindowTextW(control, Wide(text));
    }
}

}  // namespace

bool PreviewPane::Create(HWND window, Events events) {
    events_ = std::move(events);
    constexpr DWORD kReadOnly = WS_VISIBLE | WS_TABSTOP | ES_READONLY | ES_NOHIDESEL;
    label_ = CreateChild(window, L"STATIC", u"V&orschau auf", WS_VISIBLE | SS_CENTERIMAGE);
    pcs_ = CreateChild(window, L"COMBOBOX", u"",
                       WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, kPreviewPcId);
    // Hidden labels are what screen readers call the controls after them.
    CreateChild(window, L"STATIC", u"Befehlszeile", 0);
    line_ = CreateChild(window, L"EDIT", u"", kReadOnly | ES_AUTOHSCROLL, kPreviewLineId,
                        WS_EX_CLIENTEDGE);
    button_ = CreateChild(window, L"BUTTON", u"", WS_VISIBLE | WS_TABSTOP | BS_PUSHBUTTON,
                          kFindingsButtonId);
    CreateChild(window, L"STATIC", u"Protokoll der Vorschau", 0);
    text_ = CreateChild(
        window, L"EDIT", u"",
        kReadOnly | ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL | WS_VSCROLL | WS_HSCROLL,
        kPreviewTextId, WS_EX_CLIENTEDGE);
    CreateChild(window, L"STATIC", u"Ergebnis der Prüfung", 0);
    findings_ = CreateChild(
        window, L"SysListView32", u"Ergebnis der Prüfung",
        WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_NOCOLUMNHEADER | LVS_SHOWSELALWAYS,
        kFindingsId, WS_EX_CLIENTEDGE);
    SendMessageW(findings_, LVM_SETEXTENDEDLISTVIEWSTYLE, 0,
                 LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_INFOTIP);
    LVCOLUMNW column{};
    column.mask = LVCF_WIDTH;
    SendMessageW(findings_, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
    SendMessageW(text_, EM_SETLIMITTEXT, 0, 0);
    return findings_ != nullptr && text_ != nullptr && line_ != nullptr && pcs_ != nullptr;
}

void PreviewPane::SetFonts(HFONT font, HFONT fixedFont) {
    for (const HWND control : {label_, pcs_, line_, button_, findings_}) {
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    }
    SendMessageW(text_, WM_SETFONT, reinterpret_cast<WPARAM>(fixedFont), TRUE);
    font_ = font;
}

int PreviewPane::FoldedHeight(int dpi) const {
    return RowHeight() + Scaled(2 * kGap, dpi);
}

/// The box takes its height from its font; everything beside it gets the same.
int PreviewPane::RowHeight() const {
    RECT box{};
    GetWindowRect(pcs_, &box);
    return static_cast<int>(box.bottom - box.top);
}

void PreviewPane::Place(const RECT& area, int dpi) {
    const int gap = Scaled(kGap, dpi);
    const int row = RowHeight();
    const int top = area.top + gap;
    int left = area.left + gap;
    const FontOnScreen font(font_);
    const int labelWidth = font.WidthOf(u"Vorschau auf ");
    Move(label_, left, top, labelWidth, row);
    left += labelWidth + gap;
    const int pcsWidth = Scaled(kPcsWidth, dpi);
    Move(pcs_, left, top, pcsWidth, row * kListedPcs);
    left += pcsWidth + gap;
    const int buttonWidth =
        std::max(Scaled(kButtonWidth, dpi), font.WidthOf(state_.findingsTitle) + 4 * gap);
    const int right = area.right - gap;
    Move(line_, left, top, right - buttonWidth - gap - left, row);
    Move(button_, right - buttonWidth, top, buttonWidth, row);
    const int below = top + row + gap;
    for (const HWND control : {text_, findings_}) {
        Move(control, area.left + gap, below, right - area.left - gap, area.bottom - gap - below);
    }
    RECT inner{};
    GetClientRect(findings_, &inner);
    SendMessageW(findings_, LVM_SETCOLUMNWIDTH, 0, MAKELPARAM(inner.right, 0));
}

void PreviewPane::Show(const PreviewPaneState& state) {
    const PreviewPaneState before = std::exchange(state_, state);
    const bool first = !std::exchange(hasState_, true);
    if (first || before.pcs != state.pcs || before.pc != state.pc) {
        ShowPcs();
    }
    SetTextOnce(line_, before.commandLine, state.commandLine, first);
    SetTextOnce(text_, before.text, state.text, first);
    const std::u16string buttonText = state.showsFindings ? u"Protokoll" : state.findingsTitle;
    SetTextOnce(button_, std::exchange(buttonText_, buttonText), buttonText, first);
    if (first || before.findings != state.findings) {
        ShowFindings();
    }
    ShowParts();
    if (before.isOld != state.isOld) {
        InvalidateRect(line_, nullptr, TRUE);
        InvalidateRect(text_, nullptr, TRUE);
    }
}

void PreviewPane::SetFolded(bool folded) {
    folded_ = folded;
    ShowParts();
}

void PreviewPane::ShowParts() const {
    const auto show = [](HWND control, bool visible) {
        ShowWindow(control, visible ? SW_SHOWNA : SW_HIDE);
    };
    show(text_, !folded_ && !state_.showsFindings);
    show(findings_, !folded_ && state_.showsFindings);
}

void PreviewPane::ShowPcs() {
    SendMessageW(pcs_, CB_RESETCONTENT, 0, 0);
    for (const std::u16string& pc : state_.pcs) {
        SendMessageW(pcs_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(pc)));
    }
    SendMessageW(pcs_, CB_SETCURSEL, static_cast<WPARAM>(state_.pc), 0);
}

void PreviewPane::ShowFindings() {
    SendMessageW(findings_, LVM_DELETEALLITEMS, 0, 0);
    int index = 0;
    for (const std::u16string& finding : state_.findings) {
        LVITEMW item{};
        item.mask = LVIF_TEXT;
        item.iItem = index++;
        item.pszText = const_cast<wchar_t*>(Wide(finding));
        SendMessageW(findings_, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }
}

bool PreviewPane::Contains(HWND control) const {
    const std::array<HWND, 5> controls = {pcs_, line_, button_, text_, findings_};
    return std::find(controls.begin(), controls.end(), control) != controls.end();
}

void PreviewPane::FocusFindings() const {
    LVITEMW item{};
    item.state = item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    SendMessageW(findings_, LVM_SETITEMSTATE, 0, reinterpret_cast<LPARAM>(&item));
    SetFocus(findings_);
}

bool PreviewPane::OnCommand(int id, int notification) {
    if (id == kPreviewPcId && notification == CBN_SELCHANGE) {
        events_.choosePc(static_cast<std::int32_t>(SendMessageW(pcs_, CB_GETCURSEL, 0, 0)));
        return true;
    }
    if (id == kFindingsButtonId && notification == BN_CLICKED) {
        events_.toggleFindings();
        return true;
    }
    return id >= kPreviewPcId && id <= kFindingsButtonId;
}

bool PreviewPane::OnNotify(const NMHDR& header) {
    if (header.hwndFrom != findings_) {
        return false;
    }
    if (header.code == static_cast<UINT>(NM_DBLCLK)) {
        GoToSelected();
    }
    return true;
}

bool PreviewPane::OnEnter(HWND control) {
    if (control == findings_) {
        GoToSelected();
        return true;
    }
    if (control == button_) {
        events_.toggleFindings();
        return true;
    }
    return Contains(control);
}

void PreviewPane::GoToSelected() const {
    const LRESULT selected =
        SendMessageW(findings_, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED);
    if (selected >= 0) {
        events_.goToFinding(static_cast<std::size_t>(selected));
    }
}

HBRUSH PreviewPane::OnColor(HDC dc, HWND control) const {
    if (control != line_ && control != text_) {
        return nullptr;
    }
    SetTextColor(dc, GetSysColor(state_.isOld ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT));
    SetBkColor(dc, GetSysColor(COLOR_WINDOW));
    return GetSysColorBrush(COLOR_WINDOW);
}

}  // namespace tarvex
