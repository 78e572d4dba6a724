#include "window/keylist/KeyEntryForm.h"

#include "tests/window/keylist/KeyListTesting.h"
#include "window/keylist/KeyListField.h"

namespace tarvex {
namespace {

constexpr std::int32_t kFieldRows[] = {KeyEntryForm::kRootRow,  KeyEntryForm::kKeyRow,
                                       KeyEntryForm::kValueRow, KeyEntryForm::kSubFolderRow,
                                       KeyEntryForm::kFileRow,  KeyEntryForm::kStoredRow};

class KeyEntryFormTest : public KeyListTest {
protected:
    /// The dialog for the text in the first field of a list; of an empty text for a new entry.
    KeyEntryForm FormOf(std::u16string_view text, const KeyListFields& list = kDBRegList) {
        Put(1, text, list);
        const KeyListEdit edit(document_, list);
        const auto lines = edit.Lines();
        return {edit, lines.empty() ? edit.NewLine() : lines.front(), {}};
    }

    static std::string Text(const FormModel& form, std::int32_t row) {
        return text::ToUtf8(form.State(row).text);
    }

    static std::string Message(const FormModel& form, std::int32_t row) {
        return text::ToUtf8(form.State(row).message);
    }

    /// Messages of all rows, each after the number of its row.
    static std::string Messages(const FormModel& form) {
        std::string messages;
        for (const std::int32_t row : kFieldRows) {
            if (const std::string message = Message(form, row); !message.empty()) {
                messages += (messages.empty() ? "" : " ") + std::to_string(row) + ": " + message;
            }
        }
        return messages;
    }

