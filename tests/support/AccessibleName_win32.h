#pragma once

#include <string>

#include "platform/win32/WindowsApi.h"

namespace tarvex {

/// What a screen reader calls the control: "<no name>" when it has none, "<not accessible>" when it
/// cannot be asked.
std::u16string AccessibleName(HWND control);

}  // namespace tarvex
