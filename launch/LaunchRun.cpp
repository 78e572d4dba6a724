#include "launch/LaunchRun.h"

namespace tarvex {

void LaunchRun::Raise(std::int32_t code, std::u16string_view procedure,
                      LaunchErrorValue value) const {
    RaiseLaunchError(environment, -code, u"cuTarvex", procedure, {}, value);
}

void LaunchRun::RaiseOrNote(std::int32_t code, std::u16string_view procedure,
                            LaunchErrorValue value) const {
    if (!properties.testMode) {
        Raise(code, procedure, value);
    }
    testModeError = true;
}

}  // namespace tarvex
