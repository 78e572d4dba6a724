#include "window/keylist/KeyListEdit.h"

#include "tests/window/keylist/KeyListTesting.h"
#include "window/keylist/KeyListField.h"

namespace tarvex {
namespace {

class KeyListEditTest : public KeyListTest {
protected:
    std::string Lines(const KeyListEdit& edit) const {
        std::u16string lines;
        for (const KeyListEdit::Line& line : edit.Lines()) {
            text::AppendWithSeparator(lines, line.entry, u" ");
        }
        return text::ToUtf8(lines);
    }
};

TEST_F(KeyListEditTest, EntriesKeepTheirFieldsAndGaps) {
    Put(2, u"A");
    Put(5, u"B");
    const KeyListEdit edit(document_, kDBRegList);
    EXPECT_EQ(Lines(edit), "A B");
    EXPECT_EQ(edit.Lines()[1].number, kDBRegList.Field(5));
    EXPECT_EQ(edit.Room(), 8U);
}

TEST_F(KeyListEditTest, AddingTakesTheFirstFreeFieldAfterTheLast) {
    Put(1, u"A");
    Put(3, u"B");
    KeyListEdit(document_, kDBRegList).Add({u"C"});
    EXPECT_EQ(Fields(), "01=A 03=B 04=C");
}

TEST_F(KeyListEditTest, AddingClosesGapsWhenOnlyTheyAreFree) {
    Put(2, u"A");
    Put(10, u"B");
    KeyListEdit(document_, kDBRegList).Add({u"C"});
    EXPECT_EQ(Fields(), "01=A 02=B 03=C");
}

TEST_F(KeyListEditTest, AddingNeverDropsWhatIsThere) {
    for (std::int32_t position = 1; position <= 9; ++position) {
        Put(position, u"A");
    }
    KeyListEdit(document_, kDBRegList).Add({u"B", u"C"});
    EXPECT_EQ(Fields(), "01=A 02=A 03=A 04=A 05=A 06=A 07=A 08=A 09=A 10=B");
}

TEST_F(KeyListEditTest, RemovingMovesTheEntriesBehindUpAsFarAsTheNextGap) {
    Put(1, u"A");
    Put(2, u"B");
    Put(3, u"C");
    Put(5, u"D");
    KeyListEdit(document_, kDBRegList).Remove(0);
    EXPECT_EQ(Fields(), "01=B 02=C 05=D");
}

TEST_F(KeyListEditTest, RemovingTheLastFieldEmptiesIt) {
    Put(9, u"A");
    Put(10, u"B");
    KeyListEdit(document_, kDBRegList).Remove(1);
    EXPECT_EQ(Fields(), "09=A");
}

TEST_F(KeyListEditTest, MovingChangesPlacesAcrossAGap) {
    Put(1, u"A");
    Put(4, u"B");
    KeyListEdit edit(document_, kDBRegList);
    edit.Move(1, true);
    EXPECT_EQ(Fields(), "01=B 04=A");
    edit.Move(0, false);
    EXPECT_EQ(Fields(), "01=A 04=B");
}

TEST_F(KeyListEditTest, NothingMovesBeyondTheEnds) {
    Put(1, u"A");
    Put(2, u"B");
    KeyListEdit edit(document_, kDBRegList);
    EXPECT_FALSE(edit.CanMove(0, true));
    EXPECT_FALSE(edit.CanMove(1, false));
    edit.Move(0, true);
    edit.Move(1, false);
    EXPECT_EQ(Fields(), "01=A 02=B");
    EXPECT_TRUE(edit.CanMove(0, false));
    EXPECT_TRUE(edit.CanMove(1, true));
}

TEST_F(KeyListEditTest, DividedFieldGivesSeveralEntries) {
    Put(1, u"A%|% B ");
    Put(2, u"C");
    const KeyListEdit edit(document_, kDBRegList);
    EXPECT_EQ(Lines(edit), "A  B  C");
    EXPECT_EQ(edit.Lines()[1].position, 1U);
    EXPECT_EQ(edit.Lines()[1].count, 2U);
}

TEST_F(KeyListEditTest, PicturesHaveOneEntryInAField) {
    Put(1, u"A%|%B", kPicRegList);
    EXPECT_EQ(Lines(KeyListEdit(document_, kPicRegList)), "A%|%B");
}

TEST_F(KeyListEditTest, EntryOfADividedFieldIsChangedAlone) {
    Put(1, u"A%|% B %|%C");
    KeyListEdit(document_, kDBRegList).Change(2, u"D");
    EXPECT_EQ(Fields(), "01=A%|% B %|%D");
}

TEST_F(KeyListEditTest, EntryOfADividedFieldIsRemovedAlone) {
    Put(1, u"A%|%B");
    Put(2, u"C");
    KeyListEdit(document_, kDBRegList).Remove(0);
    EXPECT_EQ(Fields(), "01=B 02=C");
}

TEST_F(KeyListEditTest, EntryMovesIntoADividedField) {
    Put(1, u"A%|%B");
    Put(2, u"C");
    KeyListEdit(document_, kDBRegList).Move(2, true);
    EXPECT_EQ(Fields(), "01=A%|%C 02=B");
}

TEST_F(KeyListEditTest, OneStepTakesBackAnOperationOnSeveralFields) {
    Put(1, u"A");
    Put(2, u"B");
    Put(3, u"C");
    KeyListEdit edit(document_, kDBRegList);
    edit.Remove(0);
    edit.Move(0, false);
    EXPECT_EQ(Fields(), "01=C 02=B");
    EXPECT_TRUE(edit.Undo());
    EXPECT_EQ(Fields(), "01=B 02=C");
    EXPECT_TRUE(edit.Undo());
    EXPECT_EQ(Fields(), "01=A 02=B 03=C");
    EXPECT_FALSE(edit.Undo());
}

TEST_F(KeyListEditTest, UndoLeavesNoStepsInTheFields) {
    KeyListEdit edit(document_, kDBRegList);
    edit.Add({u"A"});
    edit.Add({u"B"});
    edit.Undo();
    edit.Undo();
    for (const std::int32_t number : kDBRegList.Numbers()) {
        EXPECT_FALSE(document_.CanUndo(number));
    }
}

TEST_F(KeyListEditTest, ChangeBySomethingElseIsTakenBackFirst) {
    KeyListEdit edit(document_, kDBRegList);
    edit.Add({u"A", u"B"});
    Put(1, u"X");
    Put(2, u"Y");
    EXPECT_TRUE(edit.Undo());
    EXPECT_EQ(Fields(), "01=A 02=B");
    EXPECT_TRUE(edit.Undo());
    EXPECT_EQ(Fields(), "");
    EXPECT_FALSE(edit.Undo());
}

TEST_F(KeyListEditTest, ChangesBySomethingElseAreTakenBackStepByStep) {
    KeyListEdit edit(document_, kDBRegList);
    Put(1, u"X");
    Put(1, u"Y");
    edit.Add({u"A"});
    edit.Undo();
    EXPECT_EQ(Fields(), "01=Y");
    edit.Undo();
    EXPECT_EQ(Fields(), "01=X");
    edit.Undo();
    EXPECT_EQ(Fields(), "");
    EXPECT_FALSE(edit.Undo());
}

TEST_F(KeyListEditTest, OperationThatTheFieldsHaveTakenBackIsNotDoneAgain) {
    Put(1, u"Z");
    KeyListEdit edit(document_, kDBRegList);
    edit.Change(0, u"A");
    edit.Add({u"B"});
    document_.Undo(kDBRegList.Field(2));
    EXPECT_TRUE(edit.Undo());
    EXPECT_EQ(Fields(), "01=Z");
}

TEST_F(KeyListEditTest, RevertIsAStepAsWell) {
    Settings saved;
    saved.Set(kDBRegList.Field(2), u"A");
    document_.SetSaved(document_.File(), saved);
    KeyListEdit edit(document_, kDBRegList);
    edit.Add({u"B"});
    edit.Change(0, u"C");
    edit.Revert();
    EXPECT_EQ(Fields(), "02=A");
    EXPECT_FALSE(document_.IsChanged(kDBRegList.Field(2)));
    edit.Undo();
    EXPECT_EQ(Fields(), "02=C 03=B");
}

TEST_F(KeyListEditTest, ReadOnlyDocumentStaysAsItIs) {
    Settings saved;
    saved.Set(kDBRegList.Field(1), u"A");
    Document document({u"C:\\Kunden.exe", {}, true, u"Das Startprogramm ist signiert."}, saved,
                      codec_);
    KeyListEdit edit(document, kDBRegList);
    edit.Remove(0);
    EXPECT_EQ(document.Text(kDBRegList.Field(1)), u"A");
    EXPECT_FALSE(edit.Undo());
}

TEST(KeyListFieldTest, EntriesAreThoseThatTheLauncherReads) {
    const std::u16string_view parts[] = {u"%|%", u"A", u" ", u"%", u"|", u"B%|SubDir|%"};
    std::uint32_t seed = 1;
    for (int i = 0; i < 5000; ++i) {
        std::u16string text;
        for (int k = 0; k < 6; ++k) {
            seed = seed * 1664525U + 1013904223U;
            text += parts[(seed >> 16U) % std::size(parts)];
        }
        if (TrimBlanksAndTabs(text).empty()) {
            continue;
        }
        std::vector<std::u16string> entries = EntriesOfField(kAccRegList, text);
        const std::u16string joined = JoinEntries(entries);
        EXPECT_TRUE(text::Trim(text).starts_with(text::Trim(joined))) << text::ToUtf8(text);
        for (std::u16string& entry : entries) {
            entry = text::Trim(entry);
        }
        EXPECT_EQ(entries, text::SplitList(text, u"%|%")) << text::ToUtf8(text);
    }
}

TEST(KeyListFieldTest, RoomIsToldInCharacters) {
    EXPECT_EQ(text::ToUtf8(RoomText(61, 100)), "noch 61 von 100 Zeichen");
    EXPECT_EQ(text::ToUtf8(RoomText(0, 500)), "noch 0 von 500 Zeichen");
    EXPECT_EQ(text::ToUtf8(RoomText(-3, 500)), "3 Zeichen zu viel");
}

}  // namespace
}  // namespace tarvex
