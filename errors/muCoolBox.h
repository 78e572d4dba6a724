#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/CaptionBoxApi.h"

namespace tarvex {

/// The system's message box with button captions of the caller's choice. Only one such box can be
/// open at a time.
class muCoolBox {
public:
    /// `api` must outlive the object.
    explicit muCoolBox(CaptionBoxApi& api) : api_(api) {}

    /// Shows the box and returns the position of the button pressed, 1 to 3.
    /// - owner: may be null.
    /// - caption2, caption3: empty ones make a box with fewer buttons.
    /// - style: MB_... flags of the icon, the default button and the modality.
    /// A box with fewer buttons that is closed otherwise gives 3; one that could not be shown
    /// gives 1.
    int Show(WindowHandle owner, std::u16string_view text, std::u16string_view title,
             std::u16string_view caption1, std::u16string_view caption2,
             std::u16string_view caption3, std::uint32_t style);

private:
    static void OnTimer() noexcept;

    std::uint32_t ButtonSet() const;
    void StopTimer();
    void RenameButtons();

    /// The box whose timer is running; a timer procedure has no other way to it.
    static muCoolBox* renaming_;

    CaptionBoxApi& api_;
    WindowHandle owner_ = nullptr;
    std::array<std::u16string, 3> captions_;
    std::uintptr_t timer_ = 0;
};

}  // namespace tarvex
