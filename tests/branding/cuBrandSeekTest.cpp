#include <gtest/gtest.h>

#include "branding/BlockSearch.h"
#include "tests/branding/cuBrandFixture.h"
#include "text/Text.h"

namespace tarvex {
namespace {

constexpr std::u16string_view kText = u"TwelveLetter";

struct SeekCase {
    std::size_t fileLength;
    std::size_t truePosition;  ///< 1-based
    std::int64_t reported;
};

void PrintTo(const SeekCase& value, std::ostream* out) {
    *out << value.truePosition << " of " << value.fileLength;
}

class cuBrandSeekTest : public cuBrandFixture {};
class cuBrandSeekPositionTest : public cuBrandFixture,
                                public testing::WithParamInterface<SeekCase> {};

TEST_P(cuBrandSeekPositionTest, PositionIsReportedAndTheFileStandsThere) {
    OpenFile(FileBytes(GetParam().fileLength).Put(GetParam().truePosition - 1, kText));
    EXPECT_EQ(brand.SeekData(kText), GetParam().reported);
    EXPECT_EQ(files.log.back(), u"seek " + text::Decimal(GetParam().reported - 1));
}

INSTANTIATE_TEST_SUITE_P(
    FullBlocks, cuBrandSeekPositionTest,
    testing::Values(SeekCase{32768, 1, 1}, SeekCase{32768, 101, 101}, SeekCase{32768, 32745, 32745},
                    SeekCase{32769, 101, 101}, SeekCase{65536, 32746, 32746},
                    SeekCase{65536, 32759, 32759}, SeekCase{65536, 32769, 32769},
                    SeekCase{98304, 65530, 65530}, SeekCase{98304, 98281, 98281}));

INSTANTIATE_TEST_SUITE_P(
    LastPartialBlock, cuBrandSeekPositionTest,
    testing::Values(SeekCase{1000, 101, 102}, SeekCase{1000, 1, 2}, SeekCase{33768, 32779, 65548},
                    SeekCase{33768, 32759, 65528}, SeekCase{66536, 65547, 65548},
                    SeekCase{66536, 65527, 65528}, SeekCase{99304, 98315, 65548},
                    SeekCase{99304, 98295, 65528}, SeekCase{131572, 131173, 65638}));

TEST_F(cuBrandSeekTest, FirstOccurrenceWinsAndCaseIsIgnored) {
    OpenFile(FileBytes(2 * kBlock).Put(40000, kText).Put(5001, u"tWELVElETTER").Put(7000, kText));
    EXPECT_EQ(brand.SeekData(kText), 5002);
}

TEST_F(cuBrandSeekTest, NoOccurrenceIsPositionZero) {
    OpenFile(FileBytes(2 * kBlock + 5).Put(100, u"TwelveLette"));
    EXPECT_EQ(brand.SeekData(kText), 0);
    EXPECT_EQ(brand.SeekData(u""), 0);
}

TEST_F(cuBrandSeekTest, ZeroBytesAndSignsAreNotSkipped) {
    FileBytes bytes(kBlock);
    bytes.Put(0, std::u16string(1000, u'\0'));
    bytes.Put(3000, u"co-op");
    bytes.Put(4000, u"Straße");
    OpenFile(bytes);
    EXPECT_EQ(brand.SeekData(u"coop"), 0);
    EXPECT_EQ(brand.SeekData(u"strasse"), 0);
    EXPECT_EQ(brand.SeekData(u"CO-OP"), 3001);
    EXPECT_EQ(brand.SeekData(u"sTRAßE"), 4001);
}

TEST_F(cuBrandSeekTest, WithoutAFileItIsAnError) {
    ExpectError(ErrorOf([&] { brand.SeekData(kText); }), 52, u"Dateiname oder -nummer falsch",
                u"cuBrand: SeekData");
}

TEST_F(cuBrandSeekTest, BytesOfTextAreReadInsideTheFileOnly) {
    FileBytes bytes(100);
    bytes.Put(0, u"Anfang").Put(88, u"Ende12");
    OpenFile(bytes);
    EXPECT_EQ(brand.ReadData(1, 6), u"Anfang");
    EXPECT_EQ(brand.ReadData(3, 2), u"nf");
    EXPECT_EQ(brand.ReadData(97, 10), u"12");
    EXPECT_EQ(brand.ReadData(98, 10), std::u16string(1, u'\x3200'));
    EXPECT_EQ(brand.ReadData(99, 10), u"2");
    EXPECT_EQ(brand.ReadData(100, 1), u"");
    EXPECT_EQ(brand.ReadData(101, 1), u"");
    EXPECT_EQ(brand.ReadData(0, 1), u"");
    EXPECT_EQ(brand.ReadData(-5, 1), u"");
    EXPECT_EQ(brand.ReadData(1, 0), u"");
    EXPECT_EQ(brand.ReadData(1, -1), u"");
}

TEST_F(cuBrandSeekTest, ReadingWithoutAFileIsAnError) {
    ExpectError(ErrorOf([&] { brand.ReadData(1, 1); }), 52, u"Dateiname oder -nummer falsch",
                u"cuBrand: ReadData");
}

TEST_F(cuBrandSeekTest, ValueIsReadWithItsPadding) {
    OpenFile(TwoMarks(true));
    brand.LoadFromFile();
    EXPECT_EQ(brand.ReadBranding(brand.Brandings().Item(66)), u"12   ");
    cuBranding item;
    item.SetName(u"HCID");
    ExpectError(ErrorOf([&] { brand.ReadBranding(item); }), -2147221494,
                u"Die Daten von 'HCID' können nicht gelesen werden, da keine Byteposition "
                u"gespeichert ist.",
                u"cuBrand: ReadBranding");
}

TEST(BlockSearchTest, OccurrenceIsFoundInOneBlockOrAcrossTwoButNotThree) {
    BlockSearch across("abcd");
    EXPECT_EQ(across.FindInNext("xxab"), 0U);
    EXPECT_EQ(across.PreviousLength(), 4U);
    EXPECT_EQ(across.FindInNext("CDyy"), 3U);
    BlockSearch three("abcd");
    EXPECT_EQ(three.FindInNext("xa"), 0U);
    EXPECT_EQ(three.FindInNext("bc"), 0U);
    EXPECT_EQ(three.FindInNext("dx"), 0U);
}

TEST(BlockSearchTest, OccurrenceIsFoundWhereverTheBlocksDivideIt) {
    for (std::size_t before = 1; before < 4; ++before) {
        BlockSearch search("abcd");
        EXPECT_EQ(search.FindInNext("xx" + std::string("abcd", before)), 0U);
        EXPECT_EQ(search.FindInNext(std::string("abcd").substr(before)), 3U) << before;
    }
}

TEST(BlockSearchTest, LettersWithCaseAreAToZ) {
    EXPECT_EQ(BlockSearch("aZ").FindInNext("xAz"), 2U);
    EXPECT_EQ(BlockSearch("@").FindInNext("`"), 0U);
    EXPECT_EQ(BlockSearch("[").FindInNext("{"), 0U);
    EXPECT_EQ(BlockSearch("\xC4").FindInNext("\xE4"), 0U);
}

}  // namespace
}  // namespace tarvex
