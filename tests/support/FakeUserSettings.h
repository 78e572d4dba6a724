#pragma once

#include <map>
#include <string>

#include "window/main/UserSettings.h"

namespace tarvex {

/// Keeps the texts in memory.
class FakeUserSettings : public UserSettings {
public:
    std::map<std::u16string, std::u16string, std::less<>> texts;

    std::u16string Read(std::u16string_view name) const override {
        const auto found = texts.find(name);
        return found != texts.end() ? found->second : std::u16string();
    }
    void Write(std::u16string_view name, std::u16string_view text) override {
        if (text.empty()) {
            texts.erase(std::u16string(name));
        } else {
            texts[std::u16string(name)] = text;
        }
    }
};

}  // namespace tarvex
