#include "util/QvFileDialog.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/support/FakeCommonDialogs.h"
#include "tests/support/FakeUi.h"
#include "text/TextCodec1252.h"

namespace tarvex {
namespace {

class QvFileDialogTest : public testing::Test {
protected:
    void Choose(const std::string& path, const std::string& name) {
        dialogs.end = {true, 0};
        dialogs.file = path + '\0';
        dialogs.fileTitle = name + '\0';
    }

    FakeCommonDialogs dialogs;
    FakeUi ui;
    TextCodec1252 ansi;
    QvFileDialog dialog{dialogs, ansi, ui};
};

FileDialogOptions Named(std::u16string defaultName) {
    FileDialogOptions options;
    options.defaultName = std::move(defaultName);
    return options;
}

constexpr std::string_view kAllFiles("Alle Dateien (*.*)\0*.*\0\0", 24);

TEST_F(QvFileDialogTest, OpenHasDefaults) {
    dialog.GetOpenFileName();
    ASSERT_EQ(1U, dialogs.openCalls.size());
    const FileDialogCall& call = dialogs.openCalls[0];
    EXPECT_EQ(
        "Datei \xF6"
        "ffnen",
        call.title);
    EXPECT_EQ("c:\\", call.folder);
    EXPECT_EQ(kAllFiles, call.filter);
    EXPECT_EQ(6148U, call.flags);
    EXPECT_EQ("", call.defaultExtension);
    EXPECT_EQ(nullptr, call.owner);
    EXPECT_EQ(std::string(512, '\0'), call.file);
    EXPECT_EQ(std::string(512, '\0'), call.fileTitle);
}

TEST_F(QvFileDialogTest, SaveHasDefaults) {
    dialog.GetSaveFileName();
    ASSERT_EQ(1U, dialogs.saveCalls.size());
    const FileDialogCall& call = dialogs.saveCalls[0];
    EXPECT_EQ("Datei speichern", call.title);
    EXPECT_EQ("c:\\", call.folder);
    EXPECT_EQ(kAllFiles, call.filter);
    EXPECT_EQ(2054U, call.flags);
}

TEST_F(QvFileDialogTest, DialogLevelHasTitlesOfItsOwn) {
    dialog.ShowOpen({});
    dialog.ShowSave({});
    ASSERT_EQ(1U, dialogs.openCalls.size());
    ASSERT_EQ(1U, dialogs.saveCalls.size());
    EXPECT_EQ(
        "Datei \xF6"
        "ffnen",
        dialogs.openCalls[0].title);
    EXPECT_EQ("Datei speichern unter", dialogs.saveCalls[0].title);
    EXPECT_EQ("", dialogs.saveCalls[0].folder);
    EXPECT_EQ(std::string_view("Alle Dateien\0*.*\0\0", 18), dialogs.saveCalls[0].filter);
}

TEST_F(QvFileDialogTest, GivenOptionsReachTheDialog) {
    int window = 0;
    dialog.GetSaveFileName(
        {u"Titel ä", u"D:\\Büro", u"Texte|*.txt|Alle|*.*", u"Müller.err", u"err", &window});
    ASSERT_EQ(1U, dialogs.saveCalls.size());
    const FileDialogCall& call = dialogs.saveCalls[0];
    EXPECT_EQ("Titel \xE4", call.title);
    EXPECT_EQ("D:\\B\xFCro", call.folder);
    EXPECT_EQ(std::string_view("Texte\0*.txt\0Alle\0*.*\0\0", 22), call.filter);
    EXPECT_EQ("err", call.defaultExtension);
    EXPECT_EQ(&window, call.owner);
    std::string file = "M\xFCller.err";
    file.resize(512);
    EXPECT_EQ(file, call.file);
}

TEST_F(QvFileDialogTest, ChosenTextsEndAtTheFirstZero) {
    Choose("C:\\B\xFCro\\Bericht.err", "Bericht.err");
    const ChosenFile chosen = dialog.GetSaveFileName(Named(std::u16string(40, u'x')));
    EXPECT_EQ(u"C:\\Büro\\Bericht.err", chosen.path);
    EXPECT_EQ(u"Bericht.err", chosen.name);
    EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(QvFileDialogTest, CancelGivesEmptyTextsAndNoMessage) {
    dialogs.file = std::string("C:\\alt\0", 7);
    dialogs.fileTitle = std::string("alt\0", 4);
    const ChosenFile chosen = dialog.GetOpenFileName(Named(u"Vorschlag.txt"));
    EXPECT_EQ(u"", chosen.path);
    EXPECT_EQ(u"", chosen.name);
    EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(QvFileDialogTest, LongestNameStillFitsWithItsZero) {
    Choose("C:\\x", "x");
    EXPECT_EQ(u"C:\\x", dialog.GetSaveFileName(Named(std::u16string(511, u'n'))).path);
    ASSERT_EQ(1U, dialogs.saveCalls.size());
    EXPECT_EQ(std::string(511, 'n') + '\0', dialogs.saveCalls[0].file);
}

TEST_F(QvFileDialogTest, TooLongNameIsShownAsAnError) {
    Choose("C:\\x", "x");
    for (const std::size_t length : {512U, 513U, 5000U}) {
        ui.boxes.clear();
        EXPECT_EQ(u"", dialog.GetSaveFileName(Named(std::u16string(length, u'n'))).path);
        EXPECT_EQ(u"", dialog.GetOpenFileName(Named(std::u16string(length, u'n'))).name);
        ASSERT_EQ(2U, ui.boxes.size());
        EXPECT_EQ(u"Error: ShowSave", ui.boxes[0].title);
        EXPECT_EQ(u"Überlauf", ui.boxes[0].text);
        EXPECT_EQ(48U, ui.boxes[0].style);
        EXPECT_EQ(u"Error: ShowOpen", ui.boxes[1].title);
    }
    EXPECT_TRUE(dialogs.saveCalls.empty());
    EXPECT_TRUE(dialogs.openCalls.empty());
}

TEST_F(QvFileDialogTest, FailedDialogIsShownAsAnErrorWithItsNumber) {
    dialogs.end = {false, 0x3002};
    EXPECT_EQ(u"", dialog.GetSaveFileName(Named(u"a")).path);
    ASSERT_EQ(1U, ui.boxes.size());
    EXPECT_EQ(u"Error: ShowSave", ui.boxes[0].title);
    EXPECT_EQ(u"Der Dialog kann nicht angezeigt werden (Fehler 3002).", ui.boxes[0].text);
    EXPECT_EQ(48U, ui.boxes[0].style);
}

TEST_F(QvFileDialogTest, ExceptionOfADialogIsShownAsAnErrorToo) {
    struct : FakeCommonDialogs {
        FileDialogEnd ShowOpen(FileDialogCall&) override { throw std::runtime_error("voll"); }
        FileDialogEnd ShowSave(FileDialogCall&) override { throw 1; }
    } failing;
    QvFileDialog broken(failing, ansi, ui);
    EXPECT_EQ(u"", broken.GetOpenFileName(Named(u"a")).path);
    EXPECT_EQ(u"", broken.GetSaveFileName(Named(u"a")).path);
    ASSERT_EQ(2U, ui.boxes.size());
    EXPECT_EQ(u"Error: ShowOpen", ui.boxes[0].title);
    EXPECT_EQ(u"voll", ui.boxes[0].text);
    EXPECT_EQ(u"Error: ShowSave", ui.boxes[1].title);
    EXPECT_EQ(u"Interner Fehler", ui.boxes[1].text);
    EXPECT_EQ(48U, ui.boxes[1].style);
}

TEST_F(QvFileDialogTest, FlagsFollowTheIntentionInAnyCase) {
    EXPECT_EQ(6148U, dialog.CheckFlags(u"open"));
    EXPECT_EQ(6148U, dialog.CheckFlags(u"OPEN"));
    EXPECT_EQ(2054U, dialog.CheckFlags(u"sAVE"));
    EXPECT_TRUE(ui.boxes.empty());
}

TEST_F(QvFileDialogTest, UnknownIntentionIsShownToTheUser) {
    EXPECT_EQ(0U, dialog.CheckFlags(u"Löschen"));
    ASSERT_EQ(1U, ui.boxes.size());
    EXPECT_EQ(u"Unbekannte Intention: Löschen", ui.boxes[0].text);
    EXPECT_EQ(u"Z_CheckFlags", ui.boxes[0].title);
    EXPECT_EQ(16U, ui.boxes[0].style);
    for (const auto* intention : {u"xOpen", u"Openx", u"xSave", u"Savex"}) {
        EXPECT_EQ(0U, dialog.CheckFlags(intention));
    }
    EXPECT_EQ(5U, ui.boxes.size());
}

TEST_F(QvFileDialogTest, FolderBrowserHasDefaults) {
    EXPECT_EQ(u"", dialog.BrowseForFolder());
    ASSERT_EQ(1U, dialogs.folderCalls.size());
    EXPECT_EQ("Ordner w\xE4hlen", dialogs.folderCalls[0].title);
    EXPECT_EQ("c:\\", dialogs.folderCalls[0].startFolder);
    EXPECT_EQ(1U, dialogs.folderCalls[0].flags);
    EXPECT_EQ(nullptr, dialogs.folderCalls[0].owner);
}

TEST_F(QvFileDialogTest, FolderBrowserReturnsTheChosenFolder) {
    int window = 0;
    dialogs.folder = "D:\\B\xFCro";
    EXPECT_EQ(u"D:\\Büro", dialog.BrowseForFolder(u"Ziel", u"D:\\", &window));
    EXPECT_EQ("Ziel", dialogs.folderCalls[0].title);
    EXPECT_EQ("D:\\", dialogs.folderCalls[0].startFolder);
    EXPECT_EQ(&window, dialogs.folderCalls[0].owner);
}

}  // namespace
}  // namespace tarvex
