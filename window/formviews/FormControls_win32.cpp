#include "window/formviews/FormControls_win32.h"

#include <algorithm>

#include "platform/win32/WideText.h"
#include "text/Text.h"
#include "window/formviews/ChildControl_win32.h"
#include "window/formviews/ListControl_win32.h"

namespace tarvex {

namespace {

constexpr WPARAM kMask = 0x25CF;  // a black circle
constexpr int kPartStep = 100'000;
constexpr int kLinesInDropDown = 12;

LRESULT CALLBACK ControlProcedure(HWND control, UINT message, WPARAM first, LPARAM second) {
    auto* const listener =
        reinterpret_cast<ControlListener*>(GetWindowLongPtrW(GetParent(control), GWLP_USERDATA));
    auto* const original = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(control, GWLP_USERDATA));
    if (listener != nullptr) {
        if (const auto result = listener->OnControlMessage(control, message, first, second)) {
            return *result;
        }
    }
    return CallWindowProcW(original, control, message, first, second);
}

/// Lets the listener hear of the control's messages.
void Listen(HWND control) {
    SetWindowLongPtrW(control, GWLP_USERDATA, GetWindowLongPtrW(control, GWLP_WNDPROC));
    SetWindowLongPtrW(control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(ControlProcedure));
}

/// A control takes a zero for the end of the text.
std::u16string WithoutZeros(std::u16string text) {
    std::replace(text.begin(), text.end(), u'\0', u' ');
    return text;
}

/// Returns whether that was a change.
bool SetTextIfOther(HWND window, const std::u16string& text) {
    const std::u16string shown = WithoutZeros(text);
    if (ControlText(window) == shown) {
        return false;
    }
    SetWindowTextW(window, Wide(shown));
    return true;
}

bool IsEdit(RowKind kind) {
    return kind == RowKind::Line || kind == RowKind::Secret || kind == RowKind::Lines ||
           kind == RowKind::Output;
}

bool IsBox(RowKind kind) {
    return kind == RowKind::Check || kind == RowKind::Radio;
}

bool CanHaveFocus(HWND window) {
    return window != nullptr && IsWindowEnabled(window) != FALSE &&
           (GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE) != 0;
}

FormFont FontOf(const FormRow& row) {
    if (row.kind == RowKind::Heading) {
        return FormFont::Heading;
    }
    return row.kind == RowKind::Output ? FormFont::Fixed : FormFont::Normal;
}

}  // namespace

FormPart FormPartOf(HWND control) {
    return static_cast<FormPart>(GetDlgCtrlID(control) / kPartStep);
}

FormControls::FormControls(const FormRow& row, HWND parent, const FormFonts& fonts)
    : row_(&row), parent_(parent), fonts_(&fonts) {
    if (!row.name.empty()) {
        name_ = Create(L"STATIC", row.name, SS_LEFT | SS_NOPREFIX,
                       FormControlId(row.id, FormPart::Name));
    }
    CreateLabel();
    CreateControl();
    if (row.kind == RowKind::Secret) {
        reveal_ = Create(L"BUTTON", RevealCaption(false), BS_PUSHBUTTON | WS_TABSTOP,
                         FormControlId(row.id, FormPart::Reveal));
        Listen(reveal_);
    }
    for (const FormButton& button : row.buttons) {
        buttons_.push_back(CreateButton(button));
    }
    CreateBelow();
    SetFonts(fonts);
}

HWND FormControls::Create(const wchar_t* className, std::u16string_view text, DWORD style, int id,
                          DWORD extendedStyle) {
    return CreateChild(parent_, className, text, style, id, extendedStyle);
}

void FormControls::CreateLabel() {
    switch (row_->kind) {
        case RowKind::Heading:
        case RowKind::Text:
        case RowKind::Check:
        case RowKind::Radio:
            return;
        default:
            // Directly before its control: a screen reader takes it for the control's name, also
            // when it is not seen.
            label_ =
                Create(L"STATIC", row_->label, SS_LEFT, FormControlId(row_->id, FormPart::Label));
    }
}