    /// Enters root (0-based in the drop-down list) and the four texts.
    static void Enter(FormModel& form, std::int32_t root, std::u16string_view key,
                      std::u16string_view value, std::u16string_view subFolder,
                      std::u16string_view file) {
        form.Select(KeyEntryForm::kRootRow, root);
        form.SetText(KeyEntryForm::kKeyRow, key);
        form.SetText(KeyEntryForm::kValueRow, value);
        form.SetText(KeyEntryForm::kSubFolderRow, subFolder);
        form.SetText(KeyEntryForm::kFileRow, file);
    }
};

TEST_F(KeyEntryFormTest, RootKeysByTheirLongNames) {
    const RowState state = FormOf(u"").State(KeyEntryForm::kRootRow);
    EXPECT_EQ(state.choices, (std::vector<std::u16string>{
                                 u"HKEY_LOCAL_MACHINE (HKLM)", u"HKEY_CURRENT_USER (HKCU)",
                                 u"HKEY_CLASSES_ROOT (HKCR)", u"HKEY_USERS (HKU)"}));
    EXPECT_EQ(state.selected, 0);
}

TEST_F(KeyEntryFormTest, StoredEntryIsSplit) {
    const KeyEntryForm form =
        FormOf(u"HKCU\\SOFTWARE\\Firma\\Pfad%|SubDir|%Daten%|Filename%|Kunden.mdb");
    EXPECT_EQ(form.State(KeyEntryForm::kRootRow).selected, 1);
    EXPECT_EQ(Text(form, KeyEntryForm::kKeyRow), "SOFTWARE\\Firma");
    EXPECT_EQ(Text(form, KeyEntryForm::kValueRow), "Pfad");
    EXPECT_EQ(Text(form, KeyEntryForm::kSubFolderRow), "Daten");
    EXPECT_EQ(Text(form, KeyEntryForm::kFileRow), "Kunden.mdb");
    EXPECT_EQ(Messages(form), "");
}

TEST_F(KeyEntryFormTest, ComposedEntryShowsWithTheRoomLeft) {
    KeyEntryForm form = FormOf(u"");
    Enter(form, 0, u"SOFTWARE\\Firma", u"Pfad", u"Daten", u"Kunden.mdb");
    const RowState stored = form.State(KeyEntryForm::kStoredRow);
    EXPECT_EQ(text::ToUtf8(stored.text),
              "HKLM\\SOFTWARE\\Firma\\Pfad%|SubDir|%Daten%|Filename%|Kunden.mdb");
    EXPECT_EQ(text::ToUtf8(stored.note), "noch 439 von 500 Zeichen");
    EXPECT_TRUE(stored.readOnly);
    EXPECT_TRUE(form.Accept());
}

TEST_F(KeyEntryFormTest, WhatTheFormComposesTheEngineSplits) {
    const std::u16string_view parts[] = {u"A", u"Software\\X", u"b c", u"Größe", u"%", u"x.mdb"};
    std::uint32_t seed = 7;
    const auto draw = [&](std::u16string_view otherwise) {
        seed = seed * 1664525U + 1013904223U;
        const std::uint32_t index = (seed >> 16U) % (std::size(parts) + 1);
        return index < std::size(parts) ? parts[index] : otherwise;
    };
    std::int32_t accepted = 0;
    for (int i = 0; i < 500; ++i) {
        const std::u16string_view key = draw(u"Key");
        const std::u16string_view value = draw(u"");
        const std::u16string_view subFolder = draw(u"");
        const std::u16string_view file = draw(u"");
        KeyEntryForm form = FormOf(u"");
        Enter(form, i % 4, key, value, subFolder, file);
        if (!form.Accept()) {
            continue;
        }
        ++accepted;
        const KeyListParse parse = ParseKeyListEntry(form.Entry());
        ASSERT_FALSE(parse.error);
        EXPECT_EQ(parse.entry.keyPath, key);
        EXPECT_EQ(parse.entry.valueName, value);
        EXPECT_EQ(parse.entry.subFolder, subFolder);
        EXPECT_EQ(parse.entry.fileName, file);
        EXPECT_EQ(text::SplitList(form.Entry(), u"%|%").size(), 1U);
        EXPECT_EQ(BuildKeyListEntry(parse.entry), form.Entry());
    }
    EXPECT_GT(accepted, 200);
}

TEST_F(KeyEntryFormTest, EntryThatIsOnlyAcceptedStaysAsItIsWritten) {
    const std::u16string_view parts[] = {u"HKLM",         u"hkey_users", u"\\", u"A",  u" ",
                                         u"%|Filename%|", u"%|subdir|%", u"|",  u"\\", u"ä"};
    std::uint32_t seed = 3;
    for (int i = 0; i < 300; ++i) {
        std::u16string text = u"H";
        for (int k = 0; k < 7; ++k) {
            seed = seed * 1664525U + 1013904223U;
            text += parts[(seed >> 16U) % std::size(parts)];
        }
        for (const std::u16string& entry : {text, text.substr(1)}) {
            if (EntriesOfField(kPicRegList, entry).empty()) {
                continue;
            }
            KeyEntryForm form = FormOf(entry, kPicRegList);
            EXPECT_TRUE(form.Accept());
            EXPECT_EQ(form.Entry(), entry);
        }
    }
}

TEST_F(KeyEntryFormTest, ChangeThatIsTakenBackLeavesTheEntryAsItIsWritten) {
    KeyEntryForm form = FormOf(u"hklm\\A\\B%|filename%|c");
    form.SetText(KeyEntryForm::kValueRow, u"X");
    EXPECT_EQ(form.Entry(), u"HKLM\\A\\X%|Filename%|c");
    form.SetText(KeyEntryForm::kValueRow, u"B");
    EXPECT_EQ(form.Entry(), u"hklm\\A\\B%|filename%|c");
}

TEST_F(KeyEntryFormTest, UnreadableEntryStandsInTheKeyToBeMended) {
    KeyEntryForm form = FormOf(u"FOO\\Key\\Value%|Filename%|a.mdb");
    EXPECT_EQ(form.State(KeyEntryForm::kRootRow).selected, -1);
    EXPECT_EQ(Text(form, KeyEntryForm::kKeyRow), "FOO\\Key\\Value%|Filename%|a.mdb");
    EXPECT_EQ(Messages(form),
              "101: Der Eintrag 'FOO\\Key\\Value%|Filename%|a.mdb' beginnt nicht mit HKLM, HKCU, "
              "HKCR oder HKU.");
    EXPECT_TRUE(form.Accept());
    form.SetText(KeyEntryForm::kKeyRow, u"HKLM\\Key\\Value%|Filename%|a.mdb");
    EXPECT_EQ(Text(form, KeyEntryForm::kKeyRow), "Key");
    EXPECT_EQ(Messages(form), "");
    EXPECT_TRUE(form.Accept());
    EXPECT_EQ(form.Entry(), u"HKLM\\Key\\Value%|Filename%|a.mdb");
}

TEST_F(KeyEntryFormTest, ChangedEntryNeedsARootKey) {
    KeyEntryForm form = FormOf(u"FOO\\Key\\Value");
    form.SetText(KeyEntryForm::kKeyRow, u"Key");
    EXPECT_FALSE(form.Accept());
    EXPECT_EQ(Messages(form), "100: Bitte den Hauptschlüssel wählen.");
    form.Select(KeyEntryForm::kRootRow, 0);
    EXPECT_TRUE(form.Accept());
}

TEST_F(KeyEntryFormTest, NewEntryComplainsOnlyWhenItIsToBeTaken) {
    KeyEntryForm form = FormOf(u"");
    EXPECT_EQ(Messages(form), "");
    EXPECT_EQ(Text(form, KeyEntryForm::kStoredRow), "");
    EXPECT_FALSE(form.Accept());
    EXPECT_EQ(Messages(form), "101: Der Schlüssel fehlt.");
}

TEST_F(KeyEntryFormTest, PastedKeyIsTakenApart) {
    KeyEntryForm form = FormOf(u"");
    form.SetText(KeyEntryForm::kValueRow, u"Pfad");
    form.SetText(KeyEntryForm::kKeyRow, u"Computer\\HKEY_USERS\\.DEFAULT\\Software");
    EXPECT_EQ(form.State(KeyEntryForm::kRootRow).selected, 3);
    EXPECT_EQ(Text(form, KeyEntryForm::kKeyRow), ".DEFAULT\\Software");
    EXPECT_EQ(Text(form, KeyEntryForm::kValueRow), "Pfad");
}

TEST_F(KeyEntryFormTest, PastedEntryFillsAllFields) {
    KeyEntryForm form = FormOf(u"");
    Enter(form, 0, u"A", u"B", u"C", u"D");
    form.SetText(KeyEntryForm::kKeyRow, u"HKCR\\K\\V%|Filename%|F");
    EXPECT_EQ(form.Entry(), u"HKCR\\K\\V%|Filename%|F");
    EXPECT_EQ(Text(form, KeyEntryForm::kSubFolderRow), "");
}

TEST_F(KeyEntryFormTest, TypedRootIsTakenOverAtItsSeparator) {
    KeyEntryForm form = FormOf(u"");
    form.SetText(KeyEntryForm::kKeyRow, u"HKCU");
    EXPECT_EQ(Text(form, KeyEntryForm::kKeyRow), "HKCU");
    form.SetText(KeyEntryForm::kKeyRow, u"HKCU\\");
    EXPECT_EQ(Text(form, KeyEntryForm::kKeyRow), "");
    EXPECT_EQ(form.State(KeyEntryForm::kRootRow).selected, 1);
}

TEST_F(KeyEntryFormTest, ValueNameHasNoSeparator) {
    KeyEntryForm form = FormOf(u"");
    Enter(form, 0, u"A", u"B\\C", u"", u"");
    EXPECT_EQ(Messages(form),
              "102: Ein Wertname mit '\\' lässt sich nicht angeben: Was davor steht, gälte als "
              "Schlüssel.");
    EXPECT_FALSE(form.Accept());
}

TEST_F(KeyEntryFormTest, EntryThatIsTooLongIsRefused) {
    KeyEntryForm form = FormOf(u"");
    Enter(form, 0, std::u16string(500, u'x'), u"B", u"", u"");
    EXPECT_FALSE(form.Accept());
    EXPECT_EQ(Messages(form),
              "105: Der Wert ist zu lang: Er braucht 507 Zeichen, das Feld fasst 500.");
    EXPECT_EQ(text::ToUtf8(form.State(KeyEntryForm::kStoredRow).note), "7 Zeichen zu viel");
}

TEST_F(KeyEntryFormTest, CharacterThatCannotBeStoredIsRefused) {
    KeyEntryForm form = FormOf(u"");
    Enter(form, 0, u"A", u"Ω", u"", u"");
    EXPECT_FALSE(form.Accept());
    EXPECT_EQ(Messages(form),
              "105: Das Zeichen 'Ω' gibt es in der Codepage der Einstellungen nicht.");
}

TEST_F(KeyEntryFormTest, FileNameThatMakesAListMarkerIsRefused) {
    KeyEntryForm form = FormOf(u"");
    Enter(form, 0, u"A", u"B", u"", u"%x.mdb");
    EXPECT_FALSE(form.Accept());
    EXPECT_EQ(Message(form, KeyEntryForm::kStoredRow),
              "Das Startprogramm läse hier etwas anderes, weil der Text eine Marke ergibt "
              "('%|SubDir|%', '%|Filename%|' oder '%|%').");
}

TEST_F(KeyEntryFormTest, MarkInAFieldIsRefused) {
    KeyEntryForm form = FormOf(u"", kPicRegList);
    Enter(form, 0, u"A", u"B", u"x%|Filename%|y", u"z.bmp");
    EXPECT_FALSE(form.Accept());
}

TEST_F(KeyEntryFormTest, FindingsStandAtTheirFields) {
    KeyEntryForm form = FormOf(u"");
    Enter(form, 0, u"SOFTWARE\\WOW6432Node\\A", u"B", u"a/b", u"c?.mdb");
    EXPECT_EQ(Messages(form),
              "101: Der Eintrag 'HKLM\\SOFTWARE\\WOW6432Node\\A\\B%|SubDir|%a/b%|Filename%|c?.mdb' "
              "nennt WOW6432Node. Ein 32-Bit-Programm wird von selbst dorthin geführt, und ein "
              "32-Bit-Windows hat den Schlüssel nicht. Besser: "
              "'HKLM\\SOFTWARE\\A\\B%|SubDir|%a/b%|Filename%|c?.mdb'. "
              "103: 'a/b' enthält '/'; Ordner trennt unter Windows '\\'. Besser: 'a\\b'. "
              "104: 'c?.mdb' enthält das Zeichen '?', das in keinem Datei- oder Ordnernamen "
              "vorkommt.");
    EXPECT_TRUE(form.Accept());
}

TEST_F(KeyEntryFormTest, SubFolderNeedsAFile) {
    KeyEntryForm form = FormOf(u"");
    Enter(form, 0, u"A", u"B", u"C", u"");
    EXPECT_EQ(Messages(form),
              "104: Der Eintrag 'HKLM\\A\\B%|SubDir|%C' nennt einen Unterordner, aber keinen "
              "Dateinamen; er führt nie zu einer Datei.");
}

TEST_F(KeyEntryFormTest, AccessEntryHasNoFileName) {
    EXPECT_FALSE(FormOf(u"HKLM\\A\\B", kAccRegList).State(KeyEntryForm::kFileRow).visible);
    EXPECT_TRUE(
        FormOf(u"HKLM\\A\\B%|Filename%|c", kAccRegList).State(KeyEntryForm::kFileRow).visible);
    EXPECT_TRUE(FormOf(u"HKLM\\A\\B").State(KeyEntryForm::kFileRow).visible);
}

TEST_F(KeyEntryFormTest, OtherEntriesOfTheFieldCountForTheRoom) {
    KeyEntryForm form = FormOf(u"HKLM\\A\\B%|%HKLM\\A\\C");
    EXPECT_EQ(text::ToUtf8(form.State(KeyEntryForm::kStoredRow).note), "noch 481 von 500 Zeichen");
    form.SetText(KeyEntryForm::kValueRow, std::u16string(483, u'x'));
    EXPECT_FALSE(form.Accept());
    EXPECT_EQ(Message(form, KeyEntryForm::kStoredRow),
              "Der Wert ist zu lang: Er braucht 501 Zeichen, das Feld fasst 500.");
}

TEST_F(KeyEntryFormTest, AnswerShowsWhenSomebodyKnowsIt) {
    EXPECT_FALSE(FormOf(u"").State(KeyEntryForm::kAnswerRow).visible);
    const KeyListEdit edit(document_, kDBRegList);
    KeyEntryForm form(edit, edit.NewLine(), [](const KeyListFields&, const std::u16string& entry) {
        return EntryAnswer{true, u"Antwort zu " + entry};
    });
    EXPECT_EQ(Text(form, KeyEntryForm::kAnswerRow), "");
    form.SetText(KeyEntryForm::kKeyRow, u"A");
    EXPECT_EQ(Text(form, KeyEntryForm::kAnswerRow), "Antwort zu HKLM\\A\\");
    EXPECT_TRUE(form.State(KeyEntryForm::kAnswerRow).visible);
}

TEST_F(KeyEntryFormTest, DocumentIsNotChanged) {
    bool told = false;
    document_.SetListener([&told] { told = true; });
    const KeyListEdit edit(document_, kDBRegList);
    KeyEntryForm form(edit, edit.NewLine(), {});
    form.SetText(KeyEntryForm::kKeyRow, u"A");
    EXPECT_FALSE(told);
    EXPECT_EQ(Fields(), "");
}

}  // namespace
}  // namespace tarvex
