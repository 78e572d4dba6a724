#include "app/DebugFormSize.h"

#include <algorithm>

namespace tarvex {

namespace {

// Two characters more than a line needs: moved to a screen of another resolution, the window is
// scaled as a whole, but its font, frame and scroll bars are rounded each for themselves.
constexpr int kColumns = 102;
constexpr int kLines = 32;

}  // namespace

PixelSize DebugFormSize(const DebugFormMeasures& measures) {
    const auto outer = [&measures](int text, int PixelSize::*part) {
        return std::min(measures.frame.*part + measures.scrollBars.*part +
                            text * measures.cell.*part + 2 * measures.margin,
                        measures.screen.*part);
    };
    return {outer(kColumns, &PixelSize::width), outer(kLines, &PixelSize::height)};
}

}  // namespace tarvex
