#pragma once

#include <string_view>

#include "launch/DiagnosticLog.h"
#include "launch/LaunchEnvironment.h"
#include "launch/LaunchErrors.h"
#include "launch/LaunchProperties.h"

namespace tarvex {

/// One pass through the resolution steps: what they read, and what they leave for the user.
/// Refers to objects that outlive it.
struct LaunchRun {
    const LaunchEnvironment& environment;
    const LaunchProperties& properties;
    std::int32_t accVersion;  ///< as cuTarvex::AccVersion
    DiagnosticLog& log;
    bool& testModeError;

    /// Raises a launch error in the name of a step.
    [[noreturn]] void Raise(LaunchError error, std::u16string_view procedure,
                            LaunchErrorValue value = std::nullopt) const;

    /// As Raise; in test mode the failure is only noted, and the step goes on.
    void RaiseOrNote(LaunchError error, std::u16string_view procedure,
                     LaunchErrorValue value = std::nullopt) const;
};

}  // namespace tarvex
