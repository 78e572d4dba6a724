#include <gtest/gtest.h>

#include "text/Text.h"

namespace tarvex {
namespace {

TEST(TextUtf8Test, ConvertsEveryLengthBothWays) {
    const std::u16string text = u"a\u007F\u0080ä\u07FF\u0800€\uFFFD\U00010000\U0001F642\U0010FFFF";
    const std::string utf8 =
        "a\x7F\xC2\x80\xC3\xA4\xDF\xBF\xE0\xA0\x80\xE2\x82\xAC\xEF\xBF\xBD\xF0\x90\x80\x80"
        "\xF0\x9F\x99\x82\xF4\x8F\xBF\xBF";
    EXPECT_EQ(text::ToUtf8(text), utf8);
    EXPECT_EQ(text::FromUtf8(utf8), text);
}

TEST(TextUtf8Test, KeepsZeroCharacters) {
    EXPECT_EQ(text::FromUtf8(std::string_view("a\0b", 3)), std::u16string(u"a\0b", 3));
    EXPECT_EQ(text::ToUtf8(std::u16string_view(u"a\0b", 3)), std::string("a\0b", 3));
}

TEST(TextUtf8Test, EmptyStaysEmpty) {
    EXPECT_EQ(text::FromUtf8(""), u"");
    EXPECT_EQ(text::ToUtf8(u""), "");
}

struct Invalid {
    const char* name;
    std::string bytes;
};

class InvalidUtf8Test : public testing::TestWithParam<Invalid> {};

TEST_P(InvalidUtf8Test, BecomesReplacementCharactersAndTheRestIsKept) {
    const std::u16string text = text::FromUtf8("<" + GetParam().bytes + ">");
    ASSERT_GE(text.size(), 3u);
    EXPECT_EQ(text.front(), u'<');
    EXPECT_EQ(text.back(), u'>');
    EXPECT_EQ(text.find_first_not_of(u'\uFFFD', 1), text.size() - 1);
}

INSTANTIATE_TEST_SUITE_P(
    Sequences, InvalidUtf8Test,
    testing::Values(Invalid{"Continuation", "\x80"}, Invalid{"CutOffTwo", "\xC3"},
                    Invalid{"CutOffThree", "\xE2\x82"}, Invalid{"CutOffFour", "\xF0\x90\x80"},
                    Invalid{"OverlongTwo", "\xC0\xAF"}, Invalid{"OverlongThree", "\xE0\x80\xAF"},
                    Invalid{"OverlongFour", "\xF0\x80\x80\xAF"},
                    Invalid{"Surrogate", "\xED\xA0\x80"}, Invalid{"TooHigh", "\xF4\x90\x80\x80"},
                    Invalid{"NoLead", "\xFE"}, Invalid{"NoLeadF8", "\xF8\x90\x80\x80"},
                    Invalid{"NoLeadFF", "\xFF"}, Invalid{"FiveBytes", "\xF8\x88\x80\x80\x80"}),
    [](const auto& sequence) { return sequence.param.name; });

TEST(TextUtf8Test, ASequenceCutOffAtTheEndBecomesOneReplacementCharacterOrMore) {
    const std::u16string text = text::FromUtf8("a\xE2\x82");
    EXPECT_EQ(text.front(), u'a');
    EXPECT_EQ(text.find_first_not_of(u'\uFFFD', 1), std::u16string::npos);
    EXPECT_GT(text.size(), 1u);
}

TEST(TextUtf8Test, LoneSurrogatesBecomeReplacementCharacters) {
    const std::string replacement = "\xEF\xBF\xBD";
    EXPECT_EQ(text::ToUtf8(std::u16string{u'a', 0xD800, u'b'}), "a" + replacement + "b");
    EXPECT_EQ(text::ToUtf8(std::u16string{u'a', 0xDC00}), "a" + replacement);
    for (const char16_t unit : std::u16string{0xD800, 0xDBFF, 0xDC00, 0xDFFF}) {
        EXPECT_EQ(text::ToUtf8(std::u16string{unit}), replacement);
        EXPECT_EQ(text::ToUtf8(std::u16string{unit, 0xE000}), replacement + "\xEE\x80\x80");
    }
    EXPECT_EQ(text::ToUtf8(std::u16string{0xD800, 0xD800, 0xDC00}),
              replacement + "\xF0\x90\x80\x80");
}

}  // namespace
}  // namespace tarvex
