#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/win32/ModalWindow.h"
#include "window/formviews/DialogFocus_win32.h"
#include "window/formviews/FormFonts_win32.h"

namespace tarvex {

/// A window that its owner waits for: content, and below it at the right a row of buttons. Enter
/// presses the first one, Esc and the close box the one for cancelling.
class DialogWindow : public ModalWindow {
protected:
    struct Button {
        int id;  ///< IDOK of the default one
        std::u16string caption;
    };
    struct Frame {
        std::u16string title;
        std::vector<Button> buttons;
        int cancelId = IDCANCEL;  ///< 0: Esc and the close box do nothing
        bool resizable = false;
    };

    explicit DialogWindow(HWND owner);

    /// Shows the window until a button has closed it, and returns that button's id. The owner is
    /// disabled meanwhile. Raises what a message handler raised.
    int Show(const Frame& frame);

    /// Creates the content in Window(). False when the system refuses.
    virtual bool CreateContent() = 0;

    /// Size of the content in pixels; it gets less when the screen has no more.
    virtual SIZE ContentSize() = 0;
    virtual void PlaceContent(const RECT& place) = 0;

    /// The resolution has changed: Fonts() are others.
    virtual void OnFonts() = 0;

    /// Moves the focus to where the user begins; false: to the default button.
    virtual bool FocusContent() = 0;

    /// A button was pressed; false keeps the window open.
    virtual bool OnButton(int /*id*/) { return true; }

    const FormFonts& Fonts() const { return *fonts_; }

    LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;

private:
    bool CreateButtons();
    int ButtonWidth(const Button& button) const;
    int ButtonRowWidth() const;
    int ButtonHeight() const;
    void Place();
    void SetDpi(int dpi);
    RECT StartBounds();
    void RunLoop();
    void Press(int id);

    HWND owner_;
    Frame frame_;
    std::unique_ptr<FormFonts> fonts_;
    std::vector<HWND> buttons_;
    DialogFocus focus_;
    int pressed_ = 0;
};

}  // namespace tarvex
