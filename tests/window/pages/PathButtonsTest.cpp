#include "window/pages/PathButtons.h"

#include "configurator/program/ProgramFields.h"
#include "tests/support/IconBytes.h"
#include "tests/window/pages/PageWorld.h"
#include "window/pages/Questions.h"

namespace tarvex {
namespace {

using Log = std::vector<std::string>;

class PathButtonsTest : public PageWorld {
protected:
    /// Presses the "..." button after the row; the user chooses that path and answers so.
    void Press(std::int32_t row, std::u16string_view path, std::deque<std::int32_t> answers = {}) {
        dialogs_.paths = {std::u16string(path)};
        dialogs_.answers = std::move(answers);
        form_->Press(BrowseButton(row));
    }

    static constexpr const char* kBelow =
        "liegt beim Startprogramm. Ein relativer Pfad gilt auch dann noch, wenn beide zusammen an "
        "einen anderen Ort kommen. [&Relativ zum Startprogramm|&Voller Pfad|Abbrechen]";
};

// Folders.

TEST_F(PathButtonsTest, FolderElsewhereIsEnteredAsItIs) {
    Open(kDatabasePage).SetChecked(kDatabasePlace, true);
    Press(kFieldDBPath, u"D:\\Daten\\");
    EXPECT_EQ(Text(kFieldDBPath), "D:\\Daten");
    EXPECT_EQ(dialogs_.log, (Log{"Ordner: Ordner der Datenbank auswählen"}));
    EXPECT_EQ(dialogs_.fileQuestions.front().folder, u"C:\\Prog");
    Press(kFieldDBPath, u"D:\\");
    EXPECT_EQ(Text(kFieldDBPath), "D:\\");
    EXPECT_EQ(dialogs_.fileQuestions.back().folder, u"D:\\Daten");
}

TEST_F(PathButtonsTest, FolderBelowTheLauncherMayBeRelative) {
    Open(kDatabasePage).SetChecked(kDatabasePlace, true);
    Press(kFieldDBPath, u"C:\\Prog\\Daten", {0});
    EXPECT_EQ(Text(kFieldDBPath), "Daten");
    EXPECT_EQ(dialogs_.log, (Log{"Ordner: Ordner der Datenbank auswählen",
                                 std::string("Frage: C:\\Prog\\Daten\n") + kBelow}));
    Press(kFieldDBPath, u"C:\\Prog\\Daten", {1});
    EXPECT_EQ(Text(kFieldDBPath), "C:\\Prog\\Daten");
    Press(kFieldDBPath, u"C:\\Prog\\Alt", {2});
    EXPECT_EQ(Text(kFieldDBPath), "C:\\Prog\\Daten");
}

TEST_F(PathButtonsTest, DialogStartsWhereTheFieldLeads) {
    Open(kPicturePage, {{kFieldPicPath, u"..\\Bilder"}, {kFieldPicFilename, u"a.bmp"}});
    Press(kFieldPicPath, u"");
    EXPECT_EQ(dialogs_.fileQuestions.back().folder, u"C:\\Bilder");
    Press(SecondRow(kFieldPicFilename), u"");
    EXPECT_EQ(dialogs_.fileQuestions.back().folder, u"C:\\Bilder");
    EXPECT_EQ(dialogs_.log,
              (Log{"Ordner: Ordner des Startbilds auswählen", "Datei: Startbild auswählen"}));
}

TEST_F(PathButtonsTest, CancelledDialogChangesNothing) {
    Open(kDatabasePage, {{kFieldDBPath, u"D"}, {kFieldDBFilename, u"a.mdb"}});
    Press(kFieldDBPath, u"");
    Press(SecondRow(kFieldDBFilename), u"");
    EXPECT_FALSE(document_->IsDirty());
    EXPECT_FALSE(document_->CanUndo(kFieldDBPath));
}

// Files.

TEST_F(PathButtonsTest, FileAtAFixedPlaceFillsFolderAndName) {
    Open(kDatabasePage).SetChecked(kDatabasePlace, true);
    Press(SecondRow(kFieldDBFilename), u"D:\\Daten\\Kunden.mdb");
    EXPECT_EQ(Text(kFieldDBPath), "D:\\Daten");
    EXPECT_EQ(Text(kFieldDBFilename), "Kunden.mdb");
    EXPECT_EQ(dialogs_.fileQuestions.front().filter,
              u"Access-Datenbanken|*.mdb;*.mde;*.mda;*.accdb;*.accde;*.accdr|Alle Dateien|*.*");
    Press(SecondRow(kFieldDBFilename), u"\\\\Server\\Daten\\K.mdb");
    EXPECT_EQ(Text(kFieldDBPath), "\\\\Server\\Daten");
    Press(SecondRow(kFieldDBFilename), u"E:\\K.mdb");
    EXPECT_EQ(Text(kFieldDBPath), "E:\\");
}

TEST_F(PathButtonsTest, FileBelowTheLauncherMayHaveARelativeFolder) {
    Open(kWorkgroupPage).SetChecked(kWorkgroupPlace, true);
    Press(SecondRow(kFieldSysDBFilename), u"C:\\Prog\\Daten\\System.mdw", {0});
    EXPECT_EQ(Text(kFieldSysDBPath), "Daten");
    EXPECT_EQ(Text(kFieldSysDBFilename), "System.mdw");
    Press(SecondRow(kFieldSysDBFilename), u"C:\\Prog\\System.mdw", {0});
    EXPECT_EQ(Text(kFieldSysDBPath), ".");
    Press(SecondRow(kFieldSysDBFilename), u"C:\\Prog\\Alt\\x.mdw", {2});
    EXPECT_EQ(Text(kFieldSysDBPath), ".");
    EXPECT_EQ(Text(kFieldSysDBFilename), "System.mdw");
}

TEST_F(PathButtonsTest, FileBesideTheLauncherIsItsNameAlone) {
    Open(kDatabasePage).SetChecked(kDatabaseBeside, true);
    Press(kFieldDBFilename, u"c:\\prog\\Daten.mdb");
    EXPECT_EQ(Text(kFieldDBFilename), "Daten.mdb");
    EXPECT_EQ(dialogs_.log, (Log{"Datei: Datenbank auswählen"}));
    EXPECT_TRUE(form_->State(kDatabaseBeside).checked);
}

TEST_F(PathButtonsTest, FileElsewhereAsksForTheFixedPlace) {
    Open(kDatabasePage, {{kFieldDBFilename, u"a.mdb"}});
    Press(kFieldDBFilename, u"D:\\Daten\\Kunden.mdb", {1});
    EXPECT_EQ(Text(kFieldDBFilename), "a.mdb");
    EXPECT_EQ(dialogs_.log.back(),
              "Frage: D:\\Daten\\Kunden.mdb\nliegt nicht neben dem Startprogramm. Soll die Datei "
              "an diesem festen Ort gesucht werden? [An &festem Ort suchen|Abbrechen]");
    Press(kFieldDBFilename, u"D:\\Daten\\Kunden.mdb", {0});
    EXPECT_TRUE(form_->State(kDatabasePlace).checked);
    EXPECT_EQ(Text(kFieldDBPath), "D:\\Daten");
    EXPECT_EQ(Text(kFieldDBFilename), "Kunden.mdb");
    EXPECT_TRUE(document_->ParkedTexts().empty());
}

// Access.

TEST_F(PathButtonsTest, AccessIsChosenByItsProgram) {
    Open(kAccessPage).SetChecked(kAccessPlace, true);
    Press(kFieldAccPath, u"C:\\Office\\MSACCESS.EXE");
    EXPECT_EQ(Text(kFieldAccPath), "C:\\Office\\MSACCESS.EXE");
    EXPECT_EQ(dialogs_.fileQuestions.front().filter, u"Access|msaccess.exe|Alle Dateien|*.*");
    Press(kFieldAccPath, u"");
    EXPECT_EQ(dialogs_.fileQuestions.back().folder, u"C:\\Office");
}

TEST_F(PathButtonsTest, AccessBesideTheLauncherHasADotBeforeItsName) {
    Open(kAccessPage).SetChecked(kAccessPlace, true);
    Press(kFieldAccPath, u"C:\\Prog\\msaccess.exe", {0});
    EXPECT_EQ(Text(kFieldAccPath), ".\\msaccess.exe");
    Press(kFieldAccPath, u"C:\\Prog\\Office\\msaccess.exe", {0});
    EXPECT_EQ(Text(kFieldAccPath), "Office\\msaccess.exe");
}

// The icon.

TEST_F(PathButtonsTest, ChosenIconIsReadAtOnce) {
    const std::string icon = IconBytes({BitmapImage(16, 16)});
    files_.AddFile(u"D:/Kunden.ico", icon);
    Open(kProgramPage);
    Press(kFieldIconFile, u"D:\\Kunden.ico");
    EXPECT_EQ(Text(kFieldIconFile), "D:\\Kunden.ico");
    EXPECT_EQ(document_->Icon(), icon);
    EXPECT_EQ(dialogs_.log, (Log{"Datei: Symboldatei auswählen"}));
}

TEST_F(PathButtonsTest, FileThatIsNoIconIsRefusedWithItsReason) {
    files_.AddFile(u"D:/Kunden.ico", "no icon");
    Open(kProgramPage, {{kFieldCompanyName, u"Muster"}});
    Press(kFieldIconFile, u"D:\\Kunden.ico");
    EXPECT_EQ(Text(kFieldIconFile), "");
    EXPECT_FALSE(document_->IsDirty());
    ASSERT_EQ(dialogs_.questions.size(), 1U);
    EXPECT_EQ(text::ToUtf8(dialogs_.questions.front().text),
              "D:\\Kunden.ico: Die Datei ist keine Symboldatei (.ico).");
    EXPECT_EQ(dialogs_.questions.front().icon, BoxIcon::Error);
}

}  // namespace
}  // namespace tarvex
