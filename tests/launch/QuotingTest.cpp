#include "launch/Quoting.h"

#include <gtest/gtest.h>

namespace tarvex {

TEST(QuotingTest, TextIsEnclosedInQuotes) {
    EXPECT_EQ(Quote(u"C:\\a b"), u"\"C:\\a b\"");
}

TEST(QuotingTest, EmptyTextBecomesTwoQuotes) {
    EXPECT_EQ(Quote(u""), u"\"\"");
    EXPECT_EQ(Quote(u"   "), u"\"\"");
}

TEST(QuotingTest, BlanksAtTheEndsAreRemovedUnlessTheyShallStay) {
    EXPECT_EQ(Quote(u"  a b "), u"\"a b\"");
    EXPECT_EQ(Quote(u" a ", false, false), u"\" a \"");
    EXPECT_EQ(Quote(u"\ta\t"), u"\"\ta\t\"");
}

TEST(QuotingTest, QuotedTextStays) {
    EXPECT_EQ(Quote(u"\"a\""), u"\"a\"");
    EXPECT_EQ(Quote(u" \"a\" "), u"\"a\"");
    EXPECT_EQ(Quote(u"\"a\" \"b\""), u"\"a\" \"b\"");
    EXPECT_EQ(Quote(u" \"a\"", false, false), u"\" \"a\"\"");
}

TEST(QuotingTest, LoneQuoteCountsAsQuoted) {
    EXPECT_EQ(Quote(u"\""), u"\"");
}

TEST(QuotingTest, QuoteAtOneEndOnlyIsNotQuoted) {
    EXPECT_EQ(Quote(u"\"a"), u"\"\"a\"");
    EXPECT_EQ(Quote(u"a\""), u"\"a\"\"");
}

TEST(QuotingTest, ForcedQuotesEncloseQuotedText) {
    EXPECT_EQ(Quote(u"\"a\"", true), u"\"\"a\"\"");
    EXPECT_EQ(Quote(u" a ", true, true), u"\"a\"");
}

TEST(QuotingTest, QuotesInsideAreNotEscaped) {
    EXPECT_EQ(Quote(u"a\"b"), u"\"a\"b\"");
}

TEST(QuotingTest, SlashAndSemicolonOfACredentialAreDoubled) {
    EXPECT_EQ(EscapeCredential(u"a/b;c"), u"a//b;;c");
    EXPECT_EQ(EscapeCredential(u"/;"), u"//;;");
    EXPECT_EQ(EscapeCredential(u"//"), u"////");
    EXPECT_EQ(EscapeCredential(u"Meier"), u"Meier");
    EXPECT_EQ(EscapeCredential(u""), u"");
}

}  // namespace tarvex
