#include "window/preview/PreviewRun.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "branding/BrandFields.h"
#include "configurator/program/ProgramFields.h"
#include "simulation/LauncherRun.h"
#include "tests/simulation/CollectedWorld.h"
#include "tests/support/FakeBrandConstants.h"
#include "tests/support/FakeFileStore.h"
#include "tests/support/IconBytes.h"
#include "text/Text.h"

namespace tarvex {
namespace {

/// A launcher C:\Kunden\Kunden.exe that does not exist yet, on a computer with Access.
class PreviewRunTest : public testing::Test {
protected:
    PreviewRunTest() {
        pc.files.AddFile(u"C:\\Office\\msaccess.exe");
        request.program = u"C:\\Kunden\\Kunden.exe";
        Set(kFieldAccPath, u"C:\\Office");
        Set(kFieldDBPath, u"Daten");
        Set(kFieldDBFilename, u"Kunden.mdb");
    }

    void Set(std::int32_t number, std::u16string_view value) {
        request.settings.Set(number, value);
    }

    /// The request is about a computer that is described so.
    void Describe(std::u16string_view lines) {
        described.AddFile(u"D:\\pcs\\Kasse.pc", text::ToUtf8(u"[PC]\r\n" + std::u16string(lines)));
        request.pc = u"D:\\pcs\\Kasse.pc";
    }

    PreviewResult Run() {
        PreviewServices services{store, codec, hasPc ? &pc : nullptr};
        return RunPreview(request, services);
    }

    /// Where the entry in the field leads, with "+" after it when the file is there.
    std::string Answer(const KeyListFields& list, std::int32_t position, std::size_t part = 0) {
        const PreviewResult result = Run();
        const std::u16string_view value = request.settings.Value(list.Field(position));
        const std::u16string entry = text::SplitList(value, u"%|%").at(part);
        const auto found = result.entries.find({list.first, entry});
        return found == result.entries.end()
                   ? "keine Antwort"
                   : text::ToUtf8(found->second.text) + (found->second.exists ? "+" : "");
    }

