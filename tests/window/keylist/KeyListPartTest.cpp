#include "window/keylist/KeyListPart.h"

#include "tests/window/keylist/KeyListTesting.h"

namespace tarvex {
namespace {

constexpr std::int32_t kRow = 6100;
constexpr std::int32_t kAnswer = kRow + KeyListPart::kAnswerRow;

class KeyListPartTest : public KeyListTest {
protected:
    /// The list as it is shown: columns separated by "|", "*" before the chosen line, in UTF-8.
    std::vector<std::string> Shown(const KeyListPart& part, std::int32_t row = kRow) const {
        const RowState state = part.State(row);
        std::vector<std::string> shown;
        for (const std::vector<std::u16string>& item : state.items) {
            const bool chosen = static_cast<std::int32_t>(shown.size()) == state.selected;
            std::u16string line = chosen ? u"*" : u"";
            for (const std::u16string& column : item) {
                line.append(&column == item.data() ? u"" : u"|").append(column);
            }
            shown.push_back(text::ToUtf8(line));
        }
        return shown;
    }

    static std::string Text(const std::u16string& text) { return text::ToUtf8(text); }

    using Lines = std::vector<std::string>;
    KeyListPart part_{document_, dialogs_, kDBRegList};
};

TEST_F(KeyListPartTest, RowsOfTheDatabaseList) {
    std::vector<FormRow> rows;
    KeyListPart::AppendRows(rows, kDBRegList, 1);
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].id, 6100);
    EXPECT_EQ(Text(rows[0].name), "DBRegList01-10");
    EXPECT_EQ(rows[0].indent, 1);
    std::u16string buttons;
    for (const FormButton& button : rows[0].buttons) {
        text::AppendWithSeparator(buttons, button.caption, u" ");
    }
    EXPECT_EQ(Text(buttons), "Ne&u… Bea&rbeiten… Lös&chen Nach &oben Nach un&ten Einfü&gen");
    EXPECT_EQ(rows[1].id, 6110);
}

TEST_F(KeyListPartTest, OnlyTheAccessListHasPresets) {
    for (const KeyListFields& list : {kAccRegList, kDBRegList, kPicRegList, kSysDBRegList}) {
        std::vector<FormRow> rows;
        KeyListPart::AppendRows(rows, list, 0);
        EXPECT_EQ(rows[0].buttons.size(), list.first == kAccRegList.first ? 7U : 6U);
    }
    EXPECT_EQ(KeyListRow(kAccRegList), 6000);
    EXPECT_EQ(KeyListRow(kPicRegList), 6200);
    EXPECT_EQ(KeyListRow(kSysDBRegList), 6300);
}

TEST_F(KeyListPartTest, OwnsItsRowsAndButtons) {
    EXPECT_TRUE(part_.Owns(6100));
    EXPECT_TRUE(part_.Owns(6110));
    EXPECT_FALSE(part_.Owns(6000));
    EXPECT_FALSE(part_.Owns(6200));
}

TEST_F(KeyListPartTest, EntriesStandInColumns) {
    Put(1, u"hkey_local_machine\\SOFTWARE\\Firma\\Pfad%|SubDir|%Daten%|Filename%|Kunden.mdb");
    Put(3, u"HKCU\\SOFTWARE\\Firma\\%|Filename%|b.mdb");
    EXPECT_EQ(Shown(part_), (Lines{"*01|HKLM\\SOFTWARE\\Firma|Pfad|Daten|Kunden.mdb",
                                   "03|HKCU\\SOFTWARE\\Firma|(Standard)||b.mdb"}));
}

TEST_F(KeyListPartTest, UnreadableEntryIsShownWholeWithAMark) {
    Put(2, u"FOO\\Key\\Value%|Filename%|a.mdb");
    EXPECT_EQ(Shown(part_), (Lines{"*02 (!)|FOO\\Key\\Value%|Filename%|a.mdb|||"}));
    EXPECT_EQ(Text(part_.State(kRow).message),
              "Der Eintrag 'FOO\\Key\\Value%|Filename%|a.mdb' beginnt nicht mit HKLM, HKCU, HKCR "
              "oder HKU.");
}

TEST_F(KeyListPartTest, EntryThatCannotWorkHasAMark) {
    Put(1, u"HKLM\\SOFTWARE\\A\\P%|SubDir|%Daten");
    EXPECT_EQ(Shown(part_), (Lines{"*01 (!)|HKLM\\SOFTWARE\\A|P|Daten|"}));
}

