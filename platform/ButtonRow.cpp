#include "platform/ButtonRow.h"

#include <algorithm>

namespace tarvex {

namespace {

/// Margins that differ by the odd pixel of a division still are those of a row in the middle.
constexpr int kOddPixel = 2;

}  // namespace

std::optional<ButtonRow> WidenButtons(const ButtonRow& row, int neededWidth) {
    if (std::all_of(row.buttons.begin(), row.buttons.end(),
                    [neededWidth](const ButtonSpan& span) { return span.width >= neededWidth; })) {
        return std::nullopt;
    }
    const int count = static_cast<int>(row.buttons.size());
    const ButtonSpan& first = row.buttons.front();
    const ButtonSpan& last = row.buttons.back();
    int width = neededWidth;
    for (const ButtonSpan& span : row.buttons) {
        width = std::max(width, span.width);
    }
    const int gap = count > 1 ? std::max(0, row.buttons[1].left - first.left - first.width) : 0;
    const int rowWidth = count * width + (count - 1) * gap;

    const int rightMargin = row.clientWidth - last.left - last.width;
    const bool atRight = rightMargin + kOddPixel < first.left;
    // A fraction of a button's width grows with the resolution, as the buttons do.
    const int leastMargin = std::clamp(first.left, 0, first.width / 8);

    ButtonRow result;
    result.clientWidth =
        std::max(row.clientWidth, leastMargin + rowWidth + (atRight ? rightMargin : leastMargin));
    int left =
        atRight ? result.clientWidth - rightMargin - rowWidth : (result.clientWidth - rowWidth) / 2;
    for (int i = 0; i < count; ++i) {
        result.buttons.push_back({left, width});
        left += width + gap;
    }
    return result;
}

}  // namespace tarvex
