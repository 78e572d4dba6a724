#include "window/preview/DryRunForm.h"

#include <gtest/gtest.h>

#include "tests/support/FakeUserDialogs.h"

namespace tarvex {
namespace {

TEST(DryRunFormTest, ShowsAndCopiesTheText) {
    PreviewResult preview;
    preview.text = u"[Access-Pfad]\r\nAccess-EXE: OK\r\n";
    FakeUserDialogs dialogs;
    dialogs.formUsers = {[&preview](FormModel& form) {
        EXPECT_EQ(form.State(DryRunForm::kTextRow).text, preview.text);
        EXPECT_FALSE(form.State(DryRunForm::kRemarksRow).visible);
        form.Press(DryRunForm::kCopyButton);
        return false;
    }};
    ShowDryRun(dialogs, preview, u"Kunden.exe", u"diesem PC");
    EXPECT_EQ(dialogs.log,
              (std::vector<std::string>{"Fenster: Probelauf von Kunden.exe auf diesem PC"}));
    EXPECT_EQ(dialogs.clipboard, preview.text);
}

TEST(DryRunFormTest, ShowsWhatThereIsToSayOfThePc) {
    PreviewResult preview;
    preview.text = u"x";
    preview.remarks = {u"Nicht beschrieben: a", u"Nicht beschrieben: b"};
    FakeUserDialogs dialogs;
    const RowState state = DryRunForm(preview, dialogs).State(DryRunForm::kRemarksRow);
    EXPECT_TRUE(state.visible);
    EXPECT_EQ(state.text, u"Nicht beschrieben: a\r\nNicht beschrieben: b");
}

TEST(DryRunFormTest, ReasonStandsInPlaceOfATextThatThereIsNot) {
    PreviewResult preview;
    preview.commandLine = u"Eine Vorschau auf diesem PC gibt es nur unter Windows.";
    FakeUserDialogs dialogs;
    EXPECT_EQ(DryRunForm(preview, dialogs).State(DryRunForm::kTextRow).text, preview.commandLine);
}

}  // namespace
}  // namespace tarvex
