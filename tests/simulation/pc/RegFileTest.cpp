#include "branding/BrandMark.h"

#include <gtest/gtest.h>

#include "simulation/pc/RegFile.h"
#include "tests/simulation/SimulationTexts.h"
#include "text/Text.h"
#include "text/TextCodec1252.h"

namespace tarvex {
namespace {

constexpr std::u16string_view kHeader = u"Windows Registry Editor Version 5.00\r\n\r\n";

ParsedRegFile ParseBytes(std::string_view bytes) {
    return ParseRegFile(bytes, u"firma.reg", TextCodec1252());
}

/// A file as regedit writes it.
ParsedRegFile Parse(std::u16string_view lines) {
    return ParseBytes("\xFF\xFE" + ToUtf16Bytes(std::u16string(kHeader).append(lines)));
}

/// The one value of the one key of such a file.
RegFileValue ParseValue(std::u16string_view line) {
    const ParsedRegFile parsed =
        Parse(u"[HKEY_LOCAL_MACHINE\\SOFTWARE\\X]\r\n" + std::u16string(line) + u"\r\n");
    EXPECT_EQ(ProblemLines(parsed.problems), Texts());
    EXPECT_EQ(parsed.keys.size(), 1U);
    EXPECT_EQ(parsed.keys.at(0).values.size(), 1U);
    return parsed.keys.at(0).values.at(0);
}

std::u16string TextOf(const RegFileValue& value) {
    return FromUtf16Bytes(value.data.value_or(""));
}

std::u16string Z(std::u16string_view text) {
    return std::u16string(text) + u'\0';
}

TEST(RegFileTest, KeysAndValuesComeInTheOrderOfTheFile) {
    const ParsedRegFile parsed = Parse(
        u"[HKEY_LOCAL_MACHINE\\SOFTWARE\\Müller]\r\n\"Pfad\"=\"C:\\\\Daten\"\r\n\"A\"=\"\"\r\n"
        u"\r\n[HKEY_CURRENT_USER\\Software\\X]\r\n");
    EXPECT_EQ(ProblemLines(parsed.problems), Texts());
    ASSERT_EQ(parsed.keys.size(), 2U);
    EXPECT_EQ(parsed.keys[0].path, u"HKEY_LOCAL_MACHINE\\SOFTWARE\\Müller");
    ASSERT_EQ(parsed.keys[0].values.size(), 2U);
    EXPECT_EQ(parsed.keys[0].values[0].name, u"Pfad");
    EXPECT_EQ(parsed.keys[0].values[0].type, kRegTypeText);
    EXPECT_EQ(TextOf(parsed.keys[0].values[0]), Z(u"C:\\Daten"));
    EXPECT_EQ(parsed.keys[0].values[1].name, u"A");
    EXPECT_EQ(TextOf(parsed.keys[0].values[1]), Z(u""));
    EXPECT_EQ(parsed.keys[1].path, u"HKEY_CURRENT_USER\\Software\\X");
    EXPECT_TRUE(parsed.keys[1].values.empty());
}

TEST(RegFileTest, AtSignIsTheDefaultValue) {
    const RegFileValue value = ParseValue(u"@=\"C:\\\\x.exe\"");
    EXPECT_EQ(value.name, u"");
    EXPECT_EQ(TextOf(value), Z(u"C:\\x.exe"));
}

TEST(RegFileTest, QuotesAndBackslashesInNamesAndTextsAreEscaped) {
    const RegFileValue value = ParseValue(u"\"a\\\\b\\\"c\"=\"\\\"C:\\\\x y.exe\\\" /x\"");
    EXPECT_EQ(value.name, u"a\\b\"c");
    EXPECT_EQ(TextOf(value), Z(u"\"C:\\x y.exe\" /x"));
}

TEST(RegFileTest, TextMayGoOnOverALineBreak) {
    EXPECT_EQ(TextOf(ParseValue(u"\"a\"=\"eins\r\n[zwei]\"")), Z(u"eins\r\n[zwei]"));
}

TEST(RegFileTest, NumbersAndBytesOfEveryTypeAreKept) {
    const RegFileValue number = ParseValue(u"\"a\"=dword:0001e240");
    EXPECT_EQ(number.type, kRegTypeNumber);
    EXPECT_EQ(number.data, std::string("\x40\xE2\x01\x00", 4));
    const RegFileValue binary = ParseValue(u"\"a\"=hex:00,Ff,7f");
    EXPECT_EQ(binary.type, kRegTypeBinary);
    EXPECT_EQ(binary.data, std::string("\x00\xFF\x7F", 3));
    const RegFileValue empty = ParseValue(u"\"a\"=hex(0):");
    EXPECT_EQ(empty.type, 0U);
    EXPECT_EQ(empty.data, "");
    EXPECT_EQ(ParseValue(u"\"a\"=hex(b):01,02,03,04,05,06,07,08").type, 11U);
    EXPECT_EQ(ParseValue(u"\"a\"=hex(ffff0001):01").type, 0xFFFF0001U);
}

TEST(RegFileTest, BytesGoOnAfterABackslashAtTheEndOfALine) {
    const RegFileValue value = ParseValue(u"\"a\"=hex(2):25,00,\\\r\n  41,00,\\\r\n  00,00");
    EXPECT_EQ(value.type, kRegTypeExpandableText);
    EXPECT_EQ(TextOf(value), Z(u"%A"));
}

TEST(RegFileTest, TextWithoutItsClosingZeroComesAsBytes) {
    const RegFileValue value = ParseValue(u"\"a\"=hex(1):41,00,42,00");
    EXPECT_EQ(value.type, kRegTypeText);
    EXPECT_EQ(TextOf(value), u"AB");
}

TEST(RegFileTest, DeletionsOfKeysAndValuesAreTold) {
    const ParsedRegFile parsed = Parse(
        u"[-HKEY_LOCAL_MACHINE\\SOFTWARE\\Alt]\r\n\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\X]\r\n"
        u"\"a\"=-\r\n@=-\r\n");
    EXPECT_EQ(ProblemLines(parsed.problems), Texts());
    ASSERT_EQ(parsed.keys.size(), 2U);
    EXPECT_TRUE(parsed.keys[0].deleted);
    EXPECT_EQ(parsed.keys[0].path, u"HKEY_LOCAL_MACHINE\\SOFTWARE\\Alt");
    EXPECT_FALSE(parsed.keys[1].deleted);
    ASSERT_EQ(parsed.keys[1].values.size(), 2U);
    EXPECT_EQ(parsed.keys[1].values[0].data, std::nullopt);
    EXPECT_EQ(parsed.keys[1].values[1].data, std::nullopt);
}

TEST(RegFileTest, CommentsAndBlankLinesSayNothing) {
    const ParsedRegFile parsed = Parse(
        u"; eins\r\n  \t\r\n[HKEY_LOCAL_MACHINE\\X]\r\n; \"b\"=\"x\"\r\n\"a\"=\"1\" ; zwei\r\n");
    EXPECT_EQ(ProblemLines(parsed.problems), Texts());
    ASSERT_EQ(parsed.keys.size(), 1U);
    EXPECT_EQ(parsed.keys[0].values.size(), 1U);
}

TEST(RegFileTest, KeyNameMayHoldABracket) {
    EXPECT_EQ(Parse(u"[HKEY_LOCAL_MACHINE\\a]b]\r\n").keys.at(0).path, u"HKEY_LOCAL_MACHINE\\a]b");
}

TEST(RegFileTest, LastLineNeedsNoLineEnd) {
    const ParsedRegFile parsed = Parse(u"[HKEY_LOCAL_MACHINE\\X]\r\n\"a\"=\"1\"");
    EXPECT_EQ(ProblemLines(parsed.problems), Texts());
    EXPECT_EQ(parsed.keys.at(0).values.size(), 1U);
}

TEST(RegFileTest, Version5IsReadInUtf8AndUtf16OfBothOrders) {
    const std::u16string text =
        std::u16string(kHeader) + u"[HKEY_LOCAL_MACHINE\\Größe]\r\n\"\x3A9\"=\"\"\r\n";
    std::string highFirst = ToUtf16Bytes(text);
    for (std::size_t i = 0; i < highFirst.size(); i += 2) {
        std::swap(highFirst[i], highFirst[i + 1]);
    }
    for (const std::string& bytes :
         {text::ToUtf8(text), "\xEF\xBB\xBF" + text::ToUtf8(text), "\xFF\xFE" + ToUtf16Bytes(text),
          ToUtf16Bytes(text), "\xFE\xFF" + highFirst}) {
        const ParsedRegFile parsed = ParseBytes(bytes);
        EXPECT_EQ(ProblemLines(parsed.problems), Texts());
        ASSERT_EQ(parsed.keys.size(), 1U);
        EXPECT_EQ(parsed.keys[0].path, u"HKEY_LOCAL_MACHINE\\Größe");
        EXPECT_EQ(parsed.keys[0].values.at(0).name, u"\x3A9");
    }
}

TEST(RegFileTest, Regedit4HasItsTextsAndTheirBytesInTheCodePage) {
    const ParsedRegFile parsed = ParseBytes(
        "REGEDIT4\r\n\r\n[HKEY_LOCAL_MACHINE\\Gr\xF6\xDF"
        "e]\r\n\"a\"=\"\x80\"\r\n"
        "\"b\"=hex(2):80,00\r\n\"c\"=hex:80,00\r\n");
    EXPECT_EQ(ProblemLines(parsed.problems), Texts());
    ASSERT_EQ(parsed.keys.size(), 1U);
    EXPECT_EQ(parsed.keys[0].path, u"HKEY_LOCAL_MACHINE\\Größe");
    ASSERT_EQ(parsed.keys[0].values.size(), 3U);
    EXPECT_EQ(TextOf(parsed.keys[0].values[0]), Z(u"€"));
    EXPECT_EQ(TextOf(parsed.keys[0].values[1]), Z(u"€"));
    EXPECT_EQ(parsed.keys[0].values[2].data, std::string("\x80\0", 2));
}

struct BadLine {
    std::u16string_view lines;
    std::u16string_view problem;  // after "firma.reg, Zeile "
};

TEST(RegFileTest, WhatNoRegistryEditorWritesIsAnErrorWithItsLine) {
    constexpr std::u16string_view kKey = u"[HKEY_LOCAL_MACHINE\\X]\r\n";
    const BadLine table[] = {
        {u"\"a\"=\"eins", u"4: Der Text in Anführungszeichen hat kein Ende."},
        {u"\"a\"=\"eins\r\n\"b\"=\"zwei\"\r\n", u"5: Nach dem Wert steht noch etwas."},
        {u"\"a", u"4: Der Text in Anführungszeichen hat kein Ende."},
        {u"\"a\"", u"4: Nach dem Namen des Wertes fehlt '='."},
        {u"\"a\"=",
         u"4: Der Wert hat keine bekannte Form (Text in Anführungszeichen, dword:, hex: "
         u"oder '-')."},
        {u"\"a\"=\"C:\\Daten\"",
         u"4: Nach '\\' folgt in einem Text nur '\\' oder '\"' (ein '\\' "
         u"wird doppelt geschrieben)."},
        {u"\"a\"=\"\\",
         u"4: Nach '\\' folgt in einem Text nur '\\' oder '\"' (ein '\\' wird "
         u"doppelt geschrieben)."},
        {u"\"a\"=dword:", u"4: Hier steht keine Hexadezimalzahl."},
        {u"\"a\"=dword:123456789", u"4: Die Zahl hat mehr als acht Hexadezimalziffern."},
        {u"\"a\"=dword:12x", u"4: Nach dem Wert steht noch etwas."},
        {u"\"a\"=hex(:00", u"4: Hier steht keine Hexadezimalzahl."},
        {u"\"a\"=hex(2:00", u"4: Nach dem Werttyp fehlt '):'."},
        {u"\"a\"=hex:0,100", u"4: Ein Byte hat mehr als zwei Hexadezimalziffern."},
        {u"\"a\"=hex:00,", u"4: Nach dem Komma fehlt ein Byte."},
        {u"\"a\"=hex:00,\r\n", u"4: Nach dem Komma fehlt ein Byte."},
        {u"\"a\"=hex:00,\\", u"4: Die Fortsetzungszeile fehlt."},
        {u"\"a\"=hex:00,\\\r\n  ", u"5: Nach dem Komma fehlt ein Byte."},
        {u"\"a\"=hex:00,\\\r\n[HKEY_CURRENT_USER\\X]", u"5: Nach dem Komma fehlt ein Byte."},
        {u"\"a\"=hex:00 00", u"4: Nach dem Wert steht noch etwas."},
        {u"Pfad=\"x\"", u"4: Die Zeile ist weder Schlüssel noch Wert noch Kommentar."},
        {u"[HKEY_LOCAL_MACHINE\\Y", u"4: Die Schlüsselzeile endet nicht mit ']'."},
        {u"[HKEY_LOCAL_MACHINE\\Y] x", u"4: Die Schlüsselzeile endet nicht mit ']'."},
        {u"[SOFTWARE\\Y]", u"4: 'SOFTWARE' ist kein Hauptschlüssel."},
        {u"[]", u"4: '' ist kein Hauptschlüssel."},
        {u"[-HKEY_LOCAL_MACHINE\\Y]\r\n\"a\"=\"\"",
         u"5: Unter einem gelöschten Schlüssel steht ein Wert."},
    };
    for (const BadLine& bad : table) {
        EXPECT_EQ(ProblemLines(Parse(std::u16string(kKey).append(bad.lines)).problems),
                  Texts({u"firma.reg, Zeile " + std::u16string(bad.problem)}))
            << text::ToUtf8(bad.lines);
    }
    EXPECT_EQ(ProblemLines(Parse(u"\"a\"=\"x\"").problems),
              Texts({u"firma.reg, Zeile 3: Der Wert steht unter keinem Schlüssel."}));
}

TEST(RegFileTest, ZeroCharactersAreErrorsWhereverTheyStand) {
    const std::u16string key = u"[HKEY_LOCAL_MACHINE\\X]\r\n";
    EXPECT_EQ(ProblemLines(Parse(key + u"\"a" + u'\0' + u"\"=\"x\"").problems),
              Texts({u"firma.reg, Zeile 4: Der Text enthält das Zeichen mit dem Code 0."}));
    EXPECT_EQ(ProblemLines(Parse(key + u"[HKEY_LOCAL_MACHINE\\a" + u'\0' + u"]").problems),
              Texts({u"firma.reg, Zeile 4: Der Schlüssel enthält das Zeichen mit dem Code 0."}));
    EXPECT_EQ(ProblemLines(Parse(key + u'\0').problems),
              Texts({u"firma.reg, Zeile 4: Die Zeile ist weder Schlüssel noch Wert noch "
                     u"Kommentar."}));
}

TEST(RegFileTest, FileThatIsNoRegistryFileIsOneErrorWhateverItHolds) {
    const std::u16string problem =
        u"firma.reg, Zeile 1: Die Datei ist keine Registrierungsdatei: Sie beginnt weder mit "
        u"'Windows Registry Editor Version 5.00' noch mit 'REGEDIT4'.";
    for (const std::string& bytes :
         {std::string(), std::string("MZ\x90\0\x03", 5), std::string("[HKEY_LOCAL_MACHINE\\X]\r\n"),
          std::string("REGEDIT5\n\n"), std::string("\xFF\xFE"), std::string("\xFF\xFF\xFF")}) {
        EXPECT_EQ(ProblemLines(ParseBytes(bytes).problems), Texts({problem}));
    }
}

TEST(RegFileTest, FileCutInTheMiddleOfACharacterIsAnErrorOfItsLastLine) {
    const std::string bytes =
        "\xFF\xFE" + ToUtf16Bytes(std::u16string(kHeader) + u"[HKEY_LOCAL_MACHINE\\X]\r\n");
    EXPECT_EQ(ProblemLines(ParseBytes(bytes + "[").problems),
              Texts({u"firma.reg, Zeile 4: Die Datei ist abgeschnitten: Das letzte UTF-16-Zeichen "
                     u"ist nur halb da."}));
    EXPECT_EQ(
        ProblemLines(ParseBytes(text::ToUtf8(kHeader) + "[HKEY_LOCAL_MACHINE\\\xC3").problems),
        Texts({u"firma.reg, Zeile 3: Die Zeile ist kein gültiges UTF-8."}));
}

}  // namespace
}  // namespace tarvex
