#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Registry.h"

namespace tarvex {

/// Hands every question on to a registry and keeps the answers about texts, each question once. The
/// launcher asks for nothing else: names of values serve to look up a profile, which no setting
/// asks for.
class RecordingRegistry : public Registry {
public:
    /// A text and what was answered.
    struct Text {
        View view = View::kOwn;
        std::int32_t root = kNoHKey;
        std::u16string key;
        std::u16string valueName;
        std::optional<std::string> bytes;
    };

    /// `registry` must outlive this object.
    explicit RecordingRegistry(const Registry& registry) : registry_(registry) {}

    const std::vector<Text>& Texts() const { return texts_; }

    std::vector<std::u16string> ListValueNames(std::int32_t root, std::u16string_view key,
                                               std::size_t maxNameChars,
                                               std::size_t maxDataBytes) const override;
    std::optional<std::string> ReadTextInView(View view, std::int32_t root, std::u16string_view key,
                                              std::u16string_view valueName) const override;
    bool Has64BitView() const override { return registry_.Has64BitView(); }

private:
    const Registry& registry_;
    mutable std::vector<Text> texts_;
};

}  // namespace tarvex
