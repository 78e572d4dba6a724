#pragma once

#include <string>

#include "configurator/Model.h"
#include "window/files/FileServices.h"

namespace tarvex {

/// Exports these values of the document to a settings file, users and passwords only when
/// `withSecrets`. Asks before it takes the place of a file. The user is told when it fails.
FileResult WriteSettingsFile(const FileServices& services, const Document& document,
                             const Settings& values, const std::u16string& output,
                             bool withSecrets);

}  // namespace tarvex
