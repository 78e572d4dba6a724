#pragma once

#include "platform/Ui.h"
#include "platform/win32/Win32Dialogs.h"
#include "platform/win32/WindowsApi.h"
#include "text/TextCodec.h"
#include "window/form/UserDialogs.h"

namespace tarvex {

/// The dialogs of Windows and our own ones, above the window that is active when they are asked
/// for.
class Win32UserDialogs : public UserDialogs {
public:
    /// `title` heads questions. `ansi` outlives the object.
    Win32UserDialogs(std::u16string title, const TextCodec& ansi)
        : title_(std::move(title)), ansi_(ansi) {}

    std::int32_t Ask(const BoxQuestion& question) override;
    std::u16string ChooseFile(const FileQuestion& question) override;
    std::u16string ChooseNewFile(const FileQuestion& question) override;
    std::u16string ChooseFolder(std::u16string_view title, std::u16string_view folder) override;
    bool ShowForm(FormModel& form, const FormDialogTexts& texts) override;
    void CopyToClipboard(std::u16string_view text) override;
    std::u16string Clipboard() override;

private:
    std::u16string title_;
    const TextCodec& ansi_;
    Win32CommonDialogs dialogs_;
    Win32Ui ui_;
};

}  // namespace tarvex
