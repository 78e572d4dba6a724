#include "window/document/Document.h"

#include <gtest/gtest.h>

#include "branding/BrandFields.h"
#include "configurator/program/ProgramFields.h"
#include "text/TextCodec1252.h"

namespace tarvex {
namespace {

using Numbers = std::vector<std::int32_t>;

class DocumentTest : public testing::Test {
protected:
    static Settings Saved() {
        Settings settings;
        settings.Set(kFieldAppName, u"Kunden");
        settings.Set(kFieldPwd, u"geheim");
        settings.Set(kFieldRuntime, u"1");
        settings.Set(kFieldNoStartup, u"");
        settings.Set(kFieldIconFile, u"16 x 16");
        settings.SetIcon("saved icon");
        return settings;
    }

    static Document Open(bool readOnly) {
        static const TextCodec1252 codec;
        return {{u"C:\\Prog\\Kunden.exe", {}, readOnly, {}}, Saved(), codec};
    }

    static Document New() {
        static const TextCodec1252 codec;
        return {{u"C:\\Prog\\Kunden.exe", u"C:\\tarvex.exe"}, {}, codec};
    }

    void Type(std::int32_t number, std::u16string_view text) {
        for (const char16_t unit : text) {
            document_.SetText(number, std::u16string(document_.Text(number)) + unit, true);
        }
    }

