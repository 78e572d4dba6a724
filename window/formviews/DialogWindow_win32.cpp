#include "window/formviews/DialogWindow_win32.h"

#include <algorithm>

#include "platform/win32/Dpi.h"
#include "platform/win32/SystemLibrary.h"
#include "platform/win32/WideText.h"
#include "window/formviews/ChildControl_win32.h"

namespace tarvex {

namespace {

constexpr UINT kDpiChanged = 0x02E0;  // WM_DPICHANGED, from Windows 8.1 on
constexpr int kMargin = 11;           // at kNormalDpi, as all lengths here
constexpr int kButtonGap = 6;
constexpr int kButtonPadding = 24;
constexpr int kNarrowestButton = 75;

RECT WorkAreaOf(HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    if (window != nullptr &&
        GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor) != FALSE) {
        return monitor.rcWork;
    }
    return WorkAreaAtPointer();
}

/// Disables a window while a block shows another one above it.
class DisabledOwner {
public:
    explicit DisabledOwner(HWND owner)
        : owner_(owner != nullptr && IsWindowEnabled(owner) != FALSE ? owner : nullptr) {
        if (owner_ != nullptr) {
            EnableWindow(owner_, FALSE);
        }
    }
    DisabledOwner(const DisabledOwner&) = delete;
    DisabledOwner& operator=(const DisabledOwner&) = delete;
    ~DisabledOwner() {
        if (owner_ != nullptr) {
            EnableWindow(owner_, TRUE);
        }
    }

private:
    HWND owner_;
};

}  // namespace

DialogWindow::DialogWindow(HWND owner)
    : owner_(owner == nullptr ? nullptr : GetAncestor(owner, GA_ROOT)) {}

int DialogWindow::Show(const Frame& frame) {
    PrepareListsAndBars();
    frame_ = frame;
    pressed_ = frame.cancelId;
    fonts_ = std::make_unique<FormFonts>(owner_ != nullptr ? WindowDpi(owner_) : SystemDpi());
    const DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN |
                        (frame.resizable ? WS_THICKFRAME | WS_MAXIMIZEBOX : 0);
    const DWORD extended = WS_EX_CONTROLPARENT | (frame.resizable ? 0 : WS_EX_DLGMODALFRAME);
    const RECT area = WorkAreaOf(owner_);
    if (!Create({L"TarvexDialog", Wide(frame_.title), style, Centred({1, 1}, area), nullptr, owner_,
                 extended}) ||
        !CreateButtons() || !CreateContent()) {
        Close();
        return pressed_;
    }
    const RECT bounds = StartBounds();
    SetWindowPos(Window(), nullptr, bounds.left, bounds.top, bounds.right - bounds.left,
                 bounds.bottom - bounds.top, SWP_NOZORDER | SWP_NOACTIVATE);
    Place();
    {
        DisabledOwner disabled(owner_);
        ShowInFront();
        if (!FocusContent()) {
            SetFocus(buttons_.front());
        }
        RunLoop();
    }
    if (owner_ != nullptr) {
        SetForegroundWindow(owner_);
    }
    RaiseFailure();
    return pressed_;
}

