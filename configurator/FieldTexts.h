#pragma once

#include <span>
#include <string>
#include <string_view>

#include "branding/BrandFields.h"

namespace tarvex {

/// What a field means, one German line.
std::u16string FieldMeaning(const BrandField& field);

/// A section of a settings file: fields that belong together.
struct FieldSection {
    std::u16string_view title;
    std::u16string_view comment;  ///< German, lines separated by "\n"
    std::span<const std::int32_t> fields;
};

/// Every field stands in exactly one section.
std::span<const FieldSection> FieldSections();

}  // namespace tarvex
