#pragma once

#include <string>
#include <vector>

#include "platform/win32/WindowsApi.h"

namespace tarvex {

/// Texts below `window` that do not fit into their controls, as "CLASS: TEXT" in UTF-8: those of
/// visible static controls, buttons, check boxes and options, the chosen line of drop-down lists,
/// and headers and cells of list views.
std::vector<std::string> CutTexts(HWND window);

}  // namespace tarvex
