#pragma once

#include "window/form/UserDialogs.h"
#include "window/formviews/DialogWindow_win32.h"

namespace tarvex {

/// A question with an icon of the system and buttons with captions of any length.
class QuestionBox : private DialogWindow {
public:
    QuestionBox(HWND owner, std::u16string title, const BoxQuestion& question);

    /// The 0-based number of the button that was pressed.
    std::int32_t Ask();

private:
    bool CreateContent() override;
    SIZE ContentSize() override;
    void PlaceContent(const RECT& place) override;
    void OnFonts() override;
    bool FocusContent() override { return false; }
    LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override;

    int TextLeft() const;
    int TextWidth() const;

    std::u16string title_;
    const BoxQuestion& question_;
    HWND icon_ = nullptr;
    HWND text_ = nullptr;
};

}  // namespace tarvex
