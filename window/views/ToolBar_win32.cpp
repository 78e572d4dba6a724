#include "window/views/ToolBar_win32.h"

#include <vector>

#include "platform/win32/WideText.h"
#include "window/formviews/ChildControl_win32.h"
#include "window/views/MenuBar_win32.h"

namespace tarvex {

namespace {

// Around a caption, both sides together, at kNormalDpi.
constexpr int kAcross = 16;
constexpr int kDown = 8;

}  // namespace

bool ToolBar::Create(HWND window) {
    constexpr DWORD kStyle =
        WS_VISIBLE | TBSTYLE_FLAT | CCS_NODIVIDER | CCS_NORESIZE | CCS_NOPARENTALIGN;
    bar_ = CreateChild(window, L"ToolbarWindow32", u"Werkzeuge", kStyle);
    if (bar_ == nullptr) {
        return false;
    }
    SendMessageW(bar_, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    SendMessageW(bar_, TB_SETBITMAPSIZE, 0, 0);
    return true;
}

void ToolBar::SetFonts(const FormFonts& fonts) {
    // The buttons are made anew: they keep the size that their captions had.
    while (SendMessageW(bar_, TB_DELETEBUTTON, 0, 0) != FALSE) {
    }
    SendMessageW(bar_, WM_SETFONT, reinterpret_cast<WPARAM>(fonts.Font(FormFont::Normal)), TRUE);
    SendMessageW(bar_, TB_SETBUTTONSIZE, 0,
                 MAKELPARAM(0, fonts.LineHeight(FormFont::Normal) + fonts.Scaled(kDown)));
    for (const MenuEntry& entry : ToolButtons()) {
        const std::u16string caption(entry.caption);
        TBBUTTON button{};
        button.iBitmap = I_IMAGENONE;
        button.idCommand = kCommandIds + static_cast<int>(entry.command);
        button.fsState = TBSTATE_ENABLED;
        button.fsStyle = BTNS_BUTTON;
        button.iString = reinterpret_cast<INT_PTR>(Wide(caption));
        SendMessageW(bar_, TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&button));
        TBBUTTONINFOW size{};
        size.cbSize = sizeof(size);
        size.dwMask = TBIF_SIZE;
        size.cx =
            static_cast<WORD>(fonts.TextWidth(FormFont::Normal, caption) + fonts.Scaled(kAcross));
        SendMessageW(bar_, TB_SETBUTTONINFOW, static_cast<WPARAM>(button.idCommand),
                     reinterpret_cast<LPARAM>(&size));
    }
}

SIZE ToolBar::Size() const {
    SIZE size{};
    SendMessageW(bar_, TB_GETMAXSIZE, 0, reinterpret_cast<LPARAM>(&size));
    return size;
}

void ToolBar::Place(const RECT& area) const {
    SetWindowPos(bar_, nullptr, area.left, area.top, static_cast<int>(area.right - area.left),
                 static_cast<int>(area.bottom - area.top), SWP_NOZORDER | SWP_NOACTIVATE);
}

void ToolBar::Enable(const std::function<bool(Command)>& isEnabled) const {
    for (const MenuEntry& entry : ToolButtons()) {
        SendMessageW(bar_, TB_ENABLEBUTTON,
                     static_cast<WPARAM>(kCommandIds + static_cast<int>(entry.command)),
                     MAKELPARAM(isEnabled(entry.command) ? TRUE : FALSE, 0));
    }
}

}  // namespace tarvex
