#pragma once

#include <optional>
#include <vector>

namespace tarvex {

/// Where a button stands inside its window, in pixels from the left edge.
struct ButtonSpan {
    int left = 0;
    int width = 0;
};

/// A row of buttons after it has grown.
struct ButtonRow {
    int clientWidth = 0;
    std::vector<ButtonSpan> buttons;
};

/// Widens the buttons, given from left to right, to `neededWidth`. They keep a common width, their
/// gaps and their place (in the middle or at the right); the window grows when they would not fit
/// into it. Nothing when every button is wide enough already.
std::optional<ButtonRow> WidenButtons(const ButtonRow& row, int neededWidth);

}  // namespace tarvex
