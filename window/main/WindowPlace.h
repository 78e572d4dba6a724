#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

/// A part of the screens in pixels; right and bottom lie outside.
struct ScreenArea {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;

    bool operator==(const ScreenArea&) const = default;
};

/// Where a window was when it was closed.
struct WindowPlace {
    ScreenArea area;  ///< while it was not maximised
    bool maximised = false;

    bool operator==(const WindowPlace&) const = default;
};

/// The place as a text "left,top,right,bottom" with ",max" at its end, and back. Nothing for a text
/// that is none, and for an area with no size.
std::u16string PlaceText(const WindowPlace& place);
std::optional<WindowPlace> ReadPlace(std::u16string_view text);

/// The area where the user can reach it: as it is when one of the work areas shows enough of the
/// title bar to take hold of, else moved into the work area that it overlaps most, the first one
/// when it overlaps none, and made smaller where that has no room. There is at least one work area.
ScreenArea BroughtBack(const ScreenArea& area, const std::vector<ScreenArea>& workAreas);

}  // namespace tarvex
