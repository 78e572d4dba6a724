#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/win32/WindowsApi.h"
#include "window/form/FormLayout.h"
#include "window/formviews/AccessibleTexts_win32.h"
#include "window/formviews/FormFonts_win32.h"

namespace tarvex {

/// What a control of a row is. Its control id is FormControlId of the row's id; that of a button
/// FormControlId of the button's.
enum class FormPart { Control, Label, Name, Hint, Note, Icon, Reveal };

/// The id of a part's control in its window. Ids 1 and 2 are left to a dialog's own buttons.
constexpr int FormControlId(std::int32_t id, FormPart part = FormPart::Control) {
    return static_cast<int>(part) * 100'000 + 10'000 + static_cast<int>(id);
}

/// What part of its row a control is; a row's buttons are controls too.
FormPart FormPartOf(HWND control);

/// Hears of messages of controls before the controls themselves do. The parent window of the
/// controls has its address in GWLP_USERDATA.
class ControlListener {
public:
    virtual ~ControlListener() = default;

    /// The message's result when the control is not to have it. Raises nothing.
    virtual std::optional<LRESULT> OnControlMessage(HWND control, UINT message, WPARAM first,
                                                    LPARAM second) = 0;
};

/// The controls of one row of a form.
class FormControls {
public:
    /// Creates them, hidden, in the order in which Tab goes through them. `row` outlives the
    /// object; the parent destroys the windows.
    FormControls(const FormRow& row, HWND parent, const FormFonts& fonts);

    const FormRow& Row() const { return *row_; }
    HWND Control() const { return control_; }

    bool Has(HWND window) const;

    /// The row's button with that control; null when it is not one of them.
    const FormButton* ButtonOf(HWND window) const;

    /// The enabled button that the key presses; null when there is none.
    HWND ButtonFor(ButtonKey key) const;

    /// The first control that can have the focus now; null when none can.
    HWND FirstForFocus() const;

    /// Makes the controls show the state; those that do already are left alone.
    void Show(const RowState& state);
    const RowState& Shown() const { return shown_; }

    void SetFonts(const FormFonts& fonts);

    /// Moves what does not stand there yet; `scrolled` pixels of the form are above the window.
    void Place(const RowPlace& place, int scrolled);
    const RowPlace& Placed() const { return placed_; }

    /// Shows the text of a Secret, or masks it again.
    void ToggleReveal();

    std::u16string Text() const;

    /// Chosen line of a Choice or List; -1: none.
    std::int32_t Selected() const;

    /// What a screen reader is to hear of one of the controls.
    AccessibleTexts TextsForReaders(HWND control) const;

    /// Makes the option of a group that Tab reaches, or takes it out.
    void SetTabStop(bool tabStop);

    /// Fits the columns of a List to their texts and to its width.
    void FitColumns();

private:
    HWND Create(const wchar_t* className, std::u16string_view text, DWORD style, int id,
                DWORD extendedStyle = 0);
    void CreateLabel();
    void CreateControl();
    void CreateList();
    void CreateBelow();
    HWND CreateButton(const FormButton& button);
    void Move(HWND window, FormRect& now, const FormRect& place, int scrolled);
    void ShowText(const std::u16string& text);
    void ShowChoices(const RowState& state);
    void ShowItems(const RowState& state);
    void ShowBelow(const RowState& state);
    std::vector<HWND> Buttons() const;  // as in RowPlace

    const FormRow* row_;
    HWND parent_;
    const FormFonts* fonts_;
    HWND name_ = nullptr;
    HWND label_ = nullptr;
    HWND control_ = nullptr;
    HWND reveal_ = nullptr;
    HWND icon_ = nullptr;
    HWND hint_ = nullptr;
    HWND note_ = nullptr;
    std::vector<HWND> buttons_;
    bool revealed_ = false;
    bool showsAnything_ = false;
    RowState shown_;
    RowPlace placed_;
};

}  // namespace tarvex
