#pragma once

#include <map>

#include "configurator/Model.h"
#include "launch/LaunchEnvironment.h"
#include "window/model/Preview.h"

namespace tarvex {

/// Notes that something was asked for of which nobody knows whether it is there.
struct UnknownAnswer {
    bool given = false;
};

/// Where each entry of the four key lists leads. A field that is divided into several entries leads
/// where the first of them does whose file is there. `unknown`, when there is one, is set by the
/// environment's registry and files as soon as they are asked for what they do not know.
std::map<std::int32_t, EntryAnswer> AnswerEntries(const Settings& settings,
                                                  const LaunchEnvironment& environment,
                                                  UnknownAnswer* unknown = nullptr);

}  // namespace tarvex
