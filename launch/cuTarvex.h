#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "launch/DiagnosticLog.h"
#include "launch/LaunchEnvironment.h"
#include "launch/LaunchProperties.h"
#include "launch/RegistryKeyList.h"

namespace tarvex {

/// Knows how to start Microsoft Access for one database: takes the settings, finds Access, the
/// database, the workgroup database and the profile, and composes the command line. It starts
/// nothing and shows nothing. A new object has empty texts, no option set and the defaults of
/// SetDefaults. Folders may be relative to the launcher's own folder.
class cuTarvex {
public:
    /// The environment's objects must outlive this one.
    explicit cuTarvex(const LaunchEnvironment& environment);

    /// Key list that names registry places of the Access executable's folder; wins over AccPath
    /// and AccVersion.
    const std::u16string& AccRegListString() const { return properties_.accRegListString; }
    void SetAccRegListString(std::u16string v) { properties_.accRegListString = std::move(v); }

    /// Folder of the Access executable, or its full path with "msaccess.exe"; wins over AccVersion.
    const std::u16string& AccPath() const { return properties_.accPath; }
    void SetAccPath(std::u16string value) { properties_.accPath = std::move(value); }

    /// Office version whose registry keys are used: 0 for 8.0, 1 for 9.0, 2 for 10.0, 3 for 11.0.
    /// A value of 4 or more raises launch error 17 and changes nothing. -1 acts as 0; lower values
    /// are kept and name no keys.
    std::int32_t AccVersion() const { return properties_.accVersion; }
    void SetAccVersion(std::int32_t value);

    /// Text for the database behind " /cmd ".
    const std::u16string& Cmd() const { return properties_.cmd; }
    void SetCmd(std::u16string value) { properties_.cmd = std::move(value); }

    /// The composed command line with the real user name and password; empty until GetCommandLine
    /// has succeeded.
    const std::u16string& CommandLine() const { return commandLine_; }

    /// The same line with "XXXX" for the user name and "YYYY" for the password, for display and
    /// log.
    const std::u16string& CommandLineHiddenUserPW() const { return commandLineHiddenUserPW_; }

    /// Folder of the database, used together with DBFilename.
    const std::u16string& DBPath() const { return properties_.dbPath; }
    void SetDBPath(std::u16string value) { properties_.dbPath = std::move(value); }

    /// Key list that names registry places of the database; wins over DBPath.
    const std::u16string& DBRegListString() const { return properties_.dbRegListString; }
    void SetDBRegListString(std::u16string value) {
        properties_.dbRegListString = std::move(value);
    }

    /// File name of the database in DBPath, or in the launcher's folder when DBPath is empty.
    const std::u16string& DBFilename() const { return properties_.dbFilename; }
    void SetDBFilename(std::u16string value) { properties_.dbFilename = std::move(value); }

    /// German report of the last GetCommandLine run, lines joined by CR LF; never holds user name
    /// or password.
    const std::u16string& DebugLog() const { return debugLog_.Text(); }

    /// Macro to run, behind " /x ".
    const std::u16string& Macro() const { return properties_.macro; }
    void SetMacro(std::u16string value) { properties_.macro = std::move(value); }

    /// Access user profile, behind " /Profile ".
    const std::u16string& Profile() const { return properties_.profile; }
    void SetProfile(std::u16string value) { properties_.profile = std::move(value); }

    /// Mark before the file name of a key list entry; not empty.
    const std::u16string& RegListFilenameSeparator() const { return properties_.markers.fileName; }
    void SetRegListFilenameSeparator(std::u16string value) {
        properties_.markers.fileName = std::move(value);
    }

    /// Mark between the entries of a key list; not empty.
    const std::u16string& RegListSeparator() const { return properties_.markers.list; }
    void SetRegListSeparator(std::u16string value) { properties_.markers.list = std::move(value); }

    /// Mark before the sub-folder of a key list entry; not empty.
    const std::u16string& RegListSubDirSeparator() const { return properties_.markers.subFolder; }
    void SetRegListSubDirSeparator(std::u16string value) {
        properties_.markers.subFolder = std::move(value);
    }

