#include "window/main/KeptState.h"

#include "text/Text.h"

namespace tarvex {
namespace {

constexpr std::u16string_view kPlace = u"Fenster";
constexpr std::u16string_view kPreviewHeight = u"Vorschau";
constexpr std::u16string_view kPcFolder = u"PCs";

}  // namespace

std::optional<WindowPlace> KeptState::Place() const {
    return ReadPlace(settings_.Read(kPlace));
}

void KeptState::SetPlace(const WindowPlace& place) {
    settings_.Write(kPlace, PlaceText(place));
}

std::optional<std::int32_t> KeptState::PreviewHeight() const {
    const std::optional<std::int32_t> height = text::ParseInt32(settings_.Read(kPreviewHeight));
    return height && *height >= 0 ? height : std::nullopt;
}

void KeptState::SetPreviewHeight(std::int32_t height) {
    settings_.Write(kPreviewHeight, text::Decimal(height));
}

std::u16string KeptState::PcFolder() const {
    return settings_.Read(kPcFolder);
}

void KeptState::SetPcFolder(std::u16string_view folder) {
    settings_.Write(kPcFolder, folder);
}

}  // namespace tarvex
