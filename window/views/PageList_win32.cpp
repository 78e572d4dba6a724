#include "window/views/PageList_win32.h"

#include "platform/win32/Dpi.h"
#include "platform/win32/WideText.h"
#include "window/formviews/ChildControl_win32.h"

namespace tarvex {

namespace {

constexpr int kLineHeight = 26;  // at kNormalDpi
constexpr int kMargin = 8;       // at kNormalDpi
constexpr std::u16string_view kMark = u"(!)";

}  // namespace

bool PageList::Create(HWND window) {
    // Hidden, but a screen reader takes it for the name of the list.
    CreateChild(window, L"STATIC", u"Seiten", 0);
    constexpr DWORD kStyle = WS_VISIBLE | WS_TABSTOP | LBS_NOTIFY | LBS_HASSTRINGS |
                             LBS_OWNERDRAWFIXED | LBS_NOINTEGRALHEIGHT;
    list_ = CreateChild(window, L"LISTBOX", u"Seiten", kStyle, kPageListId);
    return list_ != nullptr;
}

void PageList::SetFont(HFONT font, int dpi) {
    dpi_ = dpi;
    SendMessageW(list_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    SendMessageW(list_, LB_SETITEMHEIGHT, 0, Scaled(kLineHeight, dpi));
}

void PageList::Show(const std::vector<PageLine>& lines, int selected) {
    if (lines != lines_) {
        lines_ = lines;
        SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
        SendMessageW(list_, LB_RESETCONTENT, 0, 0);
        for (const PageLine& line : lines) {
            std::u16string text = line.title;
            if (line.hasProblem) {
                text.append(u" ").append(kMark);
            }
            SendMessageW(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(text)));
        }
        SendMessageW(list_, LB_SETCURSEL, static_cast<WPARAM>(selected), 0);
        SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
        InvalidateRect(list_, nullptr, TRUE);
    } else if (selected != Selected()) {
        SendMessageW(list_, LB_SETCURSEL, static_cast<WPARAM>(selected), 0);
    }
}

int PageList::Selected() const {
    return static_cast<int>(SendMessageW(list_, LB_GETCURSEL, 0, 0));
}

void PageList::Draw(const DRAWITEMSTRUCT& item) const {
    if (item.itemID >= lines_.size()) {
        return;
    }
    const PageLine& line = lines_[item.itemID];
    const bool selected = (item.itemState & ODS_SELECTED) != 0;
    FillRect(item.hDC, &item.rcItem, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    RECT text = item.rcItem;
    text.left += Scaled(kMargin, dpi_);
    text.right -= Scaled(kMargin, dpi_);
    constexpr UINT kFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX;
    DrawTextW(item.hDC, Wide(line.title), -1, &text, kFormat | DT_END_ELLIPSIS);
    if (line.hasProblem) {
        const std::u16string mark(kMark);
        DrawTextW(item.hDC, Wide(mark), -1, &text, kFormat | DT_RIGHT);
    }
    if ((item.itemState & ODS_FOCUS) != 0 && (item.itemState & ODS_NOFOCUSRECT) == 0) {
        DrawFocusRect(item.hDC, &item.rcItem);
    }
}

}  // namespace tarvex
