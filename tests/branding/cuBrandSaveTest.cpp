#include <gtest/gtest.h>

#include "tests/branding/cuBrandFixture.h"

namespace tarvex {
namespace {

class cuBrandSaveTest : public cuBrandFixture {
protected:
    /// Opens and loads a file with two marks.
    void Load(bool branded) {
        OpenFile(TwoMarks(branded));
        brand.LoadFromFile();
        before = Bytes();
    }

    /// True when the bytes differ from `before` inside these ranges of 0-based offsets only.
    bool ChangedOnlyIn(const std::vector<std::pair<std::size_t, std::size_t>>& ranges) const {
        std::string masked = Bytes();
        std::string old = before;
        for (const auto& [offset, length] : ranges) {
            masked.replace(offset, length, length, '*');
            old.replace(offset, length, length, '*');
        }
        return masked == old;
    }

    std::string before;
};

constexpr std::pair<std::size_t, std::size_t> kMarkerDigit{64 + 18, 1};
constexpr std::pair<std::size_t, std::size_t> kDBPathArea{1024 + 48, 510};
constexpr std::pair<std::size_t, std::size_t> kHCIDArea{40001 + 44, 10};

TEST_F(cuBrandSaveTest, ConstantsModeIsRefusedFirst) {
    brand.SetMode(BrandMode::Constants);
    ExpectError(ErrorOf([&] { brand.Save(false); }), -2147221498,
                u"Das Schreiben ist im aktuellen Modus nicht möglich.", u"cuBrand: Save");
}

TEST_F(cuBrandSaveTest, ThereMustBeItems) {
    OpenFile(FileBytes(kBlock));
    ExpectError(ErrorOf([&] { brand.Save(false); }), -2147221500,
                u"Es wurden keine Konstanten definiert.", u"cuBrand: Save");
}

TEST_F(cuBrandSaveTest, FileMustHoldAMarker) {
    brand.Brandings().Add(u"HCID", u"12", 66, 5);
    brand.SetDenyMultiBranding(true);
    const std::u16string_view description =
        u"Die Datei kann nicht modifiziert werden, da sie keine gültige Kennung besitzt.";
    ExpectError(ErrorOf([&] { brand.Save(false); }), -2147221499, description, u"cuBrand: Save");
    OpenFile(FileBytes(kBlock).Put(0, Mark(66, 5, u"HCID")));
    ExpectError(ErrorOf([&] { brand.Save(false); }), -2147221499, description, u"cuBrand: Save");
}

TEST_F(cuBrandSaveTest, BrandingAgainCanBeDenied) {
    Load(true);
    brand.SetDenyMultiBranding(true);
    brand.Brandings().Item(66).SetValue(u"99");
    ExpectError(ErrorOf([&] { brand.Save(false); }), -2147221501,
                u"Die Datei wurde bereits modifiziert.", u"cuBrand: Save");
    EXPECT_EQ(Bytes(), before);
}

TEST_F(cuBrandSaveTest, DenialLetsAnUnbrandedFilePass) {
    Load(false);
    brand.SetDenyMultiBranding(true);
    EXPECT_TRUE(brand.Save(false));
    EXPECT_EQ(ErrorOf([&] { brand.Save(false); }).number, -2147221501);
}

TEST_F(cuBrandSaveTest, ValuesAndMarkerAreWrittenInPlace) {
    Load(false);
    brand.Brandings().Item(13).SetValue(u"C:\\Neue Daten");
    brand.Brandings().Item(66).SetValue(u"4");
    EXPECT_TRUE(brand.Save(false));
    EXPECT_EQ(Bytes().size(), before.size());
    EXPECT_TRUE(ChangedOnlyIn({kMarkerDigit, kDBPathArea, kHCIDArea}));
    EXPECT_EQ(TextAt(64, 12), u"@#BRANDED1#@");
    EXPECT_EQ(TextAt(1024, 24 + 255), Mark(13, 255, u"DBPath", u"C:\\Neue Daten"));
    EXPECT_EQ(TextAt(40001, 27), u"@#BRD#@|066|0005|HCID|4    ");
    EXPECT_EQ(brand.BrandInformation(), BrandState::NotYetBranded);
    EXPECT_EQ(brand.GetBrandInformation(), BrandState::Branded);
    EXPECT_TRUE(brand.Brandings().Dirty());
}

TEST_F(cuBrandSaveTest, LongValueIsCutToTheWidth) {
    Load(true);
    brand.Brandings().Item(66).SetValue(u"1234567");
    brand.Save(false);
    EXPECT_EQ(TextAt(40001, 27), u"@#BRD#@|066|0005|HCID|12345");
    EXPECT_TRUE(ChangedOnlyIn({kHCIDArea}));
}

TEST_F(cuBrandSaveTest, UnchangedItemsAreLeftAloneOnRequest) {
    Load(true);
    brand.Brandings().Item(66).SetValue(u"4");
    // The item that is not dirty would not be found either.
    brand.Brandings().Item(13).SetName(u"Umbenannt");
    EXPECT_TRUE(brand.Save(true));
    EXPECT_TRUE(ChangedOnlyIn({kHCIDArea}));
}

TEST_F(cuBrandSaveTest, MarkerTurnsEvenWithoutAChangedItem) {
    Load(false);
    EXPECT_TRUE(brand.Save(true));
    EXPECT_TRUE(ChangedOnlyIn({kMarkerDigit}));
    EXPECT_EQ(TextAt(64, 12), u"@#BRANDED1#@");
    EXPECT_TRUE(brand.Save(true));
    EXPECT_EQ(TextAt(64, 12), u"@#BRANDED1#@");
}

TEST_F(cuBrandSaveTest, MarkThatIsNotInTheFileStopsTheSaving) {
    Load(false);
    brand.Brandings().Item(13).SetValue(u"neu");
    brand.Brandings().Item(66).SetName(u"HCIX");
    ExpectError(ErrorOf([&] { brand.Save(false); }), -2147221502,
                u"Fehler beim Speichern der Information 'HCIX'.", u"cuBrand: Save");
    EXPECT_EQ(TextAt(1024, 24 + 255), Mark(13, 255, u"DBPath", u"neu"));
    EXPECT_EQ(TextAt(64, 12), u"@#BRANDED0#@");
}

TEST_F(cuBrandSaveTest, WriteErrorPassesOutWithItsPlaces) {
    Load(true);
    // Four calls look for the unbranded marker, three find the branded one, three find the mark.
    files.failCall = files.log.size() + 11;
    files.failure = FileProblem::DiskFull;
    ExpectError(ErrorOf([&] { brand.Save(false); }), 61, u"Datenträger voll",
                u"cuBrand: SaveSub | cuBrand: Save");
}

TEST_F(cuBrandSaveTest, MarkIsFoundByItsHeaderWhateverItsPosition) {
    Load(true);
    cuBranding& item = brand.Brandings().Item(66);
    item.SetStartPosition(17);
    item.SetValue(u"7");
    EXPECT_TRUE(brand.SaveSub(item));
    EXPECT_TRUE(ChangedOnlyIn({kHCIDArea}));
    EXPECT_EQ(TextAt(40001 + 44, 5), u"7    ");
}

TEST_F(cuBrandSaveTest, HeaderTakesTheSpellingOfTheItem) {
    Load(true);
    cuBranding& item = brand.Brandings().Item(66);
    item.SetName(u"hcId");
    EXPECT_TRUE(brand.SaveSub(item));
    EXPECT_EQ(TextAt(40001, 22), u"@#BRD#@|066|0005|hcId|");
}

TEST_F(cuBrandSaveTest, MarkWithoutAHeaderInTheFileIsNotWritten) {
    Load(true);
    cuBranding item;
    item.SetName(u"HCID");
    item.SetIndex(66);
    item.SetNumChars(6);
    EXPECT_FALSE(brand.SaveSub(item));
    EXPECT_EQ(Bytes(), before);
}

TEST_F(cuBrandSaveTest, ValuesAreWrittenAsTheyStand) {
    Load(true);
    brand.Brandings().Item(66).SetValue(u"N€ÿ");
    brand.Save(true);
    EXPECT_EQ(TextAt(40001 + 44, 5), u"N€ÿ  ");
}

TEST_F(cuBrandSaveTest, MarkInALastPartialBlockIsWrittenOneByteLate) {
    FileBytes bytes(1000);
    bytes.Put(0, u"@#BRANDED1#@").Put(100, Mark(66, 5, u"HCID", u"12"));
    OpenFile(bytes);
    brand.LoadFromFile();
    brand.Brandings().Item(66).SetValue(u"99");
    EXPECT_TRUE(brand.Save(false));
    EXPECT_EQ(TextAt(101, 27), u"@#BRD#@|066|0005|HCID|99   ");
    EXPECT_EQ(Bytes().size(), 1000U);
}

TEST_F(cuBrandSaveTest, MarkAtTheEndOfALastPartialBlockLetsTheFileGrow) {
    FileBytes bytes(200);
    bytes.Put(0, u"@#BRANDED1#@").Put(200 - 54, Mark(66, 5, u"HCID", u"12"));
    OpenFile(bytes);
    brand.LoadFromFile();
    EXPECT_TRUE(brand.Save(false));
    EXPECT_EQ(Bytes().size(), 201U);
}

TEST_F(cuBrandSaveTest, TextIsWrittenCutOrPaddedToItsWidth) {
    OpenFile(std::string(20, '.'));
    brand.WriteData(u"abc", 3, 2);
    EXPECT_EQ(Bytes(), std::string("..a\0b\0..............", 20));
    brand.WriteData(u"ü", 11, 3);
    EXPECT_EQ(Bytes(), std::string("..a\0b\0....\xFC\0 \0 \0....", 20));
    brand.WriteData(u"x", 1, 0);
    EXPECT_EQ(Bytes().substr(0, 2), "..");
}

TEST_F(cuBrandSaveTest, TextIsNotWrittenBeforeTheFile) {
    OpenFile(std::string(20, '.'));
    ExpectError(ErrorOf([&] { brand.WriteData(u"abc", 0, 2); }), 5,
                u"Ungültiger Prozeduraufruf oder ungültiges Argument", u"cuBrand: WriteData");
    EXPECT_EQ(Bytes(), std::string(20, '.'));
}

}  // namespace
}  // namespace tarvex
