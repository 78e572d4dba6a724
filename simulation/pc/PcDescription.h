#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "simulation/pc/RegFile.h"

namespace tarvex {

/// Version of Windows: 6.1 is Windows 7, 10.0 Windows 10 and 11.
struct WindowsVersion {
    std::int32_t major = 10;
    std::int32_t minor = 0;

    bool operator==(const WindowsVersion&) const = default;
    bool IsBefore(const WindowsVersion& other) const {
        return major < other.major || (major == other.major && minor < other.minor);
    }
};

/// A registry file and who wrote it.
struct RegistryExport {
    /// A 32-bit program, whose names for keys of a 64-bit computer are not those that a 64-bit
    /// program sees.
    bool of32BitView = false;
    std::vector<RegFileKey> keys;
};

/// Everything that is known of a computer. Names of files and folders are full paths ("C:\x\y.mdb",
/// "\\server\share\y.mdb"); values are named "HKLM\SOFTWARE\X\Pfad", with "\" at the end for a
/// key's default value, root keys by their short or long name. All names are those that a 64-bit
/// program sees.
struct PcDescription {
    std::u16string program;  ///< full path of the launcher, which is there
    bool is64Bit = true;
    WindowsVersion windows;
    std::int32_t codePage = 1252;          ///< one of kCodePages; any other counts as 1252
    std::u16string currentFolder;          ///< empty: the launcher's folder
    std::u16string switches;               ///< the launcher's command line after its name
    std::vector<RegistryExport> registry;  ///< a later one adds to an earlier one
    std::vector<std::u16string> files;     ///< those that are there; with "\" at the end: folders
    std::vector<std::u16string> missing;   ///< files and values known not to be there
    std::vector<std::u16string> complete;  ///< folders and keys with nothing else; "*": everything
};

}  // namespace tarvex
