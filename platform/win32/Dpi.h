#pragma once

#include "platform/win32/WindowsApi.h"

namespace tarvex {

/// Pixels per inch that lengths are designed for.
inline constexpr int kNormalDpi = 96;

/// Pixels per inch of the screen as the program found it at its start.
int SystemDpi();

/// Pixels per inch of the monitor that the window is on, also while it is hidden; those of the
/// system where Windows does not tell (before 8.1).
int WindowDpi(HWND window);

/// The font that the user has chosen for messages, as large as that resolution asks for.
LOGFONTW MessageFont(int dpi);

/// A length that is `pixels` at kNormalDpi.
int Scaled(int pixels, int dpi);

}  // namespace tarvex
