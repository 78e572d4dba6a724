#include "configurator/SettingsFile.h"

#include <gtest/gtest.h>

#include "text/Text.h"
#include "text/TextCodec1252.h"

namespace tarvex {
namespace {

ParsedSettings Parse(std::u16string_view text) {
    return ParseSettings(text::ToUtf8(text), u"K.ini", TextCodec1252());
}

std::vector<std::u16string> Lines(const Problems& problems) {
    std::vector<std::u16string> lines;
    for (const Problem& problem : problems) {
        lines.push_back(ProblemLine(problem));
    }
    return lines;
}

using Texts = std::vector<std::u16string>;

TEST(SettingsFileTest, ByteOrderMarkSectionsCommentsAndEmptyLinesSayNothing) {
    const ParsedSettings parsed =
        Parse(u"\xFEFF; Kommentar\r\n# noch einer = 1\r\n\r\n[Abschnitt]\r\nAppName = Kunden\r\n");
    EXPECT_EQ(Lines(parsed.problems), Texts());
    EXPECT_EQ(parsed.settings.Entries().size(), 1U);
    EXPECT_EQ(parsed.settings.Value(kFieldAppName), u"Kunden");
    EXPECT_EQ(parsed.settings.Line(kFieldAppName), 5);
}

TEST(SettingsFileTest, NamesAreKnownInAnyCaseAndValuesAreLiteralButForBlanksAround) {
    const ParsedSettings parsed =
        Parse(u"dbFILEname=  \"a = b\" ; \\n #x  \nCMD = \tx\nPwd=  geheim \n");
    EXPECT_EQ(Lines(parsed.problems), Texts());
    EXPECT_EQ(parsed.settings.Value(kFieldDBFilename), u"\"a = b\" ; \\n #x");
    EXPECT_EQ(parsed.settings.Value(kFieldCmd), u"\tx");
    EXPECT_EQ(parsed.settings.Value(kFieldPwd), u"geheim");
}

TEST(SettingsFileTest, IndentedLineContinuesTheValueBehindALineBreak) {
    const ParsedSettings parsed = Parse(u"ErrBoxText = Eins\n Zwei\n\tDrei\n \n   Ende\n\nCmd=x\n");
    EXPECT_EQ(Lines(parsed.problems), Texts());
    EXPECT_EQ(parsed.settings.Value(kFieldErrBoxText), u"Eins\r\nZwei\r\nDrei\r\n\r\n  Ende");
    EXPECT_EQ(parsed.settings.Value(kFieldCmd), u"x");
}

TEST(SettingsFileTest, IndentedLineWithoutValueAboveIsAnError) {
    EXPECT_EQ(
        Lines(Parse(u" x\n").problems),
        Texts({u"K.ini, Zeile 1: Die Zeile beginnt mit einem Leerzeichen oder Tabulator, setzt "
               u"aber keinen Wert fort."}));
}

TEST(SettingsFileTest, FlagsAreOneOrZeroInAllTheirForms) {
    const ParsedSettings parsed = Parse(
        u"Runtime=1\nLog=Ja\nReadOnly=TRUE\nCompact=0\nRepair=nein\nDecompile=false\n"
        u"NoStartup=\n");
    EXPECT_EQ(Lines(parsed.problems), Texts());
    for (const std::int32_t on : {kFieldRuntime, kFieldLog, kFieldReadOnly}) {
        EXPECT_EQ(parsed.settings.Value(on), u"1");
    }
    for (const std::int32_t off : {kFieldCompact, kFieldRepair, kFieldDecompile}) {
        EXPECT_EQ(parsed.settings.Value(off), u"0");
    }
    EXPECT_EQ(parsed.settings.Value(kFieldNoStartup), u"");
}

TEST(SettingsFileTest, AllErrorsAreReportedInTheOrderOfTheirLines) {
    const std::string bytes =
        text::ToUtf8(
            u"DBPaht = x\nAppName = \x2603\nappname = 1\nRuntime = x\nUser = "
            u"ääääääääääääääääääääääääää\nFileID = 12345678901\n[Ende\nFoo\n") +
        "Cmd = \xff\n";
    EXPECT_EQ(
        Lines(ParseSettings(bytes, u"K.ini", TextCodec1252()).problems),
        Texts({u"K.ini, Zeile 1, DBPaht: Unbekannter Name 'DBPaht'; gemeint ist vielleicht DBPath.",
               u"K.ini, Zeile 2, AppName: Das Zeichen '\x2603' gibt es in der Codepage der "
               u"Einstellungen nicht.",
               u"K.ini, Zeile 3, AppName: Der Name kommt doppelt vor, zuerst in Zeile 2.",
               u"K.ini, Zeile 4, Runtime: 'x' ist kein Schalterwert (erlaubt: 1 oder 0).",
               u"K.ini, Zeile 5, User: Der Wert ist zu lang: Er braucht 103 Zeichen in "
               u"verschlüsselter Form, das Feld fasst 100.",
               u"K.ini, Zeile 6, FileID: Der Wert ist zu lang: Er braucht 11 Zeichen, das Feld "
               u"fasst 10.",
               u"K.ini, Zeile 7: Die Abschnittszeile endet nicht mit ']'.",
               u"K.ini, Zeile 8: 'Foo' ist weder 'Name = Wert' noch Abschnitt oder Kommentar.",
               u"K.ini, Zeile 9: Die Zeile ist kein gültiges UTF-8."}));
}

TEST(SettingsFileTest, LoneLineEndAndZeroInAValueAreRefused) {
    EXPECT_EQ(
        Lines(Parse(u"Cmd = a\rb\n").problems),
        Texts({u"K.ini, Zeile 1, Cmd: Ein Zeilenwechsel im Wert muss aus CR und LF bestehen."}));
    EXPECT_EQ(Lines(Parse(std::u16string(u"Cmd = a\0b\n", 10)).problems),
              Texts({u"K.ini, Zeile 1, Cmd: Der Wert enthält das Zeichen mit dem Code 0."}));
}

TEST(SettingsFileTest, WrittenSettingsAreReadBackTheSame) {
    Settings settings;
    settings.Set(kFieldAppName, u"Kunden & Größe");
    settings.Set(kFieldErrBoxText, u"\r\nEins  \r\n\r\n  ; Zwei\r\n[x]\r\n");
    settings.Set(kDBRegList.Field(7), u"HKLM\\A\\B%|Filename%|x.mdb");
    settings.Set(kFieldPwd, u"= ; #");
    settings.Set(kFieldRuntime, u"0");
    const std::string bytes = WriteSettings(settings, u"Einstellungen aus K.exe");
    const ParsedSettings parsed = ParseSettings(bytes, u"K.ini", TextCodec1252());
    EXPECT_EQ(Lines(parsed.problems), Texts());
    ASSERT_EQ(parsed.settings.Entries().size(), 5U);
    for (const auto& [number, entry] : settings.Entries()) {
        EXPECT_EQ(parsed.settings.Value(number), entry.value) << number;
    }
}

}  // namespace
}  // namespace tarvex
