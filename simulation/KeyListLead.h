#pragma once

#include <string>
#include <string_view>

#include "launch/KeyListResolution.h"

namespace tarvex {

/// Where an entry of a key list leads.
struct KeyListLead {
    std::u16string path;    ///< the file that is looked for; empty: none
    bool exists = false;    ///< it is there
    std::u16string reason;  ///< German sentence, why there is no path; empty when there is one
};

/// Follows one entry as the launcher does when it comes to it in a list with these rules.
KeyListLead FollowEntry(const LaunchEnvironment& environment, const KeyListRules& rules,
                        std::u16string_view entry);

}  // namespace tarvex
