#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "configurator/SettingsDifference.h"

namespace tarvex {

/// "Name = value", as in a settings file; lines end in "\n".
std::u16string ShownLine(const BrandField& field, std::u16string_view value, bool reveal);

/// For each difference the old value after "- " and the new one after "+ ", lines with "\n"; an
/// empty value has no line.
std::u16string ShownDifferences(const std::vector<Difference>& differences, bool reveal);

/// What the changes make of the settings, as ShownDifferences without secrets.
std::u16string ShownChanges(const Settings& before, const Settings& changes);

}  // namespace tarvex