TEST_F(KeyListPartTest, TextThatDoesNotFitHasAMarkAndItsReason) {
    Put(1, std::u16string(kA) + std::u16string(480, u'x'));
    EXPECT_TRUE(Shown(part_)[0].starts_with("*01 (!)|"));
    EXPECT_EQ(Text(part_.State(kRow).message),
              "Der Wert ist zu lang: Er braucht 518 Zeichen, das Feld fasst 500.");
    EXPECT_EQ(Text(part_.State(kRow).note), "18 Zeichen zu viel");
}

TEST_F(KeyListPartTest, EntriesOfADividedFieldHaveLinesOfTheirOwn) {
    Put(4, std::u16string(kA) + u"%|%" + std::u16string(kB));
    EXPECT_EQ(Shown(part_), (Lines{"*04.1|HKLM\\SOFTWARE\\Firma|A||a.mdb",
                                   "04.2|HKCU\\SOFTWARE\\Firma|B||b.mdb"}));
}

TEST_F(KeyListPartTest, RoomOfTheChosenEntryIsTold) {
    Put(1, kA);
    EXPECT_EQ(Text(part_.State(kRow).note), "noch 462 von 500 Zeichen");
}

TEST_F(KeyListPartTest, ChosenEntryIsAnswered) {
    Put(1, kA);
    Put(2, kB);
    const std::int32_t list = kDBRegList.first;
    const EntryAnswers answers = {
        {{list, std::u16string(kA)}, {true, u"C:\\Daten\\a.mdb – vorhanden"}},
        {{list, std::u16string(kB)}, {false, u"Der Schlüssel fehlt."}}};
    EXPECT_EQ(Text(part_.State(kAnswer).text), "");
    part_.SetAnswers(&answers);
    EXPECT_EQ(Text(part_.State(kAnswer).text), "C:\\Daten\\a.mdb – vorhanden");
    part_.Select(kRow, 1);
    EXPECT_EQ(Text(part_.State(kAnswer).text), "Der Schlüssel fehlt.");
    EXPECT_TRUE(part_.State(kAnswer).readOnly);
}

TEST_F(KeyListPartTest, EntryThatWasMovedTakesItsAnswerAlong) {
    Put(1, kA);
    Put(2, u" " + std::u16string(kB));
    const std::int32_t list = kDBRegList.first;
    const EntryAnswers answers = {{{list, std::u16string(kA)}, {false, u"Antwort A"}},
                                  {{list, std::u16string(kB)}, {false, u"Antwort B"}}};
    part_.SetAnswers(&answers);
    part_.Press(kRow + KeyListPart::kDownButton);
    EXPECT_EQ(Text(part_.State(kAnswer).text), "Antwort A");
    part_.Select(kRow, 0);
    EXPECT_EQ(Text(part_.State(kAnswer).text), "Antwort B");
    Put(1, u"HKLM\\SOFTWARE\\Neu\\A");
    EXPECT_EQ(Text(part_.State(kAnswer).text), "");
}

TEST_F(KeyListPartTest, NewEntryIsEnteredInItsDialog) {
    Put(1, kA);
    dialogs_.formUsers.push_back([](FormModel& form) {
        form.Select(KeyEntryForm::kRootRow, 1);
        form.SetText(KeyEntryForm::kKeyRow, u"SOFTWARE\\Firma");
        form.SetText(KeyEntryForm::kValueRow, u"B");
        form.SetText(KeyEntryForm::kFileRow, u"b.mdb");
        return true;
    });
    part_.Press(kRow + KeyListPart::kNewButton);
    EXPECT_EQ(dialogs_.log, (Lines{"Fenster: Neuer Eintrag"}));
    EXPECT_EQ(Fields(), text::ToUtf8(u"01=" + std::u16string(kA) + u" 02=" + std::u16string(kB)));
    EXPECT_EQ(part_.State(kRow).selected, 1);
}

TEST_F(KeyListPartTest, CancelledDialogChangesNothing) {
    Put(1, kA);
    dialogs_.formUsers.push_back([](FormModel& form) {
        form.SetText(KeyEntryForm::kValueRow, u"B");
        return false;
    });
    part_.Press(kRow + KeyListPart::kEditButton);
    part_.Press(kRow + KeyListPart::kNewButton);
    EXPECT_EQ(dialogs_.log, (Lines{"Fenster: Eintrag bearbeiten", "Fenster: Neuer Eintrag"}));
    EXPECT_EQ(Fields(), text::ToUtf8(u"01=" + std::u16string(kA)));
}

TEST_F(KeyListPartTest, ChosenEntryIsEdited) {
    Put(1, kA);
    Put(2, kB);
    part_.Select(kRow, 1);
    dialogs_.formUsers.push_back([](FormModel& form) {
        EXPECT_EQ(form.State(KeyEntryForm::kValueRow).text, u"B");
        form.SetText(KeyEntryForm::kValueRow, u"");
        return true;
    });
    part_.Press(kRow + KeyListPart::kEditButton);
    EXPECT_EQ(document_.Text(kDBRegList.Field(2)), u"HKCU\\SOFTWARE\\Firma\\%|Filename%|b.mdb");
}

