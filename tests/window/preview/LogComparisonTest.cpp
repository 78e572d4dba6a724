#include "window/preview/LogComparison.h"

#include <gtest/gtest.h>

#include "text/Text.h"

namespace tarvex {
namespace {

/// "1=1 a" for a line of both texts, "2!2 b|c" for a changed one, "3-" and "-3" for one of a text
/// alone, each followed by its text.
std::vector<std::string> Compare(std::u16string_view first, std::u16string_view second) {
    std::vector<std::string> rows;
    for (const ComparedLine& line : CompareTexts(first, second)) {
        std::u16string row;
        if (line.first > 0) {
            row += text::Decimal(line.first);
        }
        row += line.first == 0 || line.second == 0 ? u"-" : line.Differs() ? u"!" : u"=";
        if (line.second > 0) {
            row += text::Decimal(line.second);
        }
        row +=
            u" " + line.firstText + (line.Differs() && line.first * line.second > 0 ? u"|" : u"");
        row += line.Differs() ? line.secondText : u"";
        rows.push_back(text::ToUtf8(row));
    }
    return rows;
}

using Rows = std::vector<std::string>;

TEST(LogComparisonTest, SameLinesStandBesideEachOther) {
    EXPECT_EQ(Compare(u"a\r\nb\r\n", u"a\r\nb\r\n"), (Rows{"1=1 a", "2=2 b"}));
    EXPECT_EQ(Compare(u"", u""), Rows());
}

TEST(LogComparisonTest, EndsOfLinesAndEmptyLinesAtTheEndDoNotCount) {
    EXPECT_EQ(Compare(u"a\nb", u"a\r\nb\r\n\r\n\r\n"), (Rows{"1=1 a", "2=2 b"}));
}

TEST(LogComparisonTest, ChangedLinesStandBesideEachOther) {
    EXPECT_EQ(Compare(u"a\nb\nc\n", u"a\nB\nc\n"), (Rows{"1=1 a", "2!2 b|B", "3=3 c"}));
}

TEST(LogComparisonTest, LinesAfterAMissingOneStandBesideTheirEquals) {
    EXPECT_EQ(Compare(u"a\nc\nd\n", u"a\nb\nc\nd\n"), (Rows{"1=1 a", "-2 b", "2=3 c", "3=4 d"}));
    EXPECT_EQ(Compare(u"a\nb\nc\nx\nd\n", u"c\nd\n"),
              (Rows{"1- a", "2- b", "3=1 c", "4- x", "5=2 d"}));
}

TEST(LogComparisonTest, AsManyLinesAsPossibleAreTheSame) {
    EXPECT_EQ(Compare(u"x\na\nb\nc\n", u"a\nb\ny\nc\n"),
              (Rows{"1- x", "2=1 a", "3=2 b", "-3 y", "4=4 c"}));
    EXPECT_EQ(Compare(u"a\nm\nb\nq\n", u"a\nn\no\nm\nb\nr\n"),
              (Rows{"1=1 a", "-2 n", "-3 o", "2=4 m", "3=5 b", "4!6 q|r"}));
}

TEST(LogComparisonTest, ChangedLinesComeBeforeThoseOfOneTextAlone) {
    EXPECT_EQ(Compare(u"a\nb\nc\nz\n", u"a\nB\nz\n"), (Rows{"1=1 a", "2!2 b|B", "3- c", "4=3 z"}));
}

TEST(LogComparisonTest, TextsTooLargeForLogsArePairedAsTheyStand) {
    std::u16string first;
    std::u16string second = u"neu\n";
    for (int i = 0; i < 3000; ++i) {
        first += text::Decimal(i) + u"\n";
        second += text::Decimal(i + 1) + u"\n";
    }
    EXPECT_EQ(CompareTexts(first, second).size(), 3001u);
}

}  // namespace
}  // namespace tarvex
