#pragma once

#include <vector>

#include "platform/win32/WindowsApi.h"
#include "window/main/MainModel.h"

namespace tarvex {

inline constexpr int kPageListId = 406;

/// The list of pages at the left of the main window, whose child it is.
class PageList {
public:
    /// False when the system refuses.
    bool Create(HWND window);

    void SetFont(HFONT font, int dpi);
    void Show(const std::vector<PageLine>& lines, int selected);

    HWND Control() const { return list_; }
    int Selected() const;

    /// Paints a line; for WM_DRAWITEM.
    void Draw(const DRAWITEMSTRUCT& item) const;

private:
    HWND list_ = nullptr;
    std::vector<PageLine> lines_;
    int dpi_ = 0;
};

}  // namespace tarvex
