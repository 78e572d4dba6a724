#include "window/views/MainWindow_win32.h"

#include "platform/win32/Dpi.h"
#include "platform/win32/SystemLibrary.h"

namespace tarvex {

namespace {

constexpr SIZE kStartSize = {800, 560};  // at kNormalDpi

}  // namespace

void MainWindow::Run() {
    PrepareCommonControls();
    const RECT area = WorkAreaAtPointer();
    const int dpi = SystemDpi();
    const SIZE size = {Scaled(kStartSize.cx, dpi), Scaled(kStartSize.cy, dpi)};
    if (Create({L"TarvexMain", L"Tarvex-Konfiguration", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                Centred(size, area)})) {
        RunUntilClosed();
    }
}

LRESULT MainWindow::OnMessage(UINT message, WPARAM first, LPARAM second) {
    return ModalWindow::OnMessage(message, first, second);
}

}  // namespace tarvex
