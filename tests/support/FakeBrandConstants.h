#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "branding/BrandConstants.h"

namespace tarvex {

/// The marks of a branded launcher with the given plain values, in their stored form.
class FakeBrandConstants : public BrandConstants {
public:
    using Values = std::map<std::int32_t, std::u16string_view>;

    FakeBrandConstants() = default;
    explicit FakeBrandConstants(const Values& plainValues);

    std::vector<std::u16string> Marks() const override { return marks; }
    std::u16string Marker() const override { return marker; }
    std::u16string BrandedMarker() const override { return u"@#BRANDED1#@"; }

    std::vector<std::u16string> marks;
    std::u16string marker = u"@#BRANDED1#@";
};

/// The values with those of `more` over them.
FakeBrandConstants::Values With(FakeBrandConstants::Values values,
                                const FakeBrandConstants::Values& more);

}  // namespace tarvex
