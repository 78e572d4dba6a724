#pragma once

#include <string>

namespace tarvex {

/// Why an action could not be carried out.
struct StepFailure {
    /// "timeout", "ended" (the program is gone), "missing" (no such control), "window" (one that
    /// the script does not know of), "start", "script" or "refused" (by the system).
    std::u16string kind;
    std::u16string text;  ///< for people: what was waited for or looked for
};

}  // namespace tarvex
