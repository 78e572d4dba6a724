#include "window/files/NewLauncherForm.h"

#include <gtest/gtest.h>

#include "tests/window/files/FilesWorld.h"

namespace tarvex {
namespace {

class NewLauncherFormTest : public testing::Test, public FilesWorld {
protected:
    std::u16string Message(std::int32_t id) { return form_.State(id).message; }

    void FillIn(std::u16string_view name) {
        form_.SetText(NewLauncherForm::kName, name);
        form_.SetText(NewLauncherForm::kFolder, u"C:\\Daten");
    }

    NewLauncherForm form_{store, dialogs, {.source = kTemplate}};
};

TEST_F(NewLauncherFormTest, EmptyRowsAreOnlyCalledWrongWhenTheUserIsDone) {
    EXPECT_EQ(Message(NewLauncherForm::kName), u"");
    EXPECT_EQ(Message(NewLauncherForm::kFolder), u"");
    EXPECT_FALSE(form_.Accept());
    EXPECT_EQ(Message(NewLauncherForm::kName), u"Bitte einen Namen angeben.");
    EXPECT_EQ(Message(NewLauncherForm::kFolder), u"Bitte den Ordner angeben.");
}

TEST_F(NewLauncherFormTest, UserBeginsWhereSomethingIsMissing) {
    EXPECT_EQ(NewLauncherForm(store, dialogs, {}).FirstRow(), NewLauncherForm::kTemplate);
    EXPECT_EQ(form_.FirstRow(), NewLauncherForm::kName);
    form_.SetText(NewLauncherForm::kName, u"Kasse");
    EXPECT_EQ(form_.FirstRow(), NewLauncherForm::kFolder);
    FillIn(u"Kasse");
    EXPECT_EQ(form_.FirstRow(), NewLauncherForm::kName);
}

TEST_F(NewLauncherFormTest, NameGetsItsExtension) {
    FillIn(u" Kasse ");
    EXPECT_TRUE(form_.Accept());
    EXPECT_EQ(form_.Output(), u"C:\\Daten\\Kasse.exe");
    FillIn(u"Kasse.EXE");
    EXPECT_EQ(form_.Output(), u"C:\\Daten\\Kasse.EXE");
}

TEST_F(NewLauncherFormTest, NameMustBeOneOfAFile) {
    FillIn(u"a\\b");
    EXPECT_EQ(Message(NewLauncherForm::kName),
              u"Ein Dateiname darf diese Zeichen nicht enthalten: \\ / : * ? \" < > |");
    EXPECT_FALSE(form_.Accept());
    FillIn(u".exe");
    EXPECT_EQ(Message(NewLauncherForm::kName), u"Bitte einen Namen angeben.");
}

TEST_F(NewLauncherFormTest, FolderMustBeThere) {
    form_.SetText(NewLauncherForm::kFolder, u"Daten");
    EXPECT_EQ(Message(NewLauncherForm::kFolder),
              u"Bitte den ganzen Pfad angeben, zum Beispiel C:\\Programme\\Kunden.");
    form_.SetText(NewLauncherForm::kFolder, u"C:\\Weg");
    EXPECT_EQ(Message(NewLauncherForm::kFolder), u"Den Ordner gibt es nicht.");
    form_.SetText(NewLauncherForm::kFolder, u"C:\\Daten\\");
    EXPECT_EQ(Message(NewLauncherForm::kFolder), u"");
}

TEST_F(NewLauncherFormTest, TemplateMustBeAnUnconfiguredLauncher) {
    const auto message = [this](std::u16string_view path) {
        form_.SetText(NewLauncherForm::kTemplate, path);
        return Message(NewLauncherForm::kTemplate);
    };
    EXPECT_EQ(message(kTemplate), u"");
    EXPECT_EQ(message(u""), u"Bitte die Vorlage angeben.");
    EXPECT_EQ(message(u"tarvex.exe"),
              u"Bitte den ganzen Pfad angeben, zum Beispiel C:\\Tarvex\\tarvex.exe.");
    EXPECT_EQ(message(u"C:\\Tarvex\\tarv"), u"Eine Vorlage ist eine Datei mit der Endung .exe.");
    EXPECT_EQ(message(u"C:\\Tarvex\\weg.exe"), u"Die Datei ist nicht vorhanden.");
    EXPECT_EQ(message(kLauncher),
              u"Die Datei ist schon konfiguriert. Zum Ändern „Öffnen“ wählen; „Übernehmen aus "
              u"älterem Startprogramm“ holt ihre Angaben in ein neues.");
    files.AddFile(u"C:\\Tarvex\\x.exe", "MZ");
    EXPECT_EQ(message(u"C:\\Tarvex\\x.exe"), u"Die Datei ist kein 32-Bit-Programm für Windows.");
    SyntheticLauncher program;
    program.signatureSize = 512;
    files.AddFile(u"C:\\Tarvex\\s.exe", program.Build());
    EXPECT_EQ(message(u"C:\\Tarvex\\s.exe"),
              u"Die Datei trägt eine Signatur; erst konfigurieren, dann signieren.");
    EXPECT_FALSE(form_.Accept());
}

TEST_F(NewLauncherFormTest, PathThatIsStillTypedIsNotLookedFor) {
    store.log.clear();
    form_.SetText(NewLauncherForm::kTemplate, u"\\\\Server\\Freigabe\\tarv");
    EXPECT_EQ(store.log, std::vector<std::u16string>());
}

TEST_F(NewLauncherFormTest, TemplateCannotBeTheNewLauncher) {
    form_.SetText(NewLauncherForm::kName, u"tarvex");
    files.AddFolder(u"C:\\Tarvex");
    form_.SetText(NewLauncherForm::kFolder, u"C:\\Tarvex");
    EXPECT_EQ(Message(NewLauncherForm::kName),
              u"Die Ausgabe wäre dieselbe Datei wie die Eingabe 'C:\\Tarvex\\tarvex.exe'.");
}

TEST_F(NewLauncherFormTest, ExistingFileIsReplacedOnlyWhenTheUserAgrees) {
    FillIn(u"Kunden");
    EXPECT_FALSE(form_.Accept());
    EXPECT_EQ(dialogs.log, std::vector<std::string>(
                               {"Frage: Kunden.exe ist schon vorhanden. Soll die Datei beim "
                                "Speichern ersetzt werden? [&Ersetzen|Abbrechen]"}));
    dialogs.answers = {0};
    EXPECT_TRUE(form_.Accept());
    EXPECT_TRUE(form_.MayReplace());
    FillIn(u"Neu");
    EXPECT_FALSE(form_.MayReplace());
}

TEST_F(NewLauncherFormTest, FileAndFolderAreChosenInDialogs) {
    dialogs.paths = {u"C:\\Tarvex\\weg.exe", u"C:\\Daten", u"", u""};
    form_.Press(NewLauncherForm::kChooseTemplate);
    EXPECT_EQ(form_.Source(), u"C:\\Tarvex\\weg.exe");
    form_.Press(NewLauncherForm::kChooseFolder);
    form_.Press(NewLauncherForm::kChooseTemplate);
    form_.Press(NewLauncherForm::kChooseFolder);
    EXPECT_EQ(form_.Source(), u"C:\\Tarvex\\weg.exe");
    EXPECT_EQ(form_.State(NewLauncherForm::kFolder).text, u"C:\\Daten");
    EXPECT_EQ(dialogs.fileQuestions.at(0).folder, u"C:\\Tarvex");
}

}  // namespace
}  // namespace tarvex
