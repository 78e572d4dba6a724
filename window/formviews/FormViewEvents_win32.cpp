#include "window/formviews/FormView_win32.h"

#include <algorithm>

#include "platform/win32/SystemLibrary.h"
#include "platform/win32/WideText.h"

namespace tarvex {

namespace {

constexpr UINT kSelected = WM_APP + 1;  // a list has another chosen line
constexpr WPARAM kEndOfTransmission = 0x1F;

bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

bool IsEditKind(RowKind kind) {
    return kind == RowKind::Line || kind == RowKind::Secret || kind == RowKind::Lines ||
           kind == RowKind::Output;
}

/// The key of a list that a press of a key of the keyboard is.
ButtonKey ListKey(WPARAM key, bool alt) {
    if (alt) {
        return key == VK_UP ? ButtonKey::Up : key == VK_DOWN ? ButtonKey::Down : ButtonKey::None;
    }
    switch (key) {
        case VK_RETURN:
            return ButtonKey::Enter;
        case VK_INSERT:
            return IsDown(VK_SHIFT) ? ButtonKey::Paste : ButtonKey::Insert;
        case VK_DELETE:
            return ButtonKey::Delete;
        case 'V':
            return IsDown(VK_CONTROL) ? ButtonKey::Paste : ButtonKey::None;
        default:
            return ButtonKey::None;
    }
}

/// The mouse wheel is the control's own. A closed list would choose another line by it.
bool ScrollsItself(const FormControls& row, HWND control) {
    if (control != row.Control()) {
        return false;
    }
    switch (row.Row().kind) {
        case RowKind::Choice:
            return SendMessageW(control, CB_GETDROPPEDSTATE, 0, 0) != FALSE;
        case RowKind::Lines:
        case RowKind::Output:
        case RowKind::List: {
            SCROLLINFO info{};
            info.cbSize = sizeof(info);
            info.fMask = SIF_RANGE | SIF_PAGE;
            return GetScrollInfo(control, SB_VERT, &info) != FALSE &&
                   info.nMax - info.nMin >= static_cast<int>(info.nPage) && info.nMax > info.nMin;
        }
        default:
            return false;
    }
}

bool IsHighContrast() {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof(contrast);
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof(contrast), &contrast, 0) != FALSE &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

/// Between the colours of text and background, but darker than that of what is switched off: it is
/// meant to be read.
COLORREF QuietTextColour() {
    const COLORREF text = GetSysColor(COLOR_BTNTEXT);
    const COLORREF back = GetSysColor(COLOR_3DFACE);
    if (IsHighContrast()) {
        return text;
    }
    const auto mix = [](int a, int b) { return static_cast<BYTE>((a * 3 + b * 2) / 5); };
    return RGB(mix(GetRValue(text), GetRValue(back)), mix(GetGValue(text), GetGValue(back)),
               mix(GetBValue(text), GetBValue(back)));
}

/// What the control itself does with a message.
LRESULT CallControl(HWND control, UINT message, WPARAM first, LPARAM second) {
    return CallWindowProcW(reinterpret_cast<WNDPROC>(GetWindowLongPtrW(control, GWLP_USERDATA)),
                           control, message, first, second);
}

}  // namespace

void FormView::Undo() {
    const HWND focus = GetFocus();
    const FormControls* const row = RowOf(focus);
    if (row == nullptr || model_ == nullptr) {
        return;
    }
    const std::int32_t id = row->Row().id;
    const bool isEdit = IsEditKind(row->Row().kind) && focus == row->Control();
    bool done = false;
    Tell([&] { done = model_->Undo(id); });
    if (!done && isEdit && IsWindow(focus) != FALSE) {
        // Not through the listener, which would come here again.
        CallControl(focus, EM_UNDO, 0, 0);
    }
}

template <class Event>
void FormView::Tell(const Event& event) {
    if (model_ == nullptr || showing_) {
        return;
    }
    event();
    Refresh();
    if (onChanged) {
        onChanged();
    }
}

void FormView::Press(HWND button) {
    FormControls* const row = RowOf(button);
    if (row == nullptr || IsWindowEnabled(button) == FALSE) {
        return;
    }
    const FormButton* const pressed = row->ButtonOf(button);
    if (pressed == nullptr) {
        row->ToggleReveal();
        return;
    }
    if (row->Row().kind == RowKind::List) {
        OnSelected(*row);
    }
    const std::int32_t id = pressed->id;
    Tell([&] { model_->Press(id); });
}

void FormView::OnSelected(FormControls& row) {
    if (selecting_ == row.Control()) {
        selecting_ = nullptr;
    }
    const std::int32_t line = row.Selected();
    if (line != row.Shown().selected) {
        const std::int32_t id = row.Row().id;
        Tell([&] { model_->Select(id, line); });
    }
}

void FormView::TakeSelection() {
    if (FormControls* const row = RowOf(selecting_)) {
        OnSelected(*row);
    }
}

void FormView::OnCommand(int code, HWND control) {
    FormControls* const row = RowOf(control);
    if (row == nullptr || showing_) {
        return;
    }
    const std::int32_t id = row->Row().id;
    if (control != row->Control()) {
        if (code == BN_CLICKED) {
            Press(control);
        }
        return;
    }
    switch (row->Row().kind) {
        case RowKind::Line:
        case RowKind::Secret:
        case RowKind::Lines:
            if (code == EN_CHANGE) {
                const std::u16string text = row->Text();
                Tell([&] { model_->SetText(id, text); });
            }
            return;
        case RowKind::Check:
            if (code == BN_CLICKED) {
                const bool checked = SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED;
                Tell([&] { model_->SetChecked(id, checked); });
            }
            return;
        case RowKind::Radio:
            if (code == BN_CLICKED && !row->Shown().checked) {
                Tell([&] { model_->SetChecked(id, true); });
            }
            return;
        case RowKind::Choice:
            if (code == CBN_SELCHANGE) {
                OnSelected(*row);
            }
            return;
        default:
            return;
    }
}

LRESULT FormView::OnNotify(const NMHDR& header) {
    FormControls* const row = RowOf(header.hwndFrom);
    if (row == nullptr || row->Row().kind != RowKind::List || showing_) {
        return 0;
    }
    if (header.code == LVN_ITEMCHANGED) {
        const auto& change = reinterpret_cast<const NMLISTVIEW&>(header);
        if (((change.uNewState ^ change.uOldState) & LVIS_SELECTED) != 0) {
            // The line before is given up first, the new one chosen then: later is the result.
            selecting_ = header.hwndFrom;
            PostMessageW(window_, kSelected, 0, 0);
        }
    } else if (header.code == static_cast<UINT>(NM_DBLCLK)) {
        const HWND button = row->ButtonFor(ButtonKey::Enter);
        if (button != nullptr && reinterpret_cast<const NMITEMACTIVATE&>(header).iItem >= 0) {
            Press(button);
        }
    }
    return 0;
}

// Which keys a control handles itself that the dialog around it would take.
bool FormView::WantsKey(const FormControls& row, HWND control, const MSG& message) const {
    if (message.message != WM_KEYDOWN || message.wParam != VK_RETURN) {
        return row.Row().kind == RowKind::Radio && message.wParam >= VK_LEFT &&
               message.wParam <= VK_DOWN;
    }
    if (control != row.Control()) {
        return true;
    }
    return (row.Row().kind == RowKind::List && row.ButtonFor(ButtonKey::Enter) != nullptr) ||
           (row.Row().kind == RowKind::Lines &&
            (GetWindowLongW(control, GWL_STYLE) & ES_READONLY) == 0 && !IsDown(VK_CONTROL));
}

bool FormView::OnKey(FormControls& row, HWND control, WPARAM key, bool alt) {
    if (control != row.Control()) {
        if (key == VK_RETURN && !alt) {
            Press(control);
            return true;
        }
        return false;
    }
    if (!alt && IsDown(VK_CONTROL) && key == 'Z') {
        Undo();
        return true;
    }
    const RowKind kind = row.Row().kind;
    if (IsEditKind(kind) && !alt && IsDown(VK_CONTROL) && key == 'A') {
        SendMessageW(control, EM_SETSEL, 0, -1);
        return true;
    }
    if (kind == RowKind::List) {
        const HWND button = row.ButtonFor(ListKey(key, alt));
        if (button != nullptr) {
            Press(button);
            return true;
        }
    }
    if (kind == RowKind::Radio && !alt && key >= VK_LEFT && key <= VK_DOWN) {
        MoveToOption(row, key == VK_RIGHT || key == VK_DOWN);
        return true;
    }
    return false;
}

void FormView::MoveToOption(const FormControls& from, bool forward) {
    std::vector<const FormControls*> options;
    for (const FormControls& row : controls_) {
        if (row.Row().kind == RowKind::Radio && row.Row().group == from.Row().group &&
            row.FirstForFocus() != nullptr) {
            options.push_back(&row);
        }
    }
    const auto here = std::find(options.begin(), options.end(), &from);
    if (here == options.end()) {
        return;
    }
    const auto index = static_cast<std::size_t>(here - options.begin());
    const std::size_t next = (index + (forward ? 1 : options.size() - 1)) % options.size();
    const std::int32_t id = options[next]->Row().id;
    FocusRow(id);
    Tell([&] { model_->SetChecked(id, true); });
}

std::optional<LRESULT> FormView::OnControlMessage(HWND control, UINT message, WPARAM first,
                                                  LPARAM second) {
    try {
        return HandleControlMessage(control, message, first, second);
    } catch (...) {
        if (onFailure) {
            onFailure(std::current_exception());
        }
        return 0;
    }
}

std::optional<LRESULT> FormView::HandleControlMessage(HWND control, UINT message, WPARAM first,
                                                      LPARAM second) {
    FormControls* const row = RowOf(control);
    if (row == nullptr) {
        return std::nullopt;
    }
    const RowKind kind = row->Row().kind;
    const bool isMain = control == row->Control();
    const bool isEdit = isMain && IsEditKind(kind);
    switch (message) {
        case WM_GETDLGCODE: {
            LRESULT code = CallControl(control, message, first, second);
            if (isMain && (kind == RowKind::Lines || kind == RowKind::Output)) {
                // Tab moves on, Esc cancels, and nothing is selected on the way.
                code &= ~(DLGC_WANTALLKEYS | DLGC_WANTTAB | DLGC_HASSETSEL);
            }
            const auto* const key = reinterpret_cast<const MSG*>(second);
            if (key != nullptr && WantsKey(*row, control, *key)) {
                code |= DLGC_WANTMESSAGE;
            }
            return code;
        }
        case WM_SETFOCUS:
            ScrollIntoSight(*row);
            return std::nullopt;
        case WM_SETTEXT:
            // Another program enters a text, an aid for reading and writing perhaps. Of all edit
            // controls only those of several lines do not tell of it.
            if (isMain && kind == RowKind::Lines && !showing_) {
                const LRESULT result = CallControl(control, message, first, second);
                OnCommand(EN_CHANGE, control);
                return result;
            }
            return std::nullopt;
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN:
            if (OnKey(*row, control, first, message == WM_SYSKEYDOWN)) {
                return 0;
            }
            return std::nullopt;
        case WM_CHAR:
            // Ctrl+A and Ctrl+Z were handled as keys; to a list they would be the beginning of a
            // line to look for.
            if (isEdit && (first == 'A' - '@' || first == 'Z' - '@')) {
                return 0;
            }
            if (isMain && kind == RowKind::List && first <= kEndOfTransmission) {
                return 0;
            }
            return std::nullopt;
        case WM_UNDO:
        case EM_UNDO:
            if (isEdit) {
                Undo();
                return TRUE;
            }
            return std::nullopt;
        case WM_GETOBJECT:
            // A screen reader asks: now, since hints and messages change, and most users have none.
            if (static_cast<DWORD>(second) == static_cast<DWORD>(OBJID_CLIENT)) {
                Annotate(*row, control);
            }
            return std::nullopt;
        case WM_MOUSEWHEEL:
            if (!ScrollsItself(*row, control)) {
                return OnWheel(first);
            }
            return std::nullopt;
        default:
            return std::nullopt;
    }
}

void FormView::Annotate(const FormControls& row, HWND control) {
    if (annotations_ == nullptr) {
        annotations_ = std::make_unique<AccessibleAnnotations>();
    }
    annotations_->Set(control, row.TextsForReaders(control));
}

HBRUSH FormView::OnColour(HDC dc, HWND control) const {
    const FormPart part = FormPartOf(control);
    const FormControls* const row = RowOf(control);
    if (row != nullptr && row->Row().kind == RowKind::Output) {
        SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
        SetBkColor(dc, GetSysColor(COLOR_WINDOW));
        return GetSysColorBrush(COLOR_WINDOW);
    }
    bool quiet = part == FormPart::Name || part == FormPart::Note;
    if (part == FormPart::Hint) {
        quiet = std::none_of(controls_.begin(), controls_.end(), [&](const FormControls& each) {
            return FormControlId(each.Row().id, FormPart::Hint) == GetDlgCtrlID(control) &&
                   !each.Shown().message.empty();
        });
    }
    SetTextColor(dc, quiet ? QuietTextColour() : GetSysColor(COLOR_BTNTEXT));
    SetBkColor(dc, GetSysColor(COLOR_3DFACE));
    return GetSysColorBrush(COLOR_3DFACE);
}

void FormView::DrawIcon(const DRAWITEMSTRUCT& item) const {
    FillRect(item.hDC, &item.rcItem, GetSysColorBrush(COLOR_3DFACE));
    auto* const icon = static_cast<HICON>(
        LoadImageW(nullptr, reinterpret_cast<LPCWSTR>(IDI_WARNING), IMAGE_ICON, 0, 0, LR_SHARED));
    DrawIconEx(item.hDC, 0, 0, icon, item.rcItem.right, item.rcItem.bottom, 0, nullptr, DI_NORMAL);
}

LRESULT CALLBACK FormView::Procedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_NCCREATE) {
        auto* const self =
            static_cast<FormView*>(reinterpret_cast<const CREATESTRUCTW*>(second)->lpCreateParams);
        self->window_ = window;
        // As the controls ask for it.
        SetWindowLongPtrW(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(static_cast<ControlListener*>(self)));
    }
    auto* const listener =
        reinterpret_cast<ControlListener*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (listener == nullptr) {
        return DefWindowProcW(window, message, first, second);
    }
    auto* const self = static_cast<FormView*>(listener);
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, GWLP_USERDATA, 0);
        self->controls_.clear();
        self->window_ = nullptr;
        return DefWindowProcW(window, message, first, second);
    }
    return self->OnMessageGuarded(message, first, second);
}