    PreviewRequest request;
    FakeThisPc pc;
    bool hasPc = true;
    FakeBinaryFiles described;
    FakeFileStore store{described};
    TextCodec1252 codec;
};

TEST_F(PreviewRunTest, StartShowsTheMaskedCommandLine) {
    pc.files.AddFile(u"C:\\Kunden\\Daten\\Kunden.mdb");
    Set(kFieldUser, u"Meier");
    Set(kFieldPwd, u"Geheim");
    const PreviewResult result = Run();
    EXPECT_TRUE(result.starts);
    EXPECT_EQ(result.commandLine,
              u"\"C:\\Office\\msaccess.exe\" \"C:\\Kunden\\Daten\\Kunden.mdb\" /user \"XXXX\" /pwd "
              u"\"YYYY\"");
    EXPECT_TRUE(result.remarks.empty());
}

TEST_F(PreviewRunTest, IconFileThatIsTypedIsReadAndChecked) {
    const auto iconFindings = [this] {
        std::vector<std::string> lines;
        const PreviewResult result = Run();
        for (const Finding& finding : result.findings) {
            if (finding.problem.field == u"IconFile") {
                lines.push_back(text::ToUtf8(FindingLine(finding)));
            }
        }
        return lines;
    };
    Set(kFieldIconFile, u"Kunden.ico");
    EXPECT_EQ(iconFindings(), (std::vector<std::string>{"IconFile: Fehler: Kunden.ico: Die Datei "
                                                        "ist nicht vorhanden. [icon-file]"}));
    described.AddFile(u"C:/Kunden/Kunden.ico",
                      IconBytes({BitmapImage(16, 16), BitmapImage(32, 32), BitmapImage(48, 48)}));
    EXPECT_EQ(iconFindings(), std::vector<std::string>());
    request.settings.SetIcon(IconBytes({BitmapImage(32, 32), BitmapImage(48, 48)}));
    EXPECT_EQ(iconFindings().size(), 1U);
}

TEST_F(PreviewRunTest, TextIsThatOfTheDryRunOfALauncherWithTheSettings) {
    Set(kFieldIconFile, u"Kunden.ico");
    FakeBrandConstants::Values values;
    for (const auto& [number, entry] : request.settings.Entries()) {
        if (!IsProgramField(number)) {
            values[number] = entry.value;
        }
    }
    const FakeBrandConstants constants(values);
    LauncherRun run(constants,
                    {pc.registry, pc.files, pc.codec, codec, {u"C:\\Kunden", u"Kunden", {}}});
    const std::u16string expected = run.Run().text;
    EXPECT_TRUE(expected.starts_with(u"Das Startprogramm würde"));
    EXPECT_EQ(Run().text, expected);
}

TEST_F(PreviewRunTest, FailedStartShowsTheFirstLineOfItsError) {
    const PreviewResult result = Run();
    EXPECT_FALSE(result.starts);
    EXPECT_EQ(result.commandLine,
              u"Die Datenbank 'C:\\Kunden\\Daten\\Kunden.mdb' ist nicht vorhanden.");
}

TEST_F(PreviewRunTest, RelativePathsOfTheRegistryBeginInTheLaunchersFolder) {
    pc.files.AddFile(u"C:\\Kunden\\Daten\\Kunden.mdb");
    pc.registry.SetTextZ(kHKeyCurrentUser, u"Software\\Firma", u"Pfad", "Daten");
    Set(kDBRegList.Field(1), u"HKCU\\Software\\Firma\\Pfad%|Filename%|Kunden.mdb");
    const PreviewResult result = Run();
    EXPECT_EQ(result.commandLine, u"\"C:\\Office\\msaccess.exe\" \"Daten\\Kunden.mdb\"");
    EXPECT_EQ(pc.files.currentFolder, u"C:\\Aktuell");
}

TEST_F(PreviewRunTest, LauncherThatDoesNotExistYetCountsAsThere) {
    Set(kFieldDBPath, u".");
    Set(kFieldDBFilename, u"kunden.EXE");
    EXPECT_TRUE(Run().starts);
}

TEST_F(PreviewRunTest, FindingsLookAtTheFilesBesideTheLauncher) {
    Set(kFieldPicFilename, u"Bild.gif");
    const PreviewResult result = Run();
    const bool found =
        std::any_of(result.findings.begin(), result.findings.end(), [](const Finding& finding) {
            return finding.id == u"picture-type" && finding.problem.field == u"PicFilename";
        });
    EXPECT_TRUE(found);
}

TEST_F(PreviewRunTest, ValueThatItsFieldCannotHoldIsARemark) {
    Set(kFieldFileID, u"12345678901");
    EXPECT_EQ(Run().remarks,
              (std::vector<std::u16string>{
                  u"FileID: Der Wert ist zu lang: Er braucht 11 Zeichen, das Feld fasst 10."}));
}

TEST_F(PreviewRunTest, NoPreviewOfThisPcWhereNoLauncherRuns) {
    hasPc = false;
    const PreviewResult result = Run();
    EXPECT_FALSE(result.starts);
    EXPECT_EQ(result.commandLine, u"Eine Vorschau auf diesem PC gibt es nur unter Windows.");
    EXPECT_EQ(result.text, u"");
}

TEST_F(PreviewRunTest, DescribedPcAnswersFromItsDescription) {
    hasPc = false;
    Describe(
        u"Startprogramm = E:\\Programm\\Kasse.exe\r\nDatei = C:\\Office\\msaccess.exe\r\n"
        u"Datei = E:\\Programm\\Daten\\Kunden.mdb\r\n");
    const PreviewResult result = Run();
    EXPECT_TRUE(result.starts);
    EXPECT_EQ(result.commandLine,
              u"\"C:\\Office\\msaccess.exe\" \"E:\\Programm\\Daten\\Kunden.mdb\"");
    EXPECT_TRUE(result.text.starts_with(u"Das Startprogramm würde"));
    EXPECT_TRUE(result.remarks.empty());
}

TEST_F(PreviewRunTest, WhatIsNotDescribedIsARemarkAndNoCertainStart) {
    Set(kFieldDBPath, u"");
    Set(kFieldDBFilename, u"");
    Describe(
        u"Startprogramm = E:\\Kasse.exe\r\nDatei = C:\\Office\\msaccess.exe\r\nFehlt = "
        u"E:\\Kasse.mdb\r\nFehlt = E:\\Kasse.mde\r\n");
    const PreviewResult result = Run();
    EXPECT_FALSE(result.starts);
    EXPECT_EQ(result.commandLine, u"\"C:\\Office\\msaccess.exe\"");
    EXPECT_EQ(result.remarks,
              (std::vector<std::u16string>{
                  u"Nicht beschrieben und darum als nicht vorhanden behandelt: E:\\Kasse.mda"}));
}

TEST_F(PreviewRunTest, ExpectationThatIsNotMetIsARemark) {
    Describe(
        u"Startprogramm = E:\\Programm\\Kasse.exe\r\nDatei = C:\\Office\\msaccess.exe\r\n"
        u"Fehlt = E:\\Programm\\Daten\\Kunden.mdb\r\n[Erwartet]\r\nErgebnis = Start\r\n");
    EXPECT_EQ(Run().remarks,
              (std::vector<std::u16string>{u"Ergebnis: erwartet Start, tatsächlich Fehler 5"}));
}

TEST_F(PreviewRunTest, DescriptionThatCannotBeReadIsTold) {
    Describe(u"Unsinn = 1\r\n");
    const PreviewResult result = Run();
    EXPECT_EQ(result.commandLine, u"Die Beschreibung des PCs kann nicht verwendet werden.");
    ASSERT_FALSE(result.remarks.empty());
    EXPECT_EQ(
        result.remarks.front(),
        u"D:\\pcs\\Kasse.pc, Zeile 2: Unbekannter Name 'Unsinn'; gemeint ist vielleicht Bit.");
}

TEST_F(PreviewRunTest, EntryLeadsToAFile) {
    pc.files.AddFile(u"C:\\Daten\\Kunden.mdb");
    pc.registry.SetTextZ(kHKeyLocalMachine, u"SOFTWARE\\Firma", u"Pfad", "C:\\Daten");
    Set(kDBRegList.Field(1), u"HKLM\\SOFTWARE\\Firma\\Pfad%|Filename%|Kunden.mdb");
    Set(kDBRegList.Field(2), u"HKLM\\SOFTWARE\\Firma\\Pfad%|Filename%|Alt.mdb");
    Set(kDBRegList.Field(4), u"HKLM\\SOFTWARE\\Firma\\Fehlt%|Filename%|Kunden.mdb");
    EXPECT_EQ(Answer(kDBRegList, 1), "C:\\Daten\\Kunden.mdb – vorhanden+");
    EXPECT_EQ(Answer(kDBRegList, 2), "C:\\Daten\\Alt.mdb – nicht vorhanden");
    EXPECT_EQ(Answer(kDBRegList, 4), "Der Schlüssel oder Wert fehlt oder ist leer.");
    EXPECT_EQ(Run().entries.size(), 3u);
}

TEST_F(PreviewRunTest, EntriesOfEveryListAreReadByItsOwnRule) {
    pc.files.AddFile(u"C:\\Daten\\Bild.bmp");
    pc.registry.SetTextZ(kHKeyLocalMachine, u"SOFTWARE\\Firma", u"Office", "C:\\Office");
    pc.registry.SetTextZ(kHKeyLocalMachine, u"SOFTWARE\\Firma", u"Daten", "C:\\Daten");
    Set(kAccRegList.Field(10), u"HKLM\\SOFTWARE\\Firma\\Office");
    Set(kDBRegList.Field(10), u"HKLM\\SOFTWARE\\Firma\\Office");
    Set(kSysDBRegList.Field(1), u"HKLM\\SOFTWARE\\Firma\\Daten%|Filename%|System.mdw");
    Set(kPicRegList.Field(1), u"HKLM\\SOFTWARE\\Firma\\Daten%|Filename%|Bild.bmp");
    Set(kPicRegList.Field(2), u"HKLM\\SOFTWARE\\Firma\\Daten%|Filename%|Bild.gif");
    EXPECT_EQ(Answer(kAccRegList, 10), "C:\\Office\\msaccess.exe – vorhanden+");
    EXPECT_EQ(Answer(kDBRegList, 10), "C:\\Office – nicht vorhanden");
    EXPECT_EQ(Answer(kSysDBRegList, 1), "C:\\Daten\\System.mdw – nicht vorhanden");
    EXPECT_EQ(Answer(kPicRegList, 1), "C:\\Daten\\Bild.bmp – vorhanden+");
    EXPECT_EQ(Answer(kPicRegList, 2), "Fehler: Dateiname ist unzulässig");
}

TEST_F(PreviewRunTest, EveryEntryOfADividedFieldIsAnswered) {
    pc.registry.SetTextZ(kHKeyLocalMachine, u"SOFTWARE\\Firma", u"Office", "C:\\Office");
    Set(kAccRegList.Field(1),
        u"HKLM\\SOFTWARE\\Firma\\Fehlt%|% HKLM\\SOFTWARE\\Firma\\Office %|%Unsinn");
    EXPECT_EQ(Answer(kAccRegList, 1, 0), "Der Schlüssel oder Wert fehlt oder ist leer.");
    EXPECT_EQ(Answer(kAccRegList, 1, 1), "C:\\Office\\msaccess.exe – vorhanden+");
    EXPECT_EQ(Answer(kAccRegList, 1, 2), "Der Eintrag nennt keinen Registrierungswert.");
}

TEST_F(PreviewRunTest, EntryIsUnknownWhereTheDescriptionIsSilent) {
    described.AddFile(u"D:\\pcs\\Kasse.reg",
                      "Windows Registry Editor Version 5.00\r\n\r\n[HKEY_CURRENT_USER\\Software\\"
                      "Firma]\r\n\"Pfad\"=\"C:\\\\Daten\"\r\n");
    Describe(
        u"Startprogramm = E:\\Programm\\Kasse.exe\r\nRegistrierung = Kasse.reg\r\nDatei = "
        u"C:\\Daten\\b.mdb\r\nFehlt = C:\\Daten\\c.mdb\r\n");
    Set(kDBRegList.Field(1), u"HKCU\\Software\\Firma\\Pfad%|Filename%|a.mdb");
    Set(kDBRegList.Field(2), u"HKCU\\Software\\Firma\\Pfad%|Filename%|b.mdb");
    Set(kDBRegList.Field(3), u"HKCU\\Software\\Firma\\Pfad%|Filename%|c.mdb");
    Set(kDBRegList.Field(4), u"HKCU\\Software\\Andere\\Pfad%|Filename%|a.mdb");
    EXPECT_EQ(Answer(kDBRegList, 1), "C:\\Daten\\a.mdb – unbekannt (nicht beschrieben)");
    EXPECT_EQ(Answer(kDBRegList, 2), "C:\\Daten\\b.mdb – vorhanden+");
    EXPECT_EQ(Answer(kDBRegList, 3), "C:\\Daten\\c.mdb – nicht vorhanden");
    EXPECT_EQ(Answer(kDBRegList, 4), "unbekannt (nicht beschrieben)");
}

/// All texts of a result, one after the other.
std::u16string Everything(const PreviewResult& result) {
    std::u16string all = result.commandLine + u"\n" + result.text;
    for (const std::u16string& remark : result.remarks) {
        all += u"\n" + remark;
    }
    for (const Finding& finding : result.findings) {
        all += u"\n" + FindingLine(finding);
    }
    for (const auto& [entry, answer] : result.entries) {
        all += u"\n" + answer.text;
    }
    return all;
}

TEST_F(PreviewRunTest, CredentialsAreInNoText) {
    Set(kFieldUser, u"Geheim \"rat\" ;x");
    Set(kFieldPwd, u"Geheim/nis");
    Set(kFieldEditPwd, u"Geheim fach");
    EXPECT_EQ(Everything(Run()).find(u"Geheim"), std::u16string::npos);
    pc.files.AddFile(u"C:\\Kunden\\Daten\\Kunden.mdb");
    EXPECT_EQ(Everything(Run()).find(u"Geheim"), std::u16string::npos);
    Set(kFieldPwd, u"Geheim" + std::u16string(100, u'x'));
    EXPECT_EQ(Everything(Run()).find(u"Geheim"), std::u16string::npos);
    Describe(
        u"Startprogramm = E:\\Programm\\Kasse.exe\r\nDatei = C:\\Office\\msaccess.exe\r\n"
        u"Vollständig = *\r\n[Erwartet]\r\nErgebnis = Start\r\nBefehlszeile = x /pwd "
        u"\"Geheim\"\r\n");
    EXPECT_EQ(Everything(Run()).find(u"Geheim"), std::u16string::npos);
}

}  // namespace
}  // namespace tarvex
