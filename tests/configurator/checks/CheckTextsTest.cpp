#include "tests/configurator/checks/CheckTesting.h"

namespace tarvex {
namespace {

TEST(CheckTextsTest, NumbersThatAreNone) {
    EXPECT_EQ(Check({{kFieldHCID, u"x1"}}),
              Texts({u"HCID: Fehler: 'x1' ist keine Zahl; es wird keine Hilfe angeboten. "
                     u"[not-a-number]"}));
    EXPECT_EQ(Check({{kFieldPicDelay, u"5s"}, {kFieldPicFilename, u"a.bmp"}}),
              Texts({u"PicDelay: Fehler: '5s' ist keine Zahl; das Startbild wird nicht angezeigt. "
                     u"[not-a-number]"}));
}

TEST(CheckTextsTest, SwitchThatIsNeitherOnNorOff) {
    EXPECT_EQ(Check({{kFieldRuntime, u"j"}}),
              Texts({u"Runtime: Warnung: 'j' ist kein Schalterwert und gilt als aus. "
                     u"[not-a-switch]"}));
}

TEST(CheckTextsTest, LineBreakInAValueOfOneLine) {
    const Texts text({u"AppName: Warnung: Der Wert enthält einen Zeilenwechsel. [line-break]"});
    EXPECT_EQ(Check({{kFieldAppName, u"a\r\nb"}}), text);
    EXPECT_EQ(Check({{kFieldErrBoxText, u"a\r\nb"}, {kFieldErrDebugText, u"a\r\nb"}}), Texts());
}

TEST(CheckTextsTest, LineBreakFromASettingsFileIsToldByItsReader) {
    Settings settings;
    settings.Set(kFieldAccPath, u"C:\\Office");
    settings.Set(kFieldDBFilename, u"a.mdb");
    settings.Set(kFieldAppName, u"a\r\nb", 3);
    EXPECT_TRUE(CheckSettings(settings, u"K.ini").empty());
}

TEST(CheckTextsTest, CommentThatBecamePartOfAValue) {
    const auto text = [](std::u16string_view sign) {
        return Texts({u"Macro: Warnung: Der Text ab '" + std::u16string(sign) +
                      u"' gehört zum Wert; ein Kommentar braucht eine eigene Zeile. "
                      u"[trailing-comment]"});
    };
    EXPECT_EQ(Check({{kFieldMacro, u"Start ; beim Öffnen"}}), text(u";"));
    EXPECT_EQ(Check({{kFieldMacro, u"Start ;beim Öffnen"}}), text(u";"));
    EXPECT_EQ(Check({{kFieldMacro, u"Start # beim Öffnen"}}), text(u"#"));
    EXPECT_EQ(Check({{kFieldMacro, u"Start #3;4"}}), Texts());
    EXPECT_EQ(Check({{kFieldUser, u"x"}, {kFieldPwd, u"geheim ; y"}}),
              Texts({u"Pwd: Warnung: Der Text ab ';' gehört zum Wert; ein Kommentar braucht eine "
                     u"eigene Zeile. [trailing-comment]"}));
    EXPECT_EQ(Check({{kFieldErrDebugText, u"a ; b"}}), Texts());
}

TEST(CheckTextsTest, CharactersThatLookLikeABlankAndAreNone) {
    const auto text = [](std::u16string_view what) {
        return Texts({u"Cmd: Warnung: Der Wert enthält " + std::u16string(what) +
                      u"; gemeint ist wohl ein Leerzeichen. [control-character]"});
    };
    EXPECT_EQ(Check({{kFieldCmd, u"a\tb"}}), text(u"einen Tabulator"));
    EXPECT_EQ(Check({{kFieldCmd, u"a\u00A0b"}}), text(u"ein geschütztes Leerzeichen"));
    EXPECT_EQ(Check({{kFieldCmd, u"a\u0001b"}}), text(u"das Steuerzeichen mit dem Code 1"));
    EXPECT_EQ(Check({{kFieldCmd, u"a\u0081b"}}), text(u"das Steuerzeichen mit dem Code 129"));
    EXPECT_EQ(Check({{kFieldErrBoxText, u"a\u0001b"}}).size(), 1U);
}

TEST(CheckTextsTest, QuoteInsideAValueThatIsQuotedOnTheLine) {
    for (const std::int32_t number :
         {kFieldProfile, kFieldMacro, kFieldUser, kFieldPwd, kFieldCmd}) {
        for (const std::u16string_view value : {u"a \"b\" c", u"\"", u"\"a\" b", u"a \"b\""}) {
            EXPECT_EQ(Check({{kFieldUser, u"x"}, {number, value}}),
                      Texts({std::u16string(FindBrandField(number)->name) +
                             u": Warnung: Der Wert enthält ein Anführungszeichen und steht auf der "
                             u"Befehlszeile selbst in Anführungszeichen; Access liest ihn dort "
                             u"anders. [inner-quote]"}))
                << number;
        }
        EXPECT_EQ(Check({{kFieldUser, u"x"}, {number, u"\"a b\""}}), Texts()) << number;
    }
    EXPECT_EQ(Check({{kFieldAppName, u"a \"b\" c"}}), Texts());
}

}  // namespace
}  // namespace tarvex