LRESULT FormView::OnMessageGuarded(UINT message, WPARAM first, LPARAM second) {
    try {
        return OnMessage(message, first, second);
    } catch (...) {
        if (onFailure) {
            onFailure(std::current_exception());
        }
        return 0;
    }
}

LRESULT FormView::OnMessage(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
        case WM_SIZE:
            PlaceRows();
            return 0;
        case WM_SETFOCUS:
            FocusFirst();
            return 0;
        case WM_COMMAND: {
            auto* control = reinterpret_cast<HWND>(second);
            OnCommand(HIWORD(first),
                      control != nullptr ? control : GetDlgItem(window_, LOWORD(first)));
            return 0;
        }
        case WM_NOTIFY:
            return OnNotify(*reinterpret_cast<const NMHDR*>(second));
        case kSelected:
            TakeSelection();
            return 0;
        case WM_VSCROLL:
            OnScroll(LOWORD(first));
            return 0;
        case WM_MOUSEWHEEL:
            return OnWheel(first);
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORBTN:
            return reinterpret_cast<LRESULT>(
                OnColour(reinterpret_cast<HDC>(first), reinterpret_cast<HWND>(second)));
        case WM_DRAWITEM:
            DrawIcon(*reinterpret_cast<const DRAWITEMSTRUCT*>(second));
            return TRUE;
        case WM_SETTINGCHANGE:
            SetDpi(fonts_->Dpi());
            return 0;
        case WM_SYSCOLORCHANGE:
            for (const FormControls& row : controls_) {
                if (row.Row().kind == RowKind::List) {
                    SendMessageW(row.Control(), message, first, second);
                }
            }
            return 0;
        default:
            return DefWindowProcW(window_, message, first, second);
    }
}

}  // namespace tarvex
