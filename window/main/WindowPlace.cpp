#include "window/main/WindowPlace.h"

#include <algorithm>
#include <array>

#include "text/Text.h"

namespace tarvex {
namespace {

constexpr std::u16string_view kMaximised = u"max";

/// Of the title bar so much must be seen.
constexpr std::int32_t kGripWidth = 100;
constexpr std::int32_t kGripHeight = 20;

/// Larger than any screen; sums of such numbers are still numbers.
constexpr std::int32_t kFarthest = 1'000'000;

ScreenArea Overlap(const ScreenArea& a, const ScreenArea& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

std::int64_t SizeOf(const ScreenArea& area) {
    return static_cast<std::int64_t>(std::max(0, area.right - area.left)) *
           std::max(0, area.bottom - area.top);
}

bool ShowsGrip(const ScreenArea& workArea, const ScreenArea& area) {
    const ScreenArea title = {area.left, area.top, area.right, area.top + kGripHeight};
    const ScreenArea seen = Overlap(workArea, title);
    return seen.right - seen.left >= kGripWidth && seen.bottom - seen.top >= kGripHeight;
}

}  // namespace

std::u16string PlaceText(const WindowPlace& place) {
    const ScreenArea& area = place.area;
    std::u16string text;
    for (const std::int32_t number : {area.left, area.top, area.right, area.bottom}) {
        text::AppendWithSeparator(text, text::Decimal(number), u",");
    }
    return place.maximised ? text + u"," + std::u16string(kMaximised) : text;
}

std::optional<WindowPlace> ReadPlace(std::u16string_view text) {
    const std::vector<std::u16string_view> parts = text::Split(text, u',');
    if (parts.size() < 4) {
        return std::nullopt;
    }
    std::array<std::int32_t, 4> numbers{};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const std::optional<std::int32_t> number = text::ParseInt32(parts[i]);
        if (!number || *number < -kFarthest || *number > kFarthest) {
            return std::nullopt;
        }
        numbers[i] = *number;
    }
    const WindowPlace place = {{numbers[0], numbers[1], numbers[2], numbers[3]},
                               parts.back() == kMaximised};
    return SizeOf(place.area) > 0 ? std::optional(place) : std::nullopt;
}

ScreenArea BroughtBack(const ScreenArea& area, const std::vector<ScreenArea>& workAreas) {
    const bool isReached =
        std::any_of(workAreas.begin(), workAreas.end(),
                    [&area](const ScreenArea& workArea) { return ShowsGrip(workArea, area); });
    if (isReached) {
        return area;
    }
    const ScreenArea& home = *std::max_element(
        workAreas.begin(), workAreas.end(), [&area](const ScreenArea& a, const ScreenArea& b) {
            return SizeOf(Overlap(a, area)) < SizeOf(Overlap(b, area));
        });
    const std::int32_t width = std::min(area.right - area.left, home.right - home.left);
    const std::int32_t height = std::min(area.bottom - area.top, home.bottom - home.top);
    const std::int32_t left = std::clamp(area.left, home.left, home.right - width);
    const std::int32_t top = std::clamp(area.top, home.top, home.bottom - height);
    return {left, top, left + width, top + height};
}

}  // namespace tarvex