    Document document_ = Open(false);
};

TEST_F(DocumentTest, KnowsNameAndFolderOfItsFile) {
    EXPECT_EQ(document_.Name(), u"Kunden.exe");
    EXPECT_EQ(document_.Folder(), u"C:\\Prog\\");
}

TEST_F(DocumentTest, FieldShowsTheSavedValueUntilItIsEdited) {
    EXPECT_EQ(document_.Text(kFieldAppName), u"Kunden");
    EXPECT_FALSE(document_.IsDirty());
    document_.SetText(kFieldAppName, u"Artikel");
    EXPECT_EQ(document_.Text(kFieldAppName), u"Artikel");
    EXPECT_TRUE(document_.IsDirty());
}

// Undo.

TEST_F(DocumentTest, TypingOnIsOneStepToUndo) {
    document_.SetText(kFieldAppName, u"K", true);
    document_.SetText(kFieldAppName, u"Ku", true);
    document_.Undo(kFieldAppName);
    EXPECT_EQ(document_.Text(kFieldAppName), u"Kunden");
    EXPECT_FALSE(document_.CanUndo(kFieldAppName));
}

TEST_F(DocumentTest, TypingInAnotherFieldEndsTheStep) {
    Type(kFieldAppName, u"!");
    Type(kFieldFileID, u"7");
    Type(kFieldAppName, u"?");
    EXPECT_EQ(document_.Text(kFieldAppName), u"Kunden!?");
    document_.Undo(kFieldAppName);
    EXPECT_EQ(document_.Text(kFieldAppName), u"Kunden!");
    document_.Undo(kFieldAppName);
    EXPECT_EQ(document_.Text(kFieldAppName), u"Kunden");
}

TEST_F(DocumentTest, DeletingIsAStepOfItsOwn) {
    Type(kFieldAppName, u"-A");
    document_.SetText(kFieldAppName, u"Kunden-", true);
    document_.SetText(kFieldAppName, u"Kunden", true);
    Type(kFieldAppName, u"!");
    document_.Undo(kFieldAppName);
    EXPECT_EQ(document_.Text(kFieldAppName), u"Kunden");
    document_.Undo(kFieldAppName);
    EXPECT_EQ(document_.Text(kFieldAppName), u"Kunden-A");
    document_.Undo(kFieldAppName);
    EXPECT_EQ(document_.Text(kFieldAppName), u"Kunden");
}

TEST_F(DocumentTest, WhatIsPastedIsAStepOfItsOwn) {
    Type(kFieldAppName, u"-");
    document_.SetText(kFieldAppName, u"Kunden-Nord", true);
    document_.Undo(kFieldAppName);
    EXPECT_EQ(document_.Text(kFieldAppName), u"Kunden-");
}

TEST_F(DocumentTest, TypingAfterUndoIsANewStep) {
    Type(kFieldAppName, u"AB");
    document_.SetText(kFieldAppName, u"X");
    document_.Undo(kFieldAppName);
    Type(kFieldAppName, u"C");
    document_.Undo(kFieldAppName);
    EXPECT_EQ(document_.Text(kFieldAppName), u"KundenAB");
}

TEST_F(DocumentTest, SavingEndsTheStepAndKeepsWhatCanBeUndone) {
    Type(kFieldAppName, u"1");
    document_.SetSaved(document_.File(), document_.Values());
    Type(kFieldAppName, u"2");
    document_.Undo(kFieldAppName);
    EXPECT_EQ(document_.Text(kFieldAppName), u"Kunden1");
    EXPECT_FALSE(document_.IsDirty());
    document_.Undo(kFieldAppName);
    EXPECT_EQ(document_.Text(kFieldAppName), u"Kunden");
    EXPECT_TRUE(document_.IsDirty());
}

TEST_F(DocumentTest, UndoWithoutAStepDoesNothing) {
    document_.Undo(kFieldAppName);
    EXPECT_EQ(document_.Text(kFieldAppName), u"Kunden");
}

TEST_F(DocumentTest, RevertIsAStepToUndo) {
    document_.SetText(kFieldAppName, u"Artikel");
    document_.Revert(kFieldAppName);
    EXPECT_EQ(document_.Text(kFieldAppName), u"Kunden");
    document_.Undo(kFieldAppName);
    EXPECT_EQ(document_.Text(kFieldAppName), u"Artikel");
}

// Values.

TEST_F(DocumentTest, BlanksAroundANumberAreNoChange) {
    document_.SetText(kFieldPicDelay, u" 1500 ");
    EXPECT_EQ(document_.Values().Value(kFieldPicDelay), u"1500");
    document_.SetSaved(document_.File(), document_.Values());
    EXPECT_EQ(document_.Text(kFieldPicDelay), u" 1500 ");
    EXPECT_FALSE(document_.IsChanged(kFieldPicDelay));
    EXPECT_FALSE(document_.IsDirty());
}

TEST_F(DocumentTest, SwitchThatIsOffIsTheSameAsAnEmptyOne) {
    document_.SetText(kFieldNoStartup, u"0");
    EXPECT_FALSE(document_.IsChanged(kFieldNoStartup));
    EXPECT_FALSE(document_.IsDirty());
    document_.SetText(kFieldNoStartup, u"1");
    EXPECT_TRUE(document_.IsChanged(kFieldNoStartup));
}

TEST_F(DocumentTest, TextThatDoesNotFitIsKeptAndIsAProblem) {
    const std::u16string tooLong(11, u'x');
    document_.SetText(kFieldFileID, tooLong);
    EXPECT_EQ(document_.Text(kFieldFileID), tooLong);
    EXPECT_EQ(document_.Problem(kFieldFileID),
              u"Der Wert ist zu lang: Er braucht 11 Zeichen, das Feld fasst 10.");
    Problems problems;
    EXPECT_FALSE(document_.Values(&problems).Has(kFieldFileID));
    ASSERT_EQ(problems.size(), 1U);
    EXPECT_EQ(ProblemLine(problems.front()),
              u"C:\\Prog\\Kunden.exe, FileID: Der Wert ist zu lang: Er braucht 11 Zeichen, das "
              u"Feld fasst 10.");
    EXPECT_TRUE(document_.IsDirty());
}

TEST_F(DocumentTest, OddValueThatStandsInTheFileIsNoProblemAndNoChange) {
    Settings saved;
    saved.Set(kFieldLog, u"j");
    Document document({u"C:\\Prog\\Alt.exe", {}, false, {}}, saved, TextCodec1252());
    EXPECT_EQ(document.Problem(kFieldLog), u"");
    EXPECT_FALSE(document.IsDirty());
    EXPECT_EQ(document.Values().Value(kFieldLog), u"j");
}

TEST_F(DocumentTest, ChangesAreWhatDiffersFromTheFile) {
    document_.SetText(kFieldAppName, u"Artikel");
    document_.SetText(kFieldRuntime, u"0");
    document_.SetText(kFieldCmd, u"x");
    document_.SetText(kFieldCmd, u"");
    const Settings changes = document_.Changes();
    EXPECT_EQ(changes.Entries().size(), 2U);
    EXPECT_EQ(changes.Value(kFieldAppName), u"Artikel");
    EXPECT_EQ(changes.Value(kFieldRuntime), u"0");
}

TEST_F(DocumentTest, VersionTextThatWasEnteredAndDeletedAgainIsNone) {
    Document document = New();
    document.SetText(kFieldComments, u"x");
    document.SetText(kFieldComments, u"");
    EXPECT_FALSE(document.Values().Has(kFieldComments));
}

TEST_F(DocumentTest, EmptyVersionTextOfSettingsIsAText) {
    Settings settings;
    settings.Set(kFieldComments, u"");
    Document document = New();
    document.Enter(settings);
    EXPECT_TRUE(document.Values().Has(kFieldComments));
    document_.Enter(settings);
    EXPECT_TRUE(document_.Changes().Has(kFieldComments));
}

TEST_F(DocumentTest, NewDocumentIsDirty) {
    EXPECT_TRUE(New().IsDirty());
    EXPECT_TRUE(New().IsNew());
}

TEST_F(DocumentTest, EnterIsOneStepOfEachField) {
    Settings settings;
    settings.Set(kFieldAppName, u"Artikel");
    settings.Set(kFieldCmd, u"Mandant 1");
    settings.Set(kFieldIconFile, u"Neu.ico");
    settings.SetIcon("entered icon");
    document_.Enter(settings);
    EXPECT_EQ(document_.Text(kFieldCmd), u"Mandant 1");
    EXPECT_EQ(document_.Icon(), "entered icon");
    document_.Undo(kFieldAppName);
    EXPECT_EQ(document_.Text(kFieldAppName), u"Kunden");
    EXPECT_EQ(document_.Text(kFieldCmd), u"Mandant 1");
}

TEST_F(DocumentTest, ReadOnlyDocumentStaysAsItIs) {
    Document document = Open(true);
    document.SetText(kFieldAppName, u"Artikel");
    document.Enter(Saved());
    document.SetIcon("other");
    document.SetParked({kFieldAppName}, true);
    document.Revert(kFieldIconFile);
    EXPECT_EQ(document.Text(kFieldAppName), u"Kunden");
    EXPECT_EQ(document.Icon(), "saved icon");
    EXPECT_FALSE(document.IsParked(kFieldAppName));
    EXPECT_FALSE(document.IsDirty());
}

TEST_F(DocumentTest, ListenerHearsOfEveryChange) {
    int calls = 0;
    document_.SetListener([&calls] { ++calls; });
    document_.SetText(kFieldAppName, u"Artikel");
    document_.SetText(kFieldAppName, u"Artikel");
    EXPECT_EQ(calls, 1);
    document_.Undo(kFieldAppName);
    document_.SetParked({kFieldAppName}, true);
    document_.SetIcon("other");
    document_.Enter({});
    document_.SetSaved(document_.File(), {});
    EXPECT_EQ(calls, 6);
}

// Room.

TEST_F(DocumentTest, RoomLeftCountsWhatIsStored) {
    EXPECT_EQ(document_.RoomLeft(kFieldAppName), 44);
    document_.SetText(kFieldAppName, u" Kunden ");
    EXPECT_EQ(document_.RoomLeft(kFieldAppName), 44);
    document_.SetText(kFieldFileID, u"1234567890123");
    EXPECT_EQ(document_.RoomLeft(kFieldFileID), -3);
    document_.SetText(kFieldCompanyName, u"Müller");
    EXPECT_EQ(document_.RoomLeft(kFieldCompanyName), 494);
}

TEST_F(DocumentTest, RoomLeftOfACredentialFitsWhateverIsTyped) {
    const std::int32_t usable = UsableWidth(*FindField(kFieldUser), TextCodec1252());
    EXPECT_EQ(document_.RoomLeft(kFieldUser), usable);
    for (std::int32_t left = usable; left > 0; left = document_.RoomLeft(kFieldUser)) {
        document_.SetText(kFieldUser, std::u16string(document_.Text(kFieldUser)) + u'~');
        EXPECT_EQ(document_.Problem(kFieldUser), u"");
    }
}

TEST_F(DocumentTest, CredentialSaysHowManyCharactersHaveToGo) {
    std::u16string text;
    while (document_.Problem(kFieldUser).empty()) {
        text += u'~';
        document_.SetText(kFieldUser, text);
    }
    EXPECT_EQ(document_.RoomLeft(kFieldUser), -1);
    document_.SetText(kFieldUser, text + u"~~");
    EXPECT_EQ(document_.RoomLeft(kFieldUser), -3);
}

// Parked fields.

TEST_F(DocumentTest, ParkedFieldKeepsItsTextAndCountsAsEmpty) {
    document_.SetParked({kFieldAppName, kFieldCmd}, true);
    EXPECT_EQ(document_.Text(kFieldAppName), u"Kunden");
    EXPECT_FALSE(document_.Values().Has(kFieldAppName));
    EXPECT_EQ(document_.Changes().Value(kFieldAppName), u"");
    EXPECT_TRUE(document_.Changes().Has(kFieldAppName));
    EXPECT_EQ(document_.ParkedTexts(), Numbers{kFieldAppName});
    document_.SetParked({kFieldAppName}, false);
    EXPECT_FALSE(document_.IsDirty());
    EXPECT_TRUE(document_.ParkedTexts().empty());
}

TEST_F(DocumentTest, ParkedTextIsGoneFromTheFieldAfterSavingButCanBeTakenBack) {
    document_.SetParked({kFieldAppName}, true);
    document_.SetSaved(document_.File(), document_.Values());
    EXPECT_TRUE(document_.IsParked(kFieldAppName));
    EXPECT_TRUE(document_.ParkedTexts().empty());
    EXPECT_FALSE(document_.IsDirty());
    document_.Undo(kFieldAppName);
    EXPECT_EQ(document_.Text(kFieldAppName), u"Kunden");
}

TEST_F(DocumentTest, EnteredFieldIsNotParked) {
    document_.SetParked({kFieldAppName}, true);
    document_.Enter(Saved());
    EXPECT_FALSE(document_.IsParked(kFieldAppName));
}

// The icon.

TEST_F(DocumentTest, IconComesAndGoesWithTheTextThatNamesIt) {
    EXPECT_EQ(document_.Icon(), "saved icon");
    document_.SetText(kFieldIconFile, u"Neu.ico");
    EXPECT_EQ(document_.Icon(), "");
    document_.SetIcon("new icon");
    EXPECT_EQ(document_.Values().Icon(), "new icon");
    EXPECT_EQ(document_.Changes().Icon(), "new icon");
    document_.Undo(kFieldIconFile);
    EXPECT_EQ(document_.Icon(), "saved icon");
    EXPECT_FALSE(document_.IsDirty());
}

TEST_F(DocumentTest, RevertedIconCanBeUndone) {
    document_.SetText(kFieldIconFile, u"Neu.ico");
    document_.SetIcon("new icon");
    document_.Revert(kFieldIconFile);
    EXPECT_EQ(document_.Icon(), "saved icon");
    document_.Undo(kFieldIconFile);
    EXPECT_EQ(document_.Icon(), "new icon");
}

TEST_F(DocumentTest, AnotherIconOfTheSameNameIsAChange) {
    document_.SetIcon("other icon of 16 x 16");
    EXPECT_TRUE(document_.Changes().Has(kFieldIconFile));
    document_.Revert(kFieldIconFile);
    EXPECT_FALSE(document_.IsDirty());
}

TEST_F(DocumentTest, EnteredTextThatIsParkedWouldBeLost) {
    document_.SetText(kFieldDBPath, u"Daten");
    document_.SetParked({kFieldDBPath}, true);
    EXPECT_TRUE(document_.Changes().Entries().empty());
    EXPECT_TRUE(document_.IsDirty());
    document_.SetText(kFieldDBPath, u"");
    EXPECT_FALSE(document_.IsDirty());
}

}  // namespace
}  // namespace tarvex
