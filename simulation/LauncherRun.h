#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "branding/BrandConstants.h"
#include "platform/FileSystem.h"
#include "platform/ProgramInfo.h"
#include "platform/Registry.h"
#include "text/TextCodec.h"

namespace tarvex {

class Application;

/// Where the launcher is started. Refers to objects that outlive the run.
struct LaunchPlace {
    const Registry& registry;
    const FileSystem& files;
    const TextCodec& codec;          ///< the ANSI code page of the computer
    const TextCodec& settingsCodec;  ///< one byte per character
    ProgramInfo program;             ///< its arguments as a real start has them
};

/// What a start came to.
struct LaunchOutcome {
    bool started = false;  ///< Access would be started

    /// Of the error that ends the real start, as it is raised; 0: none.
    std::int32_t errorNumber = 0;
    std::u16string errorText;  ///< its description, lines separated by CR LF

    std::u16string access;       ///< path of the Access that is found; empty: none
    std::u16string database;     ///< path of the database that is found; empty: none
    std::u16string commandLine;  ///< credentials masked; empty when nothing is started

    /// What the log window of the dry run shows, or the details of its error box where the launcher
    /// gets no further. Lines are separated by CR LF.
    std::u16string text;

    /// The real credentials, for taking them out of texts that are shown.
    std::u16string user;
    std::u16string password;
};

/// Lets the launcher's own engine run where nothing is shown, started, waited for or written: once
/// as a dry run and once for real.
class LauncherRun {
public:
    LauncherRun(const BrandConstants& constants, LaunchPlace place);

    LaunchOutcome Run();

    /// True while the launcher looks for Access, the database and the workgroup database; false
    /// while it looks for its picture and its help. For whoever is asked in the meantime.
    bool InLaunchSteps() const;

private:
    void DryRun(LaunchOutcome& outcome);
    void RealStart(LaunchOutcome& outcome);

    const BrandConstants& constants_;
    LaunchPlace place_;
    const Application* running_ = nullptr;
};

/// The arguments of the launcher without the switch of the dry run.
std::u16string WithoutTestSwitch(std::u16string_view arguments);

/// "Start", or "Fehler 5" with the number of the launch error or of the message, or
/// "Laufzeitfehler 13".
std::u16string ResultText(const LaunchOutcome& outcome);

/// The first line of the error that ends the start; empty when there is none.
std::u16string ErrorLine(const LaunchOutcome& outcome);

/// The text with the credentials of the launch, and whatever stands where they stand in a command
/// line, masked as the launcher masks them.
std::u16string WithoutCredentials(const LaunchOutcome& outcome, std::u16string_view text);

}  // namespace tarvex
