#include "text/CodePages.h"

#include <gtest/gtest.h>

#include <set>

namespace tarvex {
namespace {

TEST(CodePagesTest, EveryByteOfEveryPageStandsForOneCharacterOfItsOwn) {
    for (const int number : kCodePages) {
        const auto codec = MakeCodePage(number);
        ASSERT_NE(codec, nullptr) << number;
        std::set<char16_t> units;
        for (int code = 0; code < 256; ++code) {
            const std::string byte(1, static_cast<char>(code));
            const std::u16string text = codec->FromAnsi(byte);
            ASSERT_EQ(text.size(), 1U) << number << ' ' << code;
            EXPECT_EQ(codec->ToAnsi(text), byte) << number << ' ' << code;
            EXPECT_TRUE(code >= 128 || text[0] == code) << number << ' ' << code;
            units.insert(text[0]);
        }
        EXPECT_EQ(units.size(), 256U) << number;
    }
}

TEST(CodePagesTest, PagesHoldTheLettersOfTheirLanguages) {
    const std::pair<int, std::pair<std::u16string_view, std::string_view>> samples[] = {
        {874, {u"กไ€", "\xA1\xE4\x80"}},       {1250, {u"ŁőŠ€", "\xA3\xF5\x8A\x80"}},
        {1251, {u"Жя€№", "\xC6\xFF\x88\xB9"}}, {1252, {u"ÄÿŒ€", "\xC4\xFF\x8C\x80"}},
        {1253, {u"Ωώ€", "\xD9\xFE\x80"}},      {1254, {u"ĞışŸ", "\xD0\xFD\xFE\x9F"}},
        {1255, {u"את₪", "\xE0\xFA\xA4"}},      {1256, {u"پعے", "\x81\xDA\xFF"}},
        {1257, {u"Žųå", "\xDE\xF8\xE5"}},      {1258, {u"Đơ₫", "\xD0\xF5\xFE"}},
    };
    for (const auto& [number, texts] : samples) {
        EXPECT_EQ(MakeCodePage(number)->ToAnsi(texts.first), texts.second) << number;
        EXPECT_EQ(MakeCodePage(number)->FromAnsi(texts.second), texts.first) << number;
    }
}

TEST(CodePagesTest, UnassignedBytesAreWhatWindowsMakesOfThem) {
    EXPECT_EQ(MakeCodePage(1250)->FromAnsi("\x81\x98"), u"\u0081\u0098");
    EXPECT_EQ(MakeCodePage(1253)->FromAnsi("\xAA\xD2\xFF"), u"\uF8F9\uF8FA\uF8FB");
    EXPECT_EQ(MakeCodePage(1255)->FromAnsi("\xCA\xD9\xFF"), u"\u05BA\uF88D\uF896");
    EXPECT_EQ(MakeCodePage(874)->FromAnsi("\xDB\xFC"), u"\uF8C1\uF8C5");
}

TEST(CodePagesTest, OtherCharactersBecomeQuestionMarks) {
    EXPECT_EQ(MakeCodePage(1251)->ToAnsi(std::u16string_view(u"aäö\0Ж\u0088", 6)),
              std::string("a??\0\xC6?", 6));
}

TEST(CodePagesTest, OtherNumbersHaveNoCodec) {
    for (const int number : {0, 850, 932, 1249, 1259, 65001}) {
        EXPECT_EQ(MakeCodePage(number), nullptr) << number;
    }
}

}  // namespace
}  // namespace tarvex
