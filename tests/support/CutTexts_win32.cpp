#include "tests/support/CutTexts_win32.h"

#include <algorithm>
#include <string_view>

#include "platform/win32/Handles.h"
#include "platform/win32/WideText.h"
#include "tests/support/WindowDriver_win32.h"
#include "text/Text.h"

namespace tarvex {

namespace {

/// Measures in the font of a control.
class ControlText {
public:
    explicit ControlText(HWND control) : dc_(control) {
        auto* const font = reinterpret_cast<HGDIOBJ>(SendMessageW(control, WM_GETFONT, 0, 0));
        before_ = font == nullptr ? nullptr : SelectObject(dc_.Get(), font);
    }
    ~ControlText() {
        if (before_ != nullptr) {
            SelectObject(dc_.Get(), before_);
        }
    }
    ControlText(const ControlText&) = delete;
    ControlText& operator=(const ControlText&) = delete;

    SIZE Extent(const std::u16string& text, LONG width, UINT flags) const {
        RECT extent = {0, 0, width, 0};
        DrawTextW(dc_.Get(), Wide(text), static_cast<int>(text.size()), &extent,
                  DT_CALCRECT | DT_EXPANDTABS | flags);
        return {extent.right, extent.bottom};
    }
    bool FitsBroken(const std::u16string& text, LONG width, LONG height, UINT flags) const {
        const SIZE needed = Extent(text, width, DT_WORDBREAK | flags);
        return needed.cx <= width && needed.cy <= height;
    }
    bool FitsLine(const std::u16string& text, LONG width) const {
        return Extent(text, 0, DT_SINGLELINE).cx <= width;
    }

private:
    WindowDc dc_;
    HGDIOBJ before_ = nullptr;
};

bool StaticFits(HWND control, const std::u16string& text, const RECT& inner) {
    const LONG style = GetWindowLongW(control, GWL_STYLE);
    if ((style & SS_TYPEMASK) == SS_OWNERDRAW || (style & SS_TYPEMASK) == SS_ICON) {
        return true;
    }
    const UINT flags = ((style & SS_NOPREFIX) != 0 ? DT_NOPREFIX : 0U) |
                       ((style & SS_EDITCONTROL) != 0 ? DT_EDITCONTROL : 0U);
    return ControlText(control).FitsBroken(text, inner.right, inner.bottom, flags);
}

bool ButtonFits(HWND control, const std::u16string& text, const RECT& inner) {
    const ControlText measure(control);
    const LONG kind = GetWindowLongW(control, GWL_STYLE) & BS_TYPEMASK;
    if (kind == BS_PUSHBUTTON || kind == BS_DEFPUSHBUTTON) {
        const LONG border = 3;
        return measure.FitsLine(text, inner.right - 2 * border) &&
               measure.Extent(text, 0, DT_SINGLELINE).cy <= inner.bottom - 2 * border;
    }
    // The box takes about the height of a line.
    const LONG box = measure.Extent(u"X", 0, DT_SINGLELINE).cy + 3;
    return measure.FitsBroken(text, inner.right - box, inner.bottom, 0);
}

bool ListFits(HWND list) {
    auto* const header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
    const auto columns = static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
    const auto lines = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    constexpr int kLongest = 1000;
    const auto fits = [&](const wchar_t* text, int column) {
        return SendMessageW(list, LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(text)) + 6 <=
               SendMessageW(list, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0);
    };
    for (int column = 0; column < columns; ++column) {
        wchar_t text[kLongest] = {};
        LVCOLUMNW title{};
        title.mask = LVCF_TEXT;
        title.pszText = text;
        title.cchTextMax = kLongest;
        SendMessageW(list, LVM_GETCOLUMNW, static_cast<WPARAM>(column),
                     reinterpret_cast<LPARAM>(&title));
        if (!fits(text, column)) {
            return false;
        }
        for (int line = 0; line < lines; ++line) {
            LVITEMW item{};
            item.iSubItem = column;
            item.pszText = text;
            item.cchTextMax = kLongest;
            SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(line),
                         reinterpret_cast<LPARAM>(&item));
            if (!fits(text, column)) {
                return false;
            }
        }
    }
    return true;
}

BOOL CALLBACK Check(HWND control, LPARAM argument) {
    auto& cut = *reinterpret_cast<std::vector<std::string>*>(argument);
    wchar_t className[100] = {};
    GetClassNameW(control, className, 100);
    const std::wstring_view name(className);
    if (IsWindowVisible(control) == FALSE) {
        return TRUE;
    }
    RECT inner{};
    GetClientRect(control, &inner);
    const std::u16string text = WindowDriver::TextOf(control);
    const bool fits =
        name == L"Static"   ? StaticFits(control, text, inner)
        : name == L"Button" ? ButtonFits(control, text, inner)
        : name == L"ComboBox"
            ? ControlText(control).FitsLine(text, inner.right - GetSystemMetrics(SM_CXVSCROLL) - 6)
        : name == L"SysListView32" ? ListFits(control)
                                   : true;
    if (!fits) {
        cut.push_back(text::ToUtf8(FromWide(name)) + ": " + text::ToUtf8(text));
    }
    return TRUE;
}

}  // namespace

std::vector<std::string> CutTexts(HWND window) {
    std::vector<std::string> cut;
    EnumChildWindows(window, Check, reinterpret_cast<LPARAM>(&cut));
    return cut;
}

}  // namespace tarvex
