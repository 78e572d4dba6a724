#include "simulation/RecordingRegistry.h"

#include <algorithm>

#include "text/Text.h"

namespace tarvex {

std::vector<std::u16string> RecordingRegistry::ListValueNames(std::int32_t root,
                                                              std::u16string_view key,
                                                              std::size_t maxNameChars,
                                                              std::size_t maxDataBytes) const {
    return registry_.ListValueNames(root, key, maxNameChars, maxDataBytes);
}

std::optional<std::string> RecordingRegistry::ReadTextInView(View view, std::int32_t root,
                                                             std::u16string_view key,
                                                             std::u16string_view valueName) const {
    std::optional<std::string> bytes = registry_.ReadTextInView(view, root, key, valueName);
    const bool known = std::any_of(texts_.begin(), texts_.end(), [&](const Text& other) {
        return other.view == view && other.root == root && text::EqualsIgnoreCase(other.key, key) &&
               text::EqualsIgnoreCase(other.valueName, valueName);
    });
    if (!known) {
        texts_.push_back({view, root, std::u16string(key), std::u16string(valueName), bytes});
    }
    return bytes;
}

}  // namespace tarvex
