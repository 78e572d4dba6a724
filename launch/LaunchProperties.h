#pragma once

#include <string>

#include "launch/RegistryKeyList.h"

namespace tarvex {

/// What the launch object is told. Texts are empty and switches off unless they are set; folders
/// may be relative to the launcher's own folder. The Office version is not among them: it has a
/// rule, which cuTarvex keeps.
struct LaunchProperties {
    /// Key list that names registry places of the Access executable's folder; wins over accPath and
    /// the Office version.
    std::u16string accRegListString;
    /// Folder of the Access executable, or its full path with "msaccess.exe"; wins over the Office
    /// version.
    std::u16string accPath;

    /// Key list that names registry places of the database; wins over dbPath.
    std::u16string dbRegListString;
    /// Folder of the database, used together with dbFilename.
    std::u16string dbPath;
    /// File name of the database in dbPath, or in the launcher's folder when dbPath is empty.
    std::u16string dbFilename;

    /// Key list that names registry places of the workgroup database; wins over systemDBPath.
    std::u16string systemDBRegListString;
    /// Folder of the workgroup database, used together with systemDBFilename.
    std::u16string systemDBPath;
    /// File name of the workgroup database in systemDBPath, or in the launcher's folder when that
    /// is empty.
    std::u16string systemDBFilename;
    /// User name after " /user ".
    std::u16string systemDBUser;
    /// Password after " /pwd "; left out without a user name.
    std::u16string systemDBPwd;

    /// Access user profile, after " /Profile ".
    std::u16string profile;
    /// Whether the profile is looked up in the registry.
    bool verifyProfile = false;
    /// Macro to run, after " /x ".
    std::u16string macro;
    /// Text for the database after " /cmd ".
    std::u16string cmd;

    bool optionCompact = false;    ///< " /Compact"
    bool optionDecompile = false;  ///< " /Decompile"
    bool optionExclusive = false;  ///< " /Excl"
    bool optionNoStartup = false;  ///< " /nostartup"
    bool optionReadOnly = false;   ///< " /ro"
    bool optionRepair = false;     ///< " /Repair"
    bool optionRuntime = false;    ///< " /Runtime"

    /// Dry run: missing files are noted in the diagnostic log and as TestModeError instead of being
    /// raised.
    bool testMode = false;

    /// The marks of the key lists; not empty.
    KeyListMarkers markers;
};

}  // namespace tarvex
