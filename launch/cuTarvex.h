#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "launch/DiagnosticLog.h"
#include "launch/LaunchEnvironment.h"
#include "launch/LaunchProperties.h"
#include "launch/RegistryKeyList.h"

namespace tarvex {

/// Knows how to start Microsoft Access for one database: takes the settings, finds Access, the
/// database, the workgroup database and the profile, and composes the command line. It starts
/// nothing and shows nothing.
class cuTarvex {
public:
    /// The environment's objects must outlive this one.
    explicit cuTarvex(const LaunchEnvironment& environment) : environment_(environment) {}

    /// What is to be started, for the caller to fill in.
    LaunchProperties& Properties() { return properties_; }
    const LaunchProperties& Properties() const { return properties_; }

    /// Office version whose registry keys are used: 0 (the default) for 8.0, 1 for 9.0, 2 for 10.0,
    /// 3 for 11.0. A value of 4 or more raises launch error 17 and changes nothing. -1 acts as 0;
    /// lower values are kept and name no keys.
    std::int32_t AccVersion() const { return accVersion_; }
    void SetAccVersion(std::int32_t value);

    /// The composed command line with the real user name and password; empty until GetCommandLine
    /// has succeeded.
    const std::u16string& CommandLine() const { return commandLine_; }

    /// The same line with "XXXX" for the user name and "YYYY" for the password, for display and
    /// log.
    const std::u16string& CommandLineHiddenUserPW() const { return commandLineHiddenUserPW_; }

    /// German report of the last GetCommandLine run, lines joined by CR LF; never holds user name
    /// or password.
    const std::u16string& DebugLog() const { return debugLog_.Text(); }

    /// True when the last GetCommandLine run in test mode met a failure that it would have raised.
    bool TestModeError() const { return testModeError_; }

    /// Resolves everything anew and fills both command lines and DebugLog. False when no Access
    /// path came back. Raises the launch errors of the steps, with ": GetCommandLine" added to
    /// their source; both lines are empty then and DebugLog ends at the failure.
    bool GetCommandLine();

    /// Key of the Access profiles below HKEY_LOCAL_MACHINE for a version as in AccVersion; empty
    /// for any other number, -1 included.
    static std::u16string RegProfileKey(std::int32_t version);

    /// Short name of a root key; empty for any other number.
    static std::u16string HKeyEnum2String(std::int32_t root);

    /// Root key of a short or long name in any case; kNoHKey for an unknown name.
    static std::int32_t HKeyString2Enum(std::u16string_view name);

    /// Appends an entry to a list: 0 Access, 1 database, 2 workgroup database. An empty entry and
    /// any other selector change nothing.
    void RegListAdd(std::int32_t selector, std::u16string_view entry);

    /// The entries of a list, selected as in RegListAdd. Any other selector raises launch error 16.
    std::vector<std::u16string> RegListArray(std::int32_t selector) const;

    /// Composes one entry. `rootNumber` names the root; with kNoHKey `rootName` does, in its short
    /// or long form. Raises launch error 1 without a known root and 16 for an unknown name.
    std::u16string RegListBuild(std::u16string_view keyPath, std::u16string_view valueName,
                                std::u16string_view fileName, std::u16string_view subFolder,
                                std::int32_t rootNumber = kNoHKey,
                                std::u16string_view rootName = {}) const;

    /// Splits one entry into its fields. Raises launch error 4 for an entry without a key and 8
    /// for one that does not begin with a root key.
    KeyListEntry RegListParse(std::u16string_view entry) const;

    /// Resets the markers, AccVersion and all options but optionDecompile; everything else stays.
    void SetDefaults();

private:
    LaunchEnvironment environment_;
    LaunchProperties properties_;
    std::int32_t accVersion_ = 0;
    DiagnosticLog debugLog_;
    std::u16string commandLine_;
    std::u16string commandLineHiddenUserPW_;
    bool testModeError_ = false;
};

}  // namespace tarvex
