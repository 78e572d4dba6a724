#include "window/formviews/FormDialog_win32.h"

#include <algorithm>

namespace tarvex {

namespace {

constexpr UINT kFailed = WM_APP + 1;
constexpr int kWidth = 460;  // of the form, at 96 pixels per inch, as all lengths here
constexpr int kGapWhenScrolled = 11;
constexpr int kLargeWidth = 740;
constexpr int kLargeHeight = 460;

}  // namespace

FormDialog::FormDialog(HWND owner, FormModel& model, const FormDialogTexts& texts)
    : DialogWindow(owner), model_(model), texts_(texts) {
    // Raised again where a message of this window is handled.
    form_.onFailure = [this](std::exception_ptr failure) {
        failure_ = std::move(failure);
        PostMessageW(Window(), kFailed, 0, 0);
    };
}

bool FormDialog::ShowModal() {
    Frame frame;
    frame.title = texts_.title;
    if (!texts_.ok.empty()) {
        frame.buttons.push_back({IDOK, texts_.ok});
        frame.buttons.push_back({IDCANCEL, texts_.cancel});
    } else {
        frame.buttons.push_back({IDCANCEL, texts_.cancel});
    }
    frame.resizable = texts_.large;
    return Show(frame) == IDOK;
}

bool FormDialog::CreateContent() {
    if (!form_.Create(Window(), Fonts().Dpi(), false)) {
        return false;
    }
    // Before the buttons for Tab.
    SetWindowPos(form_.Window(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    form_.SetModel(&model_);
    return true;
}

SIZE FormDialog::ContentSize() {
    const int width = Fonts().Scaled(texts_.large ? kLargeWidth : kWidth);
    const int height = form_.HeightAt(width);
    return {width, texts_.large ? std::max(height, Fonts().Scaled(kLargeHeight)) : height};
}

void FormDialog::PlaceContent(const RECT& place) {
    const auto width = static_cast<int>(place.right - place.left);
    auto height = static_cast<int>(place.bottom - place.top);
    if (form_.HeightAt(width) > height) {
        // Rows that are scrolled do not end at the buttons.
        height -= Fonts().Scaled(kGapWhenScrolled);
    }
    MoveWindow(form_.Window(), place.left, place.top, width, height, TRUE);
}

void FormDialog::OnFonts() {
    form_.SetDpi(Fonts().Dpi());
}

bool FormDialog::FocusContent() {
    if (const std::int32_t row = model_.FirstRow(); row != 0) {
        form_.FocusRow(row);
    } else {
        form_.FocusFirst();
    }
    return form_.FocusedRow() != 0;
}

bool FormDialog::OnButton(int id) {
    if (id != IDOK) {
        return true;
    }
    const bool accepted = model_.Accept();
    form_.Refresh();
    return accepted;
}

LRESULT FormDialog::OnMessage(UINT message, WPARAM first, LPARAM second) {
    switch (message) {
        case kFailed:
            std::rethrow_exception(failure_);
        case WM_SYSCOLORCHANGE:
        case WM_SETTINGCHANGE:
            SendMessageW(form_.Window(), message, first, second);
            return 0;
        default:
            return DialogWindow::OnMessage(message, first, second);
    }
}

}  // namespace tarvex
