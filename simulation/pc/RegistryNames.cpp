#include "simulation/pc/RegistryNames.h"

#include <algorithm>
#include <iterator>

#include "launch/RegistryKeyList.h"
#include "simulation/pc/Names.h"
#include "text/Text.h"

namespace tarvex {
namespace {

constexpr std::u16string_view kNode = u"WOW6432Node";
constexpr std::u16string_view kUserClasses = u"HKCU\\Software\\Classes";
constexpr std::u16string_view kMachineClasses = u"HKLM\\SOFTWARE\\Classes";
constexpr std::u16string_view kMachineSoftware = u"HKLM\\SOFTWARE";
constexpr std::u16string_view kClassesRoot = u"HKCR";

enum class Kind { Shared, Redirected };

/// Whether a key of 64-bit Windows with everything below it is one for both kinds of programs, as
/// Microsoft lists it ("Registry Keys Affected by WOW64"). Reflected keys of old systems are two
/// keys with copies of each other.
struct ViewRow {
    std::u16string_view key;
    Kind since7;
    Kind before7;  // Windows XP to Vista
};

constexpr Kind S = Kind::Shared;
constexpr Kind R = Kind::Redirected;

constexpr ViewRow kViewRows[] = {
    {u"HKLM\\SOFTWARE", R, R},
    {u"HKLM\\SOFTWARE\\Classes", S, R},
    {u"HKLM\\SOFTWARE\\Classes\\AppID", S, R},
    {u"HKLM\\SOFTWARE\\Classes\\CLSID", R, R},
    {u"HKLM\\SOFTWARE\\Classes\\DirectShow", R, R},
    {u"HKLM\\SOFTWARE\\Classes\\HCP", S, S},
    {u"HKLM\\SOFTWARE\\Classes\\Interface", R, R},
    {u"HKLM\\SOFTWARE\\Classes\\Media Type", R, R},
    {u"HKLM\\SOFTWARE\\Classes\\MediaFoundation", R, R},
    {u"HKLM\\SOFTWARE\\Clients", S, R},
    {u"HKLM\\SOFTWARE\\Microsoft\\COM3", S, R},
    {u"HKLM\\SOFTWARE\\Microsoft\\Cryptography\\Calais\\Current", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\Cryptography\\Calais\\Readers", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\Cryptography\\Services", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\CTF\\SystemShared", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\CTF\\TIP", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\DFS", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\Driver Signing", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\EnterpriseCertificates", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\EventSystem", S, R},
    {u"HKLM\\SOFTWARE\\Microsoft\\MSMQ", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\Non-Driver Signing", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\Notepad\\DefaultFonts", S, R},
    {u"HKLM\\SOFTWARE\\Microsoft\\OLE", S, R},
    {u"HKLM\\SOFTWARE\\Microsoft\\RAS", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\RPC", S, R},
    {u"HKLM\\SOFTWARE\\Microsoft\\Shared Tools\\MSInfo", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\SystemCertificates", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\TermServLicensing", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\TransactionServer", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths", S, R},
    {u"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Control Panel\\Cursors\\Schemes", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Explorer\\AutoplayHandlers", S, R},
    {u"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Explorer\\DriveIcons", S, R},
    {u"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Explorer\\KindMap", S, R},
    {u"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Group Policy", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Policies", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\PreviewHandlers", S, R},
    {u"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Setup", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Telephony\\Locations", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Console", S, R},
    {u"HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\FontDpi", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\FontLink", S, R},
    {u"HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\FontMapper", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Fonts", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\FontSubstitutes", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Gre_Initialize", S, R},
    {u"HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Image File Execution Options", S, R},
    {u"HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Language Pack", S, R},
    {u"HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\NetworkCards", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Perflib", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Ports", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Print", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\ProfileList", S, S},
    {u"HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Time Zones", S, S},
    {u"HKLM\\SOFTWARE\\Policies", S, S},
    {u"HKLM\\SOFTWARE\\RegisteredApplications", S, S},
    {u"HKCU\\Software\\Classes", S, R},
    {u"HKCU\\Software\\Classes\\AppID", S, R},
    {u"HKCU\\Software\\Classes\\CLSID", R, R},
    {u"HKCU\\Software\\Classes\\DirectShow", R, R},
    {u"HKCU\\Software\\Classes\\Interface", R, R},
    {u"HKCU\\Software\\Classes\\Media Type", R, R},
    {u"HKCU\\Software\\Classes\\MediaFoundation", R, R},
};

/// Since Windows 7 these lead from the 32-bit classes to the shared ones.
constexpr std::u16string_view kLinkedClasses[] = {u"AppID", u"PROTOCOLS", u"TypeLib"};

/// What follows `top` and a "\" in a name at or below it; empty for `top` itself.
std::u16string_view Below(std::u16string_view name, std::u16string_view top) {
    return text::Drop(name, top.size() + 1);
}

std::u16string Join(std::u16string_view top, std::u16string_view rest) {
    std::u16string result(top);
    if (!rest.empty()) {
        result.append(u"\\").append(rest);
    }
    return result;
}

/// The keys below which a second set for 32-bit programs can stand, inner ones first.
constexpr std::u16string_view kNodeParents[] = {kMachineClasses, kUserClasses, kClassesRoot,
                                                kMachineSoftware};

/// The parent of the second set that a name is in, empty when it is in none.
std::u16string_view NodeParent(std::u16string_view name) {
    for (const std::u16string_view parent : kNodeParents) {
        if (IsAtOrBelow(name, Join(parent, kNode))) {
            return parent;
        }
    }
    return {};
}

}  // namespace

RegistryNames::RegistryNames(bool is64Bit, WindowsVersion windows, std::u16string_view user)
    : is64Bit_(is64Bit), isBefore7_(windows.IsBefore({6, 1})), user_(user) {}

std::optional<std::u16string> RegistryNames::Normalise(std::u16string_view name) const {
    std::u16string result;
    for (const std::u16string_view part : text::Split(name, u'\\')) {
        if (result.empty()) {
            result = HKeyName(HKeyFromName(part));
            if (result.empty()) {
                return std::nullopt;
            }
        } else if (!part.empty()) {
            result.append(u"\\").append(part);
        }
    }
    if (!user_.empty()) {
        const std::u16string settings = u"HKU\\" + user_;
        const std::u16string classes = settings + u"_Classes";
        if (IsAtOrBelow(result, settings)) {
            return Join(u"HKCU", Below(result, settings));
        }
        if (IsAtOrBelow(result, classes)) {
            return Join(kUserClasses, Below(result, classes));
        }
    }
    return result;
}

std::u16string RegistryNames::In64BitView(std::u16string_view name) const {
    if (!is64Bit_) {
        return std::u16string(name);
    }
    std::u16string result(name);
    const std::u16string machineNode = Join(kMachineSoftware, kNode);
    if (IsAtOrBelow(result, machineNode)) {
        const std::u16string_view rest = Below(result, machineNode);
        const std::u16string plain = Join(kMachineSoftware, rest);
        if (IsAtOrBelow(plain, kMachineClasses)) {
            result = Join(Join(kMachineClasses, kNode), Below(plain, kMachineClasses));
        } else if (!IsRedirected(plain)) {
            result = plain;  // there is only one such key
        }
    }
    const std::u16string classesNode = Join(kMachineClasses, kNode);
    if (!isBefore7_ && IsAtOrBelow(result, classesNode)) {
        const std::u16string_view rest = Below(result, classesNode);
        if (std::any_of(std::begin(kLinkedClasses), std::end(kLinkedClasses),
                        [rest](std::u16string_view link) { return IsAtOrBelow(rest, link); })) {
            result = Join(kMachineClasses, rest);
        }
    }
    return result;
}

std::u16string RegistryNames::In32BitView(std::u16string_view name) const {
    if (!is64Bit_) {
        return std::u16string(name);
    }
    if (!NodeParent(name).empty() || !IsRedirected(name)) {
        return In64BitView(name);
    }
    for (const std::u16string_view parent : kNodeParents) {
        if (IsAtOrBelow(name, parent)) {
            return Join(Join(parent, kNode), Below(name, parent));
        }
    }
    return std::u16string(name);
}

std::vector<std::u16string> RegistryNames::NamesOf(std::u16string_view key, bool for32Bit) const {
    std::vector<std::u16string> names;
    const auto add = [&](std::u16string name) {
        if (text::EqualsIgnoreCase(for32Bit ? In32BitView(name) : In64BitView(name), key)) {
            names.push_back(std::move(name));
        }
    };
    add(std::u16string(key));
    const std::u16string_view parent = NodeParent(key);
    if (is64Bit_ && !parent.empty()) {
        const std::u16string_view rest = Below(key, Join(parent, kNode));
        add(Join(parent, rest));
        if (parent == kMachineClasses) {
            add(Join(Join(kMachineSoftware, kNode) + u"\\Classes", rest));
        }
    }
    return names;
}

/// As the longest row says that the key stands at or below; for HKCR those of the computer's
/// classes.
bool RegistryNames::IsRedirected(std::u16string_view name) const {
    const std::u16string asClasses = IsAtOrBelow(name, kClassesRoot)
                                         ? Join(kMachineClasses, Below(name, kClassesRoot))
                                         : std::u16string(name);
    const ViewRow* longest = nullptr;
    for (const ViewRow& row : kViewRows) {
        if (IsAtOrBelow(asClasses, row.key) &&
            (longest == nullptr || row.key.size() > longest->key.size())) {
            longest = &row;
        }
    }
    return longest != nullptr && (isBefore7_ ? longest->before7 : longest->since7) == R;
}

std::u16string_view UserOfKey(std::u16string_view name) {
    const std::vector<std::u16string_view> parts = text::Split(name, u'\\');
    if (parts.size() < 2 || HKeyFromName(parts[0]) != kHKeyUsers) {
        return {};
    }
    std::u16string_view user = parts[1];
    constexpr std::u16string_view kClasses = u"_Classes";
    if (text::EndsWithIgnoreCase(user, kClasses)) {
        user.remove_suffix(kClasses.size());
    }
    // Of a domain or computer, or of the cloud; the others are services.
    const bool isPerson = text::StartsWithIgnoreCase(user, u"S-1-5-21-") ||
                          text::StartsWithIgnoreCase(user, u"S-1-12-1-");
    return isPerson ? user : std::u16string_view();
}

bool IsRegistryName(std::u16string_view name) {
    return HKeyFromName(name.substr(0, name.find(u'\\'))) != kNoHKey;
}

}  // namespace tarvex
