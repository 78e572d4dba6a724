#include <gtest/gtest.h>

#include <set>

#include "platform/win32/WideText.h"
#include "platform/win32/Win32TextCodec.h"
#include "platform/win32/WindowsApi.h"
#include "text/Text.h"
#include "text/TextCodec1252.h"

namespace tarvex {

namespace {

std::u16string FromCodePage(UINT codePage, char byte) {
    wchar_t units[2];
    const int count = MultiByteToWideChar(codePage, 0, &byte, 1, units, 2);
    return std::u16string(FromWide({units, static_cast<std::size_t>(count)}));
}

/// Every character of the single-byte code pages of Windows.
std::set<char16_t> SingleByteCharacters() {
    std::set<char16_t> characters;
    for (const UINT codePage :
         {874u, 1250u, 1251u, 1252u, 1253u, 1254u, 1255u, 1256u, 1257u, 1258u}) {
        for (int byte = 0; byte < 256; ++byte) {
            const std::u16string text = FromCodePage(codePage, static_cast<char>(byte));
            characters.insert(text.begin(), text.end());
        }
    }
    return characters;
}

char16_t Upper(char16_t unit) {
    auto wide = static_cast<wchar_t>(unit);
    CharUpperBuffW(&wide, 1);
    return static_cast<char16_t>(wide);
}

char16_t Lower(char16_t unit) {
    auto wide = static_cast<wchar_t>(unit);
    CharLowerBuffW(&wide, 1);
    return static_cast<char16_t>(wide);
}

TEST(Win32FoldTest, FoldAgreesWithTheSystemForAllSingleByteCodePages) {
    const std::set<char16_t> characters = SingleByteCharacters();
    ASSERT_GT(characters.size(), 600u);
    for (const char16_t character : characters) {
        for (const char16_t other : {Upper(character), Lower(character)}) {
            if (characters.contains(other)) {
                EXPECT_EQ(text::Fold(character), text::Fold(other))
                    << std::hex << int{character} << " and " << int{other};
            }
        }
    }
}

TEST(Win32FoldTest, FoldJoinsNoOtherCharacters) {
    const std::set<char16_t> characters = SingleByteCharacters();
    for (const char16_t character : characters) {
        const char16_t folded = text::Fold(character);
        if (folded != character) {
            EXPECT_EQ(folded, Lower(character)) << std::hex << int{character};
        }
    }
}

TEST(Win32CodecTest, Codec1252ConvertsEveryByteAsTheSystem) {
    const TextCodec1252 codec;
    for (int byte = 0; byte < 256; ++byte) {
        const auto character = static_cast<char>(byte);
        EXPECT_EQ(codec.FromAnsi({&character, 1}), FromCodePage(1252, character)) << byte;
    }
}

TEST(Win32CodecTest, Codec1252ConvertsEveryCharacterAsTheSystem) {
    const TextCodec1252 codec;
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        const auto wide = static_cast<wchar_t>(unit);
        const auto character = static_cast<char16_t>(unit);
        char byte = 0;
        ASSERT_EQ(
            WideCharToMultiByte(1252, WC_NO_BEST_FIT_CHARS, &wide, 1, &byte, 1, nullptr, nullptr),
            1);
        EXPECT_EQ(codec.ToAnsi({&character, 1}), std::string(1, byte)) << std::hex << unit;
    }
}

TEST(Win32CodecTest, SystemCodecIsTheCodePageOfTheAnsiFunctions) {
    const SystemTextCodec codec;
    EXPECT_EQ(codec.CodePage(), GetACP());
    EXPECT_EQ(codec.FromAnsi(codec.ToAnsi(u"Kunden 2004")), u"Kunden 2004");
}

/// The sessions that these tests run in have German settings.
TEST(Win32CodecTest, GermanSystemHasCodePage1252) {
    if (GetACP() != 1252) {
        GTEST_SKIP() << "code page " << GetACP();
    }
    const SystemTextCodec codec;
    EXPECT_EQ(codec.ToAnsi(u"äöüÄÖÜß€"), "\xE4\xF6\xFC\xC4\xD6\xDC\xDF\x80");
    EXPECT_EQ(codec.FromAnsi("\xE4\xF6\xFC\xC4\xD6\xDC\xDF\x80"), u"äöüÄÖÜß€");
    EXPECT_EQ(codec.ToAnsi(u"Ωā日"), "???");
    EXPECT_EQ(codec.ToAnsi(std::u16string_view(u"a\0b", 3)), std::string("a\0b", 3));
    EXPECT_EQ(codec.FromAnsi(std::string_view("a\0b", 3)), std::u16string(u"a\0b", 3));
    EXPECT_EQ(codec.ToAnsi(u""), "");
    EXPECT_EQ(codec.FromAnsi(""), u"");
}

/// A code page that the system of the tests does not have.
class OtherCodec : public Win32TextCodec {
public:
    explicit OtherCodec(unsigned codePage) : Win32TextCodec(codePage) {}
};

TEST(Win32CodecTest, CodecTakesNoOtherLetterWhateverTheCodePage) {
    EXPECT_EQ(OtherCodec(1251).ToAnsi(u"C:\\Büro Groß"), "C:\\B?ro Gro?");
    EXPECT_EQ(OtherCodec(932).ToAnsi(u"C:\\Büro Groß"), "C:\\B?ro Gro?");
    EXPECT_EQ(OtherCodec(1252).ToAnsi(u"C:\\Łóś"), "C:\\?\xF3?");
}

TEST(Win32NearestTest, UmlautsLoseTheirDotsWhereTheCodePageLacksThem) {
    for (const unsigned codePage : {874u, 932u, 950u, 1251u, 1253u, 1255u}) {
        EXPECT_EQ(ToNearestAnsi(u"äöü ÄÖÜ ß", codePage), "aou AOU s") << codePage;
    }
    // These hold some of them, in places of their own.
    EXPECT_EQ(ToNearestAnsi(u"äöÄÖß", 936), "aoAOs");
    EXPECT_EQ(ToNearestAnsi(u"äöüÄÖÜ", 949), "aouAOU");
    EXPECT_EQ(ToNearestAnsi(u"äöÄÖÜß", 1256), "aoAOUs");
}

TEST(Win32NearestTest, CharactersOfTheCodePageStay) {
    EXPECT_EQ(ToNearestAnsi(u"äöüÄÖÜß€", 1252), "\xE4\xF6\xFC\xC4\xD6\xDC\xDF\x80");
    EXPECT_EQ(ToNearestAnsi(u"Größe ж ß", 1251), "Grose \xE6 s");
    EXPECT_EQ(ToNearestAnsi(u"日ä", 932), "\x93\xFA\x61");
    EXPECT_EQ(ToNearestAnsi(u"ä日", CP_UTF8), "\xC3\xA4\xE6\x97\xA5");
}

TEST(Win32NearestTest, OtherLettersThanUmlautsHaveANearestOneToo) {
    EXPECT_EQ(ToNearestAnsi(u"Łóś ā ğ", 1252), "L\xF3s a g");
    EXPECT_EQ(ToNearestAnsi(u"čéñ", 874), "cen");
}

TEST(Win32NearestTest, OnlyACharacterWithoutLikenessBecomesAQuestionMark) {
    EXPECT_EQ(ToNearestAnsi(u"日ä", 1251), "?a");
    EXPECT_EQ(ToNearestAnsi(u"", 1251), "");
    EXPECT_EQ(ToNearestAnsi(std::u16string_view(u"ä\0b", 3), 1251), std::string("a\0b", 3));
}

TEST(Win32NearestTest, CodePageIsTheSystemsUnlessAnotherIsNamed) {
    for (const char16_t* const text : {u"äß", u"Łóś", u"жя", u"日"}) {
        EXPECT_EQ(ToNearestAnsi(text), ToNearestAnsi(text, GetACP()));
    }
}

TEST(Win32CodecTest, SingleByteCodecConvertsEveryByteToOneCharacterAndBack) {
    const SingleByteTextCodec codec;
    for (int byte = 0; byte < 256; ++byte) {
        const std::string character(1, static_cast<char>(byte));
        EXPECT_EQ(codec.FromAnsi(character).size(), 1u) << byte;
        EXPECT_EQ(codec.ToAnsi(codec.FromAnsi(character)), character) << byte;
    }
}

}  // namespace

}  // namespace tarvex
