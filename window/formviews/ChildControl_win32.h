#pragma once

#include <string>
#include <string_view>

#include "platform/win32/WindowsApi.h"

namespace tarvex {

/// Makes a control in one of this program's windows, which destroys it. It has no size yet, and
/// shows only with WS_VISIBLE in its style. Id 0 is for those that are asked for nothing. Null when
/// the system refuses.
HWND CreateChild(HWND parent, const wchar_t* className, std::u16string_view text, DWORD style,
                 int id = 0, DWORD extendedStyle = 0);

/// The whole text of a control.
std::u16string ControlText(HWND control);

}  // namespace tarvex
