#include <gtest/gtest.h>

#include <cstdint>

#include "text/Text.h"

namespace tarvex {
namespace {

TEST(TextDecimalTest, WritesSignAndDigitsOnly) {
    EXPECT_EQ(text::Decimal(0), u"0");
    EXPECT_EQ(text::Decimal(1234567), u"1234567");
    EXPECT_EQ(text::Decimal(-2147221621), u"-2147221621");
    EXPECT_EQ(text::Decimal(INT64_MIN), u"-9223372036854775808");
    EXPECT_EQ(text::Decimal(INT64_MAX), u"9223372036854775807");
}

TEST(TextDecimalTest, PadsWithZeros) {
    EXPECT_EQ(text::Decimal(7, 3), u"007");
    EXPECT_EQ(text::Decimal(1234, 3), u"1234");
    EXPECT_EQ(text::Decimal(0, 2), u"00");
    EXPECT_EQ(text::Decimal(0, 0), u"0");
}

TEST(TextHexadecimalTest, WritesUpperCaseDigits) {
    EXPECT_EQ(text::Hexadecimal(0x407, 4), u"0407");
    EXPECT_EQ(text::Hexadecimal(0xABCDEF), u"ABCDEF");
    EXPECT_EQ(text::Hexadecimal(0, 4), u"0000");
    EXPECT_EQ(text::Hexadecimal(UINT64_MAX), u"FFFFFFFFFFFFFFFF");
}

TEST(TextParseInt32Test, TakesSignDigitsAndOuterBlanks) {
    EXPECT_EQ(text::ParseInt32(u"42"), 42);
    EXPECT_EQ(text::ParseInt32(u"  -7 "), -7);
    EXPECT_EQ(text::ParseInt32(u"+7"), 7);
    EXPECT_EQ(text::ParseInt32(u"000000000000000000000000012"), 12);
}

TEST(TextParseInt32Test, TakesExactlyTheNumbersOf32Bits) {
    EXPECT_EQ(text::ParseInt32(u"2147483647"), INT32_MAX);
    EXPECT_EQ(text::ParseInt32(u"-2147483648"), INT32_MIN);
    EXPECT_EQ(text::ParseInt32(u"2147483648"), std::nullopt);
    EXPECT_EQ(text::ParseInt32(u"-2147483649"), std::nullopt);
    EXPECT_EQ(text::ParseInt32(u"99999999999999999999999999999999"), std::nullopt);
}

TEST(TextParseInt32Test, RefusesEverythingElse) {
    for (const char16_t* const refused :
         {u"", u" ", u"-", u"+", u"--1", u"+-1", u"- 1", u"1 2", u"1,5", u"1.5", u"1e3", u"0x10",
          u"\t1", u"1\u00A0", u"\u0661"}) {
        EXPECT_EQ(text::ParseInt32(refused), std::nullopt) << text::ToUtf8(refused);
    }
}

TEST(TextIsDigitsTest, TakesAsciiDigitsOnly) {
    EXPECT_TRUE(text::IsDigits(u"0123456789"));
    EXPECT_FALSE(text::IsDigits(u""));
    EXPECT_FALSE(text::IsDigits(u"1 "));
    EXPECT_FALSE(text::IsDigits(u"-1"));
    EXPECT_FALSE(text::IsDigits(u"\u0661"));
    EXPECT_FALSE(text::IsDigits(u"/"));
    EXPECT_FALSE(text::IsDigits(u":"));
}

}  // namespace
}  // namespace tarvex
