#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "simulation/SimulationResult.h"

namespace tarvex {

/// One German sentence on what no simulation sees.
inline constexpr std::u16string_view kUnseen =
    u"Keine Simulation sieht Sperren, Zugriffsrechte, Vertrauenseinstellungen und blockierte "
    u"Dateien.";

/// What is told about simulated computers. Lines end in "\n".
struct SimulationReport {
    std::u16string result;   ///< what was asked for
    std::u16string remarks;  ///< what is to be said besides
};

/// The report for a person. About one computer the result is the text of its dry run, followed by
/// the comparison when there is an expectation. About several it is a line each and a sum; with
/// `texts` the text of each, too.
SimulationReport ReportSimulation(const std::vector<SimulationResult>& results, bool texts);

/// "Ergebnis: erwartet Start, tatsächlich Fehler 5".
std::u16string DeviationText(const Deviation& deviation);

/// The commands that export on the computer what is not described there; no command twice, and none
/// for what another one exports as well.
std::vector<std::u16string> ExportCommands(const std::vector<Undescribed>& undescribed);

}  // namespace tarvex
