#include <gtest/gtest.h>

#include "text/Text.h"

namespace tarvex {
namespace {

/// The upper-case letters of Latin, Greek and Cyrillic alphabets and their lower-case forms.
constexpr std::u16string_view kUpper =
    u"ABCDEFGHIJKLMNOPQRSTUVWXYZÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞĀĂĄĆ"
    u"ĈĊČĎĐĒĔĖĘĚĜĞĠĢĤĦĨĪĬĮĲĴĶĹĻĽĿŁŃŅŇŊŌŎŐŒŔŖŘŚŜŞŠŢŤŦŨŪŬŮŰŲŴŶŸŹŻŽƏƠ"
    u"ƯΆΈΉΊΌΎΏΑΒΓΔΕΖΗΘΙΚΛΜΝΞΟΠΡΣΤΥΦΧΨΩΪΫЀЁЂЃЄЅІЇЈЉЊЋЌЍЎЏАБВГДЕЖЗИЙ"
    u"КЛМНОПРСТУФХЦЧШЩЪЫЬЭЮЯҐ";
constexpr std::u16string_view kLower =
    u"abcdefghijklmnopqrstuvwxyzàáâãäåæçèéêëìíîïðñòóôõöøùúûüýþāăąć"
    u"ĉċčďđēĕėęěĝğġģĥħĩīĭįĳĵķĺļľŀłńņňŋōŏőœŕŗřśŝşšţťŧũūŭůűųŵŷÿźżžəơ"
    u"ưάέήίόύώαβγδεζηθικλμνξοπρστυφχψωϊϋѐёђѓєѕіїјљњћќѝўџабвгдежзий"
    u"клмнопрстуфхцчшщъыьэюяґ";

TEST(TextFoldTest, UpperCaseLettersHaveALowerCaseForm) {
    ASSERT_EQ(kUpper.size(), kLower.size());
    for (std::size_t i = 0; i < kUpper.size(); ++i) {
        EXPECT_EQ(text::Fold(kUpper[i]), kLower[i]) << text::ToUtf8(kUpper.substr(i, 1));
    }
}

TEST(TextFoldTest, EveryOtherUnitStays) {
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const auto other = static_cast<char16_t>(unit);
        if (kUpper.find(other) == std::u16string_view::npos) {
            ASSERT_EQ(text::Fold(other), other) << unit;
        }
    }
}

TEST(TextCompareTest, UmlautsAreEqualInBothCases) {
    EXPECT_TRUE(text::EqualsIgnoreCase(u"KÄSEÖLÜ", u"käseölü"));
    EXPECT_TRUE(text::EqualsIgnoreCase(u"", u""));
}

TEST(TextCompareTest, SharpSIsNotDoubleS) {
    EXPECT_FALSE(text::EqualsIgnoreCase(u"Straße", u"Strasse"));
    EXPECT_FALSE(text::EqualsIgnoreCase(u"ß", u"s"));
}

TEST(TextCompareTest, ZeroCharactersAndHyphensCount) {
    EXPECT_FALSE(text::EqualsIgnoreCase(std::u16string_view(u"a\0b", 3), u"ab"));
    EXPECT_FALSE(text::EqualsIgnoreCase(u"co-op", u"coop"));
    EXPECT_FALSE(text::EqualsIgnoreCase(std::u16string_view(u"a\0", 2), u"a"));
}

TEST(TextCompareTest, StartAndEndIgnoreCase) {
    EXPECT_TRUE(text::StartsWithIgnoreCase(u"HKLM\\Software", u"hklm"));
    EXPECT_TRUE(text::StartsWithIgnoreCase(u"x", u""));
    EXPECT_FALSE(text::StartsWithIgnoreCase(u"HK", u"hklm"));
    EXPECT_TRUE(text::EndsWithIgnoreCase(u"C:\\Office\\MSACCESS.EXE", u"msaccess.exe"));
    EXPECT_TRUE(text::EndsWithIgnoreCase(u"x", u""));
    EXPECT_FALSE(text::EndsWithIgnoreCase(u".exe", u"msaccess.exe"));
}

TEST(TextFindTest, FindsTheFirstOccurrenceFromAPosition) {
    EXPECT_EQ(text::FindIgnoreCase(u"xAbxaB", u"ab"), 1u);
    EXPECT_EQ(text::FindIgnoreCase(u"xAbxaB", u"ab", 2), 4u);
    EXPECT_EQ(text::FindIgnoreCase(u"xAbxaB", u"ab", 4), 4u);
    EXPECT_EQ(text::FindIgnoreCase(u"xAbxaB", u"ab", 5), std::u16string_view::npos);
}

TEST(TextFindTest, NeverFindsAnEmptyTextNorBehindTheEnd) {
    EXPECT_EQ(text::FindIgnoreCase(u"abc", u""), std::u16string_view::npos);
    EXPECT_EQ(text::FindIgnoreCase(u"abc", u"c", 3), std::u16string_view::npos);
    EXPECT_EQ(text::FindIgnoreCase(u"abc", u"c", 99), std::u16string_view::npos);
    EXPECT_EQ(text::FindIgnoreCase(u"", u"c"), std::u16string_view::npos);
}

}  // namespace
}  // namespace tarvex