TEST_F(KeyListPartTest, EntryThatIsOnlyLookedAtIsNoStepToUndo) {
    Put(1, u"hklm\\A\\B%|subdir|%x%|FILENAME%|y.mdb");
    KeyListPart part(document_, dialogs_, kDBRegList);
    dialogs_.formUsers.push_back([](FormModel&) { return true; });
    part.Press(kRow + KeyListPart::kEditButton);
    EXPECT_EQ(dialogs_.log, (Lines{"Fenster: Eintrag bearbeiten"}));
    EXPECT_EQ(Fields(), "01=hklm\\A\\B%|subdir|%x%|FILENAME%|y.mdb");
    EXPECT_FALSE(part.Undo(kRow));
}

TEST_F(KeyListPartTest, FieldOfAnEntryThatIsOnlyLookedAtStaysAsItIsWritten) {
    Put(1, u"HKLM\\A\\B%|% ");
    dialogs_.formUsers.push_back([](FormModel&) { return true; });
    part_.Press(kRow + KeyListPart::kEditButton);
    EXPECT_EQ(dialogs_.log, (Lines{"Fenster: Eintrag bearbeiten"}));
    EXPECT_EQ(Fields(), "01=HKLM\\A\\B%|% ");
}

TEST_F(KeyListPartTest, MovingKeepsTheEntryChosen) {
    Put(1, kA);
    Put(2, kB);
    Put(3, kC);
    part_.Press(kRow + KeyListPart::kDownButton);
    EXPECT_EQ(part_.State(kRow).selected, 1);
    part_.Press(kRow + KeyListPart::kDownButton);
    EXPECT_EQ(Shown(part_)[2], "*03|HKLM\\SOFTWARE\\Firma|A||a.mdb");
    part_.Press(kRow + KeyListPart::kDownButton);
    EXPECT_EQ(part_.State(kRow).selected, 2);
    part_.Press(kRow + KeyListPart::kUpButton);
    EXPECT_EQ(Shown(part_)[1], "*02|HKLM\\SOFTWARE\\Firma|A||a.mdb");
}

TEST_F(KeyListPartTest, ButtonsThatCanDoNothingAreDisabled) {
    using Ids = std::vector<std::int32_t>;
    EXPECT_EQ(part_.State(kRow).disabledButtons, (Ids{6102, 6103, 6104, 6105}));
    Put(1, kA);
    EXPECT_EQ(part_.State(kRow).disabledButtons, (Ids{6104, 6105}));
    Put(2, kB);
    EXPECT_EQ(part_.State(kRow).disabledButtons, (Ids{6104}));
    part_.Select(kRow, 1);
    EXPECT_EQ(part_.State(kRow).disabledButtons, (Ids{6105}));
}

TEST_F(KeyListPartTest, FullListTakesNoMore) {
    for (std::int32_t position = 1; position <= KeyListFields::kCount; ++position) {
        Put(position, kA);
    }
    EXPECT_EQ(part_.State(kRow).disabledButtons[0], kRow + KeyListPart::kNewButton);
    part_.Press(kRow + KeyListPart::kNewButton);
    EXPECT_EQ(dialogs_.log, Lines());
    dialogs_.clipboard = kB;
    part_.Press(kRow + KeyListPart::kPasteButton);
    EXPECT_EQ(
        dialogs_.log,
        (Lines{"Frage: Die Schlüsselliste ist voll: Alle zehn Felder sind belegt. Löschen Sie "
               "zuerst einen Eintrag. [OK]"}));
}

TEST_F(KeyListPartTest, CopiedEntryFillsTheDialogOfANewOne) {
    dialogs_.clipboard = u" HKLM\\SOFTWARE\\Firma\\Pfad%|SubDir|%Daten%|Filename%|k.mdb\r\n";
    dialogs_.formUsers.push_back([](FormModel& form) {
        EXPECT_EQ(form.State(KeyEntryForm::kKeyRow).text, u"SOFTWARE\\Firma");
        EXPECT_EQ(form.State(KeyEntryForm::kValueRow).text, u"Pfad");
        EXPECT_EQ(form.State(KeyEntryForm::kSubFolderRow).text, u"Daten");
        EXPECT_EQ(form.State(KeyEntryForm::kFileRow).text, u"k.mdb");
        return true;
    });
    part_.Press(kRow + KeyListPart::kPasteButton);
    EXPECT_EQ(Fields(), "01=HKLM\\SOFTWARE\\Firma\\Pfad%|SubDir|%Daten%|Filename%|k.mdb");
}

