#include <gtest/gtest.h>

#include <set>

#include "text/TextCodec1252.h"

namespace tarvex {
namespace {

TEST(TextCodec1252Test, EveryByteStandsForOneCharacterOfItsOwn) {
    const TextCodec1252 codec;
    std::set<char16_t> units;
    for (int code = 0; code < 256; ++code) {
        const std::string byte(1, static_cast<char>(code));
        const std::u16string text = codec.FromAnsi(byte);
        ASSERT_EQ(text.size(), 1u) << code;
        EXPECT_EQ(codec.ToAnsi(text), byte) << code;
        units.insert(text.front());
    }
    EXPECT_EQ(units.size(), 256u);
}

TEST(TextCodec1252Test, HoldsTheSpecialCharactersOfTheCodePage) {
    const TextCodec1252 codec;
    EXPECT_EQ(codec.ToAnsi(u"äöüÄÖÜß€Šœ–„“…Ÿ"),
              "\xE4\xF6\xFC\xC4\xD6\xDC\xDF\x80\x8A\x9C\x96\x84\x93\x85\x9F");
    EXPECT_EQ(codec.FromAnsi("\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E"),
              u"€‚ƒ„…†‡ˆ‰Š‹ŒŽ");
    EXPECT_EQ(codec.FromAnsi("\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F"),
              u"‘’“”•–—˜™š›œžŸ");
}

TEST(TextCodec1252Test, UnassignedBytesStandForTheControlCharactersOfTheirNumber) {
    const TextCodec1252 codec;
    EXPECT_EQ(codec.FromAnsi("\x81\x8D\x8F\x90\x9D"), u"\u0081\u008D\u008F\u0090\u009D");
    EXPECT_EQ(codec.ToAnsi(u"\u0081\u008D\u008F\u0090\u009D"), "\x81\x8D\x8F\x90\x9D");
}

TEST(TextCodec1252Test, OtherCharactersBecomeQuestionMarks) {
    const TextCodec1252 codec;
    EXPECT_EQ(codec.ToAnsi(u"aЖb\u0080c"), "a?b?c");
    EXPECT_EQ(codec.ToAnsi(u"\u0100\u2260"), "??") << "no look-alikes";
}

TEST(TextCodec1252Test, ZeroCharactersAreKept) {
    const TextCodec1252 codec;
    EXPECT_EQ(codec.ToAnsi(std::u16string_view(u"a\0b", 3)), std::string("a\0b", 3));
    EXPECT_EQ(codec.FromAnsi(std::string_view("a\0b", 3)), std::u16string(u"a\0b", 3));
}

}  // namespace
}  // namespace tarvex
