#include <gtest/gtest.h>

#include "tests/branding/cuBrandFixture.h"

namespace tarvex {
namespace {

class cuBrandArrayTest : public cuBrandFixture {
protected:
    const std::vector<BrandRow> rows{{u"HCID", 66, 5, 40001 + 44 + 1},
                                     {u"DBPath", 13, 255, 1024 + 48 + 1}};
};

TEST_F(cuBrandArrayTest, ConstantsModeIsRefused) {
    brand.SetMode(BrandMode::Constants);
    ExpectError(ErrorOf([&] { brand.LoadFromArray(rows, false, false); }), -2147221498,
                u"Falscher Modus.", u"cuBrand: LoadFromArray");
}

TEST_F(cuBrandArrayTest, RowsBecomeItemsInTheirOrder) {
    OpenFile(TwoMarks(false));
    files.log.clear();
    EXPECT_TRUE(brand.LoadFromArray(rows, false, false));
    ASSERT_EQ(brand.Brandings().Count(), 2U);
    const cuBranding& first = *brand.Brandings().begin();
    EXPECT_EQ(first.Index(), 66);
    EXPECT_EQ(first.Name(), u"HCID");
    EXPECT_EQ(first.NumChars(), 5);
    EXPECT_EQ(first.StartPosition(), 40046);
    EXPECT_EQ(first.Value(), u"");
    EXPECT_FALSE(brand.Brandings().Dirty());
    EXPECT_TRUE(files.log.empty());
}

TEST_F(cuBrandArrayTest, NoRowsGiveNoItemsAndTrue) {
    brand.Brandings().Add(u"Alt", u"", 1, 1);
    EXPECT_TRUE(brand.LoadFromArray({}, false, false));
    EXPECT_EQ(brand.Brandings().Count(), 0U);
}

TEST_F(cuBrandArrayTest, ValuesAreReadOnRequestWithoutTheirPadding) {
    OpenFile(TwoMarks(false));
    EXPECT_TRUE(brand.LoadFromArray(rows, false, true));
    EXPECT_EQ(brand.Brandings().Item(66).Value(), u"12");
    EXPECT_EQ(brand.Brandings().Item(13).Value(), u"Daten");
    EXPECT_FALSE(brand.Brandings().Dirty());
}

TEST_F(cuBrandArrayTest, ReadingValuesNeedsAFileAndPositions) {
    ExpectError(ErrorOf([&] { brand.LoadFromArray(rows, false, true); }), 52,
                u"Dateiname oder -nummer falsch",
                u"cuBrand: ReadData | cuBrand: ReadBranding | cuBrand: LoadFromArray");
    EXPECT_EQ(ErrorOf([&] {
                  brand.LoadFromArray({{u"HCID", 66, 5, 0}}, false, true);
              }).number,
              -2147221494);
}

TEST_F(cuBrandArrayTest, VerifyingNeedsAMarker) {
    const std::u16string_view description =
        u"Die Datei '' kann nicht verwendet werden. Es wurde kein korrekter Identifier gefunden.";
    ExpectError(ErrorOf([&] { brand.LoadFromArray(rows, true, false); }), -2147221495, description,
                u"cuBrand: LoadFromArray");
    OpenFile(FileBytes(kBlock));
    EXPECT_EQ(ErrorOf([&] { brand.LoadFromArray(rows, true, false); }).number, -2147221495);
}

TEST_F(cuBrandArrayTest, VerifiedRowsGiveTheStateAsResult) {
    OpenFile(TwoMarks(true));
    EXPECT_TRUE(brand.LoadFromArray(rows, true, true));
    EXPECT_EQ(brand.BrandInformation(), BrandState::Branded);
    OpenFile(TwoMarks(false));
    EXPECT_FALSE(brand.LoadFromArray(rows, true, true));
    EXPECT_EQ(brand.Brandings().Count(), 2U);
    EXPECT_EQ(brand.Brandings().Item(66).Value(), u"12");
}

TEST_F(cuBrandArrayTest, HeaderIsComparedWithoutRegardToCase) {
    OpenFile(TwoMarks(true));
    EXPECT_TRUE(brand.LoadFromArray({{u"hcid", 66, 5, 40046}}, true, false));
}

TEST_F(cuBrandArrayTest, MovedMarkIsFound) {
    OpenFile(TwoMarks(true));
    for (const std::int32_t position : {40045, 40047, 40048, 1, 0, 1 << 30}) {
        ExpectError(ErrorOf([&] {
                        brand.LoadFromArray({{u"HCID", 66, 5, position}}, true, false);
                    }),
                    -2147221503, u"Fehler beim Vergleich der Bytepositionen.\r\nName: HCID",
                    u"cuBrand: LoadFromArray");
    }
}

TEST_F(cuBrandArrayTest, MarkOfAnotherWidthIsFound) {
    OpenFile(TwoMarks(true));
    EXPECT_EQ(ErrorOf([&] {
                  brand.LoadFromArray({{u"HCID", 66, 6, 40046}}, true, false);
              }).number,
              -2147221503);
}

TEST_F(cuBrandArrayTest, SecondRowOfANumberIsAnError) {
    const RaisedError error = ErrorOf([&] {
        brand.LoadFromArray({{u"A", 1, 1, 1}, {u"B", 1, 1, 1}}, false, false);
    });
    EXPECT_EQ(error.number, 457);
    EXPECT_EQ(error.source, u"cuBrandings: Add | cuBrand: LoadFromArray");
}

}  // namespace
}  // namespace tarvex
