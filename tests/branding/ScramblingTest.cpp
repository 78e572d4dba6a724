#include "branding/Scrambling.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "errors/RuntimeErrors.h"
#include "tests/branding/BrandTesting.h"
#include "text/TextCodec1252.h"

namespace tarvex {
namespace {

constexpr std::uint8_t kShortKey[] = {'K', 'x', '7'};
constexpr std::uint8_t kOneCharacterKey[] = {'K'};

class ScramblingTest : public testing::Test {
protected:
    std::u16string Scramble(std::u16string_view value) const {
        return ScrambleBrandValue(value, codec, kShortKey);
    }
    std::u16string Decode(std::u16string_view list) const {
        return DecodeNumberList(list, codec, kShortKey);
    }
    std::u16string FromCode(int code) const {
        return codec.FromAnsi(std::string(1, static_cast<char>(code)));
    }

    TextCodec1252 codec;
};

/// A code page with two bytes for every character.
class TwoByteCodec : public TextCodec {
public:
    std::string ToAnsi(std::u16string_view text) const override {
        return std::string(2 * text.size(), 'x');
    }
    std::u16string FromAnsi(std::string_view bytes) const override {
        return std::u16string(bytes.size() / 2, u'x');
    }
};

TEST_F(ScramblingTest, DigitBecomesALetterAndBack) {
    EXPECT_EQ(Scramble(u"1"), u"z");
    EXPECT_EQ(Scramble(u"z"), u"1");
}

TEST_F(ScramblingTest, EmptyStaysEmpty) {
    EXPECT_EQ(Scramble(u""), u"");
}

TEST_F(ScramblingTest, BlankIsTakenAs255) {
    EXPECT_EQ(codec.ToAnsi(Scramble(u"a b")), "\x2A\x87\x55");
    EXPECT_EQ(codec.ToAnsi(ScrambleBrandValue(u" ", codec, kOneCharacterKey)), "\xB4");
}

TEST_F(ScramblingTest, ResultsOf32And255ChangePlaces) {
    EXPECT_EQ(codec.ToAnsi(ScrambleBrandValue(u"k", codec, kOneCharacterKey)), "\xFF");
    EXPECT_EQ(ScrambleBrandValue(FromCode(255 ^ 'K'), codec, kOneCharacterKey), u" ");
}

TEST_F(ScramblingTest, KeyRepeatsFromItsFirstCharacter) {
    const std::string codes = codec.ToAnsi(Scramble(u"1111111"));
    const std::string once{'1' ^ 'K', '1' ^ 'x', '1' ^ '7'};
    EXPECT_EQ(codes, once + once + once.substr(0, 1));
}

TEST_F(ScramblingTest, TwiceGivesTheTextBackUnlessACodeZeroArises) {
    for (std::size_t position = 0; position < std::size(kShortKey); ++position) {
        for (int code = 1; code <= 255; ++code) {
            std::u16string plain(std::size(kShortKey) + 1, u'1');
            plain.replace(position, 1, FromCode(code));
            const std::u16string stored = Scramble(plain);
            if (code == kShortKey[position]) {
                EXPECT_EQ(stored.size(), plain.size() - 1) << position << " " << code;
            } else {
                EXPECT_EQ(Scramble(stored), plain) << position << " " << code;
            }
        }
    }
}

TEST_F(ScramblingTest, CodesZeroAreDroppedWithoutAnError) {
    EXPECT_EQ(Scramble(u"K1"), std::u16string(1, u'1' ^ u'x'));
    EXPECT_EQ(Scramble(u"Kx7Kx7"), u"");
}

TEST_F(ScramblingTest, LongValuesKeepTheirLengthAndComeBack) {
    for (const std::size_t length : {1023U, 1024U, 1025U, 2048U, 2049U}) {
        std::u16string plain(length, u'a');
        plain.back() = u'ß';
        const std::u16string stored = Scramble(plain);
        EXPECT_EQ(stored.size(), length);
        EXPECT_EQ(Scramble(stored), plain);
    }
}

TEST_F(ScramblingTest, CodesAreThoseOfTheCodePage) {
    const std::uint8_t oneKey[] = {1};
    EXPECT_EQ(ScrambleBrandValue(u"€", codec, oneKey), FromCode(129));
    EXPECT_EQ(ScrambleBrandValue(FromCode(129), codec, oneKey), u"€");
    EXPECT_EQ(ScrambleBrandValue(u"ä", codec, oneKey), u"å");
}

TEST_F(ScramblingTest, CodePageWithLongerCharactersIsRefused) {
    ExpectError(ErrorOf([] { ScrambleBrandValue(u"ab", TwoByteCodec(), kShortKey); }), -2147221493,
                u"Falsche Datensatzlänge.", u"");
}

TEST_F(ScramblingTest, ProductKeyIsThirteenTimesCode127) {
    const auto key = SettingsKey();
    EXPECT_EQ(key.size(), 13U);
    EXPECT_TRUE(std::all_of(key.begin(), key.end(), [](std::uint8_t c) { return c == 127; }));
}

TEST_F(ScramblingTest, ProductKeyLosesNothingButDel) {
    for (std::size_t position = 0; position < 14; ++position) {
        for (int code = 1; code <= 255; ++code) {
            std::u16string plain(15, u'x');
            plain.replace(position, 1, FromCode(code));
            const std::u16string back = ScrambleBrandValue(ScrambleBrandValue(plain, codec), codec);
            EXPECT_EQ(back == plain, code != 127) << position << " " << code;
        }
    }
}

TEST_F(ScramblingTest, ProductKeyGivesTheKnownStoredForms) {
    EXPECT_EQ(ScrambleBrandValue(u"1", codec), u"N");
    EXPECT_EQ(ScrambleBrandValue(u"0", codec), u"O");
    EXPECT_EQ(ScrambleBrandValue(u" ", codec), u"€");
    EXPECT_EQ(ScrambleBrandValue(u"_", codec), u"ÿ");
    EXPECT_EQ(ScrambleBrandValue(u"s", codec), u"\f");
    EXPECT_EQ(ScrambleBrandValue(u"€", codec), u" ");
    EXPECT_EQ(ScrambleBrandValue(u"\x7F", codec), u"");
}

TEST_F(ScramblingTest, NumberListGivesThePlainText) {
    EXPECT_EQ(Decode(u"42#26"), u"ab");
    EXPECT_EQ(Decode(u""), u"");
    EXPECT_EQ(EncodeNumberList(u"ab", codec, kShortKey), u"42#26");
    EXPECT_EQ(EncodeNumberList(u"", codec, kShortKey), u"");
}

TEST_F(ScramblingTest, EmptyPartsOfANumberListDoNotCount) {
    EXPECT_EQ(Decode(u"#42##26#"), u"ab");
    EXPECT_EQ(Decode(u"###"), u"");
}

TEST_F(ScramblingTest, NumberListKnowsNoSubstituteForTheBlank) {
    EXPECT_EQ(DecodeNumberList(u"107", codec, kOneCharacterKey), u" ");
    EXPECT_EQ(EncodeNumberList(u" ", codec, kOneCharacterKey), u"107");
    EXPECT_EQ(DecodeNumberList(u"0", codec, kOneCharacterKey), u"K");
    EXPECT_EQ(EncodeNumberList(u"K", codec, kOneCharacterKey), u"0");
}

TEST_F(ScramblingTest, NumberMayHaveBlanksAroundIt) {
    EXPECT_EQ(Decode(u" 42 #26"), u"ab");
}

TEST_F(ScramblingTest, PartThatIsNoNumberIsATypeMismatch) {
    for (const std::u16string_view list : {u"42#x", u"-1", u"+1", u"1,5", u"0x10", u"42# "}) {
        ExpectError(ErrorOf([&] { Decode(list); }), 13, u"Typen unverträglich", u"");
    }
}

TEST_F(ScramblingTest, NumberAbove255IsAnInvalidCall) {
    for (const std::u16string_view list : {u"256", u"300", u"42#99999999999"}) {
        EXPECT_EQ(ErrorOf([&] { Decode(list); }).number, NumberOf(RuntimeError::InvalidCall));
    }
    EXPECT_EQ(Decode(u"255").size(), 1U);
}

TEST_F(ScramblingTest, EveryTextOfTheCodePageSurvivesANumberList) {
    std::string codes;
    for (int code = 0; code <= 255; ++code) {
        codes.push_back(static_cast<char>(code));
    }
    const std::u16string plain = codec.FromAnsi(codes);
    EXPECT_EQ(DecodeNumberList(EncodeNumberList(plain, codec), codec), plain);
    EXPECT_EQ(Decode(EncodeNumberList(plain, codec, kShortKey)), plain);
}

}  // namespace
}  // namespace tarvex
