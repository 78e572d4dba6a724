#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tarvex {

/// A log window to show.
struct DebugWindow {
    std::u16string caption;
    std::u16string text;           ///< lines end in CR LF
    std::u16string saveFolder;     ///< initial folder of the save dialog
    std::u16string saveName;       ///< proposed file name, for example "Kunden.err"
    std::u16string saveTitle;      ///< title of the save dialog
    std::u16string saveFilter;     ///< "description|pattern|..." of the save dialog
    std::int32_t helpContext = 0;  ///< 0: none
};

/// A start picture to show.
struct PictureWindow {
    std::u16string caption;         ///< not on the window, which has no frame, but in the taskbar
    std::u16string path;            ///< the picture's file
    std::int32_t milliseconds = 0;  ///< how long it shows
    std::int32_t helpContext = 0;   ///< 0: none
};

/// An error box with captions of the program's own.
struct CaptionBox {
    std::u16string text;
    std::u16string title;
    std::u16string captions[3];  ///< an empty third caption makes a box with two buttons
    std::uint32_t style = 0;     ///< icon and default-button flags of the system's message box
};

/// The launcher's own windows. All are modal: a call returns when the window has closed. None
/// raises.
class AppWindows {
public:
    virtual ~AppWindows() = default;

    virtual void ShowDebug(const DebugWindow& window) = 0;

    /// Shows the picture; false when it cannot be loaded. After a picture the program keeps the
    /// foreground as long as this object lives or until it shows another window.
    virtual bool ShowPicture(const PictureWindow& window) = 0;

    /// Returns the number of the button pressed, 1 to 3; a box that could not be shown gives 1.
    virtual int ShowCaptionBox(const CaptionBox& box) = 0;

    /// Opens a help file (.chm or .hlp) at a topic; shows a message when that fails.
    virtual void ShowHelp(std::u16string_view helpFile, std::int32_t context) = 0;
};

}  // namespace tarvex
