#pragma once
#include "window/model/UserSettings.h"
namespace tarvex {
class Win32UserSettings : public UserSettings {
public:
    std::u16string Read(std::u16string_view) const override { return {}; }
    void Write(std::u16string_view, std::u16string_view) override {}
};
}  // namespace tarvex
