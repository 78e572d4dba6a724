#include "window/files/SettingsExchange.h"

#include <gtest/gtest.h>

#include "configurator/SettingsFile.h"
#include "configurator/program/ProgramFields.h"
#include "tests/support/IconBytes.h"
#include "tests/window/files/FilesWorld.h"
#include "window/files/AsCommandForm.h"
#include "window/files/ChangesForm.h"
#include "window/files/DifferenceForm.h"

namespace tarvex {
namespace {

using Log = std::vector<std::string>;
using Items = std::vector<std::vector<std::u16string>>;

class SettingsExchangeTest : public testing::Test, public FilesWorld {
protected:
    static constexpr const char16_t* kFile = u"C:\\Daten\\Kunden.ini";
    static constexpr const char16_t* kOld = u"C:\\Alt\\Kunden.exe";

    void AddSettingsFile(std::u16string_view text) { files.AddFile(kFile, text::ToUtf8(text)); }

    /// An older launcher, made from that program.
    void AddOld(const SyntheticLauncher& program, const Settings& settings) {
        files.AddFile(u"V.exe", program.Build());
        ASSERT_EQ(BrandWriter(store, codec).Brand(u"V.exe", kOld, settings, {}).size(), 0U);
    }

    /// Keeps what the lists of a form show, and presses a button.
    FakeUserDialogs::FormUser LookAt(bool accept) {
        return [this, accept](FormModel& form) {
            leftOut_ = form.State(ChangesForm::kLeftOut).items;
            leftOutText_ = form.State(ChangesForm::kLeftOutText).text;
            showsLeftOut_ = form.State(ChangesForm::kLeftOutText).visible &&
                            form.State(ChangesForm::kLeftOut).visible;
            changes_ = form.State(ChangesForm::kChanges).items;
            changesText_ = form.State(ChangesForm::kChangesText).text;
            return accept;
        };
    }

