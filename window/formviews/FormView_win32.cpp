#include "window/formviews/FormView_win32.h"

#include <algorithm>

#include "platform/win32/SystemLibrary.h"
#include "platform/win32/WideText.h"

namespace tarvex {

namespace {

constexpr wchar_t kClassName[] = L"TarvexForm";
constexpr UINT kSelected = WM_APP + 1;  // a list has another chosen line; second: the list
constexpr int kSteadyMargin = 7;        // of the distance from the right edge a scroll bar may take
constexpr int kSightMargin = 11;
constexpr WPARAM kEndOfTransmission = 0x1F;

int ScrollBarWidth() {
    return GetSystemMetrics(SM_CXVSCROLL);
}

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

}  // namespace

FormView::~FormView() {
    if (window_ != nullptr) {
        DestroyWindow(window_);
    }
}

bool FormView::Create(HWND parent, int dpi, bool steady) {
    const HINSTANCE program = GetModuleHandleW(nullptr);
    WNDCLASSEXW description{};
    description.cbSize = sizeof(description);
    description.lpfnWndProc = Procedure;
    description.hInstance = program;
    description.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    description.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_3DFACE + 1);
    description.lpszClassName = kClassName;
    RegisterClassExW(&description);
    PrepareListsAndBars();
    steady_ = steady;
    fonts_ = std::make_unique<FormFonts>(dpi);
    CreateWindowExW(WS_EX_CONTROLPARENT, kClassName, L"",
                    WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_VSCROLL, 0, 0, 0, 0, parent,
                    nullptr, program, this);
    return window_ != nullptr;
}

// Many controls change at once: they are drawn once, at the end.
void FormView::HoldDrawing() {
    SendMessageW(window_, WM_SETREDRAW, FALSE, 0);
}

