#include "simulation/Collector.h"

#include <gtest/gtest.h>

#include "branding/BrandFields.h"
#include "branding/BrandMark.h"
#include "tests/simulation/CollectedWorld.h"
#include "tests/support/FakeBrandConstants.h"
#include "text/Text.h"

namespace tarvex {
namespace {

/// The launcher C:\Kunden\Kunden.exe on a computer.
class CollectorTest : public ::testing::Test {
protected:
    using Values = FakeBrandConstants::Values;

    CollectorTest() { pc.files.AddFile(u"C:\\Kunden\\Kunden.exe"); }

    /// What is written, the registry files as text.
    std::map<std::u16string, std::u16string> Collect(
        const Values& values, const std::vector<std::u16string>& accessEntries = {}) {
        std::map<std::u16string, std::u16string> texts;
        for (const CollectedFile& file :
             CollectPc(pc, FakeBrandConstants(values), u"C:\\Kunden\\Kunden.exe", pc.codec,
                       accessEntries)) {
            texts[file.name] = file.name.ends_with(u".reg") ? FromUtf16Bytes(file.bytes)
                                                            : text::FromUtf8(file.bytes);
        }
        return texts;
    }

    FakeThisPc pc;
};

constexpr std::u16string_view kStart =
    u"; Was Kunden.exe auf diesem PC vorfindet, für 'tarvexcf simulate'. Nichts anderes steht "
    u"hier.\r\n"
    u"[PC]\r\n"
    u"Startprogramm = C:\\Kunden\\Kunden.exe\r\n";
constexpr std::u16string_view kRegStart = u"\uFEFFWindows Registry Editor Version 5.00\r\n\r\n";

TEST_F(CollectorTest, WhatIsThereAndWhatIsNotIsWrittenOnceEach) {
    pc.files.AddFile(u"C:\\Office\\msaccess.exe");
    pc.registry.SetTextZ(kHKeyCurrentUser, u"Software\\Firma", u"Daten", "D:\\Daten");
    const auto texts =
        Collect({{kFieldAccPath, u"C:\\Office"},
                 {kDBRegList.Field(1), u"HKLM\\SOFTWARE\\Firma\\Daten%|Filename%|a.mdb"},
                 {kDBRegList.Field(2), u"HKCU\\Software\\Firma\\Daten%|Filename%|a.mdb"},
                 {kDBRegList.Field(3), u"HKCU\\Software\\Firma\\daten%|Filename%|A.mdb"}});
    ASSERT_EQ(texts.size(), 2u);
    EXPECT_EQ(texts.at(u"Kunden.pc"), std::u16string(kStart) +
                                          u"Bit = 32\r\n"
                                          u"Windows = 6.1\r\n"
                                          u"Codepage = 1252\r\n"
                                          u"Registrierung = Kunden.reg\r\n"
                                          u"Datei = C:\\Office\\msaccess.exe\r\n"
                                          u"Fehlt = HKLM\\SOFTWARE\\Firma\\Daten\r\n"
                                          u"Fehlt = D:\\Daten\\a.mdb\r\n");
    EXPECT_EQ(texts.at(u"Kunden.reg"), std::u16string(kRegStart) +
                                           u"[HKEY_CURRENT_USER\\Software\\Firma]\r\n"
                                           u"\"Daten\"=\"D:\\\\Daten\"\r\n\r\n");
}

TEST_F(CollectorTest, RelativePathsOfTheRegistryBeginInTheLaunchersFolder) {
    pc.files.AddFile(u"C:\\Kunden\\Daten\\a.mdb");
    pc.registry.SetTextZ(kHKeyCurrentUser, u"A\\B", u"Ordner", "Daten");
    const auto texts = Collect({{kFieldAccPath, u"C:\\Office"},
                                {kDBRegList.Field(1), u"HKCU\\A\\B\\Ordner%|Filename%|a.mdb"}});
    EXPECT_TRUE(texts.at(u"Kunden.pc")
                    .ends_with(u"Datei = C:\\Kunden\\Daten\\a.mdb\r\n"
                               u"Fehlt = C:\\Office\\msaccess.exe\r\n"));
}

TEST_F(CollectorTest, BothViewsOfA64BitComputerAreToldApart) {
    pc.files.AddFile(u"C:\\Office\\msaccess.exe");
    FakeRegistry view64;
    view64.SetTextZ(kHKeyLocalMachine, u"SOFTWARE\\Firma", u"Nur64", "C:\\Office");
    pc.registry.view64 = &view64;
    pc.registry.SetTextZ(kHKeyLocalMachine, u"SOFTWARE\\Firma", u"", "D:\\x.mdb");
    const auto texts = Collect({{kAccRegList.Field(1), u"HKLM\\SOFTWARE\\Firma\\Nur64"},
                                {kDBRegList.Field(1), u"HKLM\\SOFTWARE\\Firma\\"}});
    ASSERT_EQ(texts.size(), 3u);
    EXPECT_EQ(texts.at(u"Kunden.pc"), std::u16string(kStart) +
                                          u"Bit = 64\r\n"
                                          u"Windows = 6.1\r\n"
                                          u"Codepage = 1252\r\n"
                                          u"Registrierung32 = Kunden-32.reg\r\n"
                                          u"Registrierung = Kunden-64.reg\r\n"
                                          u"Datei = C:\\Office\\msaccess.exe\r\n"
                                          u"Fehlt = HKLM\\SOFTWARE\\WOW6432Node\\Firma\\Nur64\r\n"
                                          u"Fehlt = D:\\x.mdb\r\n");
    EXPECT_EQ(texts.at(u"Kunden-32.reg"), std::u16string(kRegStart) +
                                              u"[HKEY_LOCAL_MACHINE\\SOFTWARE\\Firma]\r\n"
                                              u"@=\"D:\\\\x.mdb\"\r\n\r\n");
    EXPECT_EQ(texts.at(u"Kunden-64.reg"), std::u16string(kRegStart) +
                                              u"[HKEY_LOCAL_MACHINE\\SOFTWARE\\Firma]\r\n"
                                              u"\"Nur64\"=\"C:\\\\Office\"\r\n\r\n");
}

TEST_F(CollectorTest, PictureAndHelpAreAskedForToo) {
    const auto texts =
        Collect({{kFieldHCID, u"7"}, {kFieldPicFilename, u"Bild.bmp"}, {kFieldPicDelay, u"300"}});
    EXPECT_EQ(texts.at(u"Kunden.pc"),
              std::u16string(kStart) +
                  u"Bit = 32\r\n"
                  u"Windows = 6.1\r\n"
                  u"Codepage = 1252\r\n"
                  u"Fehlt = HKLM\\SOFTWARE\\Microsoft\\Office\\8.0\\Common\\InstallRoot\\OfficeBin"
                  u"\r\n"
                  u"Fehlt = C:\\Kunden\\Kunden.chm\r\n"
                  u"Fehlt = C:\\Kunden\\Kunden.hlp\r\n"
                  u"Fehlt = C:\\Kunden\\Bild.bmp\r\n");
}

TEST_F(CollectorTest, PlacesWhereAccessMayBeAreAskedForToo) {
    pc.registry.SetTextZ(kHKeyLocalMachine, u"SOFTWARE\\Office\\16.0", u"Path", "C:\\Office16\\");
    pc.files.AddFile(u"C:\\Office16\\msaccess.exe");
    const auto texts =
        Collect({{kFieldAccPath, u"C:\\Office"}},
                {u"HKLM\\SOFTWARE\\Office\\15.0\\Path", u"HKLM\\SOFTWARE\\Office\\16.0\\Path"});
    EXPECT_TRUE(texts.at(u"Kunden.pc")
                    .ends_with(u"Datei = C:\\Office16\\msaccess.exe\r\n"
                               u"Fehlt = HKLM\\SOFTWARE\\Office\\15.0\\Path\r\n"
                               u"Fehlt = C:\\Office\\msaccess.exe\r\n"
                               u"Fehlt = C:\\Kunden\\Kunden.mdb\r\n"
                               u"Fehlt = C:\\Kunden\\Kunden.mde\r\n"
                               u"Fehlt = C:\\Kunden\\Kunden.mda\r\n"))
        << text::ToUtf8(texts.at(u"Kunden.pc"));
    EXPECT_EQ(texts.at(u"Kunden.reg"), std::u16string(kRegStart) +
                                           u"[HKEY_LOCAL_MACHINE\\SOFTWARE\\Office\\16.0]\r\n"
                                           u"\"Path\"=\"C:\\\\Office16\\\\\"\r\n\r\n");
}

TEST_F(CollectorTest, TextThatCannotStandBetweenQuotesIsWrittenByteByByte) {
    pc.registry.SetText(kHKeyCurrentUser, u"A\\B", u"ohne \"Ende\"", " x");
    pc.registry.SetTextZ(kHKeyCurrentUser, u"A\\B", u"Zeile", "\x84\n");
    const auto texts = Collect({{kAccRegList.Field(1), u"HKCU\\A\\B\\ohne \"Ende\""},
                                {kAccRegList.Field(2), u"HKCU\\A\\B\\Zeile"}});
    EXPECT_EQ(texts.at(u"Kunden.reg"), std::u16string(kRegStart) +
                                           u"[HKEY_CURRENT_USER\\A\\B]\r\n"
                                           u"\"ohne \\\"Ende\\\"\"=hex(1):20,00,78,00\r\n"
                                           u"\"Zeile\"=hex(1):1E,20,0A,00,00,00\r\n\r\n");
}

TEST_F(CollectorTest, ValueOfAnotherTypeIsNotThere) {
    pc.registry.SetOther(kHKeyCurrentUser, u"A\\B", u"Zahl");
    const auto texts = Collect({{kAccRegList.Field(1), u"HKCU\\A\\B\\Zahl"}});
    EXPECT_EQ(texts.size(), 1u);
    EXPECT_TRUE(texts.at(u"Kunden.pc").ends_with(u"Fehlt = HKCU\\A\\B\\Zahl\r\n"));
}

TEST_F(CollectorTest, NameThatNoFileCanHaveIsLeftOut) {
    const auto texts = Collect({{kFieldAccPath, u"C:\\Off?ce"}, {kFieldDBFilename, u"x.mdb"}});
    EXPECT_TRUE(
        texts.at(u"Kunden.pc").ends_with(u"Codepage = 1252\r\nFehlt = C:\\Kunden\\x.mdb\r\n"));
}

TEST_F(CollectorTest, FolderThatWasTakenForAFileIsNotCalledMissing) {
    pc.files.AddFile(u"C:\\Kunden\\Daten\\System.mdw");
    const auto texts = Collect({{kFieldAccPath, u"C:\\Office"},
                                {kFieldDBFilename, u"Daten"},
                                {kFieldSysDBPath, u"Daten"},
                                {kFieldSysDBFilename, u"System.mdw"}});
    EXPECT_TRUE(texts.at(u"Kunden.pc")
                    .ends_with(u"Codepage = 1252\r\n"
                               u"Datei = C:\\Kunden\\Daten\\System.mdw\r\n"
                               u"Fehlt = C:\\Office\\msaccess.exe\r\n"));
}

TEST_F(CollectorTest, CredentialsAreInNoFile) {
    pc.files.AddFile(u"C:\\Office\\msaccess.exe");
    pc.files.AddFile(u"C:\\Kunden\\Kunden.mdb");
    for (const auto& [name, text] : Collect({{kFieldAccPath, u"C:\\Office"},
                                             {kFieldUser, u"Geheimrat"},
                                             {kFieldPwd, u"Geheimnis"},
                                             {kFieldEditPwd, u"Geheimfach"},
                                             {kFieldCmd, u"Geheimauftrag"}})) {
        EXPECT_EQ(text.find(u"Geheim"), std::u16string::npos) << text::ToUtf8(name);
    }
}

TEST_F(CollectorTest, NothingIsWrittenOnTheComputer) {
    pc.files.AddFile(u"C:\\Office\\msaccess.exe");
    pc.files.AddFile(u"C:\\Kunden\\Kunden.mdb");
    Collect({{kFieldAccPath, u"C:\\Office"}, {kFieldLog, u"1"}});
    for (const std::u16string& call : pc.files.log) {
        EXPECT_TRUE(call.starts_with(u"exists ")) << text::ToUtf8(call);
    }
}

}  // namespace
}  // namespace tarvex
