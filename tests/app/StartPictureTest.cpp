#include "app/StartPicture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "branding/BrandFields.h"
#include "errors/MessageTable.h"
#include "tests/support/FakeBrandConstants.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/FakeRegistry.h"
#include "tests/support/FakeUi.h"
#include "tests/support/TestProgram.h"
#include "text/TextCodec1252.h"

namespace tarvex {
namespace {

class StartPictureTest : public testing::Test {
protected:
    using Values = FakeBrandConstants::Values;

    /// Resolves with these settings and returns the report.
    std::u16string Resolve(const Values& values) {
        const FakeBrandConstants constants(values);
        pSettings settings(constants, appError, environment);
        settings.LoadSettings();
        picture.StartupPictureSettings(settings);
        return picture.Report();
    }

    /// Resolves key lists, the picture's time being 800 ms.
    std::u16string ResolveLists(Values values) {
        values[kFieldPicDelay] = u"800";
        return Resolve(values);
    }

    static constexpr std::u16string_view kListHeading =
        u"[Startbild]\r\nSchlüsselliste wird aufgelöst\r\n";
    static constexpr std::u16string_view kFound =
        u"Startbild: C:\\Bilder\\Neu\\Start.bmp\r\nStartbild: OK\r\nDauer: 800";

    FakeUi ui;
    FakeRegistry registry;
    FakeFileSystem files;
    TextCodec1252 codec;
    MessageTable texts;
    ProgramInfo program = TestProgram();
    cuAppError appError{ui, texts, program};
    LaunchEnvironment environment{registry, files, codec, codec, ui, program};
    StartPicture picture{environment, appError};
};

TEST_F(StartPictureTest, NoTimeMeansNoPictureAndNoFurtherLine) {
    const std::u16string none = u"[Startbild]\r\nDauer: 0, Bild wird nicht angezeigt";
    for (const std::u16string_view delay : {u"", u"0", u"abc", u"-5", u"1e3", u"0x10"}) {
        EXPECT_EQ(Resolve({{kFieldPicDelay, delay}, {kFieldPicFilename, u"a.bmp"}}), none);
        EXPECT_EQ(picture.Delay(), 0);
        EXPECT_EQ(picture.Path(), u"");
    }
    EXPECT_TRUE(files.log.empty());
}

TEST_F(StartPictureTest, NothingConfigured) {
    EXPECT_EQ(Resolve({{kFieldPicDelay, u"800"}}),
              u"[Startbild]\r\nGespeicherter Pfad: \r\nKein Startbild angegeben");
    EXPECT_EQ(picture.Delay(), 0);
}

TEST_F(StartPictureTest, NameAloneIsLookedForBesideTheLauncher) {
    files.AddFile(u"C:\\Prog\\Bild.gif");
    EXPECT_EQ(Resolve({{kFieldPicDelay, u"9999"}, {kFieldPicFilename, u"Bild.gif"}}),
              u"[Startbild]\r\nGespeicherter Pfad: \r\nDateiname: Bild.gif\r\n"
              u"Verwendeter Pfad: C:\\Prog\\Bild.gif\r\n"
              u"Startbild: C:\\Prog\\Bild.gif\r\nStartbild: OK\r\nDauer: 9999");
    EXPECT_EQ(picture.Path(), u"C:\\Prog\\Bild.gif");
    EXPECT_EQ(picture.Delay(), 9999);
}

TEST_F(StartPictureTest, RelativeFolderStartsAtTheLauncherWithoutALineOfItsOwn) {
    files.AddFile(u"C:\\Bilder\\Bild.jpg");
    EXPECT_EQ(Resolve({{kFieldPicDelay, u"800"},
                       {kFieldPicPath, u"..\\Bilder"},
                       {kFieldPicFilename, u"Bild.jpg"}}),
              u"[Startbild]\r\nGespeicherter Pfad: ..\\Bilder\r\nDateiname: Bild.jpg\r\n"
              u"Verwendeter Pfad: C:\\Bilder\\Bild.jpg\r\n"
              u"Startbild: C:\\Bilder\\Bild.jpg\r\nStartbild: OK\r\nDauer: 800");
}

TEST_F(StartPictureTest, FolderWithoutNameIsNoPicture) {
    files.AddFile(u"D:\\Bilder\\Bild.jpg");
    EXPECT_EQ(Resolve({{kFieldPicDelay, u"800"}, {kFieldPicPath, u"D:\\Bilder"}}),
              u"[Startbild]\r\nGespeicherter Pfad: D:\\Bilder\r\n"
              u"Fehler: Pfad ist angegeben, aber kein Dateiname");
    EXPECT_EQ(picture.Path(), u"");
    EXPECT_EQ(picture.Delay(), 0);
}

TEST_F(StartPictureTest, MissingPictureIsReportedAndNotShown) {
    EXPECT_EQ(Resolve({{kFieldPicDelay, u"800"},
                       {kFieldPicPath, u"D:\\Bilder"},
                       {kFieldPicFilename, u"Bild.jpg"}}),
              u"[Startbild]\r\nGespeicherter Pfad: D:\\Bilder\r\nDateiname: Bild.jpg\r\n"
              u"Verwendeter Pfad: D:\\Bilder\\Bild.jpg\r\n"
              u"Bild nicht vorhanden an dieser Position");
    EXPECT_EQ(picture.Path(), u"");
    EXPECT_EQ(picture.Delay(), 0);
}

TEST_F(StartPictureTest, KeyListWinsOverFolderAndName) {
    files.AddFile(u"C:\\Prog\\Bild.bmp");
    EXPECT_EQ(
        ResolveLists({{kFieldPicFilename, u"Bild.bmp"}, {kPicRegList.Field(3), u"HKCU\\A\\B"}}),
        std::u16string(kListHeading) +
            u"Gespeicherter Wert: HKCU\\A\\B\r\n - HKey: HKCU\r\n - Schlüssel: A\r\n"
            u" - Wertname: B\r\n - Unterordner: \r\n - Dateiname: \r\n"
            u"Schlüsselinhalt: <nicht vorhanden oder kein Inhalt>");
    EXPECT_EQ(picture.Path(), u"");
    EXPECT_EQ(picture.Delay(), 0);
}

TEST_F(StartPictureTest, SubFolderAndNameAreAppendedStepByStep) {
    registry.SetTextZ(kHKeyLocalMachine, u"SOFTWARE\\Firma", u"Bilder", "C:\\Bilder");
    files.AddFile(u"C:\\Bilder\\Neu\\Start.bmp");
    EXPECT_EQ(
        ResolveLists({{kPicRegList.Field(1),
                       u"HKEY_LOCAL_MACHINE\\SOFTWARE\\Firma\\Bilder%|SubDir|%Neu%|Filename%|"
                       u"Start.bmp"}}),
        std::u16string(kListHeading)
            .append(u"Gespeicherter Wert: HKEY_LOCAL_MACHINE\\SOFTWARE\\Firma\\Bilder%|SubDir|%"
                    u"Neu%|Filename%|Start.bmp\r\n"
                    u" - HKey: HKLM\r\n - Schlüssel: SOFTWARE\\Firma\r\n - Wertname: Bilder\r\n"
                    u" - Unterordner: Neu\r\n - Dateiname: Start.bmp\r\n"
                    u"Schlüsselinhalt: C:\\Bilder\r\n"
                    u"Schlüsselinhalt um Unterpfad ergänzt: C:\\Bilder\\Neu\r\n"
                    u"Schlüsselinhalt um Dateiname ergänzt: C:\\Bilder\\Neu\\Start.bmp\r\n"
                    u"Dateiname ist zulässig\r\n")
            .append(kFound));
    EXPECT_EQ(picture.Delay(), 800);
}

TEST_F(StartPictureTest, FirstExistingPictureEndsTheWalk) {
    registry.SetTextZ(kHKeyCurrentUser, u"A", u"B", "C:\\Bilder\\Neu\\Start.bmp");
    files.AddFile(u"C:\\Bilder\\Neu\\Start.bmp");
    EXPECT_TRUE(
        ResolveLists({{kPicRegList.Field(2), u"HKCU\\A\\B"}, {kPicRegList.Field(4), u"HKCU\\C\\D"}})
            .ends_with(kFound));
    EXPECT_EQ(registry.log, std::vector<std::u16string>{u"read HKCU\\A\\B"});
    EXPECT_EQ(picture.Report().find(u"HKCU\\C\\D"), std::u16string::npos);
}

/// What follows the five lines of the only entry HKCU\A\B... in the report.
class StartPictureEntryTest : public StartPictureTest {
protected:
    std::u16string Rest(std::u16string_view tail, const std::string& value) {
        registry.SetTextZ(kHKeyCurrentUser, u"A", u"B", value);
        const std::u16string entry = u"HKCU\\A\\B" + std::u16string(tail);
        const std::u16string report = ResolveLists({{kPicRegList.Field(10), entry}});
        const std::u16string_view name = u"\r\n - Dateiname: ";
        const std::size_t line = report.find(name);
        return line == std::u16string::npos
                   ? report
                   : report.substr(report.find(u"\r\n", line + name.size()) + 2);
    }
};

TEST_F(StartPictureEntryTest, SubFolderWithoutNameFails) {
    EXPECT_EQ(Rest(u"%|SubDir|%Neu", "C:\\Bilder"),
              u"Schlüsselinhalt: C:\\Bilder\r\n"
              u"Unterpfad (Neu) angegeben, aber kein Dateiname. Pfad kann nicht aufgelöst "
              u"werden.");
}

TEST_F(StartPictureEntryTest, FolderWithoutNameFails) {
    EXPECT_EQ(Rest(u"", "C:\\Bilder\\"),
              u"Schlüsselinhalt: C:\\Bilder\\\r\n"
              u"Schlüsselinhalt enthält einen Pfad und es ist kein Dateiname angegeben. Der "
              u"Bildname kann nicht aufgelöst werden.");
}

TEST_F(StartPictureEntryTest, NameIsAppendedWithOneSeparator) {
    EXPECT_EQ(Rest(u"%|Filename%|x.BMP", "C:\\Bilder\\"),
              u"Schlüsselinhalt: C:\\Bilder\\\r\n"
              u"Schlüsselinhalt um Dateiname ergänzt: C:\\Bilder\\x.BMP\r\n"
              u"Dateiname ist zulässig\r\nBild nicht vorhanden an dieser Position");
}

TEST_F(StartPictureEntryTest, OtherExtensionsAreRefused) {
    for (const std::string name : {"C:\\x.gif", "C:\\x.jpeg", "C:\\bmp", "C:\\x.bmp "}) {
        EXPECT_EQ(Rest(u"", name), u"Schlüsselinhalt: " + codec.FromAnsi(name) +
                                       u"\r\nFehler: Dateiname ist unzulässig");
    }
}

TEST_F(StartPictureEntryTest, ExtensionIsComparedWithoutRegardToCase) {
    files.AddFile(u"C:\\x.JPG");
    EXPECT_EQ(Rest(u"", "C:\\x.JPG"),
              u"Schlüsselinhalt: C:\\x.JPG\r\nDateiname ist zulässig\r\n"
              u"Startbild: C:\\x.JPG\r\nStartbild: OK\r\nDauer: 800");
}

TEST_F(StartPictureTest, EntryThatCannotBeReadIsReportedAndTheNextOneTried) {
    registry.SetTextZ(kHKeyCurrentUser, u"A", u"B", "C:\\Bilder\\Neu\\Start.bmp");
    files.AddFile(u"C:\\Bilder\\Neu\\Start.bmp");
    const std::u16string report = ResolveLists({{kPicRegList.Field(1), u"Unsinn"},
                                                {kPicRegList.Field(2), u"FOO\\Key\\Value"},
                                                {kPicRegList.Field(3), u"HKCU\\A\\B"}});
    EXPECT_TRUE(report.starts_with(
        std::u16string(kListHeading) +
        u"Gespeicherter Wert: Unsinn\r\n"
        u"Der Schlüssellisten-Eintrag 'Unsinn' ist fehlerhaft bzw. kann nicht interpretiert "
        u"werden.\r\n"
        u"Gespeicherter Wert: FOO\\Key\\Value\r\n"
        u"Der Schlüssellisten-Eintrag 'FOO\\Key\\Value' enthält keinen Verweis auf den "
        u"HKey.\r\n"
        u"Gespeicherter Wert: HKCU\\A\\B\r\n"))
        << testing::PrintToString(report);
    EXPECT_TRUE(report.ends_with(kFound));
}

TEST_F(StartPictureTest, EntryThatLeadsToNoPictureIsPassedOver) {
    const std::pair<std::u16string_view, const char*> values[] = {
        {u"Gif", "C:\\x.gif"},
        {u"Fehlt", "C:\\fehlt.bmp"},
        {u"Ordner", "C:\\Bilder\\"},
        {u"Pfad", "C:\\Bilder\\Neu\\Start.bmp"}};
    for (const auto& [name, value] : values) {
        registry.SetTextZ(kHKeyCurrentUser, u"A", name, value);
    }
    files.AddFile(u"C:\\x.gif");
    files.AddFile(u"C:\\Bilder\\Neu\\Start.bmp");
    const std::u16string report =
        ResolveLists({{kPicRegList.Field(1), u"HKCU\\A\\Gif"},
                      {kPicRegList.Field(2), u"HKCU\\A\\Fehlt"},
                      {kPicRegList.Field(3), u"HKCU\\A\\Ordner"},
                      {kPicRegList.Field(4), u"HKCU\\A\\Pfad%|SubDir|%Neu"},
                      {kPicRegList.Field(5), u"HKCU\\A\\NichtDa"},
                      {kPicRegList.Field(6), u"HKCU\\A\\Pfad"}});
    EXPECT_TRUE(report.ends_with(kFound)) << testing::PrintToString(report);
    EXPECT_EQ(picture.Path(), u"C:\\Bilder\\Neu\\Start.bmp");
    EXPECT_EQ(registry.log.size(), 6u);
}

TEST_F(StartPictureEntryTest, SlashAtTheEndMakesNoFolder) {
    EXPECT_EQ(Rest(u"", "C:/Bilder/"),
              u"Schlüsselinhalt: C:/Bilder/\r\nFehler: Dateiname ist unzulässig");
}

TEST_F(StartPictureTest, FieldIsOneEntryEvenWithAListMarkInIt) {
    ResolveLists({{kPicRegList.Field(1), u"HKCU\\A\\B%|%HKCU\\C\\D"}});
    EXPECT_EQ(registry.log, std::vector<std::u16string>{u"read HKCU\\A\\B%|%HKCU\\C\\D"});
}

TEST_F(StartPictureTest, HasPicRegListsLooksAtAllTenFields) {
    for (const std::int32_t field : kPicRegList.Numbers()) {
        const FakeBrandConstants constants(Values{{field, u"x"}});
        pSettings settings(constants, appError, environment);
        settings.LoadSettings();
        EXPECT_TRUE(StartPicture::HasPicRegLists(settings));
    }
    const FakeBrandConstants constants(Values{{kFieldPicPath, u"x"}, {kAccRegList.Field(1), u"x"}});
    pSettings settings(constants, appError, environment);
    settings.LoadSettings();
    EXPECT_FALSE(StartPicture::HasPicRegLists(settings));
}

TEST_F(StartPictureTest, FirstReportLineStandsAloneAndAFlagAddsAnEmptyLine) {
    picture.AddPictureReportLine(u"eins", true);
    EXPECT_EQ(picture.Report(), u"eins");
    picture.AddPictureReportLine(u"zwei");
    picture.AddPictureReportLine(u"drei", true);
    EXPECT_EQ(picture.Report(), u"eins\r\nzwei\r\n\r\ndrei");
}

TEST_F(StartPictureTest, SecondResolutionStartsANewReport) {
    files.AddFile(u"C:\\Prog\\Bild.bmp");
    Resolve({{kFieldPicDelay, u"800"}, {kFieldPicFilename, u"Bild.bmp"}});
    EXPECT_EQ(picture.Path(), u"C:\\Prog\\Bild.bmp");
    EXPECT_EQ(Resolve({}), u"[Startbild]\r\nDauer: 0, Bild wird nicht angezeigt");
    EXPECT_EQ(picture.Path(), u"");
}

}  // namespace
}  // namespace tarvex
