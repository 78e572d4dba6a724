#include "window/formviews/ChildControl_win32.h"

#include "platform/win32/WideText.h"

namespace tarvex {

HWND CreateChild(HWND parent, const wchar_t* className, std::u16string_view text, DWORD style,
                 int id, DWORD extendedStyle) {
    const std::u16string ended(text);
    return CreateWindowExW(extendedStyle, className, Wide(ended), style | WS_CHILD, 0, 0, 0, 0,
                           parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                           GetModuleHandleW(nullptr), nullptr);
}

std::u16string ControlText(HWND control) {
    std::u16string text(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, u'\0');
    text.resize(static_cast<std::size_t>(
        GetWindowTextW(control, Wide(text), static_cast<int>(text.size()))));
    return text;
}

}  // namespace tarvex
