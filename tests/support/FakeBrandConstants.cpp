#include "tests/support/FakeBrandConstants.h"

#include <stdexcept>

#include "branding/BrandFields.h"
#include "branding/StoredValue.h"
#include "text/Text.h"
#include "text/TextCodec1252.h"

namespace tarvex {

FakeBrandConstants::FakeBrandConstants(const Values& plainValues) {
    const TextCodec1252 codec;
    for (const BrandField& field : kBrandFields) {
        std::u16string value;
        if (const auto found = plainValues.find(field.number); found != plainValues.end()) {
            const StoredValue result = MakeStoredValue(field, found->second, codec);
            if (!result.problem.empty()) {
                throw std::invalid_argument(text::ToUtf8(result.problem));
            }
            value = result.stored;
        }
        value.resize(static_cast<std::size_t>(field.width), u' ');
        marks.push_back(u"@#BRD#@|" + text::Decimal(field.number, 3) + u"|" +
                        text::Decimal(field.width, 4) + u"|" + std::u16string(field.name) + u"|" +
                        value);
    }
}

FakeBrandConstants::Values With(FakeBrandConstants::Values values,
                                const FakeBrandConstants::Values& more) {
    for (const auto& [field, value] : more) {
        values[field] = value;
    }
    return values;
}

}  // namespace tarvex
