#pragma once

#include <string>
#include <string_view>

#include "platform/win32/Handles.h"

namespace tarvex {

/// A font in the device context of the screen for the time of a block, and what texts measure in
/// it, in pixels.
class FontOnScreen {
public:
    /// The font is not owned.
    explicit FontOnScreen(HFONT font) : before_(SelectObject(screen_.Get(), font)) {}
    FontOnScreen(const FontOnScreen&) = delete;
    FontOnScreen& operator=(const FontOnScreen&) = delete;
    ~FontOnScreen() { SelectObject(screen_.Get(), before_); }
    HDC Get() const { return screen_.Get(); }

    /// Of a text on one line.
    int WidthOf(std::u16string_view text) const;

    /// The text, or, where it is wider, as much of its beginning as stands there with "…" after it.
    std::u16string Fitting(std::u16string_view text, int width) const;

private:
    WindowDc screen_{nullptr};
    HGDIOBJ before_;
};

}  // namespace tarvex
