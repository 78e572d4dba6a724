#pragma once

#include "window/form/UserDialogs.h"
#include "window/formviews/DialogWindow_win32.h"
#include "window/formviews/FormView_win32.h"

namespace tarvex {

/// Shows a form in a window of its own.
class FormDialog : private DialogWindow {
public:
    /// `owner` is the window that waits, or null.
    FormDialog(HWND owner, FormModel& model, const FormDialogTexts& texts);

    /// Shows it until the form is accepted or given up; true for the former. Raises what the form
    /// raised.
    bool ShowModal();

private:
    bool CreateContent() override;
    SIZE ContentSize() override;
    void PlaceContent(const RECT& place) override;
    void OnFonts() override;
    bool FocusContent() override;
    bool OnButton(int id) override;
    LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;

    FormModel& model_;
    const FormDialogTexts& texts_;
    FormView form_;
    std::exception_ptr failure_;
};

}  // namespace tarvex
