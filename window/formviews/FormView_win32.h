#pragma once

#include <exception>
#include <functional>
#include <list>
#include <memory>
#include <vector>

#include "window/formviews/FormControls_win32.h"

namespace tarvex {

/// Shows a form in a child window: its rows below each other with a scroll bar when they need one.
/// Everything that the user does there goes to the model, and what the model says after that is
/// shown. Tab, access keys and arrows work when the message loop of the window around it calls
/// IsDialogMessageW. That window passes WM_SYSCOLORCHANGE and WM_SETTINGCHANGE on to Window().
class FormView : private ControlListener {
public:
    FormView() = default;
    FormView(const FormView&) = delete;
    FormView& operator=(const FormView&) = delete;
    ~FormView() override;

    /// Called after each event that went to the model, when its states show.
    std::function<void()> onChanged;

    /// Is handed what an event raised, since nothing can be raised through the system's frames
    /// around it. Empty: it is lost.
    std::function<void(std::exception_ptr)> onFailure;

    /// Creates the window, visible and without extent. `steady` keeps the place of the scroll bar
    /// free when there is none, so that one form has the same columns as the next. False when the
    /// system refuses.
    bool Create(HWND parent, int dpi, bool steady);

    HWND Window() const { return window_; }

    /// Shows this form, from its top; null: none. The model outlives the view or its next call.
    void SetModel(FormModel* model);

    /// Shows the states of the model, which have changed without the view.
    void Refresh();

    /// Resolution of the screen, and fonts and colours of the system, that are used from now on.
    void SetDpi(int dpi);

    /// Width of the column of labels, at 96 pixels per inch; 0: what suits the form.
    void SetLabelColumn(int width);

    /// Moves the focus into a row, or to a button, by its id, and shows it; a row that cannot have
    /// the focus is only shown.
    void FocusRow(std::int32_t id);

    /// Moves the focus to the first control that can have it.
    void FocusFirst();

    /// Id of the row with the focus; 0: none.
    std::int32_t FocusedRow() const;

    /// Takes back the last change of the control with the focus, as Ctrl+Z in it does.
    void Undo();

    /// What the form takes in that width, without a scroll bar.
    int HeightAt(int width) const;

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM first, LPARAM second);
    LRESULT OnMessageGuarded(UINT message, WPARAM first, LPARAM second);
    LRESULT OnMessage(UINT message, WPARAM first, LPARAM second);
    std::optional<LRESULT> OnControlMessage(HWND control, UINT message, WPARAM first,
                                            LPARAM second) override;
    std::optional<LRESULT> HandleControlMessage(HWND control, UINT message, WPARAM first,
                                                LPARAM second);

    void OnCommand(int code, HWND control);
    LRESULT OnNotify(const NMHDR& header);
    bool OnKey(FormControls& row, HWND control, WPARAM key, bool alt);
    bool WantsKey(const FormControls& row, HWND control, const MSG& message) const;
    void OnSelected(FormControls& row);
    void TakeSelection();
    void OnScroll(int code);
    LRESULT OnWheel(WPARAM first);
    HBRUSH OnColour(HDC dc, HWND control) const;
    void DrawIcon(const DRAWITEMSTRUCT& item) const;

    /// Passes an event on to the model and shows what has become of it.
    template <class Event>
    void Tell(const Event& event);
    void Press(HWND button);
    void Annotate(const FormControls& row, HWND control);
    void MoveToOption(const FormControls& from, bool forward);

    FormControls* RowOf(HWND control);
    const FormControls* RowOf(HWND control) const;
    void HoldDrawing();
    void ShowDrawing();
    void ShowStates();
    void KeepFocus(HWND before);
    void PlaceRows();
    FormPlaces Places(int width, int height) const;
    void ScrollTo(int position);
    void ScrollIntoSight(const FormControls& row);
    RECT Bounds() const;

    HWND window_ = nullptr;
    FormModel* model_ = nullptr;
    bool steady_ = false;
    int labelColumn_ = 0;
    std::unique_ptr<FormFonts> fonts_;
    std::unique_ptr<AccessibleAnnotations> annotations_;
    std::vector<FormRow> rows_;
    std::list<FormControls> controls_;
    std::vector<RowState> states_;
    HWND selecting_ = nullptr;  // a list whose chosen line the model does not know yet
    int scrolled_ = 0;
    int height_ = 0;        // of the form
    bool showing_ = false;  // what controls tell is about what the view itself does
    bool placing_ = false;
};

}  // namespace tarvex
