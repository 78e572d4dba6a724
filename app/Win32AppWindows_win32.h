#pragma once

#include "app/AppWindows.h"
#include "errors/Help.h"
#include "errors/cuAppError.h"
#include "errors/muCoolBox.h"
#include "platform/FileSystem.h"
#include "platform/Ui.h"
#include "platform/win32/ForegroundAnchor.h"
#include "platform/win32/Win32Dialogs.h"
#include "text/TextCodec.h"

namespace tarvex {

/// The launcher's windows on Windows.
class Win32AppWindows : public AppWindows {
public:
    /// The arguments must outlive the object. F1 in the log window and in the start picture opens
    /// the help file of `error`.
    Win32AppWindows(cuAppError& error, Ui& ui, FileSystem& files, const TextCodec& ansi);

    /// Says that the program cannot run, whatever the reason: takes no memory and needs no object.
    static void ShowLastResort();

    void ShowDebug(const DebugWindow& window) override;
    bool ShowPicture(const PictureWindow& window) override;
    int ShowCaptionBox(const CaptionBox& box) override;
    void ShowHelp(std::u16string_view helpFile, std::int32_t context) override;

private:
    void ShowProgramHelp(std::int32_t context);

    cuAppError& error_;
    Ui& ui_;
    FileSystem& files_;
    const TextCodec& ansi_;
    ForegroundAnchor anchor_;
    Win32CommonDialogs dialogs_;
    Win32CaptionBoxApi boxApi_;
    Win32HelpApi helpApi_;
    muCoolBox box_;
    Help help_;
};

}  // namespace tarvex
