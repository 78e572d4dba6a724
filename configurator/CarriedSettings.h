#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "configurator/Model.h"

namespace tarvex {

/// The settings that one launcher hands on to another.
struct CarriedSettings {
    Settings settings;  ///< what is set, user names and passwords included
    Problems problems;  ///< why there is nothing to take, or what is wrong with `drop`
    /// What the other one does not have or cannot hold, and why; each can be dropped by the name
    /// of its field.
    Problems misfits;
};

/// Takes the settings out of the configured launcher `old`, which may be signed, for the template
/// `target`. `drop` names settings that are left out; a name that the old launcher does not have is
/// a problem. `oldName` and `targetName` name the files in the problems. What is wrong with the
/// template itself is not said.
CarriedSettings CarrySettings(std::string_view old, std::u16string_view oldName,
                              std::string_view target, std::u16string_view targetName,
                              const std::vector<std::u16string>& drop, const TextCodec& codec);

}  // namespace tarvex
