#pragma once

#include <string>
#include <vector>

#include "configurator/Model.h"

namespace tarvex {

using Texts = std::vector<std::u16string>;

/// The problems as a user reads them.
inline Texts ProblemLines(const Problems& problems) {
    Texts lines;
    for (const Problem& problem : problems) {
        lines.push_back(ProblemLine(problem));
    }
    return lines;
}

}  // namespace tarvex
