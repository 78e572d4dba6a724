#include "platform/win32/Win32Dialogs.h"

#include <algorithm>
#include <array>

#include "platform/ButtonRow.h"
#include "platform/win32/Handles.h"
#include "platform/win32/SystemLibrary.h"
#include "platform/win32/Win32TextCodec.h"
#include "platform/win32/WindowsApi.h"

namespace tarvex {

namespace {

/// What the running timer calls; Windows hands a timer procedure nothing to find it by.
CaptionBoxApi::TimerProcedure elapsed = nullptr;

void CALLBACK OnElapsed(HWND /*window*/, UINT /*message*/, UINT_PTR /*id*/, DWORD /*time*/) {
    if (elapsed != nullptr) {
        elapsed();
    }
}

/// Where a control stands in the client area of its parent.
RECT PlaceInParent(HWND control) {
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

/// The width that a button needs for its caption.
int NeededWidth(HWND button) {
    std::array<wchar_t, 256> caption{};
    GetWindowTextW(button, caption.data(), static_cast<int>(caption.size()));
    const WindowDc context(button);
    auto* const font = reinterpret_cast<HFONT>(SendMessageW(button, WM_GETFONT, 0, 0));
    const HGDIOBJ before = font == nullptr ? nullptr : SelectObject(context.Get(), font);
    RECT extent{};
    const int height =
        DrawTextW(context.Get(), caption.data(), -1, &extent, DT_CALCRECT | DT_SINGLELINE);
    if (before != nullptr) {
        SelectObject(context.Get(), before);
    }
    // The borders and the focus rectangle take about half a line's height on either side.
    return static_cast<int>(extent.right - extent.left) + height;
}

/// Makes a window wider about its middle, but keeps it on its screen.
void WidenWindow(HWND window, int pixels) {
    RECT place{};
    GetWindowRect(window, &place);
    place.left -= pixels / 2;
    place.right += pixels - pixels / 2;
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    if (GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor) != FALSE) {
        const LONG width = place.right - place.left;
        place.left =
            std::max(monitor.rcWork.left, std::min(place.left, monitor.rcWork.right - width));
        place.right = place.left + width;
    }
    SetWindowPos(window, nullptr, place.left, place.top, place.right - place.left,
                 place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

std::uintptr_t Win32CaptionBoxApi::StartTimer(WindowHandle owner, std::uintptr_t id,
                                              unsigned milliseconds, TimerProcedure procedure) {
    // Now, because the time that loading takes would be missing when the timer waits for the box.
    PrepareCommonControls();
    elapsed = procedure;
    return SetTimer(static_cast<HWND>(owner), id, milliseconds, OnElapsed);
}

void Win32CaptionBoxApi::StopTimer(WindowHandle owner, std::uintptr_t id) {
    elapsed = nullptr;
    KillTimer(static_cast<HWND>(owner), id);
}

WindowHandle Win32CaptionBoxApi::ActiveWindow() const {
    return GetActiveWindow();
}

bool Win32CaptionBoxApi::HasItem(WindowHandle dialog, int item) const {
    return GetDlgItem(static_cast<HWND>(dialog), item) != nullptr;
}

void Win32CaptionBoxApi::SetItemText(WindowHandle dialog, int item, std::u16string_view text) {
    const std::string bytes = ToNearestAnsi(text);
    SendDlgItemMessageA(static_cast<HWND>(dialog), item, WM_SETTEXT, 0,
                        reinterpret_cast<LPARAM>(bytes.c_str()));
}

void Win32CaptionBoxApi::FitButtons(WindowHandle dialog, const std::vector<int>& items) {
    const auto window = static_cast<HWND>(dialog);
    RECT client{};
    GetClientRect(window, &client);
    ButtonRow row;
    row.clientWidth = static_cast<int>(client.right);
    std::vector<HWND> buttons;
    int neededWidth = 0;
    for (const int item : items) {
        const HWND button = GetDlgItem(window, item);
        if (button == nullptr) {
            return;
        }
        const RECT place = PlaceInParent(button);
        row.buttons.push_back(
            {static_cast<int>(place.left), static_cast<int>(place.right - place.left)});
        buttons.push_back(button);
        neededWidth = std::max(neededWidth, NeededWidth(button));
    }
    const auto wider = WidenButtons(row, neededWidth);
    if (!wider) {
        return;
    }
    if (wider->clientWidth > row.clientWidth) {
        WidenWindow(window, wider->clientWidth - row.clientWidth);
    }
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        const RECT place = PlaceInParent(buttons[i]);
        SetWindowPos(buttons[i], nullptr, wider->buttons[i].left, place.top,
                     wider->buttons[i].width, place.bottom - place.top,
                     SWP_NOZORDER | SWP_NOACTIVATE);
    }
    InvalidateRect(window, nullptr, TRUE);
}

int Win32CaptionBoxApi::ShowMessageBox(WindowHandle owner, std::u16string_view text,
                                       std::u16string_view title, std::uint32_t style) {
    return MessageBoxA(static_cast<HWND>(owner), ToNearestAnsi(text).c_str(),
                       ToNearestAnsi(title).c_str(), style);
}

}  // namespace tarvex
