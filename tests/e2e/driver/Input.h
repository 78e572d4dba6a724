#pragma once

#include <cstdint>
#include <string_view>

#include "tests/e2e/driver/Window.h"

namespace tarvex {

/// Brings a window to the foreground, to which real keys go; false when the system refuses or
/// takes longer than two seconds.
bool BringToForeground(WindowHandle window);

/// Presses keys as a person would: "Ctrl+S", "Alt+F4", "Esc", "h"; several are separated by blanks.
/// False when a name is unknown; nothing is pressed then.
bool PressKeys(std::u16string_view keys);

/// Types a text, character by character.
void TypeText(std::u16string_view text);

/// Clicks with the left mouse button at a place of the screen.
void ClickAt(std::int32_t x, std::int32_t y);

}  // namespace tarvex
