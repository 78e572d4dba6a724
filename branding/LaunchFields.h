#pragma once

#include "branding/BrandFields.h"
#include "launch/LaunchProperties.h"

namespace tarvex {

struct LaunchTextField {
    std::int32_t field;
    std::u16string LaunchProperties::*property;
};

/// The launch properties by the fields that hold them.
inline constexpr LaunchTextField kLaunchTextFields[] = {
    {kFieldAccPath, &LaunchProperties::accPath},
    {kFieldDBPath, &LaunchProperties::dbPath},
    {kFieldDBFilename, &LaunchProperties::dbFilename},
    {kFieldSysDBPath, &LaunchProperties::systemDBPath},
    {kFieldSysDBFilename, &LaunchProperties::systemDBFilename},
    {kFieldProfile, &LaunchProperties::profile},
    {kFieldMacro, &LaunchProperties::macro},
    {kFieldCmd, &LaunchProperties::cmd},
};

/// Stored as lists of numbers.
inline constexpr LaunchTextField kLaunchCredentialFields[] = {
    {kFieldUser, &LaunchProperties::systemDBUser},
    {kFieldPwd, &LaunchProperties::systemDBPwd},
};

struct LaunchOptionField {
    std::int32_t field;
    bool LaunchProperties::*property;
};

inline constexpr LaunchOptionField kLaunchOptionFields[] = {
    {kFieldCompact, &LaunchProperties::optionCompact},
    {kFieldDecompile, &LaunchProperties::optionDecompile},
    {kFieldExclusive, &LaunchProperties::optionExclusive},
    {kFieldNoStartup, &LaunchProperties::optionNoStartup},
    {kFieldReadOnly, &LaunchProperties::optionReadOnly},
    {kFieldRepair, &LaunchProperties::optionRepair},
    {kFieldRuntime, &LaunchProperties::optionRuntime},
};

}  // namespace tarvex
