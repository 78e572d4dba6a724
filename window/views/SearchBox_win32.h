#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/win32/WindowsApi.h"

namespace tarvex {

inline constexpr int kSearchId = 407;
inline constexpr int kSearchHitsId = 408;

/// The box that finds settings, and the list of what it found, which lies over the page. Both are
/// children of the main window.
class SearchBox {
public:
    struct Events {
        /// What a text finds, a line each.
        std::function<std::vector<std::u16string>(const std::u16string& text)> find;
        /// One of those lines was chosen.
        std::function<void(std::size_t hit)> goTo;
    };

    bool Create(HWND window, Events events);
    void SetFont(HFONT font, int dpi);

    /// The box with its label at the right end of the row. The list opens below it, as wide as
    /// the lines need and the window is.
    void Place(const RECT& row);

    /// Brings the focus to the box, its text selected.
    void Focus() const;
    void CloseList() const;
    bool Contains(HWND control) const { return control == edit_ || control == list_; }

    /// For the window's messages; true when it was about the box.
    bool OnCommand(int id, int notification);

    /// A key was pressed in the box or its list; true when it has been seen to.
    bool OnKey(const MSG& message);

private:
    void Find();
    void Choose();
    void ShowHits(LRESULT chosen);

    Events events_;
    HWND label_ = nullptr;
    HWND edit_ = nullptr;
    HWND list_ = nullptr;
    HFONT font_ = nullptr;
    RECT row_{};
    std::vector<std::u16string> hits_;
    int dpi_ = 0;
};

}  // namespace tarvex