void FormControls::CreateControl() {
    const int id = FormControlId(row_->id);
    constexpr DWORD kEdit = WS_TABSTOP | WS_GROUP | ES_AUTOHSCROLL;
    constexpr DWORD kLines = WS_TABSTOP | WS_GROUP | ES_MULTILINE | ES_AUTOVSCROLL | WS_VSCROLL;
    switch (row_->kind) {
        case RowKind::Heading:
        case RowKind::Text:
            control_ = Create(L"STATIC", row_->label, SS_LEFT | SS_NOPREFIX | SS_EDITCONTROL, id);
            return;
        case RowKind::Line:
            control_ = Create(L"EDIT", {}, kEdit, id, WS_EX_CLIENTEDGE);
            break;
        case RowKind::Secret:
            control_ = Create(L"EDIT", {}, kEdit | ES_PASSWORD, id, WS_EX_CLIENTEDGE);
            SendMessageW(control_, EM_SETPASSWORDCHAR, kMask, 0);
            break;
        case RowKind::Lines:
            control_ = Create(L"EDIT", {}, kLines | ES_WANTRETURN, id, WS_EX_CLIENTEDGE);
            break;
        case RowKind::Output: {
            const DWORD scrolled = row_->wraps ? 0 : ES_AUTOHSCROLL | WS_HSCROLL;
            control_ = Create(L"EDIT", {}, kLines | scrolled | ES_READONLY | ES_NOHIDESEL, id,
                              WS_EX_CLIENTEDGE);
            break;
        }
        case RowKind::Check:
            control_ = Create(L"BUTTON", row_->label,
                              BS_AUTOCHECKBOX | BS_MULTILINE | BS_TOP | WS_TABSTOP | WS_GROUP, id);
            break;
        case RowKind::Radio:
            // Not the kind that unchecks its neighbours: other rows may stand between the options
            // of a group.
            control_ = Create(L"BUTTON", row_->label,
                              BS_RADIOBUTTON | BS_MULTILINE | BS_TOP | WS_GROUP, id);
            break;
        case RowKind::Choice:
            control_ =
                Create(L"COMBOBOX", {},
                       CBS_DROPDOWNLIST | CBS_HASSTRINGS | WS_VSCROLL | WS_TABSTOP | WS_GROUP, id);
            break;
        case RowKind::List:
            control_ = list_control::Create(parent_, row_->columns, id);
            break;
        case RowKind::Buttons:
            return;
    }
    if (IsEdit(row_->kind)) {
        SendMessageW(control_, EM_SETLIMITTEXT, 0, 0);
    }
    Listen(control_);
}

HWND FormControls::CreateButton(const FormButton& button) {
    const DWORD group = buttons_.empty() ? WS_GROUP : 0;
    const HWND window = Create(L"BUTTON", button.caption, BS_PUSHBUTTON | WS_TABSTOP | group,
                               FormControlId(button.id));
    Listen(window);
    return window;
}

void FormControls::CreateBelow() {
    switch (row_->kind) {
        case RowKind::Heading:
        case RowKind::Text:
        case RowKind::Buttons:
            return;
        default:
            break;
    }
    icon_ = Create(L"STATIC", {}, SS_OWNERDRAW, FormControlId(row_->id, FormPart::Icon));
    hint_ = Create(L"STATIC", row_->hint, SS_LEFT | SS_NOPREFIX | SS_EDITCONTROL,
                   FormControlId(row_->id, FormPart::Hint));
    note_ = Create(L"STATIC", {}, SS_RIGHT | SS_NOPREFIX, FormControlId(row_->id, FormPart::Note));
}

bool FormControls::Has(HWND window) const {
    return window != nullptr &&
           (window == control_ || window == reveal_ || ButtonOf(window) != nullptr);
}

const FormButton* FormControls::ButtonOf(HWND window) const {
    const auto found = std::find(buttons_.begin(), buttons_.end(), window);
    return found == buttons_.end()
               ? nullptr
               : &row_->buttons[static_cast<std::size_t>(found - buttons_.begin())];
}

HWND FormControls::ButtonFor(ButtonKey key) const {
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        if (row_->buttons[i].key == key && key != ButtonKey::None && CanHaveFocus(buttons_[i])) {
            return buttons_[i];
        }
    }
    return nullptr;
}

