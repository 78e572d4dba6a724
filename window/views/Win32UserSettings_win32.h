#pragma once

#include "window/main/UserSettings.h"

namespace tarvex {

/// Texts in the registry of the user who is logged on. The key is made with the first of them.
class Win32UserSettings : public UserSettings {
public:
    std::u16string Read(std::u16string_view name) const override;
    void Write(std::u16string_view name, std::u16string_view text) override;
};

}  // namespace tarvex
