#pragma once

#include <string>
#include <string_view>

#include "configurator/Model.h"
#include "configurator/checks/Finding.h"
#include "window/form/UserDialogs.h"

namespace tarvex {

/// Problems for a message box, a line for each: the field before its text, and before it the file
/// when that is another than `file`. Of very many the last line says how many more there are. Lines
/// are separated by "\n".
std::u16string ProblemList(const Problems& problems, std::u16string_view file);

/// The problems of findings.
Problems ProblemsOf(const Findings& findings);

/// Names of fields: "DBPath, DBFilename".
std::u16string FieldNames(const std::vector<std::int32_t>& numbers);

/// Shows a text with the button "OK".
void TellUser(UserDialogs& dialogs, BoxIcon icon, std::u16string_view text);

/// Asks whether to do what `caption` says; the other button cancels.
bool UserAgrees(UserDialogs& dialogs, BoxIcon icon, std::u16string_view text,
                std::u16string_view caption);

}  // namespace tarvex
