#include "platform/win32/Dpi.h"

#include "platform/win32/Handles.h"
#include "platform/win32/SystemLibrary.h"

namespace tarvex {

int SystemDpi() {
    const int dpi = GetDeviceCaps(WindowDc(nullptr).Get(), LOGPIXELSY);
    return dpi > 0 ? dpi : kNormalDpi;
}

int WindowDpi(HWND window) {
    constexpr int kEffectiveDpi = 0;  // MDT_EFFECTIVE_DPI
    const SystemLibrary library(u"shcore.dll");
    auto* const read =
        library.Function<HRESULT WINAPI(HMONITOR, int, UINT*, UINT*)>("GetDpiForMonitor");
    UINT across = 0;
    UINT down = 0;
    if (read != nullptr &&
        SUCCEEDED(read(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), kEffectiveDpi, &across,
                       &down)) &&
        down > 0) {
        return static_cast<int>(down);
    }
    return SystemDpi();
}

LOGFONTW MessageFont(int dpi) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof(metrics);
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
    LOGFONTW& font = metrics.lfMessageFont;
    font.lfHeight = MulDiv(font.lfHeight, dpi, SystemDpi());
    return font;
}

int Scaled(int pixels, int dpi) {
    return MulDiv(pixels, dpi, kNormalDpi);
}

}  // namespace tarvex