// With the frame, since the scroll bar may have come or gone.
void FormView::ShowDrawing() {
    SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
    RedrawWindow(window_, nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

void FormView::SetModel(FormModel* model) {
    HoldDrawing();
    model_ = model;
    showing_ = true;
    controls_.clear();
    while (const HWND child = GetWindow(window_, GW_CHILD)) {
        DestroyWindow(child);
    }
    states_.clear();
    rows_ = model == nullptr ? std::vector<FormRow>() : model->Rows();
    for (const FormRow& row : rows_) {
        controls_.emplace_back(row, window_, *fonts_);
    }
    showing_ = false;
    scrolled_ = 0;
    ShowStates();
    ShowDrawing();
}

void FormView::Refresh() {
    if (model_ != nullptr && window_ != nullptr) {
        const HWND focus = GetFocus();
        ShowStates();
        KeepFocus(focus);
    }
}

void FormView::SetDpi(int dpi) {
    // A control uses its font until it has got another one, so the old ones go last.
    auto fonts = std::make_unique<FormFonts>(dpi);
    HoldDrawing();
    for (FormControls& row : controls_) {
        row.SetFonts(*fonts);
    }
    fonts_.swap(fonts);
    PlaceRows();
    for (FormControls& row : controls_) {
        if (row.Row().kind == RowKind::List) {
            row.FitColumns();
        }
    }
    ShowDrawing();
}

void FormView::SetLabelColumn(int width) {
    labelColumn_ = width;
    PlaceRows();
}

// All states first: a model may compute one from another, and raise.
void FormView::ShowStates() {
    std::vector<RowState> states;
    for (const FormRow& row : rows_) {
        states.push_back(row.id == 0 ? RowState() : model_->State(row.id));
    }
    states_ = std::move(states);
    const bool before = showing_;
    showing_ = true;
    std::size_t index = 0;
    std::map<std::int32_t, FormControls*> tabStops;  // by group
    for (FormControls& row : controls_) {
        const RowState& state = states_[index++];
        row.Show(state);
        if (row.Row().kind == RowKind::Radio) {
            row.SetTabStop(false);
            FormControls*& stop = tabStops[row.Row().group];
            const bool can = state.visible && state.enabled;
            if (can && (stop == nullptr || state.checked)) {
                stop = &row;
            }
        }
    }
    for (const auto& [group, row] : tabStops) {
        if (row != nullptr) {
            row->SetTabStop(true);
        }
    }
    showing_ = before;
    PlaceRows();
}

// A control that is hidden or switched off keeps the focus otherwise, and keys lead nowhere.
void FormView::KeepFocus(HWND before) {
    const FormControls* const row = RowOf(before);
    if (row == nullptr || (IsWindowVisible(before) != FALSE && IsWindowEnabled(before) != FALSE)) {
        return;
    }
    HWND next = row->FirstForFocus();
    if (next == nullptr) {
        next = GetNextDlgTabItem(GetAncestor(window_, GA_ROOT), before, FALSE);
    }
    if (next != nullptr) {
        SetFocus(next);
    }
}

RECT FormView::Bounds() const {
    RECT bounds{};
    GetWindowRect(window_, &bounds);
    return {0, 0, bounds.right - bounds.left, bounds.bottom - bounds.top};
}

FormPlaces FormView::Places(int width, int height) const {
    const int column = labelColumn_ > 0 ? fonts_->Scaled(labelColumn_) : 0;
    return LayOutForm(rows_, states_, *fonts_, {width, height, column});
}

int FormView::HeightAt(int width) const {
    return Places(width, 0).height;
}

void FormView::PlaceRows() {
    if (placing_ || window_ == nullptr || states_.size() != rows_.size()) {
        return;
    }
    placing_ = true;
    const RECT bounds = Bounds();
    const auto width = static_cast<int>(bounds.right);
    const auto height = static_cast<int>(bounds.bottom);
    const int narrow = width - ScrollBarWidth();
    const int wide = steady_ ? narrow + fonts_->Scaled(kSteadyMargin) : width;
    FormPlaces places = Places(wide, height);
    if (places.height > height && !steady_) {
        places = Places(narrow, height);
    }
    height_ = places.height;
    const int scrolled = std::clamp(scrolled_, 0, std::max(height_ - height, 0));
    if (scrolled != scrolled_) {
        ScrollTo(scrolled);
    }
    std::size_t index = 0;
    for (FormControls& row : controls_) {
        row.Place(places.rows[index++], scrolled_);
    }
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_ALL;
    info.nMax = std::max(height_ - 1, 0);
    info.nPage = static_cast<UINT>(std::max(height, 1));
    info.nPos = scrolled_;
    SetScrollInfo(window_, SB_VERT, &info, TRUE);
    placing_ = false;
}

void FormView::ScrollTo(int position) {
    const auto page = static_cast<int>(Bounds().bottom);
    position = std::clamp(position, 0, std::max(height_ - page, 0));
    if (position == scrolled_) {
        return;
    }
    ScrollWindowEx(window_, 0, scrolled_ - position, nullptr, nullptr, nullptr, nullptr,
                   SW_SCROLLCHILDREN | SW_INVALIDATE | SW_ERASE);
    scrolled_ = position;
    SetScrollPos(window_, SB_VERT, position, TRUE);
    UpdateWindow(window_);
}

void FormView::ScrollIntoSight(const FormControls& row) {
    const RowPlace& place = row.Placed();
    if (!place.visible) {
        return;
    }
    int top = place.control.IsEmpty() ? height_ : place.control.top;
    int bottom = 0;
    std::vector<FormRect> parts = place.buttons;
    parts.insert(parts.end(), {place.label, place.name, place.control, place.hint, place.note});
    for (const FormRect& part : parts) {
        if (!part.IsEmpty()) {
            top = std::min(top, part.top);
            bottom = std::max(bottom, part.Bottom());
        }
    }
    const int margin = fonts_->Scaled(kSightMargin);
    const auto page = static_cast<int>(Bounds().bottom);
    const int least = bottom + margin - page;
    const int most = top - margin;
    if (scrolled_ > most) {
        // With the heading above it, where there is room for that.
        ScrollTo(least <= 0 ? 0 : most);
    } else if (scrolled_ < least) {
        ScrollTo(std::min(least, most));
    }
}

void FormView::OnScroll(int code) {
    SCROLLINFO info{};
    info.cbSize = sizeof(info);
    info.fMask = SIF_TRACKPOS | SIF_PAGE;
    GetScrollInfo(window_, SB_VERT, &info);
    const int line = fonts_->LineHeight(FormFont::Normal) * 2;
    const int page = std::max(static_cast<int>(info.nPage) - line, line);
    switch (code) {
        case SB_LINEUP:
            return ScrollTo(scrolled_ - line);
        case SB_LINEDOWN:
            return ScrollTo(scrolled_ + line);
        case SB_PAGEUP:
            return ScrollTo(scrolled_ - page);
        case SB_PAGEDOWN:
            return ScrollTo(scrolled_ + page);
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            return ScrollTo(info.nTrackPos);
        case SB_TOP:
            return ScrollTo(0);
        case SB_BOTTOM:
            return ScrollTo(height_);
        default:
            return;
    }
}

LRESULT FormView::OnWheel(WPARAM first) {
    UINT lines = 3;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    const int turned = GET_WHEEL_DELTA_WPARAM(first);
    const int line = fonts_->LineHeight(FormFont::Normal);
    const int step = lines == WHEEL_PAGESCROLL ? static_cast<int>(Bounds().bottom)
                                               : static_cast<int>(lines) * line;
    ScrollTo(scrolled_ - MulDiv(turned, step, WHEEL_DELTA));
    return 0;
}

FormControls* FormView::RowOf(HWND control) {
    const auto found = std::find_if(controls_.begin(), controls_.end(),
                                    [&](const FormControls& row) { return row.Has(control); });
    return found == controls_.end() ? nullptr : &*found;
}

const FormControls* FormView::RowOf(HWND control) const {
    return const_cast<FormView*>(this)->RowOf(control);
}

void FormView::FocusRow(std::int32_t id) {
    for (const FormControls& row : controls_) {
        HWND target = row.Row().id == id && id != 0 ? row.FirstForFocus() : nullptr;
        for (const FormButton& button : row.Row().buttons) {
            if (button.id == id) {
                target = GetDlgItem(window_, FormControlId(id));
            }
        }
        if (row.Row().id != id && target == nullptr) {
            continue;
        }
        ScrollIntoSight(row);
        if (target != nullptr) {
            // An option that gets the focus says that it was chosen.
            showing_ = true;
            SetFocus(target);
            showing_ = false;
            if (target == row.Control() &&
                (row.Row().kind == RowKind::Line || row.Row().kind == RowKind::Secret)) {
                SendMessageW(target, EM_SETSEL, 0, -1);
            }
        }
        return;
    }
}

void FormView::FocusFirst() {
    for (const FormControls& row : controls_) {
        const HWND control = row.FirstForFocus();
        if (control != nullptr && (row.Row().kind != RowKind::Radio ||
                                   (GetWindowLongW(control, GWL_STYLE) & WS_TABSTOP) != 0)) {
            const bool isButton = control != row.Control();
            FocusRow(isButton ? row.ButtonOf(control)->id : row.Row().id);
            return;
        }
    }
}

std::int32_t FormView::FocusedRow() const {
    const FormControls* const row = RowOf(GetFocus());
    return row == nullptr ? 0 : row->Row().id;
}

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
        CallWindowProcW(reinterpret_cast<WNDPROC>(GetWindowLongPtrW(focus, GWLP_USERDATA)), focus,
                        EM_UNDO, 0, 0);
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
    const std::int32_t line = row.Selected();
    if (line != row.Shown().selected) {
        const std::int32_t id = row.Row().id;
        Tell([&] { model_->Select(id, line); });
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
            PostMessageW(window_, kSelected, 0, reinterpret_cast<LPARAM>(header.hwndFrom));
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
            LRESULT code = CallWindowProcW(
                reinterpret_cast<WNDPROC>(GetWindowLongPtrW(control, GWLP_USERDATA)), control,
                message, first, second);
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
        case kSelected: {
            FormControls* const row = RowOf(reinterpret_cast<HWND>(second));
            if (row != nullptr) {
                OnSelected(*row);
            }
            return 0;
        }
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
