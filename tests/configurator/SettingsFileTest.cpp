#include "configurator/SettingsFile.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/support/SyntheticLauncher.h"
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

std::vector<std::u16string> Lines(const Findings& findings) {
    std::vector<std::u16string> lines;
    for (const Finding& finding : findings) {
        lines.push_back(FindingLine(finding));
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

TEST(SettingsFileTest, NamesAreKnownInAnyCaseAndValuesAreLiteralButForBlanksAndTabsAround) {
    const ParsedSettings parsed =
        Parse(u"dbFILEname=  \"a = b\" ; \\n #x  \nCMD\t=\tx\ty\t \nPwd=  geheim\t\n");
    EXPECT_EQ(Lines(parsed.problems), Texts());
    EXPECT_EQ(parsed.settings.Value(kFieldDBFilename), u"\"a = b\" ; \\n #x");
    EXPECT_EQ(parsed.settings.Value(kFieldCmd), u"x\ty");
    EXPECT_EQ(parsed.settings.Value(kFieldPwd), u"geheim");
}

TEST(SettingsFileTest, IndentedLineContinuesTheValueAfterALineBreak) {
    const ParsedSettings parsed = Parse(u"ErrBoxText = Eins\n Zwei\n\tDrei\n   Ende\n\nCmd=x\n");
    EXPECT_EQ(Lines(parsed.problems), Texts());
    EXPECT_EQ(Lines(parsed.warnings), Texts());
    EXPECT_EQ(parsed.settings.Value(kFieldErrBoxText), u"Eins\r\nZwei\r\nDrei\r\n  Ende");
    EXPECT_EQ(parsed.settings.Value(kFieldCmd), u"x");
}

TEST(SettingsFileTest, LinesOfBlanksBetweenContinuationLinesAreEmptyLinesOfTheText) {
    const ParsedSettings parsed =
        Parse(u"ErrBoxText = Eins\n   \n\t\n Zwei\nErrDebugText =\n \n Drei\n");
    EXPECT_EQ(Lines(parsed.problems), Texts());
    EXPECT_EQ(parsed.settings.Value(kFieldErrBoxText), u"Eins\r\n\r\n\r\nZwei");
    EXPECT_EQ(parsed.settings.Value(kFieldErrDebugText), u"\r\n\r\nDrei");
}

TEST(SettingsFileTest, LineOfBlanksElsewhereIsAnEmptyLine) {
    const ParsedSettings parsed = Parse(
        u" \t\nErrBoxText = Eins\n Zwei\n  \nCmd = x\n \n\n \n; Kommentar\n\t\nMacro = y\n  ");
    EXPECT_EQ(Lines(parsed.problems), Texts());
    EXPECT_EQ(Lines(parsed.warnings), Texts());
    EXPECT_EQ(parsed.settings.Value(kFieldErrBoxText), u"Eins\r\nZwei");
    EXPECT_EQ(parsed.settings.Value(kFieldCmd), u"x");
    EXPECT_EQ(parsed.settings.Value(kFieldMacro), u"y");
}

TEST(SettingsFileTest, EmptyLineEndsAValue) {
    EXPECT_EQ(
        Lines(Parse(u"ErrBoxText = Eins\n\n Zwei\n").problems),
        Texts(
            {u"K.ini, Zeile 3: Die Zeile beginnt mit einem Leerzeichen oder Tabulator, setzt aber "
             u"keinen Wert fort."}));
}

TEST(SettingsFileTest, BarAfterTheBlanksMakesTheRestLiteral) {
    const ParsedSettings parsed =
        Parse(u"ErrBoxText = |Eins\n |Cmd = x\n \t| Zwei\n ||\n |\n |\nCmd = y\n");
    EXPECT_EQ(Lines(parsed.problems), Texts());
    EXPECT_EQ(parsed.settings.Value(kFieldErrBoxText), u"|Eins\r\nCmd = x\r\n Zwei\r\n|\r\n\r\n");
    EXPECT_EQ(parsed.settings.Value(kFieldCmd), u"y");
}

TEST(SettingsFileTest, IndentedLineThatReadsLikeAFieldIsAnError) {
    const ParsedSettings parsed =
        Parse(u"ErrBoxText = Eins\n\t dbpath\t= x\n Zwei\nFoo = 1\n  Log=1\n Foo = 2\n");
    const std::u16string text =
        u"Die Zeile ist eingerückt und gehörte damit zum Wert darüber, liest sich aber wie ein "
        u"eigenes Feld. Nicht einrücken, oder, wenn sie Text ist, mit '|' beginnen.";
    EXPECT_EQ(Lines(parsed.problems),
              Texts({u"K.ini, Zeile 2, DBPath: " + text,
                     u"K.ini, Zeile 4, Foo: Unbekannter Name 'Foo'; gemeint ist vielleicht Log.",
                     u"K.ini, Zeile 5, Log: " + text}));
    EXPECT_EQ(parsed.settings.Value(kFieldErrBoxText), u"Eins\r\nZwei");
}

TEST(SettingsFileTest, IndentedLineAfterAFieldOfOneLineIsAWarning) {
    const ParsedSettings parsed = Parse(
        u"ErrBoxText = a\n b\nErrDebugText = a\n b\nAppName = Kunden\n GmbH\n KG\nCmd =\n x\n");
    EXPECT_EQ(Lines(parsed.problems), Texts());
    const std::u16string text =
        u"Warnung: Die Zeile ist eingerückt und setzt den Wert darüber fort; er enthält damit "
        u"einen "
        u"Zeilenwechsel. [continued-value]";
    EXPECT_EQ(Lines(parsed.warnings),
              Texts({u"K.ini, Zeile 6, AppName: " + text, u"K.ini, Zeile 9, Cmd: " + text}));
    EXPECT_EQ(parsed.settings.Value(kFieldAppName), u"Kunden\r\nGmbH\r\nKG");
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
               u"K.ini, Zeile 8: Die Zeile ist weder 'Name = Wert' noch Abschnitt oder Kommentar.",
               u"K.ini, Zeile 9: Die Zeile ist kein gültiges UTF-8."}));
}

