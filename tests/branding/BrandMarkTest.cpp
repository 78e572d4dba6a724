#include "branding/BrandMark.h"

#include <gtest/gtest.h>

namespace tarvex {
namespace {

TEST(BrandMarkTest, ReadsNumberWidthNameAndValue) {
    const auto mark = brdParseConstant(u"@#BRD#@|066|0005|HCID|12   ");
    ASSERT_TRUE(mark.has_value());
    EXPECT_EQ(mark->number, 66);
    EXPECT_EQ(mark->width, 5);
    EXPECT_EQ(mark->name, u"HCID");
    EXPECT_EQ(mark->value, u"12");
    EXPECT_EQ(mark->rest, u"");
}

TEST(BrandMarkTest, PrefixInLowerCaseIsAPrefix) {
    const auto mark = brdParseConstant(u"@#brd#@|047|0001|NoStartup|1");
    ASSERT_TRUE(mark.has_value());
    EXPECT_EQ(mark->number, 47);
    EXPECT_EQ(mark->value, u"1");
}

TEST(BrandMarkTest, OtherTextsAreNoMarks) {
    for (const std::u16string_view text :
         {u"", u"|", u"@#BRD#@", u"@#BRD#@|", u"@#BRD#@066", u"x@#BRD#@|066|0005|HCID|12   ",
          u"@#BRD#|066|0005|HCID|12   ", u"@#BRANDED0#@"}) {
        EXPECT_FALSE(brdParseConstant(text).has_value()) << testing::PrintToString(text);
    }
}

TEST(BrandMarkTest, NumberIsThreeDigits) {
    for (const std::u16string_view number :
         {u"0x1", u"1 2", u"+12", u"1e1", u" 12", u"-12", u"1,2", u"", u"12", u"1234", u"٣٣٣"}) {
        const std::u16string text = u"@#BRD#@|" + std::u16string(number) + u"|0005|HCID|12   ";
        EXPECT_FALSE(brdParseConstant(text).has_value()) << testing::PrintToString(text);
    }
}

TEST(BrandMarkTest, WidthIsFourDigits) {
    for (const std::u16string_view width : {u"00x5", u"005", u"00005", u" 005", u"+005", u""}) {
        const std::u16string text = u"@#BRD#@|066|" + std::u16string(width) + u"|HCID|12   ";
        EXPECT_FALSE(brdParseConstant(text).has_value()) << testing::PrintToString(text);
    }
}

TEST(BrandMarkTest, EverySeparatorIsNeeded) {
    for (const std::u16string_view text :
         {u"@#BRD#@|066 0005|HCID|12   ", u"@#BRD#@|066|0005 HCID|12   ",
          u"@#BRD#@|066|0005|HCID 12   ", u"@#BRD#@|066", u"@#BRD#@|066|0005"}) {
        EXPECT_FALSE(brdParseConstant(text).has_value()) << testing::PrintToString(text);
    }
}

TEST(BrandMarkTest, TextBetweenPrefixAndFirstSeparatorIsSkipped) {
    const auto mark = brdParseConstant(u"@#BRD#@zz|001|0002|AppName|ab");
    ASSERT_TRUE(mark.has_value());
    EXPECT_EQ(mark->number, 1);
    EXPECT_EQ(mark->value, u"ab");
}

TEST(BrandMarkTest, NameMayBeEmpty) {
    const auto mark = brdParseConstant(u"@#BRD#@|066|0005||12345");
    ASSERT_TRUE(mark.has_value());
    EXPECT_EQ(mark->name, u"");
    EXPECT_EQ(mark->value, u"12345");
}

TEST(BrandMarkTest, NameHasAtMost9998Characters) {
    const auto markWithName = [](std::size_t length) {
        return brdParseConstant(u"@#BRD#@|066|0001|" + std::u16string(length, u'n') + u"|1");
    };
    ASSERT_TRUE(markWithName(9998).has_value());
    EXPECT_EQ(markWithName(9998)->value, u"1");
    EXPECT_FALSE(markWithName(9999).has_value());
}

TEST(BrandMarkTest, ShortTextGivesAShorterValue) {
    const auto mark = brdParseConstant(u"@#BRD#@|013|0255|DBPath|C:\\Dat");
    ASSERT_TRUE(mark.has_value());
    EXPECT_EQ(mark->width, 255);
    EXPECT_EQ(mark->value, u"C:\\Dat");
    EXPECT_EQ(mark->rest, u"");
    EXPECT_EQ(brdParseConstant(u"@#BRD#@|013|0255|DBPath|")->value, u"");
}

TEST(BrandMarkTest, WhatFollowsTheValueAreaIsTheRest) {
    const auto mark = brdParseConstant(u"@#BRD#@|066|0005|HCID|12345 6 @#BRD#@|047| ");
    ASSERT_TRUE(mark.has_value());
    EXPECT_EQ(mark->value, u"12345");
    EXPECT_EQ(mark->rest, u" 6 @#BRD#@|047| ");
}

TEST(BrandMarkTest, WidthZeroLeavesEverythingToTheRest) {
    const auto mark = brdParseConstant(u"@#BRD#@|066|0000|HCID|12");
    ASSERT_TRUE(mark.has_value());
    EXPECT_EQ(mark->value, u"");
    EXPECT_EQ(mark->rest, u"12");
}

TEST(BrandMarkTest, OnlyBlanksAtTheEndsOfTheValueAreDropped) {
    EXPECT_EQ(brdParseConstant(u"@#BRD#@|048|0007|Cmd|  a b  ")->value, u"a b");
    EXPECT_EQ(brdParseConstant(u"@#BRD#@|048|0005|Cmd|     ")->value, u"");
    const std::u16string kept(u"\t\r\n\u00A0\u0085\0x\0\u00A0\t", 10);
    EXPECT_EQ(brdParseConstant(u"@#BRD#@|048|0012|Cmd| " + kept + u" ")->value, kept);
}

TEST(BrandMarkTest, ValueMayHoldSeparators) {
    EXPECT_EQ(brdParseConstant(u"@#BRD#@|048|0006|Cmd|a|b|c ")->value, u"a|b|c");
}

TEST(BrandMarkTest, HeaderIsWhatTheParserReads) {
    EXPECT_EQ(MarkHeader(47, 1, u"NoStartup"), u"@#BRD#@|047|0001|NoStartup|");
    EXPECT_EQ(MarkHeader(47, 1, u"NoStartup").size(), kMarkHeaderWithoutName + 9);
    EXPECT_EQ(MarkHeader(1234, 12345, u""), u"@#BRD#@|1234|12345||");
    EXPECT_EQ(MarkStart(), u"@#BRD#@|");
}

TEST(BrandMarkTest, MarkerHasTwoForms) {
    EXPECT_EQ(MarkerText(false), u"@#BRANDED0#@");
    EXPECT_EQ(MarkerText(true), u"@#BRANDED1#@");
}

TEST(BrandMarkTest, FittingCutsOrPadsWithBlanks) {
    EXPECT_EQ(FitToWidth(u"abc", 5), u"abc  ");
    EXPECT_EQ(FitToWidth(u"abc", 3), u"abc");
    EXPECT_EQ(FitToWidth(u"abc", 2), u"ab");
    EXPECT_EQ(FitToWidth(u"abc", 0), u"");
    EXPECT_EQ(FitToWidth(u"abc", -1), u"");
}

TEST(BrandMarkTest, BytesAreLittleEndianAndAnOddLastOneIsDropped) {
    EXPECT_EQ(ToUtf16Bytes(u"Aü€"), std::string("A\0\xFC\0\xAC\x20", 6));
    EXPECT_EQ(FromUtf16Bytes(std::string_view("A\0\xFC\0\xAC\x20", 6)), u"Aü€");
    EXPECT_EQ(FromUtf16Bytes(std::string_view("A\0\xFC", 3)), u"A");
    EXPECT_EQ(FromUtf16Bytes("A"), u"");
}

}  // namespace
}  // namespace tarvex
