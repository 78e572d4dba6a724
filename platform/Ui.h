#pragma once

#include <cstdint>
#include <string>

namespace tarvex {

/// A window of the system (HWND); null: none.
using WindowHandle = void*;

/// A call of the system's message box.
struct MessageBoxRequest {
    std::u16string text;
    std::u16string title;
    std::uint32_t style = 0;  ///< the system's MB_... flags: icon, buttons, help button 0x4000
    std::u16string helpFile;  ///< for the help button; empty: none
    std::int32_t helpContext = -1;  ///< topic for the help button
};

/// The parts of the user interface that every layer may need: the mouse pointer and the plain
/// system message box. No call raises.
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
