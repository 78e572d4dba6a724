#include "configurator/program/ProgramFields.h"

#include <gtest/gtest.h>

#include "branding/BrandFields.h"

namespace tarvex {
namespace {

std::u16string ProblemOf(std::int32_t number, std::u16string_view value) {
    return AcceptProgramValue(*FindField(number), value).problem;
}

TEST(ProgramFieldsTest, NumbersAreConsecutiveAndNoneThatAMarkCanHave) {
    std::int32_t number = 1001;
    for (const BrandField& field : kProgramFields) {
        EXPECT_EQ(field.number, number++);
        EXPECT_EQ(FindField(field.number), &field);
        EXPECT_EQ(FindFieldByName(field.name), &field);
        EXPECT_TRUE(IsProgramField(field.number));
        EXPECT_EQ(FindBrandField(field.number), nullptr);
        EXPECT_EQ(FindBrandFieldByName(field.name), nullptr);
    }
    EXPECT_EQ(FindField(1000), nullptr);
    EXPECT_EQ(FindField(1012), nullptr);
    EXPECT_EQ(FindFieldByName(u"companyname")->number, kFieldCompanyName);
    EXPECT_EQ(FindFieldByName(u"Company"), nullptr);
}

TEST(ProgramFieldsTest, TextsMayHoldAnyCharactersOfALine) {
    const AcceptedValue accepted =
        AcceptProgramValue(*FindField(kFieldCompanyName), u"  Žižkov 日本 🙂 ©  ");
    EXPECT_EQ(accepted.problem, u"");
    EXPECT_EQ(accepted.value, u"Žižkov 日本 🙂 ©");
    EXPECT_EQ(ProblemOf(kFieldFileDescription, u""), u"");
}

TEST(ProgramFieldsTest, ControlCharactersAndHalvesOfCharactersAreRefused) {
    const std::u16string refused =
        u"Der Text muss in einer Zeile stehen und darf keine Steuerzeichen enthalten.";
    for (const char16_t unit : {u'\0', u'\t', u'\r', u'\n', u'\x1f', u'\x7f', u'\x85', u'\u2028',
                                u'\u2029', char16_t{0xd800}, char16_t{0xdc00}}) {
        EXPECT_EQ(ProblemOf(kFieldComments, std::u16string(u"a") + unit + u"b"), refused);
        EXPECT_EQ(ProblemOf(kFieldIconFile, std::u16string(u"a") + unit + u"b"), refused);
    }
    EXPECT_EQ(ProblemOf(kFieldComments, std::u16string(u"a") + char16_t{0xd83d}), refused);
}

TEST(ProgramFieldsTest, TooLongTextsAreRefused) {
    EXPECT_EQ(ProblemOf(kFieldComments, std::u16string(500, u'x')), u"");
    EXPECT_EQ(ProblemOf(kFieldComments, std::u16string(501, u'x')),
              u"Der Text hat 501 Zeichen, höchstens 500 sind möglich.");
}

TEST(ProgramFieldsTest, VersionsBeginWithNumbers) {
    EXPECT_EQ(ProblemOf(kFieldFileVersion, u"1.2 Beta"), u"");
    EXPECT_EQ(ProblemOf(kFieldFileVersion, u""), u"");
    EXPECT_EQ(ProblemOf(kFieldProductVersion, u"Herbst"),
              u"Der Text beginnt nicht mit einer Versionsnummer wie 1.2.3.");
    EXPECT_EQ(ProblemOf(kFieldFileVersion, u"1.70000"),
              u"Eine Zahl der Versionsnummer ist größer als 65535.");
    EXPECT_EQ(ProblemOf(kFieldComments, u"Herbst"), u"");
}

}  // namespace
}  // namespace tarvex
