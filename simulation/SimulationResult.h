#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "branding/BrandConstants.h"
#include "simulation/LauncherRun.h"
#include "simulation/pc/DescribedPc.h"
#include "simulation/pc/PcFile.h"

namespace tarvex {

/// What a case came to when something that counts for it is not described.
inline constexpr std::u16string_view kUndetermined = u"unbestimmt";

/// Something that the launcher asked for and that nobody described, as a description names it.
struct Undescribed {
    Asked kind = Asked::File;
    std::u16string what;
};

/// Something that differs from what the description expects. Credentials are masked.
struct Deviation {
    std::u16string name;  ///< as the description names it; with the line where the text has several
    std::u16string expected;
    std::u16string actual;
};

/// What a launcher does on a described computer.
struct SimulationResult {
    std::u16string name;  ///< of the description, as it was named on the command line
    LaunchOutcome outcome;

    /// What the steps for Access, database and workgroup database asked for, each once, in the
    /// order in which they did. The outcome takes it for not there.
    std::vector<Undescribed> undescribed;

    /// German sentences about values that only one view of the registry holds.
    std::vector<std::u16string> notes;

    bool hasExpectation = false;
    std::vector<Deviation> deviations;

    /// As ResultText of the outcome, or kUndetermined.
    std::u16string Result() const;

    /// With an expectation: it is met. Without one: Access is started and nothing undetermined.
    bool Passed() const;
};

/// Runs the launcher with these marks on the computer.
SimulationResult SimulateStart(const BrandConstants& constants, PcFile& file,
                               std::u16string_view name);

/// What differs from the expectation; nothing when it is not given.
std::vector<Deviation> Compare(const Expectation& expected, const SimulationResult& actual);

}  // namespace tarvex
