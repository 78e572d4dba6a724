#pragma once

#include "platform/CaptionBoxApi.h"
#include "platform/TextCodec.h"

namespace tarvex {

/// Message boxes, timers and dialog items of Windows.
class Win32CaptionBoxApi : public CaptionBoxApi {
public:
    /// Texts reach the box in the code page of `ansi`, which outlives this object.
    explicit Win32CaptionBoxApi(const TextCodec& ansi) : ansi_(ansi) {}

    std::uintptr_t StartTimer(WindowHandle owner, std::uintptr_t id, unsigned milliseconds,
                              TimerProcedure procedure) override;
    void StopTimer(WindowHandle owner, std::uintptr_t id) override;
    WindowHandle ActiveWindow() const override;
    bool HasItem(WindowHandle dialog, int item) const override;
    void SetItemText(WindowHandle dialog, int item, std::u16string_view text) override;
    void FitButtons(WindowHandle dialog, const std::vector<int>& items) override;
    int ShowMessageBox(WindowHandle owner, std::u16string_view text, std::u16string_view title,
                       std::uint32_t style) override;

private:
    const TextCodec& ansi_;
};

}  // namespace tarvex
