#include "window/formviews/ListControl_win32.h"

#include <algorithm>

#include "platform/win32/WideText.h"
#include "window/formviews/ChildControl_win32.h"

namespace tarvex::list_control {

namespace {

constexpr DWORD kDoubleBuffer = 0x10000;  // LVS_EX_DOUBLEBUFFER

int ColumnCount(HWND list) {
    const auto header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
    return static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
}

void SetCell(HWND list, std::size_t line, std::size_t column, const std::u16string& text) {
    std::u16string copy = text;
    LVITEMW item{};
    item.iSubItem = static_cast<int>(column);
    item.pszText = Wide(copy);
    SendMessageW(list, LVM_SETITEMTEXTW, line, reinterpret_cast<LPARAM>(&item));
}

int WidthOf(HWND list, const wchar_t* text) {
    return static_cast<int>(
        SendMessageW(list, LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(text)));
}

/// The width that the texts of a column need.
int NeededWidth(HWND list, int column) {
    constexpr int kLongest = 1000;
    wchar_t text[kLongest] = {};
    LVCOLUMNW header{};
    header.mask = LVCF_TEXT;
    header.pszText = text;
    header.cchTextMax = kLongest;
    SendMessageW(list, LVM_GETCOLUMNW, static_cast<WPARAM>(column),
                 reinterpret_cast<LPARAM>(&header));
    int width = WidthOf(list, text);
    const auto lines = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    for (int line = 0; line < lines; ++line) {
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = text;
        item.cchTextMax = kLongest;
        SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(line),
                     reinterpret_cast<LPARAM>(&item));
        width = std::max(width, WidthOf(list, text));
    }
    return width;
}

}  // namespace

HWND Create(HWND parent, const std::vector<std::u16string>& columns, int id) {
    const bool hasHeaders = std::any_of(columns.begin(), columns.end(),
                                        [](const std::u16string& text) { return !text.empty(); });
    const DWORD style = WS_TABSTOP | WS_GROUP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS |
                        LVS_NOSORTHEADER | (hasHeaders ? 0 : LVS_NOCOLUMNHEADER);
    const HWND list = CreateChild(parent, WC_LISTVIEWW, u"", style, id, WS_EX_CLIENTEDGE);
    SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, 0,
                 LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP | kDoubleBuffer);
    for (std::size_t i = 0; i < std::max<std::size_t>(columns.size(), 1); ++i) {
        std::u16string text = columns.empty() ? std::u16string() : columns[i];
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_SUBITEM;
        column.iSubItem = static_cast<int>(i);
        column.pszText = Wide(text);
        SendMessageW(list, LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
    }
    return list;
}

void SetItems(HWND list, const Items& items, const Items& before) {
    SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    for (std::size_t line = before.size(); line > items.size(); --line) {
        SendMessageW(list, LVM_DELETEITEM, line - 1, 0);
    }
    const auto columns = static_cast<std::size_t>(ColumnCount(list));
    for (std::size_t line = 0; line < items.size(); ++line) {
        if (line >= before.size()) {
            LVITEMW item{};
            item.iItem = static_cast<int>(line);
            SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
        } else if (items[line] == before[line]) {
            continue;
        }
        for (std::size_t column = 0; column < columns; ++column) {
            SetCell(list, line, column,
                    column < items[line].size() ? items[line][column] : std::u16string());
        }
    }
    SendMessageW(list, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list, nullptr, TRUE);
}

std::int32_t Selected(HWND list) {
    return static_cast<std::int32_t>(
        SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
}

void Select(HWND list, std::int32_t line) {
    constexpr UINT kChosen = LVIS_SELECTED | LVIS_FOCUSED;
    LVITEMW item{};
    item.stateMask = kChosen;
    // Line -1 stands for all lines.
    item.state = line < 0 ? 0 : kChosen;
    SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(line),
                 reinterpret_cast<LPARAM>(&item));
    if (line >= 0) {
        SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(line), FALSE);
    }
}

void FitColumns(HWND list, int padding) {
    RECT inner{};
    GetClientRect(list, &inner);
    int rest = static_cast<int>(inner.right);
    const int columns = ColumnCount(list);
    for (int column = 0; column < columns; ++column) {
        int width = NeededWidth(list, column) + padding;
        if (column == columns - 1) {
            width = std::max(width, rest);
        }
        rest -= width;
        SendMessageW(list, LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), width);
    }
}

}  // namespace tarvex::list_control
