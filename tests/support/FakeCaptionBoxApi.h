#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/CaptionBoxApi.h"

namespace tarvex {

/// A message box that lets the timer fire while it is open, as the system's loop does. Records
/// every call in order.
class FakeCaptionBoxApi : public CaptionBoxApi {
public:
    std::vector<std::u16string> log;
    int answer = 1;                  ///< of the box
    bool timerFires = true;          ///< false: the box is closed before the timer is due
    bool boxIsActive = true;         ///< false: no window of the thread is active
    std::vector<int> items;          ///< that the box has
    std::uintptr_t systemTimer = 0;  ///< what starting a timer returns
    std::map<int, std::u16string> captions;
    std::uint32_t style = 0;
    std::function<void()> inTimer;  ///< runs when a caption is set

    /// Lets the timer fire, also after the box has closed.
    void FireTimer() {
        if (procedure_ != nullptr) {
            procedure_();
        }
    }

    bool TimerRuns() const { return running_; }

    std::uintptr_t StartTimer(WindowHandle owner, std::uintptr_t id, unsigned milliseconds,
                              TimerProcedure procedure) override;
    void StopTimer(WindowHandle owner, std::uintptr_t id) override;
    WindowHandle ActiveWindow() const override;
    bool HasItem(WindowHandle dialog, int item) const override;
    void SetItemText(WindowHandle dialog, int item, std::u16string_view text) override;
    void FitButtons(WindowHandle dialog, const std::vector<int>& buttons) override;
    int ShowMessageBox(WindowHandle owner, std::u16string_view text, std::u16string_view title,
                       std::uint32_t boxStyle) override;

private:
    TimerProcedure procedure_ = nullptr;
    bool running_ = false;
};

}  // namespace tarvex
