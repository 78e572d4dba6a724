#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "app/AppWindows.h"
#include "app/LaunchSwitches.h"
#include "app/LogFile.h"
#include "app/StartPicture.h"
#include "branding/BrandConstants.h"
#include "branding/pSettings.h"
#include "errors/cuAppError.h"
#include "launch/LaunchEnvironment.h"
#include "launch/cuTarvex.h"
#include "platform/Clock.h"
#include "platform/Process.h"
#include "platform/VersionResource.h"

namespace tarvex {

/// What one launch needs; refers to objects that outlive the Application.
struct ApplicationParts {
    LaunchEnvironment environment;
    cuAppError& appError;
    const BrandConstants& constants;
    AppWindows& windows;
    Process& process;
    const Clock& clock;
    LogFile& log;
    const VersionResource& versions;
};

/// One run of the launcher, from reading the settings to starting Access.
class Application {
public:
    explicit Application(const ApplicationParts& parts);

    cuAppError& Error() { return parts_.appError; }

    /// The launch object; null until the start step has made it.
    const cuTarvex* Tarvex() const { return tarvex_.get(); }

    /// Runs the whole launch sequence. An error ends the sequence and is shown.
    void Init();

    /// Shows a text in the log window; returns when it has closed.
    void ShowDebugForm(std::u16string_view text);

    /// Shows the resolved start picture for its time; returns at once when there is none.
    void ShowStartupPicture();

private:
    void RunLaunch();
    void ErrHandler(const RaisedError& error);
    void ShowErrorBox(const std::u16string& report);
    void ParseCmdLine();
    void InitHelp();
    void ShowDiagnosticInformation();
    void LaunchAccess();
    void AwaitForeground();
    void ShowTestResult();
    std::u16string ErrorReport(const RaisedError& error) const;
    std::u16string FieldOrEmpty(int field) const noexcept;
    bool HasHelp() const { return helpContext_.has_value(); }

    ApplicationParts parts_;
    pSettings settings_;
    StartPicture picture_;
    std::unique_ptr<cuTarvex> tarvex_;
    LaunchSwitches switches_;
    bool writeLog_ = false;
    bool pictureShown_ = false;
    std::optional<std::int32_t> helpContext_;
};

}  // namespace tarvex