    Items leftOut_;
    Items changes_;
    std::u16string leftOutText_;
    std::u16string changesText_;
    bool showsLeftOut_ = false;
};

// Settings files that come in.

TEST_F(SettingsExchangeTest, SettingsFileIsOpenedAsANewLauncher) {
    AddSettingsFile(u"AppName = Grün\nPwd = geheim\n");
    dialogs.formUsers = {[](FormModel& form) {
        EXPECT_EQ(form.State(NewLauncherForm::kName).text, u"Kunden");
        EXPECT_EQ(form.State(NewLauncherForm::kFolder).text, u"C:\\Daten");
        form.SetText(NewLauncherForm::kName, u"Grün");
        return true;
    }};
    const FileResult result = commands.Open(kFile, nullptr);
    ASSERT_NE(result.document, nullptr);
    EXPECT_EQ(result.line, u"2 Angaben aus Kunden.ini übernommen.");
    EXPECT_EQ(dialogs.log, Log({"Fenster: Neues Startprogramm aus Kunden.ini"}));
    EXPECT_EQ(result.document->Values().Entries().size(), 2U);
    EXPECT_TRUE(commands.Save(*result.document).done);
    EXPECT_EQ(FilesWorld::Run({u"brand", kTemplate, u"E.exe", u"--settings", kFile}), 0);
    EXPECT_EQ(files.Bytes(u"C:\\Daten\\Grün.exe"), files.Bytes(u"E.exe"));
}

TEST_F(SettingsExchangeTest, FileThatIsNoSettingsFileIsTold) {
    files.AddFile(u"C:\\Daten\\Brief.txt", "a\nb\nc\nd\ne\n");
    EXPECT_FALSE(commands.Open(u"C:\\Daten\\Brief.txt", nullptr).done);
    EXPECT_EQ(dialogs.log,
              Log({"Frage: Brief.txt kann nicht geöffnet werden:\n\nDie Datei ist keine "
                   "Einstellungsdatei: Kaum eine Zeile hat die Form 'Name = Wert' mit einem "
                   "bekannten Namen. [OK]"}));
}

TEST_F(SettingsExchangeTest, ImportShowsWhatChangesBefore) {
    const std::unique_ptr<Document> document = Opened();
    AddSettingsFile(u"AppName = Grün\nDBFilename = Kunden.mdb\nPwd = geheim\n");
    dialogs.paths = {kFile};
    dialogs.formUsers = {LookAt(false)};
    EXPECT_FALSE(commands.Import(*document).done);
    EXPECT_EQ(dialogs.log,
              Log({"Datei: Einstellungen importieren", "Fenster: Übernehmen aus Kunden.ini"}));
    EXPECT_EQ(changesText_, u"2 Angaben ändern sich:");
    EXPECT_EQ(changes_,
              Items({{u"AppName", u"Kunden", u"Grün"}, {u"Pwd", u"", u"<nicht angezeigt>"}}));
    EXPECT_FALSE(showsLeftOut_);
    EXPECT_FALSE(document->IsDirty());

    dialogs.paths = {kFile};
    dialogs.formUsers = {LookAt(true)};
    EXPECT_EQ(commands.Import(*document).line, u"2 Angaben aus Kunden.ini übernommen.");
    EXPECT_EQ(document->Text(kFieldAppName), u"Grün");
    document->Undo(kFieldAppName);
    EXPECT_EQ(document->Text(kFieldAppName), u"Kunden");
    EXPECT_EQ(document->Text(kFieldPwd), u"geheim");
}

TEST_F(SettingsExchangeTest, LinesThatCannotBeReadAreListedAndStayOut) {
    const std::unique_ptr<Document> document = Opened();
    AddSettingsFile(
        u"AppName = Grün\nDBPaht = C:\\Daten\nRuntime = vielleicht\nIconFile = x.ico\n");
    dialogs.paths = {kFile};
    dialogs.formUsers = {LookAt(true)};
    EXPECT_EQ(commands.Import(*document).line, u"1 Angabe aus Kunden.ini übernommen.");
    EXPECT_TRUE(showsLeftOut_);
    EXPECT_EQ(leftOutText_, u"Das kann nicht übernommen werden und bleibt weg:");
    EXPECT_EQ(
        leftOut_,
        Items({{u"DBPaht, Zeile 2", u"Unbekannter Name 'DBPaht'; gemeint ist vielleicht DBPath."},
               {u"Runtime, Zeile 3", u"'vielleicht' ist kein Schalterwert (erlaubt: 1 oder 0)."},
               {u"IconFile, Zeile 4", u"C:\\Daten/x.ico: Die Datei ist nicht vorhanden."}}));
    EXPECT_EQ(changesText_, u"1 Angabe ändert sich:");
    EXPECT_FALSE(document->Values().Has(kFieldIconFile));
}

TEST_F(SettingsExchangeTest, IconOfASettingsFileComesFromItsFolder) {
    files.AddFile(u"C:\\Bilder/Kunden.ico", IconBytes({BitmapImage(32, 32)}));
    files.AddFile(u"C:\\Bilder\\Kunden.ini", "IconFile = Kunden.ico\n");
    const std::unique_ptr<Document> document = Opened();
    dialogs.paths = {u"C:\\Bilder\\Kunden.ini"};
    dialogs.formUsers = {LookAt(true)};
    EXPECT_TRUE(commands.Import(*document).done);
    EXPECT_EQ(document->Text(kFieldIconFile), u"C:\\Bilder\\Kunden.ico");
    EXPECT_EQ(document->Icon(), IconBytes({BitmapImage(32, 32)}));
    EXPECT_TRUE(commands.Save(*document).done);
    EXPECT_NE(Stored(kLauncher).Icon(), "");
}

TEST_F(SettingsExchangeTest, WhatIsProbablyNotMeantIsTold) {
    const std::unique_ptr<Document> document = Opened();
    AddSettingsFile(u"Cmd = a\n b\n");
    dialogs.paths = {kFile};
    dialogs.formUsers = {LookAt(true)};
    EXPECT_TRUE(commands.Import(*document).done);
    EXPECT_EQ(dialogs.log.at(1),
              "Frage: Zu Kunden.ini ist zu sagen:\n\nZeile 2, Cmd: Die Zeile ist eingerückt und "
              "setzt den Wert darüber fort; er enthält damit einen Zeilenwechsel. [OK]");
    EXPECT_EQ(changes_, Items({{u"Cmd", u"", u"a b"}}));
}

// Settings files that go out.

TEST_F(SettingsExchangeTest, ExportWritesWhatTheCommandExports) {
    const std::unique_ptr<Document> document = Opened();
    document->SetText(kFieldPwd, u"geheim");
    EXPECT_TRUE(commands.Save(*document).done);
    dialogs.paths = {kFile};
    dialogs.answers = {0};
    EXPECT_EQ(commands.Export(*document).line, u"Kunden.ini ist geschrieben.");
    EXPECT_TRUE(store.lastAccess.ownerOnly);
    EXPECT_EQ(dialogs.log, Log({"Neue Datei: Einstellungen exportieren",
                                "Frage: Sollen Benutzernamen und Kennwörter in Kunden.ini stehen? "
                                "Wer die Datei lesen darf, kann sie dort lesen. [&Mit "
                                "Kennwörtern|&Ohne Kennwörter|Abbrechen]"}));
    EXPECT_EQ(FilesWorld::Run({u"export", kLauncher, u"C:\\Daten\\B.ini"}), 0);
    EXPECT_EQ(files.Bytes(kFile), files.Bytes(u"C:\\Daten\\B.ini"));
}

TEST_F(SettingsExchangeTest, ExportWithoutSecretsHasNone) {
    const std::unique_ptr<Document> document = Opened();
    document->SetText(kFieldPwd, u"geheim");
    dialogs.paths = {kFile};
    dialogs.answers = {1};
    EXPECT_TRUE(commands.Export(*document).done);
    EXPECT_EQ(files.Bytes(kFile).find("geheim"), std::string::npos);
    EXPECT_FALSE(store.lastAccess.ownerOnly);
    dialogs.paths = {u"C:\\Daten\\C.ini"};
    dialogs.answers = {2};
    EXPECT_FALSE(commands.Export(*document).done);
    EXPECT_FALSE(store.FileExists(u"C:\\Daten\\C.ini"));
}

TEST_F(SettingsExchangeTest, ExportOverAFileWarnsOfItsComments) {
    const std::unique_ptr<Document> document = Opened();
    AddSettingsFile(u"; mühsam geschrieben\n");
    dialogs.paths = {kFile};
    EXPECT_FALSE(commands.Export(*document).done);
    EXPECT_EQ(dialogs.log.at(1),
              "Frage: Kunden.ini ist schon vorhanden. Kommentare, die darin stehen, gehen beim "
              "Exportieren verloren. [&Ersetzen|Abbrechen]");
    EXPECT_EQ(files.Bytes(kFile), "; mühsam geschrieben\n");
    dialogs.paths = {kFile};
    dialogs.answers = {0};
    EXPECT_TRUE(commands.Export(*document).done);
    EXPECT_NE(files.Bytes(kFile), "; mühsam geschrieben\n");
}

TEST_F(SettingsExchangeTest, IconIsExportedBesideTheSettings) {
    const std::unique_ptr<Document> document = Opened();
    document->SetText(kFieldIconFile, u"C:\\Daten\\Bild.ico");
    document->SetIcon(IconBytes({BitmapImage(32, 32)}));
    files.AddFile(u"C:\\Daten\\Kunden.ico", "alt");
    dialogs.paths = {kFile};
    dialogs.answers = {0};
    EXPECT_TRUE(commands.Export(*document).done);
    EXPECT_EQ(dialogs.log.at(1),
              "Frage: Kunden.ico ist schon vorhanden und wird ersetzt. "
              "[&Ersetzen|Abbrechen]");
    EXPECT_EQ(files.Bytes(u"C:\\Daten\\Kunden.ico"), IconBytes({BitmapImage(32, 32)}));
}

TEST_F(SettingsExchangeTest, FailedExportIsToldAndLeavesTheOldFile) {
    const std::unique_ptr<Document> document = Opened();
    AddSettingsFile(u"; alt\n");
    dialogs.paths = {kFile};
    dialogs.answers = {0};
    store.log.clear();
    store.failCall = 1;
    store.failure = FileProblem::DiskFull;
    EXPECT_FALSE(commands.Export(*document).done);
    EXPECT_EQ(dialogs.log.at(2),
              "Frage: Kunden.ini kann nicht geschrieben werden:\n\nDer Datenträger ist voll. [OK]");
    EXPECT_EQ(files.Bytes(kFile), "; alt\n");
}

TEST_F(SettingsExchangeTest, TextsOfAnotherWayAreNotExportedUnasked) {
    const std::unique_ptr<Document> document = Opened();
    document->SetParked({kFieldDBFilename}, true);
    EXPECT_FALSE(commands.Export(*document).done);
    EXPECT_EQ(dialogs.log,
              Log({"Frage: Diese Angaben gehören zu einer nicht gewählten Möglichkeit und werden "
                   "nicht exportiert: DBFilename. [&Exportieren ohne sie|Abbrechen]"}));
}

// The command.

TEST_F(SettingsExchangeTest, CommandMakesTheSameLauncher) {
    dialogs.formUsers = {NewLauncher(u"Neu")};
    const std::unique_ptr<Document> document = commands.New(nullptr).document;
    document->SetText(kFieldPwd, u"geheim");
    std::u16string command;
    dialogs.formUsers = {[&](FormModel& form) {
        form.SetChecked(AsCommandForm::kSecrets, true);
        command = form.State(AsCommandForm::kCommand).text;
        form.Press(AsCommandForm::kCopy);
        return true;
    }};
    EXPECT_EQ(commands.AsCommand(*document).line, u"Neu.ini ist geschrieben.");
    EXPECT_EQ(command,
              u"tarvexcf brand C:\\Tarvex\\tarvex.exe C:\\Daten\\Neu.exe --settings "
              u"C:\\Daten\\Neu.ini");
    EXPECT_EQ(dialogs.clipboard, command);
    ASSERT_EQ(FilesWorld::Run({u"brand", kTemplate, u"C:\\Daten\\Neu.exe", u"--settings",
                               u"C:\\Daten\\Neu.ini"}),
              0);
    const std::string made = files.Bytes(u"C:\\Daten\\Neu.exe");
    files.RemoveFile(u"C:\\Daten\\Neu.exe");
    ASSERT_TRUE(commands.Save(*document).done);
    EXPECT_EQ(files.Bytes(u"C:\\Daten\\Neu.exe"), made);
}

TEST_F(SettingsExchangeTest, CommandAsksForSecretsThatAreNotExported) {
    const std::unique_ptr<Document> document = Opened();
    document->SetText(kFieldUser, u"Meier");
    document->SetText(kFieldPwd, u"geheim");
    std::u16string command;
    dialogs.formUsers = {[&](FormModel& form) {
        EXPECT_TRUE(form.State(AsCommandForm::kSecrets).visible);
        EXPECT_FALSE(form.State(AsCommandForm::kSecrets).checked);
        form.SetText(AsCommandForm::kFile, u"D:\\Meine Skripte\\100%.ini");
        command = form.State(AsCommandForm::kCommand).text;
        return true;
    }};
    EXPECT_TRUE(commands.AsCommand(*document).done);
    EXPECT_EQ(command,
              u"tarvexcf brand C:\\Tarvex\\tarvex.exe C:\\Daten\\Kunden.exe --settings "
              u"\"D:\\Meine Skripte\\100%%.ini\" --set User=- --set Pwd=- --force");
    EXPECT_EQ(files.Bytes(u"D:\\Meine Skripte\\100%.ini").find("geheim"), std::string::npos);
}

TEST_F(SettingsExchangeTest, CommandProposesASettingsFileBesideALauncherWithoutExtension) {
    files.AddFolder(u"D:\\Daten.2026");
    files.AddFile(u"D:\\Daten.2026\\Kunden", files.Bytes(kLauncher));
    const std::unique_ptr<Document> document =
        commands.Open(u"D:\\Daten.2026\\Kunden", nullptr).document;
    std::u16string proposed;
    dialogs.formUsers = {[&](FormModel& form) {
        proposed = form.State(AsCommandForm::kFile).text;
        return false;
    }};
    commands.AsCommand(*document);
    EXPECT_EQ(proposed, u"D:\\Daten.2026\\Kunden.ini");
}

TEST_F(SettingsExchangeTest, CommandNeedsAWholePathAndATemplate) {
    const std::unique_ptr<Document> document = Opened();
    dialogs.formUsers = {[](FormModel& form) {
        EXPECT_FALSE(form.State(AsCommandForm::kSecrets).visible);
        EXPECT_EQ(form.State(AsCommandForm::kFile).message, u"");
        form.SetText(AsCommandForm::kFile, u"Kunden.ini");
        EXPECT_EQ(form.State(AsCommandForm::kFile).message,
                  u"Bitte den ganzen Pfad angeben, zum Beispiel C:\\Skripte\\Kunden.ini.");
        form.SetText(AsCommandForm::kTemplate, kLauncher);
        EXPECT_EQ(form.State(AsCommandForm::kTemplate).message,
                  u"Die Datei ist schon konfiguriert. Zum Ändern „Öffnen“ wählen; „Übernehmen aus "
                  u"älterem Startprogramm“ holt ihre Angaben in ein neues.");
        return true;
    }};
    EXPECT_FALSE(commands.AsCommand(*document).done);
    EXPECT_FALSE(store.FileExists(u"Kunden.ini"));
}

TEST(BatchArgumentTest, IsQuotedWhereItMustBe) {
    EXPECT_EQ(BatchArgument(u"C:\\Daten\\Kunden.exe"), u"C:\\Daten\\Kunden.exe");
    EXPECT_EQ(BatchArgument(u"C:\\Müller & Co\\K.exe"), u"\"C:\\Müller & Co\\K.exe\"");
    EXPECT_EQ(BatchArgument(u"C:\\a,b\\K.exe"), u"\"C:\\a,b\\K.exe\"");
    EXPECT_EQ(BatchArgument(u"C:\\Programme (x86)\\"), u"\"C:\\Programme (x86)\\\\\"");
    EXPECT_EQ(BatchArgument(u"100%"), u"\"100%%\"");
    EXPECT_EQ(BatchArgument(u""), u"\"\"");
}

// Other launchers.

TEST_F(SettingsExchangeTest, TakingOverListsWhatDoesNotFitBefore) {
    SyntheticLauncher newer;
    newer.marks.push_back({50, 20, u"Neu", u"etwas", 0});
    Settings settings;
    settings.Set(kFieldAppName, u"Alt");
    settings.Set(kFieldPwd, u"geheim");
    AddOld(newer, settings);
    const std::unique_ptr<Document> document = Opened();
    dialogs.paths = {kOld};
    dialogs.formUsers = {LookAt(false)};
    EXPECT_FALSE(commands.TakeOver(*document).done);
    EXPECT_EQ(dialogs.log, Log({"Datei: Übernehmen aus älterem Startprogramm",
                                "Fenster: Übernehmen aus Kunden.exe"}));
    EXPECT_EQ(leftOut_, Items({{u"Neu", u"Diese Version von tarvexcf kennt das Feld nicht."}}));
    EXPECT_EQ(changes_, Items({{u"AppName", u"Kunden", u"Alt"},
                               {u"DBFilename", u"Kunden.mdb", u""},
                               {u"Pwd", u"", u"<nicht angezeigt>"}}));
    EXPECT_FALSE(document->IsDirty());

    dialogs.paths = {kOld};
    dialogs.formUsers = {LookAt(true)};
    EXPECT_EQ(commands.TakeOver(*document).line, u"3 Angaben aus Kunden.exe übernommen.");
    EXPECT_EQ(document->Text(kFieldAppName), u"Alt");
    EXPECT_EQ(document->Text(kFieldPwd), u"geheim");
    EXPECT_EQ(document->Text(kFieldDBFilename), u"");
}

TEST_F(SettingsExchangeTest, FieldsThatAreEmptyThereCanStay) {
    Settings settings;
    settings.Set(kFieldAppName, u"Alt");
    AddOld({}, settings);
    const std::unique_ptr<Document> document = Opened();
    dialogs.paths = {kOld};
    dialogs.formUsers = {[](FormModel& form) {
        EXPECT_TRUE(form.State(ChangesForm::kClear).visible);
        EXPECT_TRUE(form.State(ChangesForm::kClear).checked);
        form.SetChecked(ChangesForm::kClear, false);
        EXPECT_EQ(form.State(ChangesForm::kChanges).items,
                  Items({{u"AppName", u"Kunden", u"Alt"}}));
        return true;
    }};
    EXPECT_TRUE(commands.TakeOver(*document).done);
    EXPECT_EQ(document->Text(kFieldAppName), u"Alt");
    EXPECT_EQ(document->Text(kFieldDBFilename), u"Kunden.mdb");
}

TEST_F(SettingsExchangeTest, FieldThatTheFileLacksStaysOut) {
    SyntheticLauncher older;
    std::erase_if(older.marks, [](const SyntheticMark& mark) { return mark.name == u"Cmd"; });
    files.AddFile(u"T2.exe", older.Build());
    BrandWriter(store, codec).Brand(u"T2.exe", u"C:\\Daten\\Z.exe", {}, {});
    Settings settings;
    settings.Set(kFieldCmd, u"x");
    AddOld({}, settings);
    const std::unique_ptr<Document> document = commands.Open(u"C:\\Daten\\Z.exe", nullptr).document;
    EXPECT_EQ(dialogs.log,
              Log({"Frage: Zu Z.exe ist zu sagen:\n\nDas Startprogramm ist von einer anderen "
                   "Version und hat diese Felder nicht: Cmd. [OK]"}));
    dialogs.paths = {kOld};
    dialogs.formUsers = {LookAt(true)};
    EXPECT_TRUE(commands.TakeOver(*document).done);
    EXPECT_EQ(leftOut_, Items({{u"Cmd", u"Die Vorlage hat dieses Feld nicht."}}));
    EXPECT_EQ(document->Text(kFieldCmd), u"");
}

TEST_F(SettingsExchangeTest, TemplateHasNothingToTakeOver) {
    const std::unique_ptr<Document> document = Opened();
    dialogs.paths = {kTemplate};
    EXPECT_FALSE(commands.TakeOver(*document).done);
    EXPECT_EQ(dialogs.log.at(1),
              "Frage: Aus tarvex.exe kann nichts übernommen werden:\n\nDie Datei ist kein "
              "konfiguriertes Startprogramm; es gibt nichts zu übernehmen. [OK]");
}

TEST_F(SettingsExchangeTest, SignedLauncherIsLookedAt) {
    SyntheticLauncher program;
    program.signatureSize = 512;
    program.marker = u"@#BRANDED1#@";
    program.Mark(u"AppName").value = ScrambleBrandValue(u"Alt", codec);
    files.AddFile(kOld, program.Build());
    dialogs.answers = {1};
    const FileResult result = commands.Open(kOld, nullptr);
    ASSERT_NE(result.document, nullptr);
    EXPECT_EQ(result.line, u"Kunden.exe ist nur zum Ansehen geöffnet.");
    EXPECT_EQ(dialogs.log,
              Log({"Frage: Kunden.exe kann nicht geändert werden: Die Datei trägt eine Signatur; "
                   "erst konfigurieren, dann signieren. [In eine unsignierte Vorlage "
                   "ü&bernehmen|Nur &ansehen|Abbrechen]"}));
    EXPECT_TRUE(result.document->File().readOnly);
    EXPECT_EQ(result.document->File().whyReadOnly,
              u"Kunden.exe kann nicht geändert werden: Die Datei trägt eine Signatur; erst "
              u"konfigurieren, dann signieren.");
    EXPECT_EQ(result.document->Text(kFieldAppName), u"Alt");
    EXPECT_EQ(commands.Open(kOld, nullptr).document, nullptr);
}

TEST_F(SettingsExchangeTest, SignedLauncherIsCarriedIntoATemplate) {
    SyntheticLauncher program;
    program.signatureSize = 512;
    program.marker = u"@#BRANDED1#@";
    program.Mark(u"AppName").value = ScrambleBrandValue(u"Alt", codec);
    files.AddFile(kOld, program.Build());
    files.AddFolder(u"C:\\Alt");
    dialogs.answers = {1};
    const std::unique_ptr<Document> old = commands.Open(kOld, nullptr).document;
    const auto saveAs = [&](bool take) {
        dialogs.answers = {0};
        dialogs.formUsers = {NewLauncher(u"Neu"), LookAt(take)};
        return commands.SaveAs(*old);
    };
    EXPECT_EQ(saveAs(false).document, nullptr);
    const FileResult result = saveAs(true);
    ASSERT_NE(result.document, nullptr);
    EXPECT_EQ(changes_, Items({{u"AppName", u"", u"Alt"}}));
    EXPECT_EQ(result.document->File().source, kTemplate);
    EXPECT_EQ(result.document->Text(kFieldAppName), u"Alt");
    EXPECT_TRUE(commands.Save(*result.document).done);
    EXPECT_EQ(Stored(u"C:\\Daten\\Neu.exe").Value(kFieldAppName), u"Alt");
}

TEST_F(SettingsExchangeTest, DifferencesAreShownWithoutSecrets) {
    const std::unique_ptr<Document> document = Opened();
    document->SetText(kFieldAppName, u"Artikel");
    document->SetText(kFieldPwd, u"geheim");
    AddSettingsFile(u"AppName = Kunden\nDBFilename = Kunden.mdb\nPwd = anders\n");
    dialogs.paths = {kFile};
    dialogs.formUsers = {[](FormModel& form) {
        EXPECT_EQ(form.State(DifferenceForm::kText).text, u"2 Angaben sind verschieden:");
        EXPECT_EQ(form.Rows()[1].columns,
                  std::vector<std::u16string>({u"Feld", u"Hier: Kunden.exe", u"Dort: Kunden.ini"}));
        EXPECT_EQ(form.State(DifferenceForm::kDifferences).items,
                  Items({{u"AppName", u"Artikel", u"Kunden"},
                         {u"Pwd", u"<nicht angezeigt>", u"<nicht angezeigt>"}}));
        return true;
    }};
    EXPECT_TRUE(commands.Compare(*document).done);
    EXPECT_EQ(dialogs.log, Log({"Datei: Vergleichen mit", "Fenster: Vergleich mit Kunden.ini"}));
}

TEST_F(SettingsExchangeTest, SameSettingsHaveNoDifference) {
    const std::unique_ptr<Document> document = Opened();
    dialogs.paths = {kLauncher};
    dialogs.formUsers = {[](FormModel& form) {
        EXPECT_EQ(form.State(DifferenceForm::kText).text, u"Kein Unterschied.");
        EXPECT_FALSE(form.State(DifferenceForm::kDifferences).visible);
        return true;
    }};
    EXPECT_TRUE(commands.Compare(*document).done);
}

TEST_F(SettingsExchangeTest, FileThatCannotBeComparedIsTold) {
    const std::unique_ptr<Document> document = Opened();
    dialogs.paths = {u"C:\\Daten\\Weg.exe"};
    EXPECT_FALSE(commands.Compare(*document).done);
    EXPECT_EQ(dialogs.log.at(1),
              "Frage: Weg.exe kann nicht verglichen werden:\n\nDie Datei ist nicht "
              "vorhanden. [OK]");
}

// Starting.

TEST_F(SettingsExchangeTest, SavedLauncherIsStartedItself) {
    const std::unique_ptr<Document> document = Opened();
    EXPECT_EQ(commands.Start(*document, {}).line, u"Kunden.exe ist gestartet.");
    EXPECT_EQ(starter.log, std::vector<std::u16string>({u"C:\\Daten\\Kunden.exe []"}));
    EXPECT_EQ(dialogs.log, Log());
}

TEST_F(SettingsExchangeTest, ChangedLauncherIsSavedBeforeItStarts) {
    const std::unique_ptr<Document> document = Opened();
    document->SetText(kFieldAppName, u"Artikel");
    EXPECT_FALSE(commands.Start(*document, {}).done);
    EXPECT_EQ(starter.log, std::vector<std::u16string>());
    EXPECT_EQ(dialogs.log, Log({"Frage: Kunden.exe muss vor dem Starten gespeichert werden. "
                                "[&Speichern und starten|Abbrechen]"}));
    dialogs.answers = {0};
    EXPECT_TRUE(commands.Start(*document, {}).done);
    EXPECT_EQ(Stored(kLauncher).Value(kFieldAppName), u"Artikel");
    EXPECT_EQ(starter.log.size(), 1U);
}

TEST_F(SettingsExchangeTest, LauncherThatIsNotSavedIsNotStarted) {
    const std::unique_ptr<Document> document = Opened();
    document->SetText(kFieldRuntime, u"vielleicht");
    dialogs.answers = {0};
    EXPECT_FALSE(commands.Start(*document, {}).done);
    EXPECT_EQ(starter.log, std::vector<std::u16string>());
}

TEST_F(SettingsExchangeTest, DescribedPcCannotStartAnything) {
    const std::unique_ptr<Document> document = Opened();
    EXPECT_FALSE(commands.Start(*document, u"C:\\PCs\\Laden.pc").done);
    EXPECT_EQ(starter.log, std::vector<std::u16string>());
    EXPECT_EQ(dialogs.log, Log({"Frage: Kunden.exe kann nur auf diesem PC gestartet werden, nicht "
                                "auf einem beschriebenen. [OK]"}));
}

TEST_F(SettingsExchangeTest, FailedStartIsTold) {
    const std::unique_ptr<Document> document = Opened();
    starter.problem = u"Die Datei ist nicht vorhanden.";
    EXPECT_FALSE(commands.Start(*document, {}).done);
    EXPECT_EQ(dialogs.log,
              Log({"Frage: Kunden.exe kann nicht gestartet werden: Die Datei ist nicht "
                   "vorhanden. [OK]"}));
}

}  // namespace
}  // namespace tarvex