TEST_F(KeyListPartTest, CopiedKeyLeavesTheValueOpen) {
    dialogs_.clipboard = u"Computer\\HKEY_CURRENT_USER\\Software\\Firma";
    dialogs_.formUsers.push_back([](FormModel& form) {
        EXPECT_EQ(form.State(KeyEntryForm::kRootRow).selected, 1);
        EXPECT_EQ(form.State(KeyEntryForm::kKeyRow).text, u"Software\\Firma");
        EXPECT_EQ(form.State(KeyEntryForm::kValueRow).text, u"");
        return true;
    });
    part_.Press(kRow + KeyListPart::kPasteButton);
    EXPECT_EQ(Fields(), "01=HKCU\\Software\\Firma\\");
}

TEST_F(KeyListPartTest, SeveralCopiedEntriesAreAddedInOneStep) {
    Put(1, kA);
    KeyListPart part(document_, dialogs_, kDBRegList);
    dialogs_.clipboard = u"HKLM\\A\\1\r\n\r\n HKLM\\A\\2%|%hklm\\A\\3\r\n";
    part.Press(kRow + KeyListPart::kPasteButton);
    EXPECT_EQ(dialogs_.log, Lines());
    EXPECT_EQ(Fields(), text::ToUtf8(u"01=" + std::u16string(kA) +
                                     u" 02=HKLM\\A\\1 03=HKLM\\A\\2 04=hklm\\A\\3"));
    EXPECT_EQ(part.State(kRow).selected, 3);
    part.Undo(kRow);
    EXPECT_EQ(Fields(), text::ToUtf8(u"01=" + std::u16string(kA)));
}

TEST_F(KeyListPartTest, CopiedEntriesWithoutRoomAreRefusedAsAWhole) {
    for (std::int32_t position = 1; position <= 9; ++position) {
        Put(position, u"HKLM\\A\\B");
    }
    dialogs_.clipboard = u"HKLM\\A\\1\nHKLM\\A\\2";
    part_.Press(kRow + KeyListPart::kPasteButton);
    EXPECT_EQ(dialogs_.log,
              (Lines{"Frage: In der Zwischenablage stehen 2 Einträge. Freie Felder in der "
                     "Schlüsselliste: 1. [OK]"}));
    EXPECT_EQ(document_.Text(kDBRegList.Field(10)), u"");
}

TEST_F(KeyListPartTest, LineOfARegistryFileIsAKey) {
    dialogs_.clipboard = u"[HKEY_USERS\\A\\B]\r\n\"Pfad\"=\"C:\\\\Daten\"\r\n";
    dialogs_.formUsers.push_back([](FormModel& form) {
        EXPECT_EQ(form.State(KeyEntryForm::kKeyRow).text, u"A\\B");
        return false;
    });
    part_.Press(kRow + KeyListPart::kPasteButton);
    EXPECT_EQ(dialogs_.log, (Lines{"Fenster: Neuer Eintrag"}));
}

TEST_F(KeyListPartTest, OtherTextOnTheClipboardIsRefused) {
    dialogs_.clipboard = u"C:\\Daten\\Kunden.mdb";
    part_.Press(kRow + KeyListPart::kPasteButton);
    EXPECT_EQ(dialogs_.log,
              (Lines{"Frage: In der Zwischenablage steht weder ein Eintrag einer Schlüsselliste "
                     "noch ein Schlüssel aus dem Registrierungs-Editor. [OK]"}));
}

TEST_F(KeyListPartTest, UndoTakesBackTheLastOperation) {
    Put(1, kA);
    Put(2, kB);
    KeyListPart part(document_, dialogs_, kDBRegList);
    part.Press(kRow + KeyListPart::kDeleteButton);
    EXPECT_FALSE(part.Undo(kAnswer));
    EXPECT_TRUE(part.Undo(kRow));
    EXPECT_EQ(Shown(part).size(), 2U);
    EXPECT_FALSE(part.Undo(kRow));
}

TEST_F(KeyListPartTest, DeletingTheLastLineChoosesTheOneBefore) {
    Put(1, kA);
    Put(2, kB);
    part_.Select(kRow, 1);
    part_.Press(kRow + KeyListPart::kDeleteButton);
    EXPECT_EQ(Shown(part_), (Lines{"*01|HKLM\\SOFTWARE\\Firma|A||a.mdb"}));
}

TEST_F(KeyListPartTest, EntryOfAFieldIsChosen) {
    Put(1, kA);
    Put(7, kB);
    part_.SelectField(kDBRegList.Field(7));
    EXPECT_EQ(part_.State(kRow).selected, 1);
}

}  // namespace
}  // namespace tarvex
