#include "app/Win32AppWindows_win32.h"

#include "app/frmDebug.h"
#include "app/frmStart.h"
#include "errors/RaisedError.h"
#include "platform/win32/SystemLibrary.h"
#include "platform/win32/WindowsApi.h"
#include "resources/Messages.h"

namespace tarvex {

namespace {

/// A window that fails must not end the launch: what it shows is of use to the user, but nothing
/// depends on it.
template <class Show>
void ShowWithoutRaising(const Show& show) {
    try {
        show();
    } catch (...) {
        MessageBeep(MB_ICONERROR);
    }
}

}  // namespace

Win32AppWindows::Win32AppWindows(cuAppError& error, Ui& ui, FileSystem& files,
                                 const TextCodec& ansi)
    : error_(error),
      ui_(ui),
      files_(files),
      ansi_(ansi),
      helpApi_(ansi),
      box_(boxApi_),
      help_(helpApi_, files, error) {}

void Win32AppWindows::ShowLastResort() {
    wchar_t text[100] = {};
    LoadStringW(GetModuleHandleW(nullptr), static_cast<UINT>(Message::LastResort), text, 100);
    PrepareCommonControls();
    MessageBoxW(nullptr, text, reinterpret_cast<const wchar_t*>(kAppTitle.data()), MB_ICONSTOP);
}

void Win32AppWindows::ShowDebug(const DebugWindow& window) {
    ShowWithoutRaising([&] {
        frmDebug::ShowModal(
            window, {dialogs_, files_, ansi_, ui_, [&] { ShowProgramHelp(window.helpContext); }});
    });
}

bool Win32AppWindows::ShowPicture(const PictureWindow& window) {
    bool shown = false;
    ShowWithoutRaising([&] {
        shown = frmStart::ShowModal(
            window, [&] { ShowProgramHelp(window.helpContext); }, ui_, anchor_);
    });
    return shown;
}

int Win32AppWindows::ShowCaptionBox(const CaptionBox& box) {
    int pressed = 1;
    ShowWithoutRaising([&] {
        pressed = box_.Show(nullptr, box.text, box.title, box.captions[0], box.captions[1],
                            box.captions[2], box.style);
    });
    return pressed;
}

void Win32AppWindows::ShowHelp(std::u16string_view helpFile, std::int32_t context) {
    help_.ShowHelp(GetActiveWindow(), helpFile, context);
}

void Win32AppWindows::ShowProgramHelp(std::int32_t context) {
    if (context != 0 && !error_.HelpFile().empty()) {
        ShowHelp(error_.HelpFile(), context);
    }
}

}  // namespace tarvex
