#include <gtest/gtest.h>

#include "tests/commands/CommandsWorld.h"
#include "tests/support/IconBytes.h"

namespace tarvex {
namespace {

/// The commands on a launcher with room for icon and version texts.
class ProgramFileTest : public testing::Test {
protected:
    ProgramFileTest() {
        SyntheticLauncher launcher;
        launcher.hasRoom = true;
        world_.files.AddFile(u"T.exe", launcher.Build());
        world_.files.AddFile(u"a.ico", icon_);
        world_.files.AddFile(u"b.ico", IconBytes({BitmapImage(16, 16)}));
        EXPECT_EQ(world_.Brand(u"DBFilename = a.mdb\nAccPath = .\\Access\n"
                               u"[Programmdatei]\nIconFile = a.ico\nCompanyName = Müller\n"
                               u"Comments =\n"),
                  0);
    }

    const std::string icon_ =
        IconBytes({BitmapImage(16, 16), BitmapImage(32, 32), BitmapImage(48, 48)});
    CommandsWorld world_;
    FakeConsole& console_ = world_.console;
};

TEST_F(ProgramFileTest, ShowAndGetGiveWhatTheVendorGave) {
    EXPECT_EQ(world_.Run({u"show", u"K.exe"}), 0) << text::ToUtf8(console_.err);
    EXPECT_TRUE(
        console_.out.ends_with(u"\nIconFile = 16 x 16, 32 x 32, 48 x 48\n"
                               u"CompanyName = Müller\n"));
    EXPECT_EQ(world_.Run({u"show", u"K.exe", u"--all"}), 0);
    EXPECT_TRUE(
        console_.out.ends_with(u"\nIconFile = 16 x 16, 32 x 32, 48 x 48\n"
                               u"CompanyName = Müller\nComments =\n"));
    EXPECT_EQ(world_.Run({u"get", u"K.exe", u"companyname", u"ProductName"}), 0);
    EXPECT_EQ(console_.out, u"Müller\n\n");
}

TEST_F(ProgramFileTest, SetChangesTextsAndIcon) {
    EXPECT_EQ(world_.Run({u"set", u"K.exe", u"IconFile=b.ico", u"FileVersion=1.2.3.4"}), 0)
        << text::ToUtf8(console_.err);
    // The new icon has one size only.
    EXPECT_NE(console_.err.find(u"[icon-size-missing]"), std::u16string::npos);
    EXPECT_EQ(world_.Run({u"get", u"K.exe", u"IconFile", u"FileVersion", u"CompanyName"}), 0);
    EXPECT_EQ(console_.out, u"16 x 16\n1.2.3.4\nMüller\n");
    EXPECT_EQ(world_.Run({u"set", u"K.exe", u"FileVersion=neu"}), 1);
    EXPECT_EQ(console_.err,
              u"tarvexcf: K.exe, FileVersion: Der Text beginnt nicht mit einer Versionsnummer wie "
              u"1.2.3.\n");
    EXPECT_EQ(world_.Run({u"set", u"K.exe", u"IconFile=c.ico"}), 1);
    EXPECT_EQ(console_.err, u"tarvexcf: K.exe, IconFile: c.ico: Die Datei ist nicht vorhanden.\n");
}

TEST_F(ProgramFileTest, UnsetEmptiesATextAndRefusesTheIcon) {
    EXPECT_EQ(world_.Run({u"unset", u"K.exe", u"CompanyName"}), 0);
    EXPECT_EQ(world_.Run({u"get", u"K.exe", u"CompanyName"}), 0);
    EXPECT_EQ(console_.out, u"\n");
    EXPECT_EQ(world_.Run({u"unset", u"K.exe", u"IconFile"}), 1);
    EXPECT_EQ(console_.err,
              u"tarvexcf: K.exe, IconFile: Das Symbol der Vorlage ist nicht mehr im Programm und "
              u"kann nicht wieder eingesetzt werden; nennen Sie eine Symboldatei.\n");
}

TEST_F(ProgramFileTest, ExportWritesTheIconBesideTheSettings) {
    EXPECT_EQ(world_.Run({u"export", u"K.exe", u"v/Neu.alt.ini"}), 0) << text::ToUtf8(console_.err);
    EXPECT_EQ(world_.files.Bytes(u"v/Neu.alt.ico").size(), icon_.size());
    const std::string& settings = world_.files.Bytes(u"v/Neu.alt.ini");
    EXPECT_NE(settings.find("\r\nIconFile = Neu.alt.ico\r\n"), std::string::npos);
    EXPECT_NE(settings.find("\r\nComments =\r\n"), std::string::npos);
    EXPECT_NE(settings.find("\r\n;ProductName =\r\n"), std::string::npos);
    EXPECT_EQ(world_.Run({u"diff", u"K.exe", u"v/Neu.alt.ini"}), 0);
    EXPECT_EQ(
        world_.Run({u"brand", u"T.exe", u"L.exe", u"--settings", u"v/Neu.alt.ini", u"--quiet"}), 0);
    EXPECT_EQ(world_.files.Bytes(u"L.exe"), world_.files.Bytes(u"K.exe"));
}

TEST_F(ProgramFileTest, ExportDoesNotReplaceAnIconUnasked) {
    world_.files.AddFile(u"Neu.ico", "other");
    EXPECT_EQ(world_.Run({u"export", u"K.exe", u"Neu.ini"}), 1);
    EXPECT_EQ(world_.files.Bytes(u"Neu.ico"), "other");
    EXPECT_FALSE(world_.files.FileExists(u"Neu.ini"));
    EXPECT_EQ(world_.Run({u"export", u"K.exe", u"Neu.ini", u"--force"}), 0);
    EXPECT_NE(world_.files.Bytes(u"Neu.ico"), "other");
}

TEST_F(ProgramFileTest, ExportToTheOutputSaysThatTheIconIsMissing) {
    EXPECT_EQ(world_.Run({u"export", u"K.exe", u"-"}), 0);
    EXPECT_EQ(console_.err, u"tarvexcf: Das Symbol wird nur in eine Datei exportiert.\n");
    EXPECT_NE(console_.out.find(u"\r\nCompanyName = Müller\r\n"), std::u16string::npos);
}

TEST_F(ProgramFileTest, OldLauncherGivesItsIconAndTextsToANewOne) {
    EXPECT_EQ(world_.Run({u"brand", u"T.exe", u"N.exe", u"--from", u"K.exe"}), 0)
        << text::ToUtf8(console_.err);
    EXPECT_EQ(world_.files.Bytes(u"N.exe"), world_.files.Bytes(u"K.exe"));
    EXPECT_EQ(world_.Run({u"brand", u"T.exe", u"M.exe", u"--from", u"K.exe", u"--drop", u"IconFile",
                          u"--set", u"CompanyName=Neu"}),
              0)
        << text::ToUtf8(console_.err);
    EXPECT_EQ(world_.Run({u"show", u"M.exe", u"--all"}), 0);
    EXPECT_TRUE(console_.out.ends_with(u"\nCompanyName = Neu\nComments =\n"));
    EXPECT_EQ(console_.out.find(u"IconFile"), std::u16string::npos);
}

TEST_F(ProgramFileTest, NewLauncherWithoutRoomNamesWhatItCannotTake) {
    world_.files.AddFile(u"T.exe", SyntheticLauncher().Build());
    EXPECT_EQ(world_.Run({u"brand", u"T.exe", u"N.exe", u"--from", u"K.exe"}), 1);
    EXPECT_NE(console_.err.find(u"IconFile"), std::u16string::npos);
    EXPECT_NE(console_.err.find(u"CompanyName"), std::u16string::npos);
    EXPECT_FALSE(world_.files.FileExists(u"N.exe"));
    EXPECT_EQ(world_.Run({u"brand", u"T.exe", u"N.exe", u"--from", u"K.exe", u"--drop", u"IconFile",
                          u"--drop", u"CompanyName", u"--drop", u"Comments"}),
              0)
        << text::ToUtf8(console_.err);
}

TEST_F(ProgramFileTest, DryRunNamesWhatWouldBeRefused) {
    world_.files.AddFile(u"T.exe", SyntheticLauncher().Build());
    EXPECT_EQ(world_.Run({u"brand", u"T.exe", u"L.exe", u"--settings", u"K.ini", u"--dry-run"}), 1);
    EXPECT_EQ(console_.err,
              u"tarvexcf: T.exe, IconFile: Die Datei hat keine Ressourcen.\n"
              u"tarvexcf: T.exe, CompanyName: Die Datei hat keine Ressourcen.\n"
              u"tarvexcf: T.exe, Comments: Die Datei hat keine Ressourcen.\n");
}

}  // namespace
}  // namespace tarvex
