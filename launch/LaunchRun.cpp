#include "launch/LaunchRun.h"

namespace tarvex {

void LaunchRun::Raise(LaunchError error, std::u16string_view procedure,
                      LaunchErrorValue value) const {
    RaiseLaunchError(environment, error, procedure, value);
}

void LaunchRun::RaiseOrNote(LaunchError error, std::u16string_view procedure,
                            LaunchErrorValue value) const {
    if (!properties.testMode) {
        Raise(error, procedure, value);
    }
    testModeError = true;
}

}  // namespace tarvex
