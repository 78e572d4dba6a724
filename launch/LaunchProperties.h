#pragma once

#include <cstdint>
#include <string>

#include "launch/RegistryKeyList.h"

namespace tarvex {

/// What the launch object is told: the settings that the resolution steps and the command line
/// read. cuTarvex describes each of them.
struct LaunchProperties {
    std::u16string accRegListString;
    std::u16string accPath;
    std::int32_t accVersion = 0;
    std::u16string dbRegListString;
    std::u16string dbPath;
    std::u16string dbFilename;
    std::u16string systemDBRegListString;
    std::u16string systemDBPath;
    std::u16string systemDBFilename;
    std::u16string systemDBUser;
    std::u16string systemDBPwd;
    std::u16string profile;
    std::u16string macro;
    std::u16string cmd;
    KeyListMarkers markers;
    bool optionCompact = false;
    bool optionDecompile = false;
    bool optionExclusive = false;
    bool optionNoStartup = false;
    bool optionReadOnly = false;
    bool optionRepair = false;
    bool optionRuntime = false;
    bool testMode = false;
    bool verifyProfile = false;
};

}  // namespace tarvex