TEST(SettingsFileTest, LoneLineEndAndZeroInAValueAreRefused) {
    EXPECT_EQ(
        Lines(Parse(u"Cmd = a\rb\n").problems),
        Texts({u"K.ini, Zeile 1, Cmd: Ein Zeilenwechsel im Wert muss aus CR und LF bestehen."}));
    EXPECT_EQ(Lines(Parse(std::u16string(u"Cmd = a\0b\n", 10)).problems),
              Texts({u"K.ini, Zeile 1, Cmd: Der Wert enthält das Zeichen mit dem Code 0."}));
}

TEST(SettingsFileTest, LineThatIsNotUnderstoodIsNotRepeated) {
    const Texts lines = Lines(Parse(u"Pwd\ngeheim\n").problems);
    EXPECT_EQ(lines,
              Texts({u"K.ini, Zeile 1: Die Zeile ist weder 'Name = Wert' noch Abschnitt oder "
                     u"Kommentar.",
                     u"K.ini, Zeile 2: Die Zeile ist weder 'Name = Wert' noch Abschnitt oder "
                     u"Kommentar."}));
}

std::string Utf16(std::u16string_view text, bool swapped) {
    std::string bytes;
    for (const char16_t unit : text) {
        const char low = static_cast<char>(unit & 0xFFU);
        const char high = static_cast<char>(unit >> 8U);
        bytes += swapped ? high : low;
        bytes += swapped ? low : high;
    }
    return bytes;
}

TEST(SettingsFileTest, Utf16WithAMarkIsReadInBothByteOrders) {
    for (const bool swapped : {false, true}) {
        const std::string bytes =
            Utf16(u"\xFEFF[A]\r\nErrBoxText = Größe €\r\n\tb\r\nCmd=x", swapped);
        const ParsedSettings parsed = ParseSettings(bytes, u"K.ini", TextCodec1252());
        EXPECT_EQ(Lines(parsed.problems), Texts());
        EXPECT_EQ(parsed.settings.Value(kFieldErrBoxText), u"Größe €\r\nb");
        EXPECT_EQ(parsed.settings.Value(kFieldCmd), u"x");
        EXPECT_EQ(parsed.settings.Line(kFieldCmd), 4);
    }
}

TEST(SettingsFileTest, FileThatIsNoSettingsFileIsOneError) {
    const Texts refused(
        {u"K.ini: Die Datei ist keine Einstellungsdatei: Kaum eine Zeile hat die Form "
         u"'Name = Wert' mit einem bekannten Namen."});
    std::string report = "Protokoll vom Montag\nCmd = x\n ein\n";
    for (int i = 0; i < 450; ++i) {
        report += "Zeile = " + std::to_string(i) + '\n';
    }
    std::string noise;
    for (int i = 0; i < 5000; ++i) {
        noise += i % 100 == 0 ? '\n' : static_cast<char>(128 + i * i % 120);
    }
    for (const std::string& bytes : {SyntheticLauncher().Build(), std::string("MZ"), report, noise,
                                     std::string("Lieber Kunde,\n\nhier\nist\nder Text.\n"),
                                     Utf16(u"AppName = x\nCmd = y\nLog = 1\nUser = z\n", false)}) {
        const ParsedSettings parsed = ParseSettings(bytes, u"K.ini", TextCodec1252());
        EXPECT_EQ(Lines(parsed.problems), refused);
        EXPECT_EQ(Lines(parsed.warnings), Texts());
        EXPECT_TRUE(parsed.settings.Entries().empty());
    }
}

