#include <gtest/gtest.h>

#include <tuple>

#include "branding/BrandFields.h"
#include "tests/branding/cuBrandFixture.h"
#include "tests/support/SyntheticLauncher.h"

namespace tarvex {
namespace {

class cuBrandLoadTest : public cuBrandFixture {};

TEST_F(cuBrandLoadTest, ConstantsModeIsRefused) {
    brand.SetMode(BrandMode::Constants);
    ExpectError(ErrorOf([&] { brand.LoadFromFile(); }), -2147221498, u"Falscher Modus.",
                u"cuBrand: LoadFromFile");
}

TEST_F(cuBrandLoadTest, FileMustBeOpen) {
    ExpectError(ErrorOf([&] { brand.LoadFromFile(); }), -2147221497,
                u"Es wurde kein Dateiname angegeben.", u"cuBrand: LoadFromFile");
}

TEST_F(cuBrandLoadTest, FileWithoutMarkerIsRefusedAndTheItemsAreGone) {
    OpenFile(TwoMarks(true));
    brand.LoadFromFile();
    OpenFile(FileBytes(kBlock).Put(0, Mark(13, 255, u"DBPath")));
    ExpectError(ErrorOf([&] { brand.LoadFromFile(); }), -2147221495,
                u"Die Datei 'C:\\Prog\\Start.exe' kann nicht verwendet werden. Es wurde kein "
                u"korrekter Identifier gefunden.",
                u"cuBrand: LoadFromFile");
    EXPECT_EQ(brand.Brandings().Count(), 0U);
    EXPECT_EQ(brand.BrandInformation(), BrandState::NoIdentifier);
}

TEST_F(cuBrandLoadTest, UnreadableFileIsRefusedLikeOneWithoutMarker) {
    OpenFile(TwoMarks(true));
    files.failCall = files.log.size() + 1;
    EXPECT_EQ(ErrorOf([&] { brand.LoadFromFile(); }).number, -2147221495);
    EXPECT_EQ(brand.BrandInformation(), BrandState::Unknown);
}

TEST_F(cuBrandLoadTest, ReadErrorPassesOutWithItsPlace) {
    OpenFile(TwoMarks(false));
    // Seek and two reads for the marker, its position, seek; then the first read of the scan.
    files.failCall = files.log.size() + 5;
    ExpectError(ErrorOf([&] { brand.LoadFromFile(); }), 57, u"E/A-Fehler",
                u"cuBrand: LoadFromFile");
}

TEST_F(cuBrandLoadTest, BrandedFileIsLoadedWithResultTrue) {
    OpenFile(TwoMarks(true));
    EXPECT_TRUE(brand.LoadFromFile());
    EXPECT_EQ(brand.BrandInformation(), BrandState::Branded);
    ASSERT_EQ(brand.Brandings().Count(), 2U);
    const cuBranding& item = brand.Brandings().Item(13);
    EXPECT_EQ(item.Name(), u"DBPath");
    EXPECT_EQ(item.NumChars(), 255);
    EXPECT_EQ(item.Value(), u"Daten");
    EXPECT_EQ(item.StartPosition(), 1024 + 48 + 1);
    EXPECT_FALSE(brand.Brandings().Dirty());
    EXPECT_EQ(brand.Brandings().Item(66).StartPosition(), 40001 + 44 + 1);
}

TEST_F(cuBrandLoadTest, UnbrandedFileIsLoadedWithResultFalse) {
    OpenFile(TwoMarks(false));
    EXPECT_FALSE(brand.LoadFromFile());
    EXPECT_EQ(brand.BrandInformation(), BrandState::NotYetBranded);
    EXPECT_EQ(brand.Brandings().Count(), 2U);
}

TEST_F(cuBrandLoadTest, FileIsReadInBlocks) {
    OpenFile(FileBytes(2 * kBlock + 10).Put(0, u"@#BRANDED0#@"));
    files.log.clear();
    brand.LoadFromFile();
    EXPECT_EQ(files.log, (std::vector<std::u16string>{u"seek 0", u"read 32768", u"seek 0",
                                                      u"seek 0", u"read 32768", u"read 32768",
                                                      u"read 32768", u"read 32768"}));
}

TEST_F(cuBrandLoadTest, PrefixOfAFileIsComparedExactly) {
    FileBytes bytes = TwoMarks(true);
    bytes.Put(2048, u"@#brd#@|014|0100|DBFilename|Kunden.mdb");
    OpenFile(bytes);
    brand.LoadFromFile();
    EXPECT_EQ(brand.Brandings().Count(), 2U);
}

TEST_F(cuBrandLoadTest, MarksFollowEachOtherWithAnyGap) {
    for (std::size_t gap = 0; gap <= 3; ++gap) {
        FileBytes bytes(kBlock);
        bytes.Put(0, u"@#BRANDED1#@");
        const std::size_t second = 24 + 2 * 27 + gap;
        const std::size_t third = second + std::size_t{2} * 28 + gap;
        bytes.Put(24, Mark(66, 5, u"HCID", u"12"));
        bytes.Put(second, Mark(47, 1, u"NoStartup", u"1"));
        bytes.Put(third, Mark(13, 255, u"DBPath", u"x"));
        OpenFile(bytes);
        EXPECT_TRUE(brand.LoadFromFile());
        ASSERT_EQ(brand.Brandings().Count(), 3U) << gap;
        auto item = brand.Brandings().begin();
        EXPECT_EQ(item->Index(), 66);
        EXPECT_EQ((++item)->Index(), 47);
        EXPECT_EQ(item->Value(), u"1");
        EXPECT_EQ(item->StartPosition(), static_cast<int>(second) + 2 * 27 + 1);
        EXPECT_EQ((++item)->Index(), 13);
        EXPECT_EQ(item->StartPosition(), static_cast<int>(third) + 48 + 1);
    }
}

TEST_F(cuBrandLoadTest, ReadDataAtAPositionGivesThePaddedValue) {
    OpenFile(TwoMarks(true));
    brand.LoadFromFile();
    for (const cuBranding& item : brand.Brandings()) {
        EXPECT_EQ(brand.ReadData(item.StartPosition(), item.NumChars()),
                  FitToWidth(item.Value(), item.NumChars()));
    }
}

TEST_F(cuBrandLoadTest, UnbrandedLauncherHasAllFieldsEmpty) {
    const SyntheticLauncher launcher;
    OpenFile(launcher.Build());
    EXPECT_FALSE(brand.LoadFromFile());
    EXPECT_EQ(brand.BrandInformation(), BrandState::NotYetBranded);
    ASSERT_EQ(brand.Brandings().Count(), kBrandFields.size());
    std::size_t index = 0;
    for (const cuBranding& item : brand.Brandings()) {
        EXPECT_EQ(item.Index(), launcher.marks[index].number);
        EXPECT_EQ(item.Name(), launcher.marks[index].name);
        EXPECT_EQ(item.Value(), u"");
        EXPECT_EQ(brand.ReadData(item.StartPosition(), item.NumChars()),
                  std::u16string(static_cast<std::size_t>(launcher.marks[index].width), u' '));
        ++index;
    }
}

TEST_F(cuBrandLoadTest, MarkBehindADamagedOneIsNotLoaded) {
    FileBytes bytes(3 * kBlock);
    bytes.Put(0, u"@#BRANDED1#@");
    bytes.Put(100, Mark(66, 5, u"HCID", u"12"));
    bytes.Put(300, u"@#BRD#@|0x7|0001|NoStartup|1");
    bytes.Put(400, Mark(13, 255, u"DBPath", u"x"));
    bytes.Put(2 * kBlock, Mark(14, 100, u"DBFilename", u"x"));
    OpenFile(bytes);
    EXPECT_TRUE(brand.LoadFromFile());
    EXPECT_EQ(brand.Brandings().Count(), 1U);
    EXPECT_EQ(brand.Brandings().begin()->Index(), 66);
}

TEST_F(cuBrandLoadTest, LargeFileWithADamagedMarkIsReadInGoodTime) {
    FileBytes bytes(std::size_t{4} << 20);
    bytes.Put(0, u"@#BRD#@|0x7|");
    bytes.Put(100, u"@#BRANDED1#@");
    OpenFile(bytes);
    EXPECT_TRUE(brand.LoadFromFile());
    EXPECT_EQ(brand.Brandings().Count(), 0U);
}

TEST_F(cuBrandLoadTest, SecondMarkOfANumberPassesOutAsTheCollectionsError) {
    FileBytes bytes = TwoMarks(true);
    bytes.Put(50000, Mark(13, 255, u"DBPath", u"x"));
    OpenFile(bytes);
    ExpectError(ErrorOf([&] { brand.LoadFromFile(); }), 457,
                u"Dieser Schlüssel ist bereits einem Element dieser Auflistung zugeordnet",
                u"cuBrandings: Add | cuBrand: GetConstant | cuBrand: LoadFromFile");
    EXPECT_EQ(brand.Brandings().Count(), 2U);
}

TEST_F(cuBrandLoadTest, FileThatEndsInAValueGivesWhatIsThere) {
    FileBytes bytes(kBlock + 300);
    bytes.Put(0, u"@#BRANDED1#@");
    bytes.Put(kBlock + 52, Mark(13, 255, u"DBPath", std::u16string(255, u'X')));
    OpenFile(bytes);
    EXPECT_TRUE(brand.LoadFromFile());
    EXPECT_EQ(brand.Brandings().Item(13).Value(), std::u16string(100, u'X'));
    EXPECT_EQ(brand.Brandings().Item(13).NumChars(), 255);
}

TEST_F(cuBrandLoadTest, FileThatEndsInAHeaderGivesNoMark) {
    FileBytes bytes(kBlock + 40);
    bytes.Put(0, u"@#BRANDED1#@");
    bytes.Put(kBlock, Mark(13, 255, u"DBPath"));
    OpenFile(bytes);
    EXPECT_TRUE(brand.LoadFromFile());
    EXPECT_EQ(brand.Brandings().Count(), 0U);
}

TEST_F(cuBrandLoadTest, PositionThatDoesNotFitIsAnOverflow) {
    std::string buffer = ToUtf16Bytes(Mark(13, 255, u"DBPath"));
    std::int64_t offset = INT32_MAX;
    EXPECT_EQ(ErrorOf([&] { brand.GetConstant(buffer, offset); }).number, 6);
}

TEST_F(cuBrandLoadTest, BufferKeepsAnIncompleteMarkAndItsOffset) {
    const std::u16string complete = Mark(66, 5, u"HCID", u"12");
    std::string buffer =
        "xyz" + ToUtf16Bytes(complete) + "ab" + ToUtf16Bytes(u"@#BRD#@|013|0255|DBP");
    std::int64_t offset = 1000;
    brand.GetConstant(buffer, offset);
    EXPECT_EQ(brand.Brandings().Count(), 1U);
    EXPECT_EQ(buffer, "ab" + ToUtf16Bytes(u"@#BRD#@|013|0255|DBP"));
    EXPECT_EQ(offset, 1000 + 3 + 54);
    buffer = "kein Zeichen";
    brand.GetConstant(buffer, offset);
    EXPECT_EQ(buffer, "");
}

/// How much of a value of 200 characters is loaded when so many bytes of its mark lie before the
/// end of a block; nothing: the mark is not found.
struct BoundaryCase {
    std::size_t bytesBefore;
    std::optional<std::size_t> loaded;
};

void PrintTo(const BoundaryCase& value, std::ostream* out) {
    *out << value.bytesBefore;
}

class cuBrandBoundaryTest : public cuBrandFixture,
                            public testing::WithParamInterface<BoundaryCase> {};

TEST_P(cuBrandBoundaryTest, MarkAcrossTwoBlocks) {
    for (const std::size_t boundary : {kBlock, 2 * kBlock}) {
        const std::size_t start = boundary - GetParam().bytesBefore;
        FileBytes bytes(3 * kBlock);
        bytes.Put(0, u"@#BRANDED1#@");
        bytes.Put(start, Mark(13, 255, u"DBPath", std::u16string(200, u'X')));
        bytes.Put(boundary + 1000, Mark(66, 5, u"HCID", u"12"));
        OpenFile(bytes);
        EXPECT_TRUE(brand.LoadFromFile());
        const cuBranding* const item = brand.Brandings().ItemByName(u"DBPath");
        if (GetParam().loaded.has_value()) {
            ASSERT_NE(item, nullptr);
            EXPECT_EQ(item->Value(), std::u16string(*GetParam().loaded, u'X'));
            EXPECT_EQ(item->NumChars(), 255);
            EXPECT_EQ(item->StartPosition(), static_cast<int>(start) + 48 + 1);
        } else {
            EXPECT_EQ(item, nullptr);
        }
        const cuBranding* const next = brand.Brandings().ItemByName(u"HCID");
        ASSERT_NE(next, nullptr);
        EXPECT_EQ(next->Value(), u"12");
        EXPECT_EQ(next->StartPosition(), static_cast<int>(boundary) + 1000 + 44 + 1);
    }
}

INSTANTIATE_TEST_SUITE_P(PrefixWhole, cuBrandBoundaryTest,
                         testing::Values(BoundaryCase{0, 200}, BoundaryCase{16, 200},
                                         BoundaryCase{17, 200}, BoundaryCase{20, 200},
                                         BoundaryCase{46, 200}, BoundaryCase{47, 200},
                                         BoundaryCase{48, 0}, BoundaryCase{49, 0},
                                         BoundaryCase{50, 1}, BoundaryCase{148, 50},
                                         BoundaryCase{149, 50}, BoundaryCase{447, 199},
                                         BoundaryCase{448, 200}, BoundaryCase{500, 200}));

INSTANTIATE_TEST_SUITE_P(
    PrefixSplit, cuBrandBoundaryTest,
    testing::Values(BoundaryCase{1, {}}, BoundaryCase{2, {}}, BoundaryCase{3, {}},
                    BoundaryCase{4, {}}, BoundaryCase{5, {}}, BoundaryCase{6, {}},
                    BoundaryCase{7, {}}, BoundaryCase{8, {}}, BoundaryCase{9, {}},
                    BoundaryCase{10, {}}, BoundaryCase{11, {}}, BoundaryCase{12, {}},
                    BoundaryCase{13, {}}, BoundaryCase{14, {}}, BoundaryCase{15, {}}));

}  // namespace
}  // namespace tarvex
