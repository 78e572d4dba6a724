#include "app/frmStart.h"

#include "platform/win32/ForegroundAnchor.h"
#include "platform/win32/ModalWindow.h"
#include "platform/win32/PictureBitmap.h"
#include "platform/win32/WideText.h"

namespace tarvex {

namespace {

constexpr UINT_PTR kTimer1 = 1;

class StartForm : public ModalWindow {
public:
    StartForm(const PictureWindow& content, PictureBitmap picture, const frmStart::Help& help,
              ForegroundAnchor& anchor)
        : content_(content), picture_(std::move(picture)), help_(help), anchor_(anchor) {}

    bool ShowModal() {
        const RECT bounds = Centred(picture_.size, WorkAreaAtPointer());
        anchor_.Show({bounds.left, bounds.top});
        // Without this style the taskbar would leave out a window that has an owner.
        if (!Create({L"frmStart", Wide(content_.caption), WS_POPUP, bounds, nullptr,
                     anchor_.Window(), WS_EX_APPWINDOW})) {
            return false;
        }
        SetWindowContextHelpId(Window(), static_cast<DWORD>(content_.helpContext));
        RunUntilClosed();
        return true;
    }

protected:
    void OnShown() override {
        SetTimer(Window(), kTimer1, static_cast<UINT>(content_.milliseconds), nullptr);
    }

    LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override {
        switch (message) {
            case WM_TIMER:
            case WM_CLOSE:
                KillTimer(Window(), kTimer1);
                // First, or another program would come to the front when the window goes.
                SetForegroundWindow(anchor_.Window());
                Close();
                return 0;
            case WM_ERASEBKGND:
                return TRUE;
            case WM_PAINT:
                Paint();
                return 0;
            case WM_HELP:
                help_();
                return TRUE;
            default:
                return ModalWindow::OnMessage(message, first, second);
        }
    }

private:
    void Paint() {
        PAINTSTRUCT paint;
        const HDC target = BeginPaint(Window(), &paint);
        const HDC source = CreateCompatibleDC(target);
        const HGDIOBJ before = SelectObject(source, picture_.bitmap.Get());
        BitBlt(target, 0, 0, picture_.size.cx, picture_.size.cy, source, 0, 0, SRCCOPY);
        SelectObject(source, before);
        DeleteDC(source);
        EndPaint(Window(), &paint);
    }

    const PictureWindow& content_;
    PictureBitmap picture_;
    const frmStart::Help& help_;
    ForegroundAnchor& anchor_;
};

}  // namespace

bool frmStart::ShowModal(const PictureWindow& content, const Help& help, Ui& ui,
                         ForegroundAnchor& anchor) {
    if (content.milliseconds <= 0) {
        return false;
    }
    PictureBitmap picture = LoadPictureBitmap(content.path);
    if (!picture.bitmap || !StartForm(content, std::move(picture), help, anchor).ShowModal()) {
        return false;
    }
    ui.SetPointerDefault();
    return true;
}

}  // namespace tarvex
