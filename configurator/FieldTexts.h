#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "branding/BrandFields.h"

namespace tarvex {

/// What a field is for, one German line.
std::u16string FieldPurpose(const BrandField& field);

/// The same with what is to be said of its value as it is written in a settings file.
std::u16string FieldMeaning(const BrandField& field);

/// A section of a settings file: fields that belong together.
struct FieldSection {
    std::u16string_view title;
    std::u16string_view comment;       ///< German, lines separated by "\n"
    std::vector<std::int32_t> fields;  ///< numbers
};

/// Every field stands in exactly one section.
const std::vector<FieldSection>& FieldSections();

}  // namespace tarvex
