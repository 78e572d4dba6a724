#include "text/Text.h"

#include <gtest/gtest.h>

namespace tarvex::text {
namespace {

using U16List = std::vector<std::u16string>;

std::u16string Appended(std::u16string target, std::u16string_view item, bool skipEmpty = false) {
    AppendWithSeparator(target, item, u" | ", skipEmpty);
    return target;
}

TEST(AppendWithSeparatorTest, ItemBecomesAnEmptyText) {
    EXPECT_EQ(Appended(u"", u"zwei"), u"zwei");
    EXPECT_EQ(Appended(u"", u""), u"");
}

TEST(AppendWithSeparatorTest, ItemFollowsTheSeparator) {
    EXPECT_EQ(Appended(u"eins", u"zwei"), u"eins | zwei");
}

TEST(AppendWithSeparatorTest, AnEmptyItemStillAddsTheSeparator) {
    EXPECT_EQ(Appended(u"eins", u""), u"eins | ");
}

TEST(AppendWithSeparatorTest, AnEmptyItemIsSkippedOnDemand) {
    EXPECT_EQ(Appended(u"eins", u"", true), u"eins");
    EXPECT_EQ(Appended(u"eins", u"zwei", true), u"eins | zwei");
    EXPECT_EQ(Appended(u"", u"zwei", true), u"zwei");
}

TEST(SplitListTest, EmptyTextHasNoPieces) {
    EXPECT_EQ(SplitList(u"", u"%|%"), U16List());
}

TEST(SplitListTest, EmptyMarkerDividesNothing) {
    EXPECT_EQ(SplitList(u"A", u""), U16List());
}

TEST(SplitListTest, TextWithoutMarkerIsOneTrimmedPiece) {
    EXPECT_EQ(SplitList(u" A B ", u"%|%"), U16List{u"A B"});
    EXPECT_EQ(SplitList(u" ", u"%|%"), U16List{u""});
}

TEST(SplitListTest, EmptyPieceBetweenMarkersIsKeptAndOneAtTheEndIsNot) {
    EXPECT_EQ(SplitList(u"A%|%%|%B", u"%|%"), (U16List{u"A", u"", u"B"}));
    EXPECT_EQ(SplitList(u"A%|%", u"%|%"), U16List{u"A"});
    EXPECT_EQ(SplitList(u"A%|%  ", u"%|%"), U16List{u"A"});
    EXPECT_EQ(SplitList(u"%|%", u"%|%"), U16List{u""});
    EXPECT_EQ(SplitList(u"%|%A", u"%|%"), (U16List{u"", u"A"}));
}

TEST(SplitListTest, PiecesAreTrimmedOfBlanksOnly) {
    EXPECT_EQ(SplitList(u"  A %|%\tB\t %|% C", u"%|%"), (U16List{u"A", u"\tB\t", u"C"}));
}

TEST(SplitListTest, MarkerOfOneCharacterAtTheStartIsDroppedOnce) {
    EXPECT_EQ(SplitList(u"\\A\\B", u"\\"), (U16List{u"A", u"B"}));
    EXPECT_EQ(SplitList(u"\\\\A", u"\\"), (U16List{u"", u"A"}));
    EXPECT_EQ(SplitList(u"\\", u"\\"), U16List{u""});
}

TEST(SplitListTest, MarkerIsFoundInAnyCase) {
    EXPECT_EQ(SplitList(u"1ÄND2änd3", u"änd"), (U16List{u"1", u"2", u"3"}));
}

}  // namespace
}  // namespace tarvex::text