    /// Key of the Access profiles below HKEY_LOCAL_MACHINE for a version as in AccVersion; empty
    /// for any other number, -1 included.
    static std::u16string RegProfileKey(std::int32_t version);

    /// Folder of the workgroup database, used together with SystemDBFilename.
    const std::u16string& SystemDBPath() const { return properties_.systemDBPath; }
    void SetSystemDBPath(std::u16string value) { properties_.systemDBPath = std::move(value); }

    /// User name behind " /user ".
    const std::u16string& SystemDBUser() const { return properties_.systemDBUser; }
    void SetSystemDBUser(std::u16string value) { properties_.systemDBUser = std::move(value); }

    /// Password behind " /pwd "; left out without a user name.
    const std::u16string& SystemDBPwd() const { return properties_.systemDBPwd; }
    void SetSystemDBPwd(std::u16string value) { properties_.systemDBPwd = std::move(value); }

    bool OptionCompact() const { return properties_.optionCompact; }
    void SetOptionCompact(bool value) { properties_.optionCompact = value; }
    bool OptionDecompile() const { return properties_.optionDecompile; }
    void SetOptionDecompile(bool value) { properties_.optionDecompile = value; }
    bool OptionExclusive() const { return properties_.optionExclusive; }
    void SetOptionExclusive(bool value) { properties_.optionExclusive = value; }
    bool OptionNoStartup() const { return properties_.optionNoStartup; }
    void SetOptionNoStartup(bool value) { properties_.optionNoStartup = value; }
    bool OptionReadOnly() const { return properties_.optionReadOnly; }
    void SetOptionReadOnly(bool value) { properties_.optionReadOnly = value; }
    bool OptionRepair() const { return properties_.optionRepair; }
    void SetOptionRepair(bool value) { properties_.optionRepair = value; }
    bool OptionRuntime() const { return properties_.optionRuntime; }
    void SetOptionRuntime(bool value) { properties_.optionRuntime = value; }

    /// Key list that names registry places of the workgroup database; wins over SystemDBPath.
    const std::u16string& SystemDBRegListString() const {
        return properties_.systemDBRegListString;
    }
    void SetSystemDBRegListString(std::u16string value) {
        properties_.systemDBRegListString = std::move(value);
    }

    /// File name of the workgroup database in SystemDBPath, or in the launcher's folder when that
    /// is empty.
    const std::u16string& SystemDBFilename() const { return properties_.systemDBFilename; }
    void SetSystemDBFilename(std::u16string value) {
        properties_.systemDBFilename = std::move(value);
    }

    /// Dry run: missing files are noted in DebugLog and TestModeError instead of being raised.
    bool TestMode() const { return properties_.testMode; }
    void SetTestMode(bool value) { properties_.testMode = value; }

    /// True when the last GetCommandLine run in test mode met a failure that it would have raised.
    bool TestModeError() const { return testModeError_; }
    void SetTestModeError(bool value) { testModeError_ = value; }

    /// Whether GetCommandLine looks the profile up in the registry.
    bool VerifyProfile() const { return properties_.verifyProfile; }
    void SetVerifyProfile(bool value) { properties_.verifyProfile = value; }

    /// Resolves everything anew and fills both command lines and DebugLog. False when no Access
    /// path came back. Raises the launch errors of the steps, with ": GetCommandLine" added to
    /// their source; both lines are empty then and DebugLog ends at the failure.
    bool GetCommandLine();

    /// Short name of a root key; empty for any number that is none.
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

    /// Resets the markers, AccVersion and all options but OptionDecompile; everything else stays.
    void SetDefaults();

private:
    LaunchEnvironment environment_;
    LaunchProperties properties_;
    DiagnosticLog debugLog_;
    std::u16string commandLine_;
    std::u16string commandLineHiddenUserPW_;
    bool testModeError_ = false;
};

}  // namespace tarvex
