#include "errors/muCoolBox.h"

#include <vector>

namespace tarvex {

namespace {

constexpr std::uintptr_t kTimerId = 88;
/// Long enough for the box to be the active window.
constexpr unsigned kRenameAfter = 25;

enum SystemButton { Failed, Ok, Cancel, Abort, Retry, Ignore, Yes, No };

int PositionOf(int systemButton) {
    switch (systemButton) {
        case Failed:
        case Ok:
        case Abort:
        case Yes:
            return 1;
        case Retry:
        case No:
            return 2;
        default:
            return 3;
    }
}

}  // namespace

muCoolBox* muCoolBox::renaming_ = nullptr;

int muCoolBox::Show(WindowHandle owner, std::u16string_view text, std::u16string_view title,
                    std::u16string_view caption1, std::u16string_view caption2,
                    std::u16string_view caption3, std::uint32_t style) {
    owner_ = owner;
    captions_ = {std::u16string(caption1), std::u16string(caption2), std::u16string(caption3)};

    // Ends the timer of a box that closed before it fired: it would rename the buttons of the
    // next window. The object may be gone by then, too.
    struct TimerEnd {
        muCoolBox& box;
        ~TimerEnd() { box.StopTimer(); }
    } timerEnd{*this};
    renaming_ = this;
    timer_ = api_.StartTimer(owner_, kTimerId, kRenameAfter, OnTimer);

    return PositionOf(api_.ShowMessageBox(owner_, text, title, style | ButtonSet()));
}

std::uint32_t muCoolBox::ButtonSet() const {
    if (!captions_[2].empty()) {
        return box_style::kAbortRetryIgnore;
    }
    return captions_[1].empty() ? 0 : box_style::kYesNo;
}

void muCoolBox::StopTimer() {
    if (renaming_ == this) {
        renaming_ = nullptr;
        api_.StopTimer(owner_, owner_ != nullptr ? kTimerId : timer_);
    }
}

void muCoolBox::OnTimer() noexcept {
    muCoolBox* const box = renaming_;
    if (box == nullptr) {
        return;
    }
    try {
        box->StopTimer();
        box->RenameButtons();
    } catch (...) {
        // The system's frames below cannot be unwound; the buttons keep the system's captions.
    }
}

void muCoolBox::RenameButtons() {
    const WindowHandle window = api_.ActiveWindow();
    if (window == nullptr) {
        return;
    }
    std::vector<int> items;
    if (!captions_[2].empty()) {
        items = {Abort, Retry, Ignore};
    } else if (!captions_[1].empty()) {
        items = {Yes, No};
    } else {
        // The button of a plain box is Windows' item 2, but item 1 on other implementations.
        items = {api_.HasItem(window, Cancel) ? Cancel : Ok};
    }
    for (std::size_t i = 0; i < items.size(); ++i) {
        api_.SetItemText(window, items[i], captions_[i]);
    }
    api_.FitButtons(window, items);
}

}  // namespace tarvex
