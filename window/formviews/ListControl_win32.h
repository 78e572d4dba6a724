#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/win32/WindowsApi.h"

/// A list view with lines of several columns, of which one line at most is chosen.
namespace tarvex::list_control {

using Items = std::vector<std::vector<std::u16string>>;

/// Hidden, in front of nothing yet; without headers when all `columns` are empty.
HWND Create(HWND parent, const std::vector<std::u16string>& columns, int id);

/// Changes the lines from `before`, which it shows, to `items`; equal ones are left alone.
void SetItems(HWND list, const Items& items, const Items& before);

/// The 0-based chosen line; -1: none.
std::int32_t Selected(HWND list);
void Select(HWND list, std::int32_t line);

/// Makes every column as wide as its texts with `padding`; the last one takes the rest.
void FitColumns(HWND list, int padding);

}  // namespace tarvex::list_control
