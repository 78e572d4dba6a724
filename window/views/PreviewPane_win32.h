#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "platform/win32/WindowsApi.h"
#include "window/main/PreviewPaneState.h"

namespace tarvex {

inline constexpr int kPreviewPcId = 401;
inline constexpr int kPreviewLineId = 402;
inline constexpr int kPreviewTextId = 403;
inline constexpr int kFindingsId = 404;
inline constexpr int kFindingsButtonId = 405;

/// The lower part of the main window: what the launcher would do, and the list of findings. Its
/// controls are the window's own children.
class PreviewPane {
public:
    /// What the user does there.
    struct Events {
        std::function<void(std::int32_t pc)> choosePc;
        std::function<void()> toggleFindings;
        std::function<void(std::size_t finding)> goToFinding;
    };

    /// False when the system refuses a control.
    bool Create(HWND window, Events events);

    /// Both outlive their use by the controls.
    void SetFonts(HFONT font, HFONT fixedFont);

    /// Height with the line alone, in pixels.
    int FoldedHeight(int dpi) const;

    void Place(const RECT& area, int dpi);
    void Show(const PreviewPaneState& state);

    /// Folded it shows its first line only.
    void SetFolded(bool folded);

    /// The control to begin with when the user goes to the pane.
    HWND First() const { return pcs_; }
    bool Contains(HWND control) const;

    /// Brings the focus to the list of findings and its first line.
    void FocusFindings() const;

    /// For the window's messages; true when it was about the pane.
    bool OnCommand(int id, int notification);
    bool OnNotify(const NMHDR& header);
    /// Enter was pressed in one of the controls.
    bool OnEnter(HWND control);
    /// Colours of read-only texts; null for a control that is not of the pane.
    HBRUSH OnColor(HDC dc, HWND control) const;

private:
    int RowHeight() const;
    void ShowPcs();
    void ShowFindings();
    void ShowParts() const;
    void GoToSelected() const;

    Events events_;
    PreviewPaneState state_;
    std::u16string buttonText_;
    HWND label_ = nullptr;
    HWND pcs_ = nullptr;
    HWND line_ = nullptr;
    HWND button_ = nullptr;
    HWND text_ = nullptr;
    HWND findings_ = nullptr;
    HFONT font_ = nullptr;
    bool hasState_ = false;
    bool folded_ = false;
};

}  // namespace tarvex
