#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "configurator/Model.h"

namespace tarvex {

/// A field that has another value after than before.
struct Difference {
    std::int32_t number = 0;
    std::u16string before;
    std::u16string after;
};

/// The fields whose values differ, by their numbers; a field that is not set counts as empty. Icons
/// are compared as a program has them, wherever they come from.
std::vector<Difference> CompareSettings(const Settings& before, const Settings& after);

/// A value as it is shown: users and passwords only with `reveal`.
std::u16string_view ShownValue(const BrandField& field, std::u16string_view value, bool reveal);

}  // namespace tarvex
