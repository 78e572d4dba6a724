#include "window/formviews/FormView_win32.h"

#include <algorithm>

#include "platform/win32/SystemLibrary.h"
#include "platform/win32/WideText.h"

namespace tarvex {

namespace {

constexpr wchar_t kClassName[] = L"TarvexForm";
constexpr int kSteadyMargin = 7;  // of the distance from the right edge a scroll bar may take
constexpr int kSightMargin = 11;

int ScrollBarWidth() {
    return GetSystemMetrics(SM_CXVSCROLL);
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
    selecting_ = nullptr;
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
        // The model's line would be shown instead of the one that the user has just chosen.
        TakeSelection();
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

}  // namespace tarvex
