#pragma once

#include <cstdint>
#include <string>

namespace tarvex {

/// A window of the system (HWND); null: none.
using WindowHandle = void*;

/// Flags of the system's message box: what the boxes of the program are made of.
namespace box_style {
inline constexpr std::uint32_t kAbortRetryIgnore = 2;
inline constexpr std::uint32_t kYesNo = 4;
inline constexpr std::uint32_t kStopIcon = 16;
inline constexpr std::uint32_t kExclamationIcon = 48;
inline constexpr std::uint32_t kHelpButton = 0x4000;
}  // namespace box_style

/// A call of the system's message box.
struct MessageBoxRequest {
    std::u16string text;
    std::u16string title;
    std::uint32_t style = 0;        ///< box_style and other MB_... flags of the system
    std::u16string helpFile;        ///< for the help button; empty: none
    std::int32_t helpContext = -1;  ///< topic for the help button
};

/// The parts of the user interface that every layer may need: the mouse pointer and the plain
/// system message box. Failures show in the results.
class Ui {
public:
    virtual ~Ui() = default;

    virtual bool PointerIsDefault() const = 0;
    virtual void SetPointerDefault() = 0;
    virtual void SetPointerBusy() = 0;

    /// Shows the box above the program's active window and returns the button pressed (IDOK 1,
    /// IDCANCEL 2, ...), 0 when the box could not be shown.
    virtual int ShowMessageBox(const MessageBoxRequest& request) = 0;
};

}  // namespace tarvex
