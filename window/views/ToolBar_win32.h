#pragma once

#include <functional>

#include "platform/win32/WindowsApi.h"
#include "window/formviews/FormFonts_win32.h"
#include "window/main/Menu.h"

namespace tarvex {

/// The buttons above the pages, named by the ids of their commands (MenuBar_win32.h). A child of
/// the main window.
class ToolBar {
public:
    bool Create(HWND window);
    void SetFonts(const FormFonts& fonts);

    /// Its size in pixels, which depends on the font.
    SIZE Size() const;
    void Place(const RECT& area) const;

    void Enable(const std::function<bool(Command)>& isEnabled) const;

private:
    HWND bar_ = nullptr;
};

}  // namespace tarvex
