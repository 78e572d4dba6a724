#include "branding/BrandFields.h"

#include "text/Text.h"

namespace tarvex {

const BrandField* FindBrandField(std::int32_t number) {
    for (const BrandField& field : kBrandFields) {
        if (field.number == number) {
            return &field;
        }
    }
    return nullptr;
}

const BrandField* FindBrandFieldByName(std::u16string_view name) {
    for (const BrandField& field : kBrandFields) {
        if (text::EqualsIgnoreCase(field.name, name)) {
            return &field;
        }
    }
    return nullptr;
}

}  // namespace tarvex
