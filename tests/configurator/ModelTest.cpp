#include "configurator/Model.h"

#include <gtest/gtest.h>

#include <set>

#include "configurator/FieldTexts.h"
#include "configurator/program/ProgramFields.h"
#include "text/TextCodec1252.h"

namespace tarvex {
namespace {

const BrandField& Field(std::int32_t number) {
    return *FindBrandField(number);
}

TEST(ModelTest, ProblemIsOneLineThatNamesFileLineAndField) {
    EXPECT_EQ(ProblemLine({u"K.ini", 12, u"Pwd", u"Eins\r\nZwei\tDrei."}),
              u"K.ini, Zeile 12, Pwd: Eins Zwei Drei.");
    EXPECT_EQ(ProblemLine({u"K.exe", 0, {}, u"Nein."}), u"K.exe: Nein.");
    EXPECT_EQ(ProblemLine({{}, 0, {}, u"Nein."}), u"Nein.");
}

TEST(ModelTest, UsableWidthOfACredentialIsThatOfItsNumberList) {
    const TextCodec1252 codec;
    EXPECT_EQ(UsableWidth(Field(kFieldUser), codec), 33);
    EXPECT_EQ(UsableWidth(Field(kFieldPwd), codec), 33);
    EXPECT_EQ(UsableWidth(Field(kFieldEditPwd), codec), 17);
    EXPECT_EQ(UsableWidth(Field(kFieldDBPath), codec), 255);
}

TEST(ModelTest, CredentialTakesItsUsableWidthAndOneMoreIsRefused) {
    const TextCodec1252 codec;
    EXPECT_EQ(AcceptValue(Field(kFieldPwd), std::u16string(33, u'!'), codec).problem, u"");
    EXPECT_EQ(
        AcceptValue(Field(kFieldPwd), std::u16string(34, u'!'), codec).problem,
        u"Der Wert ist zu lang: Er braucht 101 Zeichen in verschlüsselter Form, das Feld fasst "
        u"100.");
    EXPECT_EQ(AcceptValue(Field(kFieldEditPwd), std::u16string(12, u'ä'), codec).problem, u"");
    EXPECT_NE(AcceptValue(Field(kFieldEditPwd), std::u16string(13, u'ä'), codec).problem, u"");
}

TEST(ModelTest, BlanksAndTabsAroundAreDroppedButRefusedInACredential) {
    const TextCodec1252 codec;
    EXPECT_EQ(AcceptValue(Field(kFieldCmd), u"  a b ", codec).value, u"a b");
    EXPECT_EQ(AcceptValue(Field(kFieldPwd), u"a ", codec).problem,
              u"Der Wert darf nicht mit einem Leerzeichen oder Tabulator beginnen oder enden.");
    EXPECT_EQ(AcceptValue(Field(kFieldCmd), u"\ta b\t ", codec).value, u"a b");
    EXPECT_EQ(AcceptValue(Field(kFieldPwd), u"\ta", codec).problem,
              u"Der Wert darf nicht mit einem Leerzeichen oder Tabulator beginnen oder enden.");
}

TEST(ModelTest, DeleteCharacterIsRefused) {
    EXPECT_EQ(AcceptValue(Field(kFieldCmd),
                          u"a\x7f"
                          u"b",
                          TextCodec1252())
                  .problem,
              u"Das Zeichen mit dem Code 127 kann nicht gespeichert werden.");
}

TEST(ModelTest, NearestNameIgnoresCase) {
    EXPECT_EQ(UnknownNameText(u"SYSDBPFAD"),
              u"Unbekannter Name 'SYSDBPFAD'; gemeint ist vielleicht SysDBPath.");
}

TEST(ModelTest, NearestNameMayBeOneOfTheProgramFile) {
    EXPECT_EQ(UnknownNameText(u"CompanyNam"),
              u"Unbekannter Name 'CompanyNam'; gemeint ist vielleicht CompanyName.");
}

TEST(ModelTest, IconGoesWithItsField) {
    Settings old;
    old.Set(kFieldIconFile, u"a.ico");
    old.SetIcon("old");
    Settings other;
    other.Set(kFieldComments, u"x");
    old.SetAll(other);
    EXPECT_EQ(old.Icon(), "old");
    other.Set(kFieldIconFile, u"b.ico");
    other.SetIcon("new");
    old.SetAll(other);
    EXPECT_EQ(old.Icon(), "new");
}

TEST(ModelTest, EveryFieldHasAMeaningAndStandsInOneSection) {
    std::set<std::int32_t> seen;
    for (const FieldSection& section : FieldSections()) {
        for (const std::int32_t number : section.fields) {
            EXPECT_TRUE(seen.insert(number).second) << number;
        }
    }
    EXPECT_EQ(seen.size(), FieldsByNumber().size());
    for (const BrandField* field : FieldsByNumber()) {
        EXPECT_NE(FieldMeaning(*field), u"") << field->number;
        EXPECT_TRUE(seen.contains(field->number)) << field->number;
    }
    EXPECT_EQ(FieldMeaning(Field(kSysDBRegList.Field(10))),
              u"10. Eintrag der Schlüsselliste zur Arbeitsgruppendatei");
}

TEST(ModelTest, MeaningSaysHowASettingsFileHasTheValueAndPurposeDoesNot) {
    EXPECT_EQ(FieldPurpose(Field(kFieldRuntime)), u"Access im Laufzeitmodus starten");
    EXPECT_EQ(FieldMeaning(Field(kFieldRuntime)), u"Schalter: Access im Laufzeitmodus starten");
    EXPECT_EQ(FieldPurpose(Field(kFieldPwd)), u"Kennwort zu User");
    EXPECT_EQ(FieldMeaning(Field(kFieldPwd)), u"Kennwort zu User; im Klartext");
    EXPECT_EQ(FieldPurpose(*FindField(kFieldIconFile)), u"Symboldatei (.ico) des Programms");
    EXPECT_EQ(FieldMeaning(*FindField(kFieldIconFile)),
              u"Symboldatei (.ico) des Programms; relativ zur Einstellungsdatei möglich");
}

}  // namespace
}  // namespace tarvex
