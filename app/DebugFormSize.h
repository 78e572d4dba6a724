#pragma once

namespace tarvex {

/// A width and a height in pixels.
struct PixelSize {
    int width = 0;
    int height = 0;
};

/// What the size of the log window depends on, measured on the screen that it opens on.
struct DebugFormMeasures {
    PixelSize frame;       ///< what border, title and menu take of the window
    PixelSize scrollBars;  ///< what the scroll bars take of the text box
    PixelSize cell;        ///< one character of the text's font
    int margin = 0;        ///< on each side of the text
    PixelSize screen;      ///< the part of the screen that no taskbar covers
};

/// The outer size in which the log window opens: lines of 100 characters fit, unless the screen is
/// smaller.
PixelSize DebugFormSize(const DebugFormMeasures& measures);

}  // namespace tarvex
