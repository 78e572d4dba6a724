#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/Ui.h"

namespace tarvex {

/// The system calls that a message box is made of whose buttons are renamed while it is open. Texts
/// reach the system in its ANSI code page. Failures show in the results; memory may run out in
/// ShowMessageBox, but only before the box shows.
class CaptionBoxApi {
public:
    using TimerProcedure = void (*)() noexcept;

    virtual ~CaptionBoxApi() = default;

    /// Starts a timer that calls `procedure` from the thread's message loop, again and again until
    /// it is stopped. With an owner the timer bears `id`; without one the system chooses its id.
    /// Returns the timer's id, 0 when it could not be started.
    virtual std::uintptr_t StartTimer(WindowHandle owner, std::uintptr_t id, unsigned milliseconds,
                                      TimerProcedure procedure) = 0;

    virtual void StopTimer(WindowHandle owner, std::uintptr_t id) = 0;

    /// The active window of the calling thread, null when there is none.
    virtual WindowHandle ActiveWindow() const = 0;

    virtual bool HasItem(WindowHandle dialog, int item) const = 0;

    /// Sets the text of a dialog item; nothing happens when there is no such item.
    virtual void SetItemText(WindowHandle dialog, int item, std::u16string_view text) = 0;

    /// Makes the buttons, which stand side by side in that order, wide enough for their captions,
    /// and the dialog wide enough for the buttons.
    virtual void FitButtons(WindowHandle dialog, const std::vector<int>& items) = 0;

    /// Returns the system's code of the button pressed, 0 when the box could not be shown.
    virtual int ShowMessageBox(WindowHandle owner, std::u16string_view text,
                               std::u16string_view title, std::uint32_t style) = 0;
};

}  // namespace tarvex
