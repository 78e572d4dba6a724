#include "app/frmStart.h"

#include "errors/RaisedError.h"
#include "platform/win32/ModalWindow.h"
#include "platform/win32/PictureBitmap.h"

namespace tarvex {

namespace {

constexpr UINT_PTR kTimer1 = 1;

class StartForm : public ModalWindow {
public:
    StartForm(PictureBitmap picture, std::int32_t milliseconds, const frmStart::Help& help)
        : picture_(std::move(picture)), milliseconds_(milliseconds), help_(help) {}

    bool ShowModal(std::int32_t helpContext) {
        if (!Create({L"frmStart", std::u16string(kAppTitle), WS_POPUP,
                     Centred(picture_.size, WorkAreaAtPointer())})) {
            return false;
        }
        SetWindowContextHelpId(Window(), static_cast<DWORD>(helpContext));
        RunUntilClosed();
        return true;
    }

protected:
    void OnShown() override {
        SetTimer(Window(), kTimer1, static_cast<UINT>(milliseconds_), nullptr);
    }

    LRESULT OnMessage(UINT message, WPARAM first, LPARAM second) override {
        switch (message) {
            case WM_TIMER:
                KillTimer(Window(), kTimer1);
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

    PictureBitmap picture_;
    std::int32_t milliseconds_;
    const frmStart::Help& help_;
};

}  // namespace

void frmStart::ShowModal(std::u16string_view path, std::int32_t milliseconds,
                         std::int32_t helpContext, const Help& help, Ui& ui) {
    if (milliseconds <= 0) {
        return;
    }
    PictureBitmap picture = LoadPictureBitmap(path);
    if (!picture.bitmap) {
        return;
    }
    if (StartForm(std::move(picture), milliseconds, help).ShowModal(helpContext)) {
        ui.SetPointerDefault();
    }
}

}  // namespace tarvex
