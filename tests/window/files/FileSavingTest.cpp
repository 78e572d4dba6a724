#include <gtest/gtest.h>

#include "configurator/SettingsFile.h"
#include "configurator/program/ProgramFields.h"
#include "tests/support/IconBytes.h"
#include "tests/window/files/FilesWorld.h"

namespace tarvex {
namespace {

using Log = std::vector<std::string>;

class FileSavingTest : public testing::Test, public FilesWorld {
protected:
    /// A document of a launcher C:\Daten\Neu.exe that is not there yet.
    std::unique_ptr<Document> New() {
        dialogs.formUsers = {NewLauncher(u"Neu")};
        std::unique_ptr<Document> document = commands.New(nullptr).document;
        dialogs.log.clear();
        store.log.clear();
        return document;
    }
};

TEST_F(FileSavingTest, NewLauncherHasTheBytesThatTheCommandMakes) {
    const std::unique_ptr<Document> document = New();
    document->SetText(kFieldAppName, u"Grün");
    document->SetText(kFieldPwd, u"geheim");
    document->SetText(kFieldProductName, u"");
    const std::string settings = WriteSettings(document->Values(), u"");
    const FileResult result = commands.Save(*document);
    EXPECT_TRUE(result.done);
    EXPECT_EQ(result.line, u"Neu.exe ist gespeichert.");
    files.AddFile(u"E.ini", settings);
    ASSERT_EQ(FilesWorld::Run({u"brand", kTemplate, u"E.exe", u"--settings", u"E.ini"}), 0);
    EXPECT_EQ(files.Bytes(u"C:\\Daten\\Neu.exe"), files.Bytes(u"E.exe"));
    EXPECT_FALSE(document->IsDirty());
    EXPECT_FALSE(document->IsNew());
    EXPECT_EQ(commands.Recent().Paths(), std::vector<std::u16string>({u"C:\\Daten\\Neu.exe"}));
}

TEST_F(FileSavingTest, ChangedLauncherIsWrittenInItsPlace) {
    const std::unique_ptr<Document> document = Opened();
    document->SetText(kFieldAppName, u"Artikel");
    EXPECT_EQ(commands.Save(*document).line, u"Kunden.exe ist gespeichert.");
    EXPECT_EQ(Stored(kLauncher).Value(kFieldAppName), u"Artikel");
    EXPECT_EQ(Stored(kLauncher).Value(kFieldDBFilename), u"Kunden.mdb");
    EXPECT_FALSE(document->IsDirty());
    EXPECT_EQ(store.LeftBehind(), 0U);
    EXPECT_EQ(store.HeldLocks(), 0U);
}

TEST_F(FileSavingTest, UnchangedLauncherIsNotWritten) {
    const std::unique_ptr<Document> document = Opened();
    store.log.clear();
    EXPECT_EQ(commands.Save(*document).line, u"Kunden.exe ist unverändert.");
    EXPECT_EQ(store.log, std::vector<std::u16string>());
}

TEST_F(FileSavingTest, EveryFailureLeavesFileAndDocumentAsTheyWere) {
    const std::string before = files.Bytes(kLauncher);
    const std::unique_ptr<Document> document = Opened();
    document->SetText(kFieldAppName, u"Artikel");
    std::size_t failures = 0;
    for (std::size_t call = 1;; ++call) {
        store.log.clear();
        dialogs.log.clear();
        store.failCall = call;
        store.failure = FileProblem::DiskFull;
        const bool done = commands.Save(*document).done;
        store.failCall = 0;
        if (done) {
            break;
        }
        ++failures;
        EXPECT_EQ(dialogs.log, Log({"Frage: Kunden.exe kann nicht gespeichert werden:\n\n"
                                    "Der Datenträger ist voll. [OK]"}));
        EXPECT_EQ(files.Bytes(kLauncher), before);
        EXPECT_TRUE(document->IsDirty());
        EXPECT_EQ(document->Text(kFieldAppName), u"Artikel");
    }
    EXPECT_EQ(failures, 6U);
}

TEST_F(FileSavingTest, FileInUseCanBeTriedAgain) {
    const std::unique_ptr<Document> document = Opened();
    document->SetText(kFieldAppName, u"Artikel");
    store.log.clear();
    store.failCall = 1;
    store.failure = FileProblem::InUse;
    dialogs.answers = {0};
    EXPECT_TRUE(commands.Save(*document).done);
    EXPECT_EQ(
        dialogs.log,
        Log({"Frage: Kunden.exe kann nicht gespeichert werden: Die Datei ist in Benutzung; "
             "läuft das Programm noch? Es muss beendet sein, bevor seine Datei ersetzt werden "
             "kann. [&Erneut versuchen|Abbrechen]"}));
    EXPECT_EQ(Stored(kLauncher).Value(kFieldAppName), u"Artikel");
}

TEST_F(FileSavingTest, FileInUseCanBeLeft) {
    const std::unique_ptr<Document> document = Opened();
    document->SetText(kFieldAppName, u"Artikel");
    store.log.clear();
    store.failCall = 1;
    store.failure = FileProblem::InUse;
    EXPECT_FALSE(commands.Save(*document).done);
    EXPECT_EQ(Stored(kLauncher).Value(kFieldAppName), u"Kunden");
    EXPECT_TRUE(document->IsDirty());
}

TEST_F(FileSavingTest, FieldThatCannotTakeItsTextPreventsSaving) {
    const std::unique_ptr<Document> document = Opened();
    document->SetText(kFieldRuntime, u"vielleicht");
    EXPECT_TRUE(document->IsDirty());
    EXPECT_FALSE(commands.Save(*document).done);
    EXPECT_EQ(dialogs.log,
              Log({"Frage: Diese Angaben können nicht gespeichert werden:\n\nRuntime: 'vielleicht' "
                   "ist kein Schalterwert (erlaubt: 1 oder 0). [OK]"}));
}

TEST_F(FileSavingTest, ErrorThatTheCommandOnlyTellsPreventsNothing) {
    const std::unique_ptr<Document> document = Opened();
    document->SetText(kFieldAccPath, u"msaccess.exe");
    EXPECT_TRUE(commands.Save(*document).done);
    EXPECT_EQ(dialogs.log, Log());
}

TEST_F(FileSavingTest, TextsOfAnotherWayAreAskedForAndGoWhenTheFileIsSaved) {
    const std::unique_ptr<Document> document = Opened();
    document->SetText(kFieldDBPath, u"C:\\Daten");
    document->SetParked({kFieldDBPath, kFieldDBFilename}, true);
    EXPECT_FALSE(commands.Save(*document).done);
    EXPECT_EQ(document->Text(kFieldDBPath), u"C:\\Daten");
    EXPECT_EQ(dialogs.log,
              Log({"Frage: Diese Angaben gehören zu einer nicht gewählten Möglichkeit und werden "
                   "nicht gespeichert: DBPath, DBFilename. [&Speichern ohne sie|Abbrechen]"}));
    dialogs.answers = {0};
    EXPECT_TRUE(commands.Save(*document).done);
    EXPECT_EQ(Stored(kLauncher).Value(kFieldDBFilename), u"");
    EXPECT_EQ(document->ParkedTexts(), std::vector<std::int32_t>());
    EXPECT_FALSE(document->IsDirty());
}

TEST_F(FileSavingTest, ChangeOfAnotherProgramIsNotOverwrittenUnasked) {
    const std::unique_ptr<Document> document = Opened();
    document->SetText(kFieldAppName, u"Artikel");
    ASSERT_EQ(FilesWorld::Run({u"set", kLauncher, u"Cmd=neu"}), 0);
    const std::string elsewhere = files.Bytes(kLauncher);
    for (int i = 0; i < 2; ++i) {
        dialogs.log.clear();
        EXPECT_FALSE(commands.Save(*document).done);
        EXPECT_EQ(dialogs.log,
                  Log({"Frage: Kunden.exe wurde seit dem Öffnen von einem anderen Programm "
                       "geändert. Beim Speichern gehen diese Änderungen verloren. [&Trotzdem "
                       "speichern|Abbrechen]"}));
        EXPECT_EQ(files.Bytes(kLauncher), elsewhere);
    }
    dialogs.answers = {0};
    EXPECT_TRUE(commands.Save(*document).done);
    EXPECT_EQ(Stored(kLauncher).Value(kFieldAppName), u"Artikel");
    EXPECT_EQ(Stored(kLauncher).Value(kFieldCmd), u"");
    EXPECT_FALSE(document->IsDirty());
}

TEST_F(FileSavingTest, FileThatCameMeanwhileIsReplacedOnlyWhenTheUserAgrees) {
    const std::unique_ptr<Document> document = New();
    files.AddFile(u"C:\\Daten\\Neu.exe", "anderes");
    EXPECT_FALSE(commands.Save(*document).done);
    EXPECT_EQ(dialogs.log, Log({"Frage: Neu.exe ist inzwischen vorhanden. Soll die Datei ersetzt "
                                "werden? [&Ersetzen|Abbrechen]"}));
    EXPECT_EQ(files.Bytes(u"C:\\Daten\\Neu.exe"), "anderes");
    dialogs.answers = {0};
    EXPECT_TRUE(commands.Save(*document).done);
    EXPECT_NE(files.Bytes(u"C:\\Daten\\Neu.exe"), "anderes");
}

TEST_F(FileSavingTest, IconIsReadFromItsFile) {
    const std::unique_ptr<Document> document = Opened();
    document->SetText(kFieldIconFile, u"Kunden.ico");
    EXPECT_FALSE(commands.Save(*document).done);
    EXPECT_EQ(dialogs.log, Log({"Frage: Diese Angaben können nicht gespeichert werden:\n\n"
                                "IconFile: Kunden.ico: Die Datei ist nicht vorhanden. "
                                "[OK]"}));
    files.AddFile(u"C:/Daten/Kunden.ico", IconBytes({BitmapImage(32, 32)}));
    EXPECT_TRUE(commands.Save(*document).done);
    EXPECT_EQ(document->Text(kFieldIconFile), Stored(kLauncher).Value(kFieldIconFile));
    EXPECT_FALSE(document->IsDirty());
}

TEST_F(FileSavingTest, NotesOfTheWriterAreTold) {
    const std::unique_ptr<Document> document = Opened();
    document->SetText(kFieldAppName, u"Artikel");
    store.keepsOwner = false;
    EXPECT_TRUE(commands.Save(*document).done);
    EXPECT_EQ(
        dialogs.log,
        Log({"Frage: Kunden.exe ist gespeichert. Dazu ist zu sagen:\n\nBesitzer und Gruppe der "
             "Datei konnten nicht beibehalten werden; dazu fehlt das Recht. [OK]"}));
}

TEST_F(FileSavingTest, CopyUnderAnotherNameKeepsWhatTheVendorGave) {
    const std::unique_ptr<Document> document = Opened();
    document->SetText(kFieldCompanyName, u"Muster");
    ASSERT_TRUE(commands.Save(*document).done);
    const std::string before = files.Bytes(kLauncher);
    document->SetText(kFieldAppName, u"Artikel");
    dialogs.paths = {u"C:\\Daten\\Artikel.exe"};
    EXPECT_EQ(commands.SaveAs(*document).line, u"Artikel.exe ist gespeichert.");
    EXPECT_EQ(document->File().path, u"C:\\Daten\\Artikel.exe");
    EXPECT_EQ(Stored(u"C:\\Daten\\Artikel.exe").Value(kFieldAppName), u"Artikel");
    EXPECT_EQ(Stored(u"C:\\Daten\\Artikel.exe").Value(kFieldCompanyName), u"Muster");
    EXPECT_EQ(files.Bytes(kLauncher), before);
    EXPECT_EQ(dialogs.log, Log({"Neue Datei: Speichern unter"}));
    document->SetText(kFieldAppName, u"Lager");
    EXPECT_TRUE(commands.Save(*document).done);
    EXPECT_EQ(Stored(u"C:\\Daten\\Artikel.exe").Value(kFieldAppName), u"Lager");
}

TEST_F(FileSavingTest, UnchangedLauncherCanBeSavedUnderAnotherName) {
    const std::unique_ptr<Document> document = Opened();
    dialogs.paths = {u"C:\\Daten\\Artikel.exe"};
    EXPECT_TRUE(commands.SaveAs(*document).done);
    EXPECT_EQ(files.Bytes(u"C:\\Daten\\Artikel.exe"), files.Bytes(kLauncher));
}

TEST_F(FileSavingTest, FailedCopyLeavesTheDocumentWhereItWas) {
    const std::unique_ptr<Document> document = Opened();
    dialogs.paths = {u"C:\\Daten\\Artikel.exe"};
    store.log.clear();
    store.failCall = 3;
    EXPECT_FALSE(commands.SaveAs(*document).done);
    EXPECT_EQ(dialogs.log.back(),
              "Frage: Artikel.exe kann nicht gespeichert werden:\n\nBeim Lesen "
              "oder Schreiben der Datei ist ein Fehler des Geräts "
              "aufgetreten. [OK]");
    EXPECT_EQ(document->File().path, kLauncher);
    EXPECT_FALSE(store.FileExists(u"C:\\Daten\\Artikel.exe"));
}

TEST_F(FileSavingTest, TemplateOfANewLauncherIsNotWrittenTo) {
    const std::unique_ptr<Document> document = New();
    const std::string before = files.Bytes(kTemplate);
    dialogs.paths = {kTemplate};
    EXPECT_FALSE(commands.SaveAs(*document).done);
    EXPECT_EQ(dialogs.log.back(),
              "Frage: tarvex.exe kann nicht gespeichert werden:\n\nDie Ausgabe wäre dieselbe Datei "
              "wie die Eingabe 'C:\\Tarvex\\tarvex.exe'. [OK]");
    EXPECT_EQ(files.Bytes(kTemplate), before);
    EXPECT_TRUE(document->IsNew());
}

TEST_F(FileSavingTest, UnsavedChangesAreAskedForBeforeClosing) {
    const std::unique_ptr<Document> document = Opened();
    EXPECT_TRUE(commands.MayClose(nullptr));
    EXPECT_TRUE(commands.MayClose(document.get()));
    EXPECT_EQ(dialogs.log, Log());
    document->SetText(kFieldAppName, u"Artikel");
    dialogs.answers = {2, 1, 0};
    EXPECT_FALSE(commands.MayClose(document.get()));
    EXPECT_TRUE(commands.MayClose(document.get()));
    EXPECT_EQ(Stored(kLauncher).Value(kFieldAppName), u"Kunden");
    EXPECT_TRUE(commands.MayClose(document.get()));
    EXPECT_EQ(Stored(kLauncher).Value(kFieldAppName), u"Artikel");
    EXPECT_EQ(dialogs.log.at(0),
              "Frage: Änderungen an Kunden.exe speichern? [&Speichern|&Nicht "
              "speichern|Abbrechen]");
}

TEST_F(FileSavingTest, WindowStaysWhenSavingFails) {
    const std::unique_ptr<Document> document = Opened();
    document->SetText(kFieldRuntime, u"vielleicht");
    dialogs.answers = {0};
    EXPECT_FALSE(commands.MayClose(document.get()));
}

}  // namespace
}  // namespace tarvex
