#include "window/preview/DescribePc.h"

#include <gtest/gtest.h>

#include "branding/BrandFields.h"
#include "tests/simulation/CollectedWorld.h"
#include "tests/support/FakeBinaryFiles.h"
#include "tests/support/FakeFileStore.h"
#include "tests/support/FakeUserDialogs.h"
#include "text/Text.h"

namespace tarvex {
namespace {

using Log = std::vector<std::string>;

/// The launcher C:\Kunden\Kunden.exe, not saved yet, on a PC with Access.
class DescribePcTest : public testing::Test {
protected:
    DescribePcTest() {
        pc.files.AddFile(u"C:\\Office\\msaccess.exe");
        pc.registry.SetTextZ(kHKeyCurrentUser, u"Software\\Firma", u"Pfad", "C:\\Daten");
        request.program = u"C:\\Kunden\\Kunden.exe";
        request.settings.Set(kFieldAccPath, u"C:\\Office");
        request.settings.Set(kDBRegList.Field(1), u"HKCU\\Software\\Firma\\Pfad%|Filename%|a.mdb");
        request.settings.Set(kFieldPwd, u"Geheim");
        dialogs.paths = {u"D:\\Sammlung"};
    }

    std::u16string Describe() {
        return DescribeThisPc(request, {dialogs, store, codec, hasPc ? &pc : nullptr});
    }

    PreviewRequest request;
    FakeThisPc pc;
    bool hasPc = true;
    FakeBinaryFiles files;
    FakeFileStore store{files};
    FakeUserDialogs dialogs;
    TextCodec1252 codec;
};

constexpr std::string_view kDone =
    "Frage: D:\\Sammlung\\Kunden.pc: Die Beschreibung ist geschrieben.\n\nSie enthält, was "
    "Kunden.exe mit den Einstellungen dieses Fensters hier vorfindet, und nichts anderes. [OK]";

TEST_F(DescribePcTest, WritesWhatTheLauncherFinds) {
    EXPECT_EQ(Describe(), u"D:\\Sammlung\\Kunden.pc");
    EXPECT_EQ(dialogs.log,
              (Log{"Ordner: Ordner für die Beschreibung dieses PCs wählen", std::string(kDone)}));
    EXPECT_EQ(dialogs.fileQuestions.front().folder, u"C:\\Kunden");
    const std::string text = store.ReadAll(u"D:\\Sammlung\\Kunden.pc");
    EXPECT_NE(text.find("Startprogramm = C:\\Kunden\\Kunden.exe\r\n"), std::string::npos);
    EXPECT_NE(text.find("Datei = C:\\Office\\msaccess.exe\r\n"), std::string::npos);
    EXPECT_NE(text.find("Fehlt = C:\\Daten\\a.mdb\r\n"), std::string::npos);
    EXPECT_EQ(text.find("Geheim"), std::string::npos);
    EXPECT_TRUE(store.FileExists(u"D:\\Sammlung\\Kunden.reg"));
}

TEST_F(DescribePcTest, ExistingFilesAreReplacedOnlyWhenTheUserAgrees) {
    files.AddFile(u"D:\\Sammlung\\Kunden.pc", "alt");
    EXPECT_EQ(Describe(), u"");
    EXPECT_EQ(dialogs.log.back(),
              "Frage: Im Ordner D:\\Sammlung gibt es schon: Kunden.pc. [&Ersetzen|Abbrechen]");
    EXPECT_EQ(store.ReadAll(u"D:\\Sammlung\\Kunden.pc"), "alt");
    EXPECT_FALSE(store.FileExists(u"D:\\Sammlung\\Kunden.reg"));
    dialogs.paths = {u"D:\\Sammlung"};
    dialogs.answers = {0};
    EXPECT_EQ(Describe(), u"D:\\Sammlung\\Kunden.pc");
    EXPECT_NE(store.ReadAll(u"D:\\Sammlung\\Kunden.pc"), "alt");
    EXPECT_EQ(dialogs.log.back(), kDone);
}

TEST_F(DescribePcTest, NothingHappensWithoutAFolder) {
    dialogs.paths.clear();
    EXPECT_EQ(Describe(), u"");
    EXPECT_EQ(dialogs.log.size(), 1u);
    EXPECT_TRUE(store.log.empty());
}

TEST_F(DescribePcTest, FailureIsToldWithTheFile) {
    store.failCall = 1;
    store.failure = FileProblem::DiskFull;
    EXPECT_EQ(Describe(), u"");
    EXPECT_EQ(dialogs.log.back(),
              "Frage: Die Beschreibung ist nicht geschrieben.\n\nD:\\Sammlung\\Kunden.reg: Der "
              "Datenträger ist voll. [OK]");
}

TEST_F(DescribePcTest, ValueThatItsFieldCannotHoldIsToldBeforeAnythingIsAsked) {
    request.settings.Set(kFieldFileID, u"12345678901");
    EXPECT_EQ(Describe(), u"");
    EXPECT_EQ(dialogs.log, (Log{"Frage: Die Beschreibung ist nicht geschrieben.\n\nFileID: Der "
                                "Wert ist zu lang: Er braucht 11 Zeichen, das Feld fasst 10. "
                                "[OK]"}));
}

TEST_F(DescribePcTest, NeedsWindows) {
    hasPc = false;
    EXPECT_EQ(Describe(), u"");
    EXPECT_EQ(dialogs.log, (Log{"Frage: Die Beschreibung ist nicht geschrieben.\n\nEine "
                                "Beschreibung dieses PCs braucht Windows. [OK]"}));
}

}  // namespace
}  // namespace tarvex
