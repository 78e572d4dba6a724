#include "window/formviews/FontOnScreen_win32.h"

#include <algorithm>

#include "platform/win32/WideText.h"

namespace tarvex {

int FontOnScreen::WidthOf(std::u16string_view text) const {
    SIZE size{};
    GetTextExtentPoint32W(Get(), Wide(std::u16string(text)), static_cast<int>(text.size()), &size);
    return static_cast<int>(size.cx);
}

std::u16string FontOnScreen::Fitting(std::u16string_view text, int width) const {
    std::u16string fitting(text);
    if (WidthOf(text) <= width) {
        return fitting;
    }
    int count = 0;
    SIZE size{};
    GetTextExtentExPointW(Get(), Wide(fitting), static_cast<int>(fitting.size()),
                          std::max(width - WidthOf(u"…"), 0), &count, nullptr, &size);
    fitting.resize(static_cast<std::size_t>(count));
    return fitting + u"…";
}

}  // namespace tarvex
