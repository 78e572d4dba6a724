#include "branding/BrandImage.h"

#include <gtest/gtest.h>

#include "branding/BrandFields.h"
#include "branding/BrandMark.h"

namespace tarvex {
namespace {

TEST(BrandImageTest, EveryFieldHasItsEmptyMarkInTheOrderOfTheTable) {
    const std::vector<std::u16string> marks = BrandImage().Marks();
    ASSERT_EQ(marks.size(), kBrandFields.size());
    for (std::size_t i = 0; i < marks.size(); ++i) {
        const BrandField& field = kBrandFields[i];
        EXPECT_EQ(marks[i], MarkHeader(field.number, field.width, field.name) +
                                std::u16string(static_cast<std::size_t>(field.width), u' '));
    }
}

TEST(BrandImageTest, MarkerIsThatOfAnUnbrandedProgram) {
    EXPECT_EQ(BrandImage().Marker(), u"@#BRANDED0#@");
    EXPECT_EQ(BrandImage().BrandedMarker(), u"@#BRANDED1#@");
}

}  // namespace
}  // namespace tarvex