HWND FormControls::FirstForFocus() const {
    const bool isText = row_->kind == RowKind::Heading || row_->kind == RowKind::Text;
    if (!isText && CanHaveFocus(control_)) {
        return control_;
    }
    const auto found = std::find_if(buttons_.begin(), buttons_.end(), CanHaveFocus);
    return found == buttons_.end() ? nullptr : *found;
}

void FormControls::Show(const RowState& state) {
    const bool first = !showsAnything_;
    showsAnything_ = true;
    const bool text = IsEdit(row_->kind) || row_->kind == RowKind::Text;
    if (first || state.enabled != shown_.enabled) {
        for (const HWND window : {name_, label_, control_, reveal_, hint_, note_}) {
            if (window != nullptr) {
                EnableWindow(window, state.enabled ? TRUE : FALSE);
            }
        }
    }
    if (first || state.enabled != shown_.enabled ||
        state.disabledButtons != shown_.disabledButtons) {
        for (std::size_t i = 0; i < buttons_.size(); ++i) {
            const auto& off = state.disabledButtons;
            const bool enabled = state.enabled && std::find(off.begin(), off.end(),
                                                            row_->buttons[i].id) == off.end();
            EnableWindow(buttons_[i], enabled ? TRUE : FALSE);
        }
    }
    if (IsEdit(row_->kind) && row_->kind != RowKind::Output &&
        (first || state.readOnly != shown_.readOnly)) {
        SendMessageW(control_, EM_SETREADONLY, state.readOnly ? TRUE : FALSE, 0);
    }
    if (text) {
        ShowText(row_->kind == RowKind::Text && state.text.empty() ? row_->label : state.text);
    }
    if (IsBox(row_->kind)) {
        const WPARAM checked = state.checked ? BST_CHECKED : BST_UNCHECKED;
        if (SendMessageW(control_, BM_GETCHECK, 0, 0) != static_cast<LRESULT>(checked)) {
            SendMessageW(control_, BM_SETCHECK, checked, 0);
        }
    }
    if (row_->kind == RowKind::Choice) {
        ShowChoices(state);
    }
    if (row_->kind == RowKind::List) {
        ShowItems(state);
    }
    if (hint_ != nullptr) {
        ShowBelow(state);
    }
    shown_ = state;
}

// The place in the text stays as far as the new text allows.
void FormControls::ShowText(const std::u16string& text) {
    DWORD from = 0;
    DWORD to = 0;
    const bool isEdit = IsEdit(row_->kind);
    if (isEdit) {
        SendMessageW(control_, EM_GETSEL, reinterpret_cast<WPARAM>(&from),
                     reinterpret_cast<LPARAM>(&to));
    }
    if (SetTextIfOther(control_, text) && isEdit && GetFocus() == control_) {
        SendMessageW(control_, EM_SETSEL, from, static_cast<LPARAM>(to));
    }
}

void FormControls::ShowChoices(const RowState& state) {
    if (state.choices != shown_.choices) {
        SendMessageW(control_, CB_RESETCONTENT, 0, 0);
        for (const std::u16string& choice : state.choices) {
            SendMessageW(control_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(choice.c_str()));
        }
    }
    if (SendMessageW(control_, CB_GETCURSEL, 0, 0) != state.selected) {
        SendMessageW(control_, CB_SETCURSEL, static_cast<WPARAM>(state.selected), 0);
    }
}

void FormControls::ShowItems(const RowState& state) {
    if (state.items != shown_.items) {
        list_control::SetItems(control_, state.items, shown_.items);
        FitColumns();
    }
    if (Selected() != state.selected) {
        list_control::Select(control_, state.selected);
    }
}

void FormControls::ShowBelow(const RowState& state) {
    const bool change = SetTextIfOther(hint_, state.message.empty() ? row_->hint : state.message);
    if (!change && state.message.empty() != shown_.message.empty()) {
        InvalidateRect(hint_, nullptr, TRUE);  // in another colour
    }
    SetTextIfOther(note_, state.note);
}

void FormControls::SetFonts(const FormFonts& fonts) {
    fonts_ = &fonts;
    const auto set = [&](HWND window, FormFont font) {
        if (window != nullptr) {
            SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(fonts.Font(font)), TRUE);
        }
    };
    set(label_, FormFont::Normal);
    set(control_, FontOf(*row_));
    set(name_, FormFont::Small);
    set(hint_, FormFont::Small);
    set(note_, FormFont::Small);
    for (const HWND button : Buttons()) {
        set(button, FormFont::Normal);
    }
    // What was placed by the old font has to be placed anew.
    placed_ = RowPlace();
}

