#include "window/preview/LogComparisonForm.h"

#include <gtest/gtest.h>

#include "tests/support/FakeBinaryFiles.h"
#include "tests/support/FakeFileStore.h"
#include "tests/support/FakeUserDialogs.h"
#include "text/TextCodec1252.h"

namespace tarvex {
namespace {

using Items = std::vector<std::vector<std::u16string>>;

std::u16string TextOf(const FormModel& form, std::int32_t id) {
    return form.State(id).text;
}

TEST(LogComparisonFormTest, FirstDifferenceIsNamedAndChosen) {
    const LogComparisonForm form(u"a\nb\nc\n", u"a\nB\nc\nd\n", u"diesem PC");
    EXPECT_EQ(TextOf(form, LogComparisonForm::kVerdictRow), u"Erster Unterschied in Zeile 2.");
    const RowState list = form.State(LogComparisonForm::kListRow);
    EXPECT_EQ(list.items, (Items{{u"1", u"", u"a", u"a"},
                                 {u"2", u"anders", u"b", u"B"},
                                 {u"3", u"", u"c", u"c"},
                                 {u"", u"nur in der Vorschau", u"", u"d"}}));
    EXPECT_EQ(list.selected, 1);
    EXPECT_EQ(TextOf(form, LogComparisonForm::kLogRow), u"b");
    EXPECT_EQ(TextOf(form, LogComparisonForm::kPreviewRow), u"B");
    EXPECT_EQ(form.Rows().at(1).columns,
              (std::vector<std::u16string>{u"Zeile", u"Unterschied", u"Protokoll des Kunden",
                                           u"Vorschau auf diesem PC"}));
}

TEST(LogComparisonFormTest, SameTextsHaveNoDifference) {
    const LogComparisonForm form(u"a\n", u"a\r\n", u"diesem PC");
    EXPECT_EQ(TextOf(form, LogComparisonForm::kVerdictRow), u"Kein Unterschied.");
    const RowState list = form.State(LogComparisonForm::kListRow);
    EXPECT_EQ(list.selected, -1);
    EXPECT_EQ(list.disabledButtons,
              (std::vector<std::int32_t>{LogComparisonForm::kNextButton,
                                         LogComparisonForm::kPreviousButton}));
}

TEST(LogComparisonFormTest, LinesThatTheCustomerDoesNotHaveAreNamedByThoseBefore) {
    EXPECT_EQ(TextOf(LogComparisonForm(u"a\nc\n", u"a\nb\nc\n", u"Kasse"),
                     LogComparisonForm::kVerdictRow),
              u"Erster Unterschied nach Zeile 1: Dort fehlen Zeilen im Protokoll.");
    EXPECT_EQ(TextOf(LogComparisonForm(u"", u"b\n", u"Kasse"), LogComparisonForm::kVerdictRow),
              u"Erster Unterschied vor Zeile 1: Dort fehlen Zeilen im Protokoll.");
}

TEST(LogComparisonFormTest, ButtonsGoFromDifferenceToDifference) {
    LogComparisonForm form(u"a\nb\nc\nd\n", u"A\nb\nC\nd\n", u"Kasse");
    const auto selected = [&form] { return form.State(LogComparisonForm::kListRow).selected; };
    form.Press(LogComparisonForm::kNextButton);
    EXPECT_EQ(selected(), 2);
    EXPECT_EQ(form.State(LogComparisonForm::kListRow).disabledButtons,
              (std::vector<std::int32_t>{LogComparisonForm::kNextButton}));
    form.Press(LogComparisonForm::kNextButton);
    EXPECT_EQ(selected(), 2);
    form.Select(LogComparisonForm::kListRow, 1);
    EXPECT_EQ(TextOf(form, LogComparisonForm::kLogRow), u"b");
    form.Press(LogComparisonForm::kPreviousButton);
    EXPECT_EQ(selected(), 0);
}

/// A customer's log in a file.
class CompareWithLogTest : public testing::Test {
protected:
    /// The verdict on the file against a preview of the lines "Für Müller" and "–".
    std::u16string Verdict(std::string bytes) {
        files.AddFile(u"C:\\Post\\Kunden.err", std::move(bytes));
        dialogs.paths = {u"C:\\Post\\Kunden.err"};
        std::u16string verdict;
        dialogs.formUsers = {[&verdict](FormModel& form) {
            verdict = form.State(LogComparisonForm::kVerdictRow).text;
            return false;
        }};
        CompareWithLog(dialogs, store, codec, u"C:\\Kunden", u"Für Müller\r\n–\r\n", u"Kasse");
        return verdict;
    }

    FakeBinaryFiles files;
    FakeFileStore store{files};
    FakeUserDialogs dialogs;
    TextCodec1252 codec;
};

TEST_F(CompareWithLogTest, LogIsReadHoweverItWasSaved) {
    const std::u16string same = u"Kein Unterschied.";
    EXPECT_EQ(Verdict("F\xFCr M\xFCller\r\n\x96\r\n"), same);
    EXPECT_EQ(Verdict("F\xC3\xBCr M\xC3\xBCller\n\xE2\x80\x93\n"), same);
    EXPECT_EQ(Verdict("\xEF\xBB\xBF"
                      "F\xC3\xBCr M\xC3\xBCller\r\n\xE2\x80\x93"),
              same);
    const std::string utf16("F\0\xFC\0r\0 \0M\0\xFC\0l\0l\0e\0r\0\r\0\n\0\x13\x20\r\0\n\0", 28);
    EXPECT_EQ(Verdict("\xFF\xFE" + utf16), same);
    EXPECT_EQ(Verdict(utf16), same);
    EXPECT_EQ(Verdict("F\xFCr Meier\r\n\x96\r\n"), u"Erster Unterschied in Zeile 1.");
}

TEST_F(CompareWithLogTest, WindowIsNamedAfterTheFile) {
    Verdict("x");
    EXPECT_EQ(dialogs.log, (std::vector<std::string>{"Datei: Protokoll des Kunden öffnen",
                                                     "Fenster: Mit Protokoll vergleichen - "
                                                     "Kunden.err"}));
    EXPECT_EQ(dialogs.fileQuestions.front().folder, u"C:\\Kunden");
}

TEST_F(CompareWithLogTest, FileThatCannotBeReadIsTold) {
    dialogs.paths = {u"C:\\fehlt.err"};
    CompareWithLog(dialogs, store, codec, {}, u"x", u"Kasse");
    EXPECT_EQ(dialogs.log.back(), "Frage: C:\\fehlt.err:\nDie Datei ist nicht vorhanden. [OK]");
}

TEST_F(CompareWithLogTest, NothingHappensWithoutAFile) {
    CompareWithLog(dialogs, store, codec, {}, u"x", u"Kasse");
    EXPECT_EQ(dialogs.log.size(), 1u);
}

}  // namespace
}  // namespace tarvex
