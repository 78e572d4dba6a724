#include <gtest/gtest.h>

#include "configurator/AccessPresets.h"
#include "tests/window/files/FilesWorld.h"

namespace tarvex {
namespace {

using Log = std::vector<std::string>;

class FileOpeningTest : public testing::Test, public FilesWorld {};

TEST_F(FileOpeningTest, LauncherIsOpenedWithItsSettings) {
    const FileResult result = commands.Open(kLauncher, nullptr);
    ASSERT_NE(result.document, nullptr);
    EXPECT_EQ(result.line, u"Kunden.exe ist geöffnet.");
    EXPECT_EQ(result.document->File().path, kLauncher);
    EXPECT_EQ(result.document->Text(kFieldAppName), u"Kunden");
    EXPECT_FALSE(result.document->IsDirty());
    EXPECT_FALSE(result.document->File().readOnly);
    EXPECT_EQ(dialogs.log, Log());
    EXPECT_EQ(commands.Recent().Paths(), std::vector<std::u16string>({kLauncher}));
}

TEST_F(FileOpeningTest, FileThatIsGoneIsTold) {
    const FileResult result = commands.Open(u"C:\\Daten\\Weg.exe", nullptr);
    EXPECT_FALSE(result.done);
    EXPECT_EQ(result.document, nullptr);
    EXPECT_EQ(dialogs.log, Log({"Frage: Weg.exe kann nicht geöffnet werden: Die Datei ist nicht "
                                "vorhanden. [OK]"}));
    EXPECT_EQ(commands.Recent().Paths(), std::vector<std::u16string>());
}

TEST_F(FileOpeningTest, ProgramThatIsNoLauncherIsTold) {
    files.AddFile(u"C:\\Daten\\Anderes.exe", "MZ");
    EXPECT_FALSE(commands.Open(u"C:\\Daten\\Anderes.exe", nullptr).done);
    EXPECT_EQ(dialogs.log, Log({"Frage: Anderes.exe kann nicht geöffnet werden:\n\n"
                                "Die Datei ist kein 32-Bit-Programm für Windows. [OK]"}));
}

TEST_F(FileOpeningTest, SecondFileGetsAWindowOfItsOwn) {
    const std::unique_ptr<Document> document = Opened();
    const FileResult result = commands.Open(u"C:\\Daten\\Artikel.exe", document.get());
    EXPECT_TRUE(result.done);
    EXPECT_EQ(result.document, nullptr);
    EXPECT_EQ(result.line, u"Artikel.exe öffnet sich in einem eigenen Fenster.");
    EXPECT_EQ(starter.log,
              std::vector<std::u16string>({u"C:\\Tarvex\\tarvexcf.exe [C:\\Daten\\Artikel.exe]"}));
}

TEST_F(FileOpeningTest, FileThatIsOpenGetsNoSecondWindow) {
    const std::unique_ptr<Document> document = Opened();
    EXPECT_EQ(commands.Open(u"C:\\daten\\kunden.EXE", document.get()).line,
              u"kunden.EXE ist schon geöffnet.");
    EXPECT_EQ(starter.log, std::vector<std::u16string>());
}

TEST_F(FileOpeningTest, WindowThatCannotBeOpenedIsTold) {
    const std::unique_ptr<Document> document = Opened();
    starter.problem = u"Die Datei ist nicht vorhanden.";
    EXPECT_FALSE(commands.New(document.get()).done);
    EXPECT_EQ(starter.log, std::vector<std::u16string>({u"C:\\Tarvex\\tarvexcf.exe [/Neu]"}));
    EXPECT_EQ(dialogs.log, Log({"Frage: Ein weiteres Fenster kann nicht geöffnet werden: Die Datei "
                                "ist nicht vorhanden. [OK]"}));
}

TEST_F(FileOpeningTest, NewLauncherIsMadeFromTheTemplateBesideTheProgram) {
    dialogs.formUsers = {NewLauncher(u"Neu")};
    const FileResult result = commands.New(nullptr);
    ASSERT_NE(result.document, nullptr);
    EXPECT_EQ(result.line, u"Neues Startprogramm Neu.exe.");
    EXPECT_EQ(result.document->File().path, u"C:\\Daten\\Neu.exe");
    EXPECT_EQ(result.document->File().source, kTemplate);
    EXPECT_TRUE(result.document->IsDirty());
    EXPECT_FALSE(store.FileExists(u"C:\\Daten\\Neu.exe"));
    EXPECT_EQ(result.document->Text(kAccRegList.Field(1)), AccessPresetFields()[0].entry);
    EXPECT_EQ(dialogs.log, Log({"Fenster: Neues Startprogramm"}));
}

TEST_F(FileOpeningTest, OpenedTemplateIsOfferedAsOne) {
    dialogs.answers = {0};
    dialogs.formUsers = {NewLauncher(u"Neu")};
    const FileResult result = commands.Open(kTemplate, nullptr);
    ASSERT_NE(result.document, nullptr);
    EXPECT_EQ(result.document->File().source, kTemplate);
    EXPECT_EQ(dialogs.log,
              Log({"Frage: tarvex.exe ist noch nicht konfiguriert. Soll daraus ein neues "
                   "Startprogramm entstehen? [&Neues Startprogramm|Abbrechen]",
                   "Fenster: Neues Startprogramm"}));
    EXPECT_EQ(commands.Open(kTemplate, nullptr).document, nullptr);
}

}  // namespace
}  // namespace tarvex
