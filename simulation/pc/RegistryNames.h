#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulation/pc/PcDescription.h"

namespace tarvex {

/// The names of registry keys on one computer: which key a name of a 32-bit or of a 64-bit program
/// leads to.
///
/// Names are full ones: a root's short name and the parts of the path with one "\" between them
/// ("HKLM\SOFTWARE\X"). Keys of the user whose computer it is are named HKCU, also where
/// they were named HKU with the user's identifier; his classes are HKCU\Software\Classes.
class RegistryNames {
public:
    /// `user` is the identifier of the user ("S-1-5-21-..."); empty when it is not known.
    RegistryNames(bool is64Bit, WindowsVersion windows, std::u16string_view user);

    /// The name in the form that is described above, root in any case, short or long; nothing when
    /// the root is none.
    std::optional<std::u16string> Normalise(std::u16string_view name) const;

    /// Where a 64-bit program is led by a normalised name: links are resolved.
    std::u16string In64BitView(std::u16string_view name) const;

    /// Where a 32-bit program is led. On a computer of 32 bits the same as the name.
    std::u16string In32BitView(std::u16string_view name) const;

    /// The names by which a program of this kind can reach a key whose own name is `key`; none when
    /// it cannot.
    std::vector<std::u16string> NamesOf(std::u16string_view key, bool for32Bit) const;

private:
    bool IsRedirected(std::u16string_view name) const;

    bool is64Bit_;
    bool isBefore7_;
    std::u16string user_;
};

/// The identifier in the name of a key of HKEY_USERS that holds a person's settings or classes
/// ("S-1-5-21-..."), root in any case; empty for every other key.
std::u16string_view UserOfKey(std::u16string_view name);

/// True when the first part of a name is a root of the registry.
bool IsRegistryName(std::u16string_view name);

}  // namespace tarvex
