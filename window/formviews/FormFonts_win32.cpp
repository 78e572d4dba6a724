#include "window/formviews/FormFonts_win32.h"

#include <algorithm>

#include "platform/win32/Dpi.h"
#include "platform/win32/WideText.h"
#include "window/formviews/FontOnScreen_win32.h"

namespace tarvex {

namespace {

constexpr std::size_t kMostMeasured = 2000;
constexpr int kAroundText = 4;     // at kNormalDpi
constexpr int kSmallestFont = 11;  // at kNormalDpi

/// The fixed font of the log window that the launcher shows.
LOGFONTW FixedFont(const LOGFONTW& message) {
    LOGFONTW font{};
    font.lfHeight = message.lfHeight;
    font.lfWeight = FW_NORMAL;
    font.lfCharSet = DEFAULT_CHARSET;
    font.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
    lstrcpynW(font.lfFaceName, L"Courier New", LF_FACESIZE);
    return font;
}

LOGFONTW HeadingFont(LOGFONTW font) {
    font.lfHeight = MulDiv(font.lfHeight, 4, 3);
    return font;
}

/// A little smaller than the message font, but never too small to be read.
LOGFONTW SmallFont(LOGFONTW font, int dpi) {
    const LONG smallest = -Scaled(kSmallestFont, dpi);
    if (font.lfHeight < smallest) {
        font.lfHeight = std::min<LONG>(MulDiv(font.lfHeight, 8, 9), smallest);
    }
    return font;
}

LOGFONTW Description(FormFont font, int dpi) {
    const LOGFONTW message = MessageFont(dpi);
    switch (font) {
        case FormFont::Small:
            return SmallFont(message, dpi);
        case FormFont::Heading:
            return HeadingFont(message);
        case FormFont::Fixed:
            return FixedFont(message);
        default:
            return message;
    }
}

}  // namespace

FormFonts::FormFonts(int dpi) : dpi_(dpi) {}

// The first use of a font takes the system longer than anything else at the start of the window.
const FormFonts::Entry& FormFonts::At(FormFont font) const {
    Entry& entry = fonts_[static_cast<std::size_t>(font)];
    if (!entry.handle) {
        const LOGFONTW description = Description(font, dpi_);
        entry.handle = UniqueFont(CreateFontIndirectW(&description));
        const FontOnScreen screen(entry.handle.Get());
        TEXTMETRICW metrics{};
        GetTextMetricsW(screen.Get(), &metrics);
        entry.lineHeight = static_cast<int>(metrics.tmHeight);
    }
    return entry;
}

int FormFonts::TextWidth(FormFont font, std::u16string_view text) const {
    return text.empty() ? 0 : Measured(font, text, 0).width;
}

int FormFonts::TextHeight(FormFont font, std::u16string_view text, int width) const {
    return text.empty() ? LineHeight(font) : Measured(font, text, width).height;
}

// An edit control writes at its top, and its edges do not grow with the resolution: more would
// stand empty below the text.
int FormFonts::ControlHeight() const {
    return LineHeight(FormFont::Normal) + Scaled(kAroundText) + 2 * GetSystemMetrics(SM_CYEDGE);
}

int FormFonts::Scaled(int pixels) const {
    return tarvex::Scaled(pixels, dpi_);
}

/// Width 0: all on one line.
FormFonts::Extent FormFonts::Measured(FormFont font, std::u16string_view text, int width) const {
    if (measured_.size() > kMostMeasured) {
        measured_.clear();
    }
    const auto [entry, isNew] = measured_.try_emplace({font, width, std::u16string(text)});
    if (isNew) {
        const FontOnScreen screen(Font(font));
        RECT extent = {0, 0, width, 0};
        const std::u16string& copy = std::get<std::u16string>(entry->first);
        // As the static controls of a form break it: words that are too long as well.
        const UINT broken = width == 0 ? DT_SINGLELINE : DT_WORDBREAK | DT_EDITCONTROL;
        DrawTextW(screen.Get(), Wide(copy), static_cast<int>(copy.size()), &extent,
                  DT_CALCRECT | DT_NOPREFIX | DT_EXPANDTABS | broken);
        entry->second = {static_cast<int>(extent.right), static_cast<int>(extent.bottom)};
    }
    return entry->second;
}

}  // namespace tarvex
