#include "platform/win32/Dpi.h"

#include "platform/win32/SystemLibrary.h"

namespace tarvex {

int SystemDpi() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return dpi > 0 ? dpi : kNormalDpi;
}

int WindowDpi(HWND window) {
    const SystemLibrary user(u"user32.dll");
    auto* const read = user.Function<UINT WINAPI(HWND)>("GetDpiForWindow");
    const UINT dpi = read != nullptr ? read(window) : 0;
    return dpi > 0 ? static_cast<int>(dpi) : SystemDpi();
}

int Scaled(int pixels, int dpi) {
    return MulDiv(pixels, dpi, kNormalDpi);
}

}  // namespace tarvex
