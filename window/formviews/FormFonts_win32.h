#pragma once

#include <array>
#include <map>
#include <string>
#include <tuple>

#include "platform/win32/Handles.h"
#include "window/form/FormLayout.h"

namespace tarvex {

/// The fonts of forms on a screen of one resolution, after the user's choice for messages, and what
/// texts measure in them.
class FormFonts : public FormMeasure {
public:
    explicit FormFonts(int dpi);

    HFONT Font(FormFont font) const { return At(font).handle.Get(); }
    int Dpi() const { return dpi_; }

    int TextWidth(FormFont font, std::u16string_view text) const override;
    int TextHeight(FormFont font, std::u16string_view text, int width) const override;
    int LineHeight(FormFont font) const override { return At(font).lineHeight; }
    int ControlHeight() const override;
    int Scaled(int pixels) const override;

private:
    using UniqueFont = UniqueHandle<HFONT, DeleteObject>;
    struct Entry {
        UniqueFont handle;
        int lineHeight = 0;
    };
    struct Extent {
        int width;
        int height;
    };

    const Entry& At(FormFont font) const;
    Extent Measured(FormFont font, std::u16string_view text, int width) const;

    int dpi_;
    mutable std::array<Entry, 4> fonts_;  // made when they are first needed
    // A form measures the same texts with every key that is pressed in it.
    mutable std::map<std::tuple<FormFont, int, std::u16string>, Extent> measured_;
};

}  // namespace tarvex
