#include "configurator/SettingsDifference.h"

#include "configurator/program/ProgramFields.h"
#include "configurator/program/ProgramResources.h"

namespace tarvex {
namespace {

/// The icon as a program would have it; empty without one.
IconImages IconOf(const Settings& settings) {
    return settings.Value(kFieldIconFile).empty() ? IconImages()
                                                  : ReadIconForProgram(settings.Icon()).images;
}

}  // namespace

std::vector<Difference> CompareSettings(const Settings& before, const Settings& after) {
    std::vector<Difference> differences;
    for (const BrandField* field : FieldsByNumber()) {
        const std::u16string_view old = before.Value(field->number);
        const std::u16string_view now = after.Value(field->number);
        const bool differs =
            field->number == kFieldIconFile ? IconOf(before) != IconOf(after) : old != now;
        if (differs) {
            const std::u16string_view remark = old == now ? u" (andere Bilder)" : u"";
            differences.push_back(
                {field->number, std::u16string(old), std::u16string(now) + std::u16string(remark)});
        }
    }
    return differences;
}

std::u16string_view ShownValue(const BrandField& field, std::u16string_view value, bool reveal) {
    const bool hide = field.kind == FieldKind::Credential && !reveal && !value.empty();
    return hide ? u"<nicht angezeigt>" : value;
}

}  // namespace tarvex
