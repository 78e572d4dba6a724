#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "branding/pSettings.h"
#include "errors/cuAppError.h"
#include "launch/DiagnosticLog.h"
#include "launch/KeyListResolution.h"
#include "launch/LaunchEnvironment.h"

namespace tarvex {

/// How the key list of the picture is walked through, entry by entry.
extern const KeyListRules kPictureListRules;

/// Finds the configured start picture and reports every step. A picture that is missing or not
/// configured correctly is never an error: there is then no picture.
class StartPicture {
public:
    StartPicture(const LaunchEnvironment& environment, const cuAppError& appError);

    /// Resolves picture and display time anew from the settings and starts a new report.
    void StartupPictureSettings(const pSettings& settings);

    /// Full path of the picture; empty when none is to be shown.
    const std::u16string& Path() const { return path_; }

    /// Display time in milliseconds; 0 when no picture is to be shown.
    std::int32_t Delay() const { return delay_; }

    /// Lines joined by CR LF, the first one a heading.
    const std::u16string& Report() const { return report_.Text(); }

    /// Adds a line to the report, after an empty line when asked for; the first text becomes the
    /// report.
    void AddPictureReportLine(std::u16string_view line, bool emptyLineBefore = false);

    /// True when at least one key list field of the picture is filled.
    static bool HasPicRegLists(const pSettings& settings);

private:
    std::u16string ResolveFolder(const pSettings& settings);
    void Check();

    const LaunchEnvironment environment_;
    const cuAppError& appError_;
    std::u16string path_;
    std::int32_t delay_ = 0;
    DiagnosticLog report_;
};

}  // namespace tarvex
