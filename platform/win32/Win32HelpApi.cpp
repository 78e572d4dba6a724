#include "platform/win32/Win32Dialogs.h"

#include "platform/win32/WindowsApi.h"

namespace tarvex {

namespace {

using HtmlHelpFunction = HWND WINAPI(HWND owner, LPCSTR path, UINT command, DWORD_PTR data);

}  // namespace

bool Win32HelpApi::CallWinHelp(WindowHandle owner, std::u16string_view path, std::uint32_t command,
                               std::int32_t data) {
    return WinHelpA(static_cast<HWND>(owner), ansi_.ToAnsi(path).c_str(), command,
                    static_cast<DWORD>(data)) != FALSE;
}

bool Win32HelpApi::CallHtmlHelp(WindowHandle owner, std::u16string_view path, std::uint32_t command,
                                std::int32_t data) {
    if (!htmlHelp_) {
        htmlHelp_.emplace(u"hhctrl.ocx");
    }
    auto* const htmlHelp = htmlHelp_->Function<HtmlHelpFunction>("HtmlHelpA");
    return htmlHelp != nullptr && htmlHelp(static_cast<HWND>(owner), ansi_.ToAnsi(path).c_str(),
                                           command, static_cast<DWORD>(data)) != nullptr;
}

}  // namespace tarvex
