#include "branding/StoredValue.h"

#include <gtest/gtest.h>

#include "tests/branding/BrandTesting.h"
#include "text/Text.h"
#include "text/TextCodec1252.h"

namespace tarvex {
namespace {

class StoredValueTest : public testing::Test {
protected:
    StoredValue Make(std::int32_t field, std::u16string_view plain) const {
        return MakeStoredValue(*FindBrandField(field), plain, codec);
    }
    std::u16string Plain(std::int32_t field, std::u16string_view stored) const {
        return PlainValue(*FindBrandField(field), stored, codec);
    }

    /// Stores a value and reads it back from its padded value area.
    std::u16string Survivor(std::int32_t field, std::u16string_view plain) const {
        const StoredValue value = Make(field, plain);
        EXPECT_EQ(value.problem, u"");
        return Plain(field, FitToWidth(value.stored, FindBrandField(field)->width));
    }

    TextCodec1252 codec;
};

TEST_F(StoredValueTest, ValueIsScrambled) {
    EXPECT_EQ(Make(kFieldRuntime, u"1").stored, u"N");
    EXPECT_EQ(Plain(kFieldRuntime, u"N"), u"1");
}

TEST_F(StoredValueTest, EmptyValueIsStoredEmpty) {
    for (const BrandField& field : kBrandFields) {
        const StoredValue value = MakeStoredValue(field, u"", codec);
        EXPECT_EQ(value.stored, u"");
        EXPECT_EQ(value.problem, u"");
        EXPECT_EQ(PlainValue(field, FitToWidth(u"", field.width), codec), u"");
    }
}

TEST_F(StoredValueTest, EveryCharacterSurvivesAtEveryPlace) {
    for (int code = 1; code <= 255; ++code) {
        const std::u16string character = codec.FromAnsi(std::string(1, static_cast<char>(code)));
        for (const std::u16string& value :
             {u"a" + character + u"b", character + u"ab", u"ab" + character, character}) {
            if (code == 127) {
                EXPECT_EQ(Make(kFieldCmd, value).problem,
                          u"Das Zeichen mit dem Code 127 kann nicht gespeichert werden.");
            } else {
                EXPECT_EQ(Survivor(kFieldCmd, value), character == u" " ? text::Trim(value) : value)
                    << code;
            }
            EXPECT_EQ(Survivor(kFieldUser, value), value) << code;
        }
    }
}

TEST_F(StoredValueTest, CharacterThatIsStoredAsABlankIsKeptByABlankBesideIt) {
    EXPECT_EQ(Make(kFieldCmd, u"€1").stored, u"€ N");
    EXPECT_EQ(Make(kFieldCmd, u"1€").stored, u"N €");
    EXPECT_EQ(Make(kFieldCmd, u"€").stored, u"€ €");
    EXPECT_EQ(Make(kFieldCmd, u"1€0").stored, u"N O");
}

TEST_F(StoredValueTest, ValuesThatEndInStoredControlCharactersSurvive) {
    for (const std::u16string_view name :
         {u"Daten.mdr", u"Daten.mds", u"Daten.mdt", u"Daten.mdu", u"Daten.mdv", u"rot", u"vst"}) {
        EXPECT_EQ(Survivor(kFieldDBFilename, name), name);
    }
}

TEST_F(StoredValueTest, BlanksAtTheEndsAreDroppedButNotInACredential) {
    EXPECT_EQ(Survivor(kFieldDBPath, u"  C:\\Meine Daten "), u"C:\\Meine Daten");
    EXPECT_EQ(Survivor(kFieldPwd, u" geheim "), u" geheim ");
    EXPECT_EQ(Survivor(kFieldDBPath, u"   "), u"");
    EXPECT_EQ(Survivor(kFieldPwd, u" "), u" ");
}

TEST_F(StoredValueTest, CharacterOutsideTheCodePageIsNamed) {
    const StoredValue value = Make(kFieldAppName, u"Kunden Ω");
    EXPECT_EQ(value.stored, u"");
    EXPECT_EQ(value.problem, u"Das Zeichen 'Ω' gibt es in der Codepage der Einstellungen nicht.");
    EXPECT_EQ(Make(kFieldUser, u"Ω").problem, value.problem);
    EXPECT_EQ(Make(kFieldAppName, u"\U0001F600").problem,
              u"Das Zeichen mit dem Code 55357 gibt es in der Codepage der Einstellungen nicht.");
}

TEST_F(StoredValueTest, ZeroCharacterIsRefusedEverywhere) {
    const std::u16string zero(u"a\0b", 3);
    const std::u16string problem = u"Das Zeichen mit dem Code 0 kann nicht gespeichert werden.";
    EXPECT_EQ(Make(kFieldCmd, zero).problem, problem);
    EXPECT_EQ(Make(kFieldPwd, zero).problem, problem);
}

TEST_F(StoredValueTest, ValueAsLongAsTheFieldFits) {
    EXPECT_EQ(Survivor(kFieldHCID, u"12345"), u"12345");
    const StoredValue value = Make(kFieldHCID, u"123456");
    EXPECT_EQ(value.stored, u"");
    EXPECT_EQ(value.problem, u"Der Wert ist zu lang: Er braucht 6 Zeichen, das Feld fasst 5.");
}

TEST_F(StoredValueTest, BlankThatKeepsAnEndNeedsRoom) {
    EXPECT_EQ(Survivor(kFieldHCID, u"123€"), u"123€");
    EXPECT_EQ(Make(kFieldHCID, u"1234€").problem,
              u"Der Wert ist zu lang: Er braucht 6 Zeichen, das Feld fasst 5.");
}

TEST_F(StoredValueTest, CredentialIsLimitedByItsListOfNumbers) {
    const std::u16string fits(25, u'ü');
    EXPECT_EQ(Survivor(kFieldUser, fits), fits);
    EXPECT_EQ(Make(kFieldUser, fits + u"ü").problem,
              u"Der Wert ist zu lang: Er braucht 103 Zeichen in verschlüsselter Form, das Feld "
              u"fasst 100.");
    EXPECT_EQ(Make(kFieldEditPwd, fits.substr(0, 12)).problem, u"");
    EXPECT_NE(Make(kFieldEditPwd, fits.substr(0, 13)).problem, u"");
}

TEST_F(StoredValueTest, CredentialOfAsciiLettersMayBeLonger) {
    const std::u16string fits(33, u'a');
    EXPECT_EQ(Survivor(kFieldPwd, fits), fits);
    EXPECT_NE(Make(kFieldPwd, fits + u"a").problem, u"");
    EXPECT_EQ(Survivor(kFieldEditPwd, fits.substr(0, 17)), fits.substr(0, 17));
}

TEST_F(StoredValueTest, CredentialIsNotReadableInTheFile) {
    const std::u16string stored = Make(kFieldPwd, u"geheim").stored;
    EXPECT_EQ(stored.find(u"geheim"), std::u16string::npos);
    EXPECT_EQ(stored.find(u'#'), std::u16string::npos);
}

TEST_F(StoredValueTest, DamagedCredentialIsAnError) {
    const std::u16string damaged = Make(kFieldCmd, u"42#x").stored;
    ExpectError(ErrorOf([&] { Plain(kFieldPwd, damaged); }), 13, u"Typen unverträglich", u"");
}

}  // namespace
}  // namespace tarvex
