#include "window/document/ReplaceForm.h"

#include "tests/window/keylist/KeyListTesting.h"
#include "window/keylist/KeyListPart.h"

namespace tarvex {
namespace {

class ReplaceFormTest : public KeyListTest {
protected:
    ReplaceFormTest() {
        document_.SetText(kFieldAppName, u"alt");
        document_.SetText(kFieldDBPath, u"\\\\ALT\\Daten\\alt");
        document_.SetText(kFieldDBFilename, u"Kunden.mdb");
        Put(2, u"HKLM\\SOFTWARE\\Alt\\Pfad%|Filename%|k.mdb", kPicRegList);
    }

    /// "FIELD: BEFORE -> AFTER [PROBLEM]", in UTF-8.
    std::vector<std::string> Changes(const TextReplacement& replacement) const {
        std::vector<std::string> changes;
        for (const ReplaceChange& change : FindReplacements(document_, replacement)) {
            changes.push_back(text::ToUtf8(
                std::u16string(FindField(change.number)->name) + u": " + change.before + u" -> " +
                change.after + (change.problem.empty() ? u"" : u" [" + change.problem + u"]")));
        }
        return changes;
    }

    static std::string Message(const FormModel& form, std::int32_t row) {
        return text::ToUtf8(form.State(row).message);
    }

