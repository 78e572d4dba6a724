#pragma once

#include <cstdint>
#include <functional>
#include <string_view>

#include "platform/Ui.h"

namespace tarvex {

/// The start picture: a window without border that shows a picture for some time.
class frmStart {
public:
    /// What F1 does in the window.
    using Help = std::function<void()>;

    /// Shows the picture and returns when the time (in milliseconds, from the moment it shows) is
    /// up or the user has closed the window. Clicking the picture does not close it. Returns at
    /// once when the picture cannot be loaded or the time is not positive. The mouse pointer is the
    /// default one afterwards, if the window was shown. `helpContext` 0: none.
    static void ShowModal(std::u16string_view path, std::int32_t milliseconds,
                          std::int32_t helpContext, const Help& help, Ui& ui);
};

}  // namespace tarvex
