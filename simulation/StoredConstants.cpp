#include "simulation/StoredConstants.h"

#include "branding/BrandFields.h"
#include "branding/BrandMark.h"
#include "branding/StoredValue.h"

namespace tarvex {

StoredConstants StoredConstants::FromImage(const LauncherImage& image) {
    StoredConstants constants;
    constants.branded_ = image.IsBranded();
    for (const BrandField& field : kBrandFields) {
        if (const LauncherImage::Mark* mark = image.Find(field.number)) {
            constants.areas_[field.number] = mark->area;
        }
    }
    return constants;
}

StoredConstants StoredConstants::FromSettings(const Settings& settings, std::u16string_view place,
                                              const TextCodec& codec, Problems& problems) {
    StoredConstants constants;
    for (const auto& [number, entry] : settings.Entries()) {
        const BrandField* const field = FindBrandField(number);
        if (field == nullptr) {
            continue;  // of the program file, which the launcher itself does not read
        }
        StoredValue value = MakeStoredValue(*field, entry.value, codec);
        if (!value.problem.empty()) {
            problems.push_back({std::u16string(place), entry.line, std::u16string(field->name),
                                std::move(value.problem)});
        }
        constants.areas_[number] = std::move(value.stored);
    }
    return constants;
}

std::vector<std::u16string> StoredConstants::Marks() const {
    std::vector<std::u16string> marks;
    for (const BrandField& field : kBrandFields) {
        const auto area = areas_.find(field.number);
        marks.push_back(
            MarkHeader(field.number, field.width, field.name) +
            FitToWidth(area == areas_.end() ? std::u16string() : area->second, field.width));
    }
    return marks;
}

std::u16string StoredConstants::Marker() const {
    return MarkerText(branded_);
}

std::u16string StoredConstants::BrandedMarker() const {
    return MarkerText(true);
}

}  // namespace tarvex