void DialogWindow::RunLoop() {
    MSG message;
    while (Window() != nullptr && GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (Window() == nullptr || IsDialogMessageW(Window(), &message) == FALSE) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

bool DialogWindow::CreateButtons() {
    for (const Button& button : frame_.buttons) {
        const DWORD style = buttons_.empty() ? BS_DEFPUSHBUTTON | WS_GROUP : BS_PUSHBUTTON;
        const HWND window = CreateChild(Window(), L"BUTTON", button.caption,
                                        style | WS_VISIBLE | WS_TABSTOP, button.id);
        if (window == nullptr) {
            return false;
        }
        SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(fonts_->Font(FormFont::Normal)),
                     FALSE);
        buttons_.push_back(window);
    }
    return true;
}

int DialogWindow::ButtonWidth(const Button& button) const {
    return std::max(fonts_->TextWidth(FormFont::Normal, WithoutAccessKey(button.caption)) +
                        fonts_->Scaled(kButtonPadding),
                    fonts_->Scaled(kNarrowestButton));
}

int DialogWindow::ButtonRowWidth() const {
    int width = 2 * fonts_->Scaled(kMargin) - fonts_->Scaled(kButtonGap);
    for (const Button& button : frame_.buttons) {
        width += ButtonWidth(button) + fonts_->Scaled(kButtonGap);
    }
    return width;
}

int DialogWindow::ButtonHeight() const {
    return fonts_->ControlHeight();
}

/// In the middle of the owner, or of the screen, and not larger than the screen.
RECT DialogWindow::StartBounds() {
    SIZE content = ContentSize();
    content.cx = std::max<LONG>(content.cx, ButtonRowWidth());
    RECT bounds = {0, 0, content.cx, content.cy + ButtonHeight() + fonts_->Scaled(kMargin)};
    AdjustWindowRectEx(&bounds, static_cast<DWORD>(GetWindowLongW(Window(), GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongW(Window(), GWL_EXSTYLE)));
    const RECT area = WorkAreaOf(owner_);
    const SIZE size = {std::min(bounds.right - bounds.left, area.right - area.left),
                       std::min(bounds.bottom - bounds.top, area.bottom - area.top)};
    RECT around = area;
    if (owner_ != nullptr && IsIconic(owner_) == FALSE) {
        GetWindowRect(owner_, &around);
    }
    RECT start = Centred(size, around);
    OffsetRect(&start, std::min<LONG>(0, area.right - start.right),
               std::min<LONG>(0, area.bottom - start.bottom));
    OffsetRect(&start, std::max<LONG>(0, area.left - start.left),
               std::max<LONG>(0, area.top - start.top));
    return start;
}

void DialogWindow::Place() {
    if (buttons_.size() != frame_.buttons.size()) {
        return;
    }
    RECT inner{};
    GetClientRect(Window(), &inner);
    const int margin = fonts_->Scaled(kMargin);
    const int height = ButtonHeight();
    const int top = static_cast<int>(inner.bottom) - margin - height;
    int right = static_cast<int>(inner.right) - margin;
    for (std::size_t i = buttons_.size(); i-- > 0;) {
        const int width = ButtonWidth(frame_.buttons[i]);
        MoveWindow(buttons_[i], right - width, top, width, height, TRUE);
        right -= width + fonts_->Scaled(kButtonGap);
    }
    PlaceContent({0, 0, inner.right, std::max(top, 0)});
}

void DialogWindow::SetDpi(int dpi) {
    auto fonts = std::make_unique<FormFonts>(dpi);
    for (const HWND button : buttons_) {
        SendMessageW(button, WM_SETFONT, reinterpret_cast<WPARAM>(fonts->Font(FormFont::Normal)),
                     TRUE);
    }
    fonts_.swap(fonts);
    OnFonts();
}

void DialogWindow::Press(int id) {
    if (OnButton(id)) {
        pressed_ = id;
        if (owner_ != nullptr) {
            // Before this window goes: another program's would be activated otherwise.
            EnableWindow(owner_, TRUE);
        }
        Close();
    }
}

LRESULT DialogWindow::OnMessage(UINT message, WPARAM first, LPARAM second) {
    if (focus_.OnMessage(Window(), message, first, second)) {
        return 0;
    }
    switch (message) {
        case WM_SIZE:
            Place();
            return 0;
        case WM_GETMINMAXINFO: {
            if (fonts_ != nullptr && !buttons_.empty()) {
                auto& limits = *reinterpret_cast<MINMAXINFO*>(second);
                limits.ptMinTrackSize = {ButtonRowWidth() * 2, ButtonHeight() * 8};
            }
            return 0;
        }
        case WM_ERASEBKGND: {
            RECT inner{};
            GetClientRect(Window(), &inner);
            FillRect(reinterpret_cast<HDC>(first), &inner, GetSysColorBrush(COLOR_3DFACE));
            return TRUE;
        }
        case DM_GETDEFID:
            return MAKELRESULT(frame_.buttons.front().id, DC_HASDEFID);
        case WM_COMMAND: {
            const int id = LOWORD(first);
            const bool ours = std::any_of(frame_.buttons.begin(), frame_.buttons.end(),
                                          [&](const Button& button) { return button.id == id; });
            if (HIWORD(first) == BN_CLICKED && ours) {
                Press(id);
            } else if (id == IDCANCEL && frame_.cancelId != 0) {
                Press(frame_.cancelId);
            }
            return 0;
        }
        case WM_CLOSE:
            if (frame_.cancelId != 0) {
                Press(frame_.cancelId);
            }
            return 0;
        case kDpiChanged: {
            const RECT& bounds = *reinterpret_cast<const RECT*>(second);
            SetDpi(LOWORD(first));
            SetWindowPos(Window(), nullptr, bounds.left, bounds.top, bounds.right - bounds.left,
                         bounds.bottom - bounds.top, SWP_NOZORDER | SWP_NOACTIVATE);
            Place();
            return 0;
        }
        default:
            return ModalWindow::OnMessage(message, first, second);
    }
}

}  // namespace tarvex
