#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvex {

/// A place of the registry where an installation of Access tells its folder or program.
struct AccessPreset {
    std::u16string version;  ///< of Office, "16.0"; empty: of whichever was installed last
    std::u16string entry;    ///< for a field of AccRegList
    std::u16string meaning;  ///< German, one line
};

/// All known places, newest version first, then the registered program path.
const std::vector<AccessPreset>& AccessPresets();

/// The same with the places of one version joined by the list marker, as one field holds them: so
/// all of them fit into the list's ten fields.
const std::vector<AccessPreset>& AccessPresetFields();

}  // namespace tarvex
