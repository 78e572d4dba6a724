#include "simulation/pc/WindowsPaths.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "simulation/pc/Names.h"
#include "text/Text.h"

namespace tarvex {
namespace {

using Parts = std::vector<std::u16string_view>;

constexpr std::u16string_view kVerbatim = u"\\\\?\\";
constexpr std::u16string_view kVerbatimNetwork = u"\\\\?\\UNC\\";
constexpr std::u16string_view kDevices = u"\\\\.\\";
constexpr std::u16string_view kNetwork = u"\\\\";

bool IsDrive(std::u16string_view path) {
    const char16_t letter = path.empty() ? u'\0' : text::Fold(path[0]);
    return path.size() > 1 && letter >= u'a' && letter <= u'z' && path[1] == u':';
}

/// A path, divided: "C:" or "\\server\share", and the names below it.
struct Divided {
    std::u16string root;
    Parts parts;
};

/// The root of a path that is not relative, and what follows it.
Divided Divide(std::u16string_view path) {
    if (!path.starts_with(kNetwork)) {
        const std::u16string_view rest = text::Drop(path, 2);
        return {std::u16string(text::Left(path, 2)),
                text::Split(rest.starts_with(u'\\') ? rest.substr(1) : rest, u'\\')};
    }
    Parts parts = text::Split(path.substr(kNetwork.size()), u'\\');
    Divided result{std::u16string(kNetwork), {}};
    for (int level = 0; level < 2 && !parts.empty(); ++level) {
        result.root.append(level == 0 ? u"" : u"\\").append(parts.front());
        parts.erase(parts.begin());
    }
    result.parts = std::move(parts);
    return result;
}

std::u16string Join(const Divided& divided) {
    std::u16string result = divided.root;
    for (const std::u16string_view part : divided.parts) {
        result.append(u"\\").append(part);
    }
    // A drive alone would be a relative path.
    return divided.parts.empty() && IsDrive(result) ? result + u"\\" : result;
}

/// Without the parts that name no folder of their own. A single dot at the end of a name is lost;
/// at the end of a path that does not end in a separator, all blanks and dots are.
Parts Cleaned(const Parts& parts) {
    Parts cleaned;
    for (std::u16string_view part : parts) {
        if (part == u".") {
            continue;
        }
        if (part == u"..") {
            if (!cleaned.empty()) {
                cleaned.pop_back();
            }
            continue;
        }
        if (part.ends_with(u'.') && part.find_first_not_of(u'.') != std::u16string_view::npos) {
            part.remove_suffix(1);
        }
        if (!part.empty()) {
            cleaned.push_back(part);
        }
    }
    if (!cleaned.empty() && !parts.back().empty()) {
        std::u16string_view& last = cleaned.back();
        last = last.substr(0, last.find_last_not_of(u" .") + 1);
        if (last.empty()) {
            cleaned.pop_back();
        }
    }
    return cleaned;
}

/// Names that lead to a device from whatever folder, with any extension.
bool IsDevice(std::u16string_view name) {
    name = name.substr(0, name.find_first_of(u".:"));
    name = name.substr(0, name.find_last_not_of(u' ') + 1);
    for (const std::u16string_view device :
         {u"CON", u"PRN", u"AUX", u"NUL", u"CONIN$", u"CONOUT$"}) {
        if (text::EqualsIgnoreCase(name, device)) {
            return true;
        }
    }
    const bool isPort =
        text::StartsWithIgnoreCase(name, u"COM") || text::StartsWithIgnoreCase(name, u"LPT");
    return isPort && name.size() == 4 && name[3] >= u'1' && name[3] <= u'9';
}

bool IsName(std::u16string_view part) {
    return !part.empty() && std::all_of(part.begin(), part.end(), [](char16_t unit) {
        return unit >= u' ' &&
               std::u16string_view(u"*?\"<>|:/").find(unit) == std::u16string_view::npos;
    });
}

bool IsPathOfNames(const Divided& divided) {
    const bool isRoot = divided.root.starts_with(kNetwork)
                            ? divided.root.find(u'\\', kNetwork.size()) != std::u16string::npos &&
                                  !divided.root.ends_with(u'\\')
                            : IsDrive(divided.root);
    return isRoot && std::all_of(divided.parts.begin(), divided.parts.end(), IsName);
}

/// As it stands, whatever it is made of.
std::optional<std::u16string> VerbatimPath(std::u16string_view path) {
    std::u16string rest(path.substr(kVerbatim.size()));
    if (text::StartsWithIgnoreCase(path, kVerbatimNetwork)) {
        rest = std::u16string(kNetwork).append(path.substr(kVerbatimNetwork.size()));
    }
    const Divided divided = Divide(rest);
    return IsPathOfNames(divided) ? std::optional(Join(divided)) : std::nullopt;
}

/// The path with what stands before a relative one.
std::u16string FromRoot(const std::u16string& path, std::u16string_view currentFolder) {
    if (path.starts_with(kNetwork)) {
        return path;
    }
    const std::u16string folder = std::u16string(currentFolder) + u"\\";
    if (path.size() > 1 && path[1] == u':') {
        const std::u16string rest = path.substr(2);
        if (rest.starts_with(u'\\')) {
            return path;
        }
        const bool isCurrent = text::EqualsIgnoreCase(path.substr(0, 2), folder.substr(0, 2));
        return isCurrent ? folder + rest : path.substr(0, 2) + u"\\" + rest;
    }
    return path.starts_with(u'\\') ? Divide(currentFolder).root + path : folder + path;
}

/// Below System32 what 32-bit programs share with 64-bit ones.
constexpr std::u16string_view kSharedSystemFolders[] = {
    u"catroot", u"catroot2", u"driverstore", u"drivers\\etc", u"logfiles", u"spool"};

/// What follows `folder` in a path at or below it; nothing for other paths.
std::optional<std::u16string_view> After(std::u16string_view path, std::u16string_view folder) {
    return IsAtOrBelow(path, folder) ? std::optional(path.substr(folder.size())) : std::nullopt;
}

bool IsShortName(std::u16string_view part) {
    const std::size_t tilde = part.find(u'~');
    const std::size_t dot = part.find(u'.');
    const std::u16string_view name = part.substr(0, dot);
    return tilde != std::u16string_view::npos && name.size() <= 8 &&
           text::IsDigits(text::Drop(name, tilde + 1)) &&
           (dot == std::u16string_view::npos || part.size() - dot <= 4);
}

/// With "\\" in the place of every "/".
std::u16string Slashed(std::u16string_view path) {
    std::u16string slashed(path);
    std::replace(slashed.begin(), slashed.end(), u'/', u'\\');
    return slashed;
}

}  // namespace

std::u16string RootedWindowsPath(std::u16string_view path, std::u16string_view currentFolder) {
    const std::u16string slashed = Slashed(path);
    if (path.empty() || slashed.starts_with(kNetwork)) {
        return std::u16string(path);
    }
    return FromRoot(slashed, currentFolder);
}

std::optional<std::u16string> FullWindowsPath(std::u16string_view path,
                                              std::u16string_view currentFolder) {
    if (path.empty()) {
        return std::nullopt;
    }
    if (path.starts_with(kVerbatim)) {
        return VerbatimPath(path);
    }
    const std::u16string slashed = Slashed(path);
    if (slashed.starts_with(kDevices)) {
        return std::nullopt;
    }
    const std::u16string whole = FromRoot(slashed, currentFolder);
    Divided divided = Divide(whole);
    divided.parts = Cleaned(divided.parts);
    if (!IsPathOfNames(divided) || (!divided.parts.empty() && IsDevice(divided.parts.back()))) {
        return std::nullopt;
    }
    return Join(divided);
}

bool IsFullWindowsPath(std::u16string_view path) {
    const auto isSeparator = [path](std::size_t i) {
        return path.size() > i && (path[i] == u'\\' || path[i] == u'/');
    };
    return (IsDrive(path) && isSeparator(2)) || (isSeparator(0) && isSeparator(1));
}

std::u16string PathOf32BitProgram(std::u16string_view fullPath, WindowsVersion windows) {
    const auto below = After(text::Drop(fullPath, 1), u":\\Windows");
    if (!below || below->empty()) {
        return std::u16string(fullPath);
    }
    const std::u16string_view name = below->substr(1);
    const std::u16string windowsFolder(fullPath.substr(0, fullPath.size() - name.size()));
    if (const auto rest = After(name, u"Sysnative"); rest && !windows.IsBefore({6, 0})) {
        return windowsFolder + u"System32" + std::u16string(*rest);
    }
    const auto rest = After(name, u"System32");
    const bool isShared =
        rest && !rest->empty() &&
        std::any_of(std::begin(kSharedSystemFolders), std::end(kSharedSystemFolders),
                    [&rest](std::u16string_view shared) {
                        return After(rest->substr(1), shared).has_value();
                    });
    return rest && !isShared ? windowsFolder + u"SysWOW64" + std::u16string(*rest)
                             : std::u16string(fullPath);
}

bool HasShortName(std::u16string_view fullPath) {
    const std::vector<std::u16string_view> parts = text::Split(fullPath, u'\\');
    return std::any_of(parts.begin(), parts.end(), IsShortName);
}

}  // namespace tarvex
