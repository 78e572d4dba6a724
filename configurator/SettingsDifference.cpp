#include "configurator/SettingsDifference.h"

namespace tarvex {

std::vector<Difference> CompareSettings(const Settings& before, const Settings& after) {
    std::vector<Difference> differences;
    for (const BrandField* field : FieldsByNumber()) {
        const std::u16string_view old = before.Value(field->number);
        const std::u16string_view now = after.Value(field->number);
        if (old != now) {
            differences.push_back({field->number, std::u16string(old), std::u16string(now)});
        }
    }
    return differences;
}

}  // namespace tarvex
