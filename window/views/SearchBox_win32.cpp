#include "window/views/SearchBox_win32.h"

#include <algorithm>
#include <utility>

#include "platform/win32/Dpi.h"
#include "platform/win32/WideText.h"
#include "window/formviews/ChildControl_win32.h"
#include "window/formviews/FontOnScreen_win32.h"

namespace tarvex {

namespace {

// At kNormalDpi.
constexpr int kBoxWidth = 170;
constexpr int kListWidth = 500;  // at least
constexpr int kLabelWidth = 46;
constexpr int kGap = 6;
constexpr int kAroundLine = 8;  // left and right of a line together
constexpr int kMostLines = 10;

}  // namespace

bool SearchBox::Create(HWND window, Events events) {
    events_ = std::move(events);
    label_ = CreateChild(window, L"STATIC", u"Suche:", WS_VISIBLE | SS_CENTERIMAGE | SS_RIGHT);
    edit_ = CreateChild(window, L"EDIT", u"", WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL, kSearchId,
                        WS_EX_CLIENTEDGE);
    list_ =
        CreateChild(window, L"LISTBOX", u"Gefundene Einstellungen",
                    WS_BORDER | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_CLIPSIBLINGS,
                    kSearchHitsId);
    return edit_ != nullptr && list_ != nullptr;
}

void SearchBox::SetFont(HFONT font, int dpi) {
    font_ = font;
    dpi_ = dpi;
    for (const HWND control : {label_, edit_, list_}) {
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    }
}

void SearchBox::Place(const RECT& row) {
    const int height = static_cast<int>(row.bottom - row.top);
    const int left = row.right - Scaled(kBoxWidth, dpi_);
    const int labelLeft = left - Scaled(kLabelWidth + kGap, dpi_);
    MoveWindow(label_, labelLeft, row.top, Scaled(kLabelWidth, dpi_), height, TRUE);
    MoveWindow(edit_, left, row.top, Scaled(kBoxWidth, dpi_), height, TRUE);
    row_ = row;
    if (IsWindowVisible(list_) != FALSE) {
        ShowHits(SendMessageW(list_, LB_GETCURSEL, 0, 0));
    }
}

void SearchBox::Focus() const {
    SetFocus(edit_);
    SendMessageW(edit_, EM_SETSEL, 0, -1);
}

void SearchBox::CloseList() const {
    ShowWindow(list_, SW_HIDE);
}

bool SearchBox::OnCommand(int id, int notification) {
    if (id == kSearchId) {
        if (notification == EN_CHANGE) {
            Find();
        } else if (notification == EN_KILLFOCUS && GetFocus() != list_) {
            CloseList();
        }
        return true;
    }
    if (id == kSearchHitsId) {
        if (notification == LBN_SELCHANGE) {
            Choose();
        } else if (notification == LBN_KILLFOCUS && GetFocus() != edit_) {
            CloseList();
        }
        return true;
    }
    return false;
}

bool SearchBox::OnKey(const MSG& message) {
    if (message.message != WM_KEYDOWN || !Contains(message.hwnd)) {
        return false;
    }
    switch (message.wParam) {
        case VK_RETURN:
            Choose();
            return true;
        case VK_ESCAPE:
            SetWindowTextW(edit_, L"");
            CloseList();
            SetFocus(edit_);
            return true;
        case VK_DOWN:
        case VK_UP: {
            // The box keeps the focus, so that typing goes on there.
            const LRESULT count = SendMessageW(list_, LB_GETCOUNT, 0, 0);
            const LRESULT step = message.wParam == VK_DOWN ? 1 : -1;
            const LRESULT next = SendMessageW(list_, LB_GETCURSEL, 0, 0) + step;
            if (count > 0) {
                SendMessageW(list_, LB_SETCURSEL,
                             static_cast<WPARAM>(std::clamp<LRESULT>(next, 0, count - 1)), 0);
            }
            return true;
        }
        default:
            return false;
    }
}

void SearchBox::Find() {
    const std::u16string text = ControlText(edit_);
    hits_ = text.empty() ? std::vector<std::u16string>() : events_.find(text);
    if (text.empty()) {
        CloseList();
        return;
    }
    ShowHits(hits_.empty() ? -1 : 0);
    ShowWindow(list_, SW_SHOWNA);
}

void SearchBox::ShowHits(LRESULT chosen) {
    const std::vector<std::u16string> lines =
        hits_.empty() ? std::vector<std::u16string>{u"Nichts gefunden"} : hits_;
    const auto count = static_cast<int>(lines.size());
    const FontOnScreen screen(font_);
    int needed = 0;
    for (const std::u16string& line : lines) {
        needed = std::max(needed, screen.WidthOf(line));
    }
    const int around = Scaled(kAroundLine, dpi_) + 2 * GetSystemMetrics(SM_CXBORDER) +
                       (count > kMostLines ? GetSystemMetrics(SM_CXVSCROLL) : 0);
    const int most = static_cast<int>(row_.right) - Scaled(kGap, dpi_);
    const int width = std::min(std::max(needed + around, Scaled(kListWidth, dpi_)), most);
    SendMessageW(list_, LB_RESETCONTENT, 0, 0);
    for (const std::u16string& line : lines) {
        SendMessageW(list_, LB_ADDSTRING, 0,
                     reinterpret_cast<LPARAM>(Wide(screen.Fitting(line, width - around))));
    }
    SendMessageW(list_, LB_SETCURSEL, static_cast<WPARAM>(chosen), 0);
    const auto height =
        static_cast<int>(SendMessageW(list_, LB_GETITEMHEIGHT, 0, 0)) * std::min(count, kMostLines);
    SetWindowPos(list_, HWND_TOP, static_cast<int>(row_.right) - width,
                 static_cast<int>(row_.bottom), width, height + 2 * GetSystemMetrics(SM_CYBORDER),
                 SWP_NOACTIVATE);
}

void SearchBox::Choose() {
    const LRESULT selected = SendMessageW(list_, LB_GETCURSEL, 0, 0);
    if (selected >= 0 && IsWindowVisible(list_) != FALSE) {
        CloseList();
        events_.goTo(static_cast<std::size_t>(selected));
    }
}

}  // namespace tarvex
