#pragma once

#include <functional>

#include "app/AppWindows.h"
#include "platform/Ui.h"

namespace tarvex {

class ForegroundAnchor;

/// The start picture: a window without border that shows a picture for some time.
class frmStart {
public:
    /// What F1 does in the window.
    using Help = std::function<void()>;

    /// Shows the picture and returns when the time (from the moment it shows) is up or the user has
    /// closed the window. Clicking the picture does not close it. Returns false at once when the
    /// picture cannot be loaded or the time is not positive. After a window that was shown the
    /// mouse pointer is the default one, and `anchor`, which shows nothing before, keeps the
    /// foreground.
    static bool ShowModal(const PictureWindow& content, const Help& help, Ui& ui,
                          ForegroundAnchor& anchor);
};

}  // namespace tarvex