std::vector<HWND> FormControls::Buttons() const {
    std::vector<HWND> all;
    if (reveal_ != nullptr) {
        all.push_back(reveal_);
    }
    all.insert(all.end(), buttons_.begin(), buttons_.end());
    return all;
}

void FormControls::Place(const RowPlace& place, int scrolled) {
    const std::vector<HWND> buttons = Buttons();
    placed_.buttons.resize(buttons.size());
    Move(name_, placed_.name, place.name, scrolled);
    Move(label_, placed_.label, place.label, scrolled);
    const int widthBefore = placed_.control.width;
    Move(control_, placed_.control, place.control, scrolled);
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        Move(buttons[i], placed_.buttons[i],
             i < place.buttons.size() ? place.buttons[i] : FormRect(), scrolled);
    }
    Move(icon_, placed_.icon, place.icon, scrolled);
    Move(hint_, placed_.hint, place.hint, scrolled);
    Move(note_, placed_.note, place.note, scrolled);
    placed_.visible = place.visible;
    if (row_->kind == RowKind::List && placed_.control.width != widthBefore) {
        FitColumns();
    }
}

void FormControls::Move(HWND window, FormRect& now, const FormRect& place, int scrolled) {
    if (window == nullptr || now == place) {
        return;
    }
    now = place;
    if (place.IsEmpty()) {
        ShowWindow(window, SW_HIDE);
        return;
    }
    int height = place.height;
    if (window == control_ && row_->kind == RowKind::Choice) {
        // Closed it is as high as an edit control beside it; what is given here is the height with
        // its list.
        const auto itemHeight =
            static_cast<int>(SendMessageW(window, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0));
        RECT closed{};
        GetWindowRect(window, &closed);
        const int around = static_cast<int>(closed.bottom - closed.top) - itemHeight;
        SendMessageW(window, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), place.height - around);
        height += kLinesInDropDown * fonts_->LineHeight(FormFont::Normal);
    }
    // Drawn anew: rows that move past each other would copy what another one has just left, and
    // text at the right end of a control keeps its place when only the width changes.
    SetWindowPos(window, nullptr, place.left, place.top - scrolled, place.width, height,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW | SWP_NOCOPYBITS);
}

void FormControls::ToggleReveal() {
    revealed_ = !revealed_;
    SendMessageW(control_, EM_SETPASSWORDCHAR, revealed_ ? 0 : kMask, 0);
    InvalidateRect(control_, nullptr, TRUE);
    SetTextIfOther(reveal_, std::u16string(RevealCaption(revealed_)));
}

std::u16string FormControls::Text() const {
    return ControlText(control_);
}

std::int32_t FormControls::Selected() const {
    return row_->kind == RowKind::List
               ? list_control::Selected(control_)
               : static_cast<std::int32_t>(SendMessageW(control_, CB_GETCURSEL, 0, 0));
}

AccessibleTexts FormControls::TextsForReaders(HWND control) const {
    const std::u16string label = WithoutAccessKey(row_->label);
    if (control == reveal_) {
        return {label + u" " + ControlText(reveal_), {}};
    }
    if (const FormButton* const button = ButtonOf(control)) {
        return {button->name, {}};
    }
    std::u16string description = shown_.message.empty() ? row_->hint : shown_.message;
    if (!shown_.note.empty()) {
        text::AppendWithSeparator(description, shown_.note, u" ");
    }
    // Boxes are called by their own text.
    return {IsBox(row_->kind) ? std::u16string() : label, description};
}

void FormControls::SetTabStop(bool tabStop) {
    const LONG style = GetWindowLongW(control_, GWL_STYLE);
    const LONG wanted = tabStop ? style | WS_TABSTOP : style & ~WS_TABSTOP;
    if (wanted != style) {
        SetWindowLongW(control_, GWL_STYLE, wanted);
    }
}

void FormControls::FitColumns() {
    list_control::FitColumns(control_, fonts_->Scaled(14));
}

}  // namespace tarvex
