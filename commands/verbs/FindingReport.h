#pragma once

#include <string>

#include "commands/CommandContext.h"
#include "configurator/checks/Finding.h"

namespace tarvex {

/// True when the findings refuse what they are about: an error, with `strict` a warning too.
bool AreFatal(const Findings& findings, bool strict);

/// Writes the findings to the error output, a line each; notes only with `notes`.
void TellFindings(CommandContext& context, const Findings& findings, bool notes);

/// Tells errors and warnings of settings that can be stored all the same. The problem that is
/// returned says that `file` is not written, because of --strict.
Problems TellOrRefuse(CommandContext& context, const Findings& findings, bool strict,
                      const std::u16string& file);

/// "1 Fehler, 2 Warnungen, 3 Hinweise"; "keine Beanstandungen" when there are none.
std::u16string CountText(const Findings& findings);

/// A JSON list of objects, lines with "\n".
std::u16string FindingsAsJson(const Findings& findings);

}  // namespace tarvex
