#include "window/pages/PageForm.h"

#include "configurator/program/ProgramFields.h"
#include "tests/window/pages/PageWorld.h"
#include "window/pages/Questions.h"

namespace tarvex {
namespace {

constexpr const char16_t* kEntry = u"HKLM\\SOFTWARE\\Muster\\Pfad%|Filename%|Kunden.mdb";

class PageFormTest : public PageWorld {};

TEST_F(PageFormTest, RowShowsTheTextOfItsField) {
    const PageForm& form = Open(kApplicationPage, {{kFieldAppName, u"Kunden"}});
    const RowState state = form.State(kFieldAppName);
    EXPECT_EQ(state.text, u"Kunden");
    EXPECT_TRUE(state.enabled);
    EXPECT_FALSE(state.readOnly);
}

TEST_F(PageFormTest, RowOfAnotherPageIsNotShown) {
    PageForm& form = Open(kApplicationPage, {{kFieldDBPath, u"Daten"}});
    EXPECT_EQ(form.State(kFieldDBPath).text, u"");
    form.SetText(kFieldDBPath, u"x");
    EXPECT_EQ(Text(kFieldDBPath), "Daten");
}

TEST_F(PageFormTest, FirstPageSaysWhichLauncherItIs) {
    EXPECT_EQ(Open(kApplicationPage).State(kRowProgram).text,
              u"Startprogramm: C:\\Prog\\Kunden.exe");
    EXPECT_EQ(Open(kApplicationPage, {}, true).State(kRowProgram).text,
              u"Startprogramm: C:\\Prog\\Kunden.exe (kann nur gelesen werden: Die Datei ist "
              u"signiert.)");
    Document document({u"C:\\Prog\\Neu.exe", u"C:\\tarvex.exe"}, {}, codec_);
    const PageForm form(Pages().at(kApplicationPage), document, dialogs_, store_, codec_);
    EXPECT_EQ(form.State(kRowProgram).text,
              u"Startprogramm: C:\\Prog\\Neu.exe (neu, noch nicht gespeichert)");
}

TEST_F(PageFormTest, TypedCharactersAreOneStepToUndo) {
    PageForm& form = Open(kApplicationPage);
    form.SetText(kFieldAppName, u"K");
    form.SetText(kFieldAppName, u"Ku");
    EXPECT_EQ(Text(kFieldAppName), "Ku");
    EXPECT_TRUE(form.Undo(kFieldAppName));
    EXPECT_EQ(Text(kFieldAppName), "");
    EXPECT_FALSE(form.Undo(kFieldAppName));
}

TEST_F(PageFormTest, LinesHaveTheLineEndsOfTheSettings) {
    PageForm& form = Open(kErrorsPage);
    form.SetText(kFieldErrBoxText, u"Eins\nZwei\r\nDrei");
    EXPECT_EQ(Text(kFieldErrBoxText), "Eins\r\nZwei\r\nDrei");
    EXPECT_EQ(Message(kFieldErrBoxText), "");
}

TEST_F(PageFormTest, CheckBoxIsASwitch) {
    PageForm& form = Open(kOptionsPage, {{kFieldRuntime, u"1"}});
    EXPECT_TRUE(form.State(kFieldRuntime).checked);
    form.SetChecked(kFieldRuntime, false);
    EXPECT_EQ(Text(kFieldRuntime), "0");
    EXPECT_FALSE(form.State(kFieldRuntime).checked);
    form.SetChecked(kFieldExclusive, true);
    EXPECT_EQ(Text(kFieldExclusive), "1");
    EXPECT_TRUE(form.Undo(kFieldExclusive));
    EXPECT_FALSE(form.State(kFieldExclusive).checked);
}

// The room that is left.

TEST_F(PageFormTest, NoteSaysHowMuchRoomIsLeft) {
    PageForm& form = Open(kApplicationPage, {{kFieldAppName, u"Kunden"}});
    EXPECT_EQ(Note(kFieldAppName), "noch 44 von 50 Zeichen");
    form.SetText(kFieldFileID, u"KD-2004-1-neu");
    EXPECT_EQ(Note(kFieldFileID), "3 Zeichen zu viel");
}

TEST_F(PageFormTest, NoteOfACredentialIsWhatFitsForCertain) {
    PageForm& form = Open(kDiagnosisPage);
    EXPECT_EQ(Note(kFieldEditPwd), "noch 17 von 17 Zeichen");
    form.SetText(kFieldEditPwd, u"Diagnose");
    EXPECT_EQ(Note(kFieldEditPwd), "noch 9 von 17 Zeichen");
}

TEST_F(PageFormTest, NoteOfANumberIsItsLimitAndSwitchesHaveNone) {
    PageForm& form = Open(kPicturePage, {{kFieldPicFilename, u"Start.bmp"}});
    EXPECT_EQ(Note(kFieldPicDelay), "Zahl bis 9999");
    form.SetText(kFieldPicDelay, u"100000");
    EXPECT_EQ(Note(kFieldPicDelay), "2 Zeichen zu viel");
    EXPECT_EQ(Message(kFieldPicDelay),
              "Der Wert ist zu lang: Er braucht 6 Zeichen, das Feld fasst 4.");
    Open(kOptionsPage);
    EXPECT_EQ(Note(kFieldRuntime), "");
}

TEST_F(PageFormTest, NoteOfTheIconSaysWhereItIs) {
    Settings saved;
    saved.Set(kFieldIconFile, u"16 x 16");
    saved.SetIcon("icon");
    PageForm& form = OpenSaved(kProgramPage, saved);
    EXPECT_EQ(Note(kFieldIconFile), "Symbol im Programm");
    form.SetText(kFieldIconFile, u"Neu.ico");
    EXPECT_EQ(Note(kFieldIconFile), "noch 253 von 260 Zeichen");
    document_->SetIcon("new icon");
    EXPECT_EQ(Note(kFieldIconFile), "Symbol gelesen");
    EXPECT_TRUE(form.RevertRow(kFieldIconFile));
    EXPECT_EQ(Note(kFieldIconFile), "Symbol im Programm");
    EXPECT_EQ(document_->Icon(), "icon");
}

// Messages.

TEST_F(PageFormTest, MessageIsWhatTheFieldCannotTake) {
    PageForm& form = Open(kApplicationPage);
    form.SetText(kFieldAppName, u"Kundén \u0141");
    EXPECT_EQ(Message(kFieldAppName),
              "Das Zeichen 'Ł' gibt es in der Codepage der Einstellungen nicht.");
    form.SetText(kFieldAppName, u"Kunden");
    EXPECT_EQ(Message(kFieldAppName), "");
}

TEST_F(PageFormTest, MessageIsTheFirstFindingOfTheFieldInTheLastPreview) {
    PageForm& form = Open(kDiagnosisPage);
    PreviewResult result;
    result.findings.push_back({u"not-a-switch", {{}, 0, u"Log", u"Anderes Feld."}});
    result.findings.push_back({u"password-not-typable", {{}, 0, u"EditPwd", u"Mit Leerzeichen."}});
    result.findings.push_back({u"inner-quote", {{}, 0, u"EditPwd", u"Danach."}});
    form.SetResult(&result);
    EXPECT_EQ(Message(kFieldEditPwd), "Fehler: Mit Leerzeichen.");
    EXPECT_EQ(Message(kFieldLog), "Warnung: Anderes Feld.");
    form.SetText(kFieldEditPwd, u"\u0141");
    EXPECT_EQ(Message(kFieldEditPwd),
              "Das Zeichen 'Ł' gibt es in der Codepage der Einstellungen nicht.");
    form.SetText(kFieldEditPwd, u"x");
    form.SetResult(nullptr);
    EXPECT_EQ(Message(kFieldEditPwd), "");
}

TEST_F(PageFormTest, MessageOfAFileNameStandsAtTheRowThatIsInUse) {
    PageForm& form = Open(kDatabasePage, {{kFieldDBPath, u"D"}, {kFieldDBFilename, u"a|b.mdb"}});
    PreviewResult result;
    result.findings.push_back({u"path-character", {{}, 0, u"DBFilename", u"Zeichen '|'."}});
    form.SetResult(&result);
    EXPECT_EQ(Message(SecondRow(kFieldDBFilename)), "Fehler: Zeichen '|'.");
    EXPECT_EQ(Message(kFieldDBFilename), "");
    form.SetChecked(kDatabaseBeside, true);
    EXPECT_EQ(Message(SecondRow(kFieldDBFilename)), "");
    EXPECT_EQ(Message(kFieldDBFilename), "Fehler: Zeichen '|'.");
    form.SetChecked(kDatabaseOwnName, true);
    EXPECT_EQ(Message(kFieldDBFilename), "");
}

TEST_F(PageFormTest, MessageOfAPathThatTheListPushesAsideIsShown) {
    PageForm& form = Open(kDatabasePage, {{kFieldDBPath, u"D"}, {kDBRegList.Field(1), kEntry}});
    PreviewResult result;
    result.findings.push_back({u"key-list-before-path", {{}, 0, u"DBPath", u"Gilt nicht."}});
    form.SetResult(&result);
    EXPECT_EQ(Message(kFieldDBPath), "Warnung: Gilt nicht.");
}

TEST_F(PageFormTest, ListShowsWhatIsToBeSaidOfAnyOfItsEntries) {
    PageForm& form = Open(kDatabasePage, {{kDBRegList.Field(1), kEntry}});
    PreviewResult result;
    result.findings.push_back({u"key-separator", {{}, 0, u"DBRegList03", u"Doppelt."}});
    form.SetResult(&result);
    EXPECT_EQ(Message(6100), "DBRegList03: Warnung: Doppelt.");
}

// Questions.

TEST_F(PageFormTest, OnlyRowsOfTheAnswerAreShown) {
    PageForm& form = Open(kDatabasePage, {{kFieldDBFilename, u"a.mdb"}});
    EXPECT_TRUE(form.State(kDatabaseBeside).checked);
    EXPECT_FALSE(form.State(kDatabasePlace).checked);
    EXPECT_TRUE(form.State(kFieldDBFilename).visible);
    EXPECT_FALSE(form.State(SecondRow(kFieldDBFilename)).visible);
    EXPECT_FALSE(form.State(6100).visible);
    EXPECT_FALSE(form.State(kFieldDBPath).visible);

    form.SetChecked(kDatabaseRegistry, true);
    EXPECT_TRUE(form.State(kDatabaseRegistry).checked);
    EXPECT_FALSE(form.State(kDatabaseBeside).checked);
    EXPECT_FALSE(form.State(kFieldDBFilename).visible);
    EXPECT_TRUE(form.State(6100).visible);
    EXPECT_EQ(document_->ParkedTexts(), std::vector<std::int32_t>{kFieldDBFilename});
}

TEST_F(PageFormTest, OptionThatLosesItsMarkDecidesNothing) {
    PageForm& form = Open(kDatabasePage, {{kFieldDBFilename, u"a.mdb"}});
    form.SetChecked(kDatabasePlace, false);
    EXPECT_TRUE(form.State(kDatabaseBeside).checked);
}

TEST_F(PageFormTest, RowThatIsNotInUseTakesNoText) {
    PageForm& form = Open(kDatabasePage);
    form.SetText(kFieldDBPath, u"Daten");
    EXPECT_EQ(Text(kFieldDBPath), "");
}

TEST_F(PageFormTest, SecondRowEditsTheSameField) {
    PageForm& form = Open(kDatabasePage, {{kFieldDBPath, u"D"}, {kFieldDBFilename, u"a.mdb"}});
    form.SetText(SecondRow(kFieldDBFilename), u"b.mdb");
    EXPECT_EQ(Text(kFieldDBFilename), "b.mdb");
    EXPECT_EQ(form.State(kFieldDBFilename).text, u"b.mdb");
    EXPECT_TRUE(form.Undo(SecondRow(kFieldDBFilename)));
    EXPECT_EQ(Text(kFieldDBFilename), "a.mdb");
}

TEST_F(PageFormTest, AnswerStaysWhileItsTextIsDeleted) {
    PageForm& form = Open(kDatabasePage, {{kFieldDBPath, u"D"}, {kFieldDBFilename, u"a.mdb"}});
    form.SetText(kFieldDBPath, u"");
    EXPECT_TRUE(form.State(kDatabasePlace).checked);
    form.SetText(kFieldDBPath, u"E");
    EXPECT_EQ(Text(kFieldDBPath), "E");
}

TEST_F(PageFormTest, AnswerStaysWhenTheLastEntryIsDeleted) {
    PageForm& form = Open(kDatabasePage, {{kDBRegList.Field(1), kEntry}});
    form.Press(6100 + KeyListPart::kDeleteButton);
    EXPECT_EQ(Text(kDBRegList.Field(1)), "");
    EXPECT_TRUE(form.State(kDatabaseRegistry).checked);
    EXPECT_TRUE(form.Undo(6100));
    EXPECT_EQ(document_->Text(kDBRegList.Field(1)), kEntry);
}

TEST_F(PageFormTest, ListThatIsNotInUseDoesNothing) {
    PageForm& form = Open(kDatabasePage, {{kDBRegList.Field(1), kEntry}});
    form.SetChecked(kDatabaseOwnName, true);
    form.Press(6100 + KeyListPart::kDeleteButton);
    EXPECT_EQ(document_->Text(kDBRegList.Field(1)), kEntry);
}

TEST_F(PageFormTest, PictureNeedsADelayOnlyWithAPicture) {
    PageForm& form = Open(kPicturePage);
    EXPECT_FALSE(form.State(kFieldPicDelay).visible);
    form.SetChecked(kPictureBeside, true);
    EXPECT_TRUE(form.State(kFieldPicDelay).visible);
}

// Back to what stands in the file.

TEST_F(PageFormTest, RevertedRowIsAsItIsSavedAndCanBeUndone) {
    PageForm& form = Open(kApplicationPage, {{kFieldAppName, u"Kunden"}});
    form.SetText(kFieldAppName, u"Artikel");
    EXPECT_TRUE(form.RevertRow(kFieldAppName));
    EXPECT_EQ(Text(kFieldAppName), "Kunden");
    EXPECT_TRUE(form.Undo(kFieldAppName));
    EXPECT_EQ(Text(kFieldAppName), "Artikel");
    EXPECT_FALSE(form.RevertRow(kRowProgram));
    EXPECT_FALSE(form.RevertRow(0));
}

TEST_F(PageFormTest, RevertedAnswerIsThatOfTheFile) {
    PageForm& form = Open(kDatabasePage, {{kFieldDBPath, u"D"}, {kFieldDBFilename, u"a.mdb"}});
    form.SetText(kFieldDBPath, u"E");
    form.SetChecked(kDatabaseOwnName, true);
    EXPECT_TRUE(form.RevertRow(kDatabaseOwnName));
    EXPECT_TRUE(form.State(kDatabasePlace).checked);
    EXPECT_EQ(Text(kFieldDBPath), "D");
    EXPECT_FALSE(document_->IsDirty());
}

TEST_F(PageFormTest, RevertedListHasTheEntriesOfTheFile) {
    PageForm& form = Open(kDatabasePage, {{kDBRegList.Field(1), kEntry}});
    form.Press(6100 + KeyListPart::kDeleteButton);
    EXPECT_TRUE(form.RevertRow(6100));
    EXPECT_EQ(document_->Text(kDBRegList.Field(1)), kEntry);
}

// Where to go.

TEST_F(PageFormTest, GoingToAnEntryChoosesItInTheList) {
    PageForm& form =
        Open(kDatabasePage, {{kDBRegList.Field(1), kEntry}, {kDBRegList.Field(4), kEntry}});
    EXPECT_EQ(form.State(6100).selected, 0);
    EXPECT_EQ(form.GoTo(kDBRegList.Field(4)), 6100);
    EXPECT_EQ(form.State(6100).selected, 1);
    form.Select(6100, 0);
    EXPECT_EQ(form.State(6100).selected, 0);
    EXPECT_EQ(form.GoTo(kFieldDBPath), kDatabasePlace);
}

TEST_F(PageFormTest, EntryShowsWhatItLeadsToInTheLastPreview) {
    PageForm& form = Open(kDatabasePage, {{kDBRegList.Field(1), kEntry}});
    PreviewResult result;
    result.entries[{kDBRegList.first, kEntry}] = {true, u"C:\\Daten\\Kunden.mdb"};
    form.SetResult(&result);
    EXPECT_EQ(form.State(6110).text, u"C:\\Daten\\Kunden.mdb");
    form.SetResult(nullptr);
    EXPECT_EQ(form.State(6110).text, u"");
}

// Read-only.

TEST_F(PageFormTest, ReadOnlyDocumentCanBeLookedAtOnly) {
    PageForm& form = Open(kDatabasePage, {{kFieldDBFilename, u"a.mdb"}}, true);
    const RowState state = form.State(kFieldDBFilename);
    EXPECT_TRUE(state.readOnly);
    EXPECT_TRUE(state.enabled);
    EXPECT_EQ(state.disabledButtons, std::vector<std::int32_t>{2014});
    EXPECT_FALSE(form.State(kDatabasePlace).enabled);
    form.SetText(kFieldDBFilename, u"b.mdb");
    form.SetChecked(kDatabasePlace, true);
    form.Press(2014);
    form.Press(6100 + KeyListPart::kNewButton);
    EXPECT_FALSE(form.Undo(kFieldDBFilename));
    form.RevertRow(kDatabasePlace);
    EXPECT_EQ(Text(kFieldDBFilename), "a.mdb");
    EXPECT_TRUE(form.State(kDatabaseBeside).checked);
    EXPECT_TRUE(dialogs_.log.empty());

    EXPECT_FALSE(Open(kOptionsPage, {}, true).State(kFieldRuntime).enabled);
}

}  // namespace
}  // namespace tarvex
