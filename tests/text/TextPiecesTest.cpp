#include <gtest/gtest.h>

#include "text/Text.h"

namespace tarvex {
namespace {

using Pieces = std::vector<std::u16string_view>;

TEST(TextTrimTest, RemovesBlanksAtBothEndsOnly) {
    EXPECT_EQ(text::Trim(u"  a b  "), u"a b");
    EXPECT_EQ(text::Trim(u"   "), u"");
    EXPECT_EQ(text::Trim(u""), u"");
}

TEST(TextTrimTest, KeepsEveryOtherWhiteSpace) {
    const std::u16string kept = u"\t\r\n\u00A0\u0085x\u3000\v\f";
    EXPECT_EQ(text::Trim(u" " + kept + u" "), kept);
    EXPECT_EQ(text::Trim(std::u16string_view(u" \0 ", 3)), std::u16string_view(u"\0", 1));
}

TEST(TextPartTest, LeftAndDropNeverFailOnShortTexts) {
    EXPECT_EQ(text::Left(u"abc", 2), u"ab");
    EXPECT_EQ(text::Left(u"abc", 3), u"abc");
    EXPECT_EQ(text::Left(u"abc", 99), u"abc");
    EXPECT_EQ(text::Left(u"", 1), u"");
    EXPECT_EQ(text::Drop(u"abc", 0), u"abc");
    EXPECT_EQ(text::Drop(u"abc", 2), u"c");
    EXPECT_EQ(text::Drop(u"abc", 3), u"");
    EXPECT_EQ(text::Drop(u"abc", 99), u"");
}

TEST(TextReplaceTest, ReplacesFromTheLeftAtMostSoOften) {
    EXPECT_EQ(text::Replace(u"a##b##c##", u"##", u"x", 2), u"axbxc##");
    EXPECT_EQ(text::Replace(u"a##b##", u"##", u"x"), u"axbx");
    EXPECT_EQ(text::Replace(u"a##b", u"##", u"x", 0), u"a##b");
}

TEST(TextReplaceTest, DoesNotSearchInsertedTextAgain) {
    EXPECT_EQ(text::Replace(u"##!", u"##", u"<##>"), u"<##>!");
    EXPECT_EQ(text::Replace(u"###", u"##", u"#"), u"##");
}

TEST(TextReplaceTest, NothingToFindChangesNothing) {
    EXPECT_EQ(text::Replace(u"abc", u"", u"x"), u"abc");
    EXPECT_EQ(text::Replace(u"", u"a", u"x"), u"");
    EXPECT_EQ(text::Replace(u"abc", u"d", u"x"), u"abc");
}

TEST(TextReplaceTest, AnEmptyReplacementRemoves) {
    EXPECT_EQ(text::Replace(u"a##b", u"##", u""), u"ab");
}

TEST(TextSplitTest, KeepsEmptyPieces) {
    EXPECT_EQ(text::Split(u"a||b|", u'|'), (Pieces{u"a", u"", u"b", u""}));
    EXPECT_EQ(text::Split(u"|", u'|'), (Pieces{u"", u""}));
}

TEST(TextSplitTest, ATextWithoutSeparatorIsOnePiece) {
    EXPECT_EQ(text::Split(u"abc", u'|'), (Pieces{u"abc"}));
    EXPECT_EQ(text::Split(u"", u'|'), (Pieces{u""}));
}

}  // namespace
}  // namespace tarvex
