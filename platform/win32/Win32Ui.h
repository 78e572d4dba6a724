#pragma once

#include <functional>
#include <string>

#include "platform/TextCodec.h"
#include "platform/Ui.h"

namespace tarvex {

/// Pointer and message boxes of Windows.
class Win32Ui : public Ui {
public:
    /// Opens a help file at a topic. What it throws is dropped.
    using HelpOpener = std::function<void(const std::u16string& helpFile, std::int32_t context)>;

    /// Texts reach the message box in the code page of `ansi`, which outlives this object.
    explicit Win32Ui(const TextCodec& ansi) : ansi_(ansi) {}

    /// What the help button of a message box and F1 in it do; nothing until this is set.
    void SetHelpOpener(HelpOpener opener) { openHelp_ = std::move(opener); }

    bool PointerIsDefault() const override { return !busy_; }
    void SetPointerDefault() override;
    void SetPointerBusy() override;
    int ShowMessageBox(const MessageBoxRequest& request) override;

private:
    int ShowBoxWithHelp(const MessageBoxRequest& request);

    const TextCodec& ansi_;
    HelpOpener openHelp_;
    bool busy_ = false;
};

}  // namespace tarvex
