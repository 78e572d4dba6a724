#pragma once

#include <string>
#include <vector>

#include "tests/e2e/driver/Window.h"

namespace tarvex {

/// What a control holds beside its text.
struct ControlContent {
    bool checked = false;                            ///< check box or option
    std::vector<std::vector<std::u16string>> items;  ///< of lists and boxes, line by line
    std::int32_t selected = -1;                      ///< 0-based line; -1: none
    std::u16string name;                             ///< for screen readers
};

/// Reads it from another process, whose handle may read and write its memory.
ControlContent ReadContent(void* process, const Control& control);

/// Chooses a line of a list or a drop-down list, as a person would; false for other controls.
bool SelectLine(void* process, const Control& control, std::int32_t line);

/// Drops a file on a window.
void DropFile(void* process, WindowHandle window, const std::u16string& file);

/// Tells a window that it stands on a screen of another resolution now.
void TellDpi(void* process, WindowHandle window, std::int32_t dpi);

}  // namespace tarvex
