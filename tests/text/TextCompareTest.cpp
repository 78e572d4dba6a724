#include <gtest/gtest.h>

#include <climits>

#include "text/Text.h"

namespace tarvex {
namespace {

TEST(TextFoldTest, LettersWithAccentsHaveALowerCaseForm) {
    const std::u16string upper = u"AZÄÖÜÀÞŠŽŒŸĀĞŐŽΑΣΆΌΏАЯЁЇҐ";
    const std::u16string lower = u"azäöüàþšžœÿāğőžασάόώаяёїґ";
    ASSERT_EQ(upper.size(), lower.size());
    for (std::size_t i = 0; i < upper.size(); ++i) {
        EXPECT_EQ(text::Fold(upper[i]), lower[i]) << i;
        EXPECT_EQ(text::Fold(lower[i]), lower[i]) << i;
    }
}

TEST(TextFoldTest, CharactersWithoutCaseStay) {
    for (const char16_t unit : std::u16string(u"\u00D7\u00F7\u00DF@[`{0-'\u00A0\u0130\u0131")) {
        EXPECT_EQ(text::Fold(unit), unit) << static_cast<unsigned>(unit);
    }
    EXPECT_EQ(text::Fold(u'\0'), u'\0');
}

TEST(TextFoldTest, FoldingTwiceChangesNothingMore) {
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const char16_t once = text::Fold(static_cast<char16_t>(unit));
        ASSERT_EQ(text::Fold(once), once) << unit;
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
