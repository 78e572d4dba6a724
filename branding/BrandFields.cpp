#include "branding/BrandFields.h"

#include <algorithm>

#include "util/Text.h"

namespace tarvex {

namespace {

template <class Condition>
const BrandField* FindField(Condition condition) {
    const auto* const found =
        std::find_if(kBrandFields.begin(), kBrandFields.end(), std::move(condition));
    return found == kBrandFields.end() ? nullptr : found;
}

}  // namespace

const BrandField* FindBrandField(std::int32_t number) {
    return FindField([number](const BrandField& field) { return field.number == number; });
}

const BrandField* FindBrandFieldByName(std::u16string_view name) {
    return FindField(
        [name](const BrandField& field) { return text::EqualsIgnoreCase(field.name, name); });
}

}  // namespace tarvex
