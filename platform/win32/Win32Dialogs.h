#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/CaptionBoxApi.h"
#include "platform/CommonDialogs.h"
#include "platform/HelpApi.h"
#include "platform/Ui.h"
#include "platform/win32/SystemLibrary.h"
#include "text/TextCodec.h"

namespace tarvex {

/// Pointer and message boxes of Windows. Texts of a box that the system's code page does not hold
/// show the nearest letters.
class Win32Ui : public Ui {
public:
    /// Opens a help file at a topic. What it throws is dropped.
    using HelpOpener = std::function<void(const std::u16string& helpFile, std::int32_t context)>;

    /// What the help button of a message box and F1 in it do; nothing until this is set.
    void SetHelpOpener(HelpOpener opener) { openHelp_ = std::move(opener); }

    bool PointerIsDefault() const override { return !busy_; }
    void SetPointerDefault() override;
    void SetPointerBusy() override;
    int ShowMessageBox(const MessageBoxRequest& request) override;

private:
    int ShowBoxWithHelp(const MessageBoxRequest& request);

    HelpOpener openHelp_;
    bool busy_ = false;
};

/// Message boxes, timers and dialog items of Windows. Texts that the system's code page does not
/// hold show the nearest letters.
class Win32CaptionBoxApi : public CaptionBoxApi {
public:
    std::uintptr_t StartTimer(WindowHandle owner, std::uintptr_t id, unsigned milliseconds,
                              TimerProcedure procedure) override;
    void StopTimer(WindowHandle owner, std::uintptr_t id) override;
    WindowHandle ActiveWindow() const override;
    bool HasItem(WindowHandle dialog, int item) const override;
    void SetItemText(WindowHandle dialog, int item, std::u16string_view text) override;
    void FitButtons(WindowHandle dialog, const std::vector<int>& items) override;
    int ShowMessageBox(WindowHandle owner, std::u16string_view text, std::u16string_view title,
                       std::uint32_t style) override;
};

/// The dialogs of Windows. Their libraries are loaded by the first call, since loading them takes
/// longer than the rest of a launch.
class Win32CommonDialogs : public CommonDialogs {
public:
    FileDialogEnd ShowOpen(FileDialogCall& call) override;
    FileDialogEnd ShowSave(FileDialogCall& call) override;
    std::string BrowseForFolder(WindowHandle owner, const std::string& title,
                                const std::string& startFolder, std::uint32_t flags) override;
};

/// The help engines of Windows. The one for .chm files is loaded from the system folder when it is
/// first needed, so that the program also starts where it is missing.
class Win32HelpApi : public HelpApi {
public:
    /// Paths reach the engines in the code page of `ansi`, which outlives this object.
    explicit Win32HelpApi(const TextCodec& ansi) : ansi_(ansi) {}

    bool CallWinHelp(WindowHandle owner, std::u16string_view path, std::uint32_t command,
                     std::int32_t data) override;
    bool CallHtmlHelp(WindowHandle owner, std::u16string_view path, std::uint32_t command,
                      std::int32_t data) override;

private:
    const TextCodec& ansi_;
    std::optional<SystemLibrary> htmlHelp_;
};

}  // namespace tarvex