    using Lines = std::vector<std::string>;
};

TEST_F(ReplaceFormTest, PathsAndEntriesAreChangedInAnyCase) {
    EXPECT_EQ(Changes({u"aLt", u"neu"}),
              (Lines{"DBPath: \\\\ALT\\Daten\\alt -> \\\\neu\\Daten\\neu",
                     "PicRegList02: HKLM\\SOFTWARE\\Alt\\Pfad%|Filename%|k.mdb -> "
                     "HKLM\\SOFTWARE\\neu\\Pfad%|Filename%|k.mdb"}));
}

TEST_F(ReplaceFormTest, CaseIsMatchedWhenAsked) {
    EXPECT_EQ(Changes({u"ALT", u"neu", true}),
              (Lines{"DBPath: \\\\ALT\\Daten\\alt -> \\\\neu\\Daten\\alt"}));
}

TEST_F(ReplaceFormTest, ReplacementIsNotSearchedAgain) {
    EXPECT_EQ(Changes({u"Kunden", u"KundenKunden"}),
              (Lines{"DBFilename: Kunden.mdb -> KundenKunden.mdb"}));
    document_.SetText(kFieldDBFilename, u"aaa.mdb");
    EXPECT_EQ(Changes({u"aa", u"b"}), (Lines{"DBFilename: aaa.mdb -> ba.mdb"}));
}

TEST_F(ReplaceFormTest, SameTextIsNoChange) {
    EXPECT_EQ(Changes({u"Kunden", u"Kunden"}), Lines());
    EXPECT_EQ(Changes({u"kunden", u"kunden"}), (Lines{"DBFilename: Kunden.mdb -> kunden.mdb"}));
    EXPECT_EQ(Changes({u"", u"x"}), Lines());
}

TEST_F(ReplaceFormTest, ParkedFieldsAreChangedToo) {
    document_.SetParked({kFieldDBFilename}, true);
    EXPECT_EQ(Changes({u"kunden", u"x"}), (Lines{"DBFilename: Kunden.mdb -> x.mdb"}));
    ReplaceForm form(document_);
    form.SetText(ReplaceForm::kFindRow, u"kunden");
    EXPECT_EQ(form.State(ReplaceForm::kChangesRow).items,
              (std::vector<std::vector<std::u16string>>{
                  {u"DBFilename", u"Kunden.mdb", u".mdb", u"zurzeit nicht benutzt"}}));
}

TEST_F(ReplaceFormTest, IconFileStaysAsItIs) {
    const std::int32_t iconFile = FindFieldByName(u"IconFile")->number;
    document_.SetText(iconFile, u"C:\\alt\\a.ico");
    ApplyReplacements(document_, FindReplacements(document_, {u"alt", u"neu"}));
    EXPECT_EQ(document_.Text(iconFile), u"C:\\alt\\a.ico");
}

TEST_F(ReplaceFormTest, TextThatDoesNotFitIsTold) {
    EXPECT_EQ(Changes({u"Kunden", std::u16string(97, u'x')}),
              (Lines{"DBFilename: Kunden.mdb -> " + std::string(97, 'x') +
                     ".mdb [Der Wert ist zu lang: Er braucht 101 Zeichen, das Feld fasst 100.]"}));
}

TEST_F(ReplaceFormTest, EntryThatCouldNotBeReadAnyMoreIsTold) {
    EXPECT_EQ(Changes({u"HKLM", u"XXXX"}),
              (Lines{"PicRegList02: HKLM\\SOFTWARE\\Alt\\Pfad%|Filename%|k.mdb -> "
                     "XXXX\\SOFTWARE\\Alt\\Pfad%|Filename%|k.mdb [Das Startprogramm kann den "
                     "Eintrag so nicht mehr lesen.]"}));
    Put(2, u"kein Eintrag", kPicRegList);
    EXPECT_EQ(Changes({u"kein", u"ein"}), (Lines{"PicRegList02: kein Eintrag -> ein Eintrag"}));
}

TEST_F(ReplaceFormTest, NothingElseIsChangedAndEachFieldIsOneStep) {
    ReplaceForm form(document_);
    form.SetText(ReplaceForm::kFindRow, u"alt");
    form.SetText(ReplaceForm::kReplacementRow, u"neu");
    EXPECT_EQ(document_.Text(kFieldDBPath), u"\\\\ALT\\Daten\\alt");
    EXPECT_TRUE(form.Accept());
    EXPECT_EQ(document_.Text(kFieldAppName), u"alt");
    EXPECT_EQ(document_.Text(kFieldDBPath), u"\\\\neu\\Daten\\neu");
    EXPECT_EQ(Fields(kPicRegList), "02=HKLM\\SOFTWARE\\neu\\Pfad%|Filename%|k.mdb");
    document_.Undo(kFieldDBPath);
    EXPECT_EQ(document_.Text(kFieldDBPath), u"\\\\ALT\\Daten\\alt");
}

TEST_F(ReplaceFormTest, KeyListTakesItsReplacementBack) {
    KeyListPart part(document_, dialogs_, kPicRegList);
    part.Press(KeyListRow(kPicRegList) + KeyListPart::kDeleteButton);
    part.Undo(KeyListRow(kPicRegList));
    ApplyReplacements(document_, FindReplacements(document_, {u"alt", u"neu"}));
    EXPECT_TRUE(part.Undo(KeyListRow(kPicRegList)));
    EXPECT_EQ(Fields(kPicRegList), "02=HKLM\\SOFTWARE\\Alt\\Pfad%|Filename%|k.mdb");
}

TEST_F(ReplaceFormTest, ChangesShowWhileTyping) {
    ReplaceForm form(document_);
    EXPECT_EQ(form.State(ReplaceForm::kChangesRow).items.size(), 0U);
    form.SetText(ReplaceForm::kFindRow, u"alt");
    form.SetText(ReplaceForm::kReplacementRow, u"neu");
    const RowState state = form.State(ReplaceForm::kChangesRow);
    EXPECT_EQ(state.items[0], (std::vector<std::u16string>{u"DBPath", u"\\\\ALT\\Daten\\alt",
                                                           u"\\\\neu\\Daten\\neu", u""}));
    EXPECT_EQ(text::ToUtf8(state.note), "2 Felder zu ändern");
    form.SetChecked(ReplaceForm::kMatchCaseRow, true);
    EXPECT_EQ(text::ToUtf8(form.State(ReplaceForm::kChangesRow).note), "1 Feld zu ändern");
    EXPECT_FALSE(form.State(ReplaceForm::kLeaveOutRow).enabled);
}

TEST_F(ReplaceFormTest, TextIsAskedFor) {
    ReplaceForm form(document_);
    EXPECT_EQ(Message(form, ReplaceForm::kFindRow), "");
    EXPECT_FALSE(form.Accept());
    EXPECT_EQ(Message(form, ReplaceForm::kFindRow),
              "Bitte den Text eingeben, der ersetzt werden soll.");
    form.SetText(ReplaceForm::kFindRow, u"nirgends");
    EXPECT_EQ(Message(form, ReplaceForm::kFindRow), "");
    EXPECT_FALSE(form.Accept());
    EXPECT_EQ(Message(form, ReplaceForm::kFindRow), "Hier ist nichts zu ersetzen.");
}

TEST_F(ReplaceFormTest, MisfitRefusesAllUnlessItIsLeftOut) {
    document_.SetText(kFieldDBFilename, u"alt" + std::u16string(90, u'x') + u".mdb");
    ReplaceForm form(document_);
    form.SetText(ReplaceForm::kFindRow, u"alt");
    form.SetText(ReplaceForm::kReplacementRow, u"neuerName");
    EXPECT_EQ(text::ToUtf8(form.State(ReplaceForm::kChangesRow).note),
              "2 Felder zu ändern, 1 nicht möglich");
    EXPECT_FALSE(form.Accept());
    EXPECT_EQ(Message(form, ReplaceForm::kChangesRow),
              "1 Feld kann den neuen Text nicht aufnehmen: Text ändern oder diese Felder "
              "auslassen.");
    EXPECT_EQ(document_.Text(kFieldDBPath), u"\\\\ALT\\Daten\\alt");
    EXPECT_TRUE(form.State(ReplaceForm::kLeaveOutRow).enabled);
    form.SetChecked(ReplaceForm::kLeaveOutRow, true);
    EXPECT_TRUE(form.Accept());
    EXPECT_EQ(document_.Text(kFieldDBPath), u"\\\\neuerName\\Daten\\neuerName");
    EXPECT_TRUE(document_.Text(kFieldDBFilename).starts_with(u"alt"));
}

TEST_F(ReplaceFormTest, OnlyMisfitsAreNothingToReplace) {
    ReplaceForm form(document_);
    form.SetText(ReplaceForm::kFindRow, u"Kunden");
    form.SetText(ReplaceForm::kReplacementRow, std::u16string(97, u'x'));
    form.SetChecked(ReplaceForm::kLeaveOutRow, true);
    EXPECT_FALSE(form.Accept());
    EXPECT_EQ(Message(form, ReplaceForm::kChangesRow), "Kein Feld kann den neuen Text aufnehmen.");
}

}  // namespace
}  // namespace tarvex
