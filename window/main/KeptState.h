#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "window/main/UserSettings.h"
#include "window/main/WindowPlace.h"

namespace tarvex {

/// What the window finds again when it is opened the next time, apart from the last files. What was
/// never kept, or is not legible, is nothing.
class KeptState {
public:
    /// `settings` is not owned and outlives this object.
    explicit KeptState(UserSettings& settings) : settings_(settings) {}

    std::optional<WindowPlace> Place() const;
    void SetPlace(const WindowPlace& place);

    /// In pixels at 100 %; 0: the preview is folded.
    std::optional<std::int32_t> PreviewHeight() const;
    void SetPreviewHeight(std::int32_t height);

    /// Folder of the described PCs; empty: none was chosen.
    std::u16string PcFolder() const;
    void SetPcFolder(std::u16string_view folder);

private:
    UserSettings& settings_;
};

}  // namespace tarvex
