#pragma once

#include "configurator/Model.h"
#include "launch/LaunchEnvironment.h"
#include "window/preview/Preview.h"

namespace tarvex {

/// Notes that something was asked for of which nobody knows whether it is there.
struct UnknownAnswer {
    bool given = false;
};

/// Where each entry of the four key lists leads. `unknown`, when there is one, is set by the
/// environment's registry and files as soon as they are asked for what they do not know.
EntryAnswers AnswerEntries(const Settings& settings, const LaunchEnvironment& environment,
                           UnknownAnswer* unknown = nullptr);

}  // namespace tarvex