TEST(SettingsFileTest, FewStrangeLinesAreNamedOneByOne) {
    EXPECT_EQ(Parse(u"a\nb\nc\n").problems.size(), 3U);
    EXPECT_EQ(Parse(u"Cmd = x\na\nb\nc\nd\ne\nf\ng\nh\ni\nj\nk\n").problems.size(), 11U);
    EXPECT_EQ(Parse(u"Cmd = x\na\nb\nc\nd\ne\nf\ng\nh\ni\nj\nk\nl\n").problems.size(), 1U);
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

TEST(SettingsFileTest, WrittenFileHasSectionsAndCommentsAndTheFieldsThatAreSet) {
    Settings settings;
    settings.Set(kFieldAppName, u"Kunden");
    settings.Set(kFieldErrBoxText, u"Eins\r\n\r\nCmd = x\r\n| Zwei");
    settings.Set(kDBRegList.Field(3), u"HKLM\\A\\B");
    const std::u16string text = text::FromUtf8(WriteSettings(settings, u"Titel\nzwei Zeilen"));
    EXPECT_TRUE(text.starts_with(
        u"; Titel\r\n; zwei Zeilen\r\n\r\n[Anwendung]\r\n"
        u"; Name und Texte, die der Benutzer sieht.\r\n"
        u"; Anzeigename der Anwendung\r\nAppName = Kunden\r\n"
        u"; Kennung dieser Konfiguration für den Diagnosebericht\r\n;FileID =\r\n"
        u"; Hilfethema (Zahl), das bei einer Fehlermeldung geöffnet wird\r\n;HCID =\r\n"
        u"; zusätzlicher Text im Fehlerfenster\r\nErrBoxText = Eins\r\n |\r\n |Cmd = x\r\n"
        u" || Zwei\r\n"
        u"; zusätzlicher Text über den Fehlerdetails\r\n;ErrDebugText =\r\n\r\n[Access]\r\n"
        u"; Wo msaccess.exe liegt. Die Schlüssellisten gehen AccPath vor; ist nichts angegeben,\r\n"
        u"; gelten die Schlüssel von Office 8.0.\r\n"))
        << text::ToUtf8(text);
    EXPECT_NE(text.find(u"\r\n; 1. Eintrag der Schlüsselliste zur Datenbank\r\n;DBRegList01 =\r\n"
                        u"; 3. Eintrag der Schlüsselliste zur Datenbank\r\n"
                        u"DBRegList03 = HKLM\\A\\B\r\n\r\n[Arbeitsgruppe]\r\n"),
              std::u16string::npos);
    EXPECT_NE(text.find(u"\r\n; Schalter: Datenbank komprimieren\r\n;Compact =\r\n"
                        u"; Schalter: Datenbank reparieren\r\n;Repair =\r\n"),
              std::u16string::npos);
    Texts sections;
    for (const std::u16string_view line : text::Split(text, u'\n')) {
        if (line.starts_with(u'[')) {
            sections.emplace_back(line.substr(0, line.size() - 1));
        }
    }
    EXPECT_EQ(sections, Texts({u"[Anwendung]", u"[Access]", u"[Datenbank]", u"[Arbeitsgruppe]",
                               u"[Optionen]", u"[Startbild]", u"[Diagnose]", u"[Programmdatei]"}));
}

/// Texts of words and line breaks that mean something in a settings file.
std::u16string RandomText(std::mt19937& random) {
    const std::u16string_view pieces[] = {u"\r\n",   u"\r\n", u" ",  u"\t",  u"|",
                                          u"=",      u";",    u"#",  u"[x]", u"Cmd",
                                          u"Cmd = ", u"ä€",   u"\"", u"Wort"};
    std::u16string text;
    for (auto count = random() % 12; count > 0; --count) {
        text += pieces[random() % std::size(pieces)];
    }
    return text;
}

TEST(SettingsFileTest, EveryAcceptedValueIsReadBackTheSame) {
    const TextCodec1252 codec;
    std::mt19937 random(7);
    std::size_t lineBreaks = 0;
    for (int round = 0; round < 300; ++round) {
        Settings settings;
        for (const BrandField& field : kBrandFields) {
            const AcceptedValue accepted = AcceptValue(field, RandomText(random), codec);
            if (accepted.problem.empty() && !accepted.value.empty()) {
                settings.Set(field.number, accepted.value);
                lineBreaks += accepted.value.find(u'\n') != std::u16string::npos ? 1U : 0U;
            }
        }
        const ParsedSettings parsed = ParseSettings(WriteSettings(settings, u"x"), u"K.ini", codec);
        ASSERT_EQ(Lines(parsed.problems), Texts()) << round;
        ASSERT_EQ(parsed.settings.Entries().size(), settings.Entries().size()) << round;
        for (const auto& [number, entry] : settings.Entries()) {
            ASSERT_EQ(parsed.settings.Value(number), entry.value) << round << ' ' << number;
        }
    }
    EXPECT_GT(lineBreaks, 5000U);
}

}  // namespace
}  // namespace tarvex
