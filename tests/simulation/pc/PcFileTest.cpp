#include "simulation/pc/PcFile.h"

#include <gtest/gtest.h>

#include "branding/BrandMark.h"
#include "simulation/pc/PcDescription.h"
#include "tests/simulation/SimulationTexts.h"
#include "tests/support/FakeBinaryFiles.h"
#include "tests/support/FakeFileStore.h"
#include "text/Text.h"

namespace tarvex {
namespace {

constexpr std::u16string_view kStart = u"[PC]\nStartprogramm = C:\\Kunden\\Kunden.exe\n";

class PcFileTest : public testing::Test {
protected:
    void AddFile(std::u16string_view path, std::string bytes) {
        files_.AddFile(path, std::move(bytes));
    }
    ReadPc Read(std::u16string_view text, std::u16string_view path = u"fall/a.pc") {
        return ReadBytes(text::ToUtf8(text), path);
    }
    ReadPc ReadBytes(std::string bytes, std::u16string_view path = u"fall/a.pc") {
        files_.AddFile(path, std::move(bytes));
        return ReadPcFile(store_, path);
    }
    /// The description of a file that begins with kStart.
    PcDescription Pc(std::u16string_view more) {
        const ReadPc read = Read(std::u16string(kStart).append(more));
        EXPECT_EQ(ProblemLines(read.problems), Texts());
        return read.file ? read.file->pc.Description() : PcDescription();
    }
    Expectation Expected(std::u16string_view more) {
        const ReadPc read = Read(std::u16string(kStart).append(more));
        EXPECT_EQ(ProblemLines(read.problems), Texts());
        return read.file ? read.file->expectation : Expectation();
    }
    /// The problems of a file that begins with kStart; its third line is the first of `more`.
    Texts ProblemsOf(std::u16string_view more) {
        const ReadPc read = Read(std::u16string(kStart).append(more));
        EXPECT_EQ(read.file.has_value(), read.problems.empty());
        return ProblemLines(read.problems);
    }

    FakeBinaryFiles files_;
    FakeFileStore store_{files_};
};

TEST_F(PcFileTest, StartProgramAloneDescribesA64BitWindows10InItsFolder) {
    const ReadPc read = Read(kStart);
    EXPECT_EQ(ProblemLines(read.problems), Texts());
    ASSERT_TRUE(read.file);
    EXPECT_EQ(read.file->name, u"a.pc");
    EXPECT_FALSE(read.file->expectation.given);
    const PcDescription& pc = read.file->pc.Description();
    EXPECT_EQ(pc.program, u"C:\\Kunden\\Kunden.exe");
    EXPECT_TRUE(pc.is64Bit);
    EXPECT_EQ(pc.windows, (WindowsVersion{10, 0}));
    EXPECT_EQ(pc.codePage, 1252);
    EXPECT_TRUE(read.file->pc.Files().FileExists(u"Kunden.exe"));
    EXPECT_EQ(read.file->pc.Program().folder, u"C:\\Kunden");
    EXPECT_EQ(read.file->pc.Program().exeName, u"Kunden");
    EXPECT_EQ(read.file->pc.Program().arguments, u"");
}

TEST_F(PcFileTest, SimpleValuesAreTaken) {
    const PcDescription pc =
        Pc(u"Bit = 32\nWindows = 5.1\nCodepage = 1252\nDatei = D:\\x.mdb\nDatei = D:\\y.mdb\n"
           u"Fehlt = HKLM\\SOFTWARE\\X\\Pfad\nFehlt = D:\\z.mdb\nVollständig = C:\\Kunden\n"
           u"Vollständig = HKCU\\Software\nVollständig = *\nArbeitsordner = d:/Arbeit/\n");
    EXPECT_FALSE(pc.is64Bit);
    EXPECT_EQ(pc.windows, (WindowsVersion{5, 1}));
    EXPECT_EQ(pc.files, Texts({u"D:\\x.mdb", u"D:\\y.mdb"}));
    EXPECT_EQ(pc.missing, Texts({u"HKLM\\SOFTWARE\\X\\Pfad", u"D:\\z.mdb"}));
    EXPECT_EQ(pc.complete, Texts({u"C:\\Kunden", u"HKCU\\Software", u"*"}));
    EXPECT_EQ(pc.currentFolder, u"d:\\Arbeit");
}

TEST_F(PcFileTest, SwitchesAreTheLaunchersCommandLine) {
    const ReadPc read = Read(std::u16string(kStart) + u"Schalter = /Compact /D x\n");
    ASSERT_TRUE(read.file);
    EXPECT_EQ(read.file->pc.Program().arguments, u"/Compact /D x");
    EXPECT_EQ(Pc(u"Schalter =\n").switches, u"");
}

TEST_F(PcFileTest, NamesAndSectionsCountInAnyCaseAndOrderAndCommentsSayNothing) {
    const ReadPc read = Read(
        u"; Kommentar\r\n# noch einer\r\n[ERWARTET]\r\nergebnis = start\r\n\r\n \t\r\n[pc]\r\n"
        u"STARTPROGRAMM\t=\tC:\\a.exe\t\r\nvollSTÄNDIG = *\r\n");
    EXPECT_EQ(ProblemLines(read.problems), Texts());
    ASSERT_TRUE(read.file);
    EXPECT_EQ(read.file->pc.Description().program, u"C:\\a.exe");
    EXPECT_EQ(read.file->expectation.result, u"Start");
}

TEST_F(PcFileTest, FileIsReadInUtf8AndUtf16) {
    const std::u16string text = std::u16string(kStart) + u"Vollständig = C:\\Größe\n";
    for (const std::string& bytes : {text::ToUtf8(text), "\xEF\xBB\xBF" + text::ToUtf8(text),
                                     "\xFF\xFE" + ToUtf16Bytes(text)}) {
        const ReadPc read = ReadBytes(bytes);
        EXPECT_EQ(ProblemLines(read.problems), Texts());
        ASSERT_TRUE(read.file);
        EXPECT_EQ(read.file->pc.Description().complete, Texts({u"C:\\Größe"}));
    }
}

TEST_F(PcFileTest, FilesAreLookedForBesideTheDescription) {
    AddFile(u"fall/reg/firma.reg", "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\A]\n\"x\"=\"1\"\n");
    AddFile(u"fall/a32.reg", "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\B]\n\"x\"=\"2\"\n");
    AddFile(u"/listen/dateien.txt", "D:\\x.mdb\n");
    const ReadPc read = Read(std::u16string(kStart) +
                             u"Registrierung = reg\\firma.reg\nRegistrierung32 = a32.reg\n"
                             u"Dateien = /listen/dateien.txt\nBit = 64\n");
    EXPECT_EQ(ProblemLines(read.problems), Texts());
    ASSERT_TRUE(read.file);
    const DescribedPc& pc = read.file->pc;
    EXPECT_TRUE(pc.Files().FileExists(u"D:\\x.mdb"));
    EXPECT_EQ(pc.RegistryView().ReadText(kHKeyLocalMachine, u"SOFTWARE\\A", u"x"),
              std::string("1\0", 2));
    ASSERT_EQ(pc.Description().registry.size(), 2U);
    EXPECT_FALSE(pc.Description().registry[0].of32BitView);
    EXPECT_TRUE(pc.Description().registry[1].of32BitView);
}

TEST_F(PcFileTest, FolderOfTheDescriptionMayBeNamedAsOnWindows) {
    AddFile(u"C:\\fall\\a.reg", "REGEDIT4\n");
    const ReadPc read =
        Read(std::u16string(kStart) + u"Registrierung = a.reg\n", u"C:\\fall\\b.pc");
    EXPECT_EQ(ProblemLines(read.problems), Texts());
    ASSERT_TRUE(read.file);
    EXPECT_EQ(read.file->name, u"b.pc");
}

TEST_F(PcFileTest, ExpectedTextsAreTaken) {
    AddFile(u"fall/erwartet.txt", text::ToUtf8(u"Größe\nzwei\r\n"));
    const Expectation expected = Expected(
        u"[Erwartet]\nErgebnis = Fehler  011\nAccess = C:\\A.EXE\nDatenbank =\n"
        u"Befehlszeile = \"C:\\A.EXE\" /cmd a ;b\nProtokoll = erwartet.txt\n");
    EXPECT_TRUE(expected.given);
    EXPECT_EQ(expected.result, u"Fehler 11");
    EXPECT_EQ(expected.access, u"C:\\A.EXE");
    EXPECT_EQ(expected.database, u"");
    EXPECT_EQ(expected.commandLine, u"\"C:\\A.EXE\" /cmd a ;b");
    EXPECT_EQ(expected.protocol, u"Größe\r\nzwei\r\n");
    EXPECT_EQ(Expected(u"[Erwartet]\nErgebnis = Unbestimmt\n").result, u"unbestimmt");
    EXPECT_EQ(Expected(u"[Erwartet]\nErgebnis = Start\n").access, std::nullopt);
}

TEST_F(PcFileTest, AnsiTextsOfTheComputerAreOfItsCodePage) {
    AddFile(u"fall/a.reg", "REGEDIT4\n\n[HKEY_CURRENT_USER\\X]\n\"a\"=\"\xA5\"\n");
    const ReadPc read = Read(std::u16string(kStart) + u"Registrierung = a.reg\nCodepage = 1250\n");
    EXPECT_EQ(ProblemLines(read.problems), Texts());
    ASSERT_TRUE(read.file);
    EXPECT_EQ(read.file->pc.Codec().FromAnsi("\xA5"), u"\x104");
    EXPECT_EQ(read.file->pc.Description().registry.at(0).keys.at(0).values.at(0).data,
              std::string("\x04\x01\0\0", 4));
    EXPECT_EQ(read.file->pc.RegistryView().ReadText(kHKeyCurrentUser, u"X", u"a"),
              std::string("\xA5\0", 2));
}

TEST_F(PcFileTest, LogFileOfTheLauncherIsATextOfItsCodePage) {
    AddFile(u"fall/k.log",
            "Gr\xF6\xDF"
            "e\r\n");
    EXPECT_EQ(Expected(u"[Erwartet]\nProtokoll = k.log\n").protocol, u"Größe\r\n");
}

TEST_F(PcFileTest, MissingStartProgramIsAnErrorOfTheSection) {
    EXPECT_EQ(ProblemLines(Read(u"\n[PC]\nBit = 64\n").problems),
              Texts({u"fall/a.pc, Zeile 2, Startprogramm: Die Angabe fehlt."}));
}

TEST_F(PcFileTest, StartProgramWithoutAFullPathIsAnError) {
    for (const std::u16string_view value :
         {u"Kunden.exe", u"C:Kunden.exe", u"\\Kunden.exe", u"C:\\", u"C:\\Kunden\\", u"C:\\K*.exe",
          u"\"C:\\Kunden.exe\""}) {
        EXPECT_EQ(ProblemLines(Read(u"[PC]\nStartprogramm = " + std::u16string(value)).problems),
                  Texts({u"fall/a.pc, Zeile 2, Startprogramm: '" + std::u16string(value) +
                         u"' ist kein vollständiger Pfad einer Datei."}));
    }
}

struct BadLine {
    std::u16string_view line;
    std::u16string_view problem;  // after "fall/a.pc, Zeile 3"
};

TEST_F(PcFileTest, WrongLineIsAnErrorWithFileLineAndName) {
    const BadLine table[] = {
        {u"Bit = 16", u", Bit: Erlaubt ist 32 oder 64, nicht '16'."},
        {u"Bit = 64 ; Kommentar", u", Bit: Erlaubt ist 32 oder 64, nicht '64 ; Kommentar'."},
        {u"Windows = 11",
         u", Windows: Erlaubt ist eine von 5.0, 5.1, 5.2, 6.0, 6.1, 6.2, 6.3, 10.0 (auch Windows "
         u"11), nicht '11'."},
        {u"Codepage = 850", u", Codepage: Erlaubt sind 874 und 1250 bis 1258, nicht '850'."},
        {u"Codepage = 99999999999",
         u", Codepage: Erlaubt sind 874 und 1250 bis 1258, nicht '99999999999'."},
        {u"Codepage = -1252", u", Codepage: Erlaubt sind 874 und 1250 bis 1258, nicht '-1252'."},
        {u"Bit =", u", Bit: Der Wert fehlt."},
        {u"Startprogramm = D:\\b.exe",
         u", Startprogramm: Der Name kommt doppelt vor, zuerst in Zeile 2."},
        {u"Dateie = D:\\b.exe", u": Unbekannter Name 'Dateie'; gemeint ist vielleicht Dateien."},
        {u"Registrirung = x",
         u": Unbekannter Name 'Registrirung'; gemeint ist vielleicht "
         u"Registrierung."},
        {u"Vollstaendig = *",
         u": Unbekannter Name 'Vollstaendig'; gemeint ist vielleicht "
         u"Vollständig."},
        {u"Ergebnis = Start", u": 'Ergebnis' gehört in den Abschnitt [Erwartet]."},
        {u"= x", u": Unbekannter Name ''; gemeint ist vielleicht Bit."},
        {u"D:\\x.mdb", u": Die Zeile ist weder 'Name = Wert' noch Abschnitt oder Kommentar."},
        {u" Datei = D:\\x.mdb",
         u": Die Zeile ist eingerückt; hier hat kein Wert mehr als eine Zeile."},
        {u"[PC", u": Die Abschnittszeile endet nicht mit ']'."},
        {u"[Erwartung]",
         u": Den Abschnitt [Erwartung] gibt es hier nicht; es gibt [PC] und [Erwartet]."},
        {u"[pc]", u": Der Abschnitt kommt doppelt vor, zuerst in Zeile 1."},
        {u"Datei = x.mdb", u", Datei: 'x.mdb' ist kein vollständiger Pfad."},
        {u"Datei = C:\\*.mdb",
         u", Datei: 'C:\\*.mdb' ist kein Pfad, den es unter Windows geben kann."},
        {u"Datei = D:\\x.mdb  ; die zweite",
         u", Datei: Nach dem Wert steht ein Kommentar; Kommentare haben eigene Zeilen."},
        {u"Fehlt = HKLX\\X\\a", u", Fehlt: 'HKLX\\X\\a' ist kein vollständiger Pfad."},
        {u"Fehlt = HKLM", u", Fehlt: 'HKLM' ist kein vollständiger Pfad."},
        {u"Vollständig = **", u", Vollständig: '**' ist kein vollständiger Pfad."},
        {u"Arbeitsordner = Kunden",
         u", Arbeitsordner: 'Kunden' ist kein vollständiger Pfad eines Ordners."},
        {u"Registrierung = b.reg", u", Registrierung: b.reg: Die Datei ist nicht vorhanden."},
        {u"Dateien = b.txt", u", Dateien: b.txt: Die Datei ist nicht vorhanden."},
        {u"[Erwartet]", u": Der Abschnitt [Erwartet] ist leer."},
    };
    for (const BadLine& bad : table) {
        EXPECT_EQ(ProblemsOf(bad.line),
                  Texts({u"fall/a.pc, Zeile 3" + std::u16string(bad.problem)}))
            << text::ToUtf8(bad.line);
    }
}

TEST_F(PcFileTest, WrongExpectationIsAnError) {
    for (const std::u16string_view value :
         {u"ok", u"Fehler", u"Fehler x", u"Fehler -1", u"Fehler 99999999999", u"Start!"}) {
        EXPECT_EQ(ProblemsOf(u"[Erwartet]\nErgebnis = " + std::u16string(value)),
                  Texts({u"fall/a.pc, Zeile 4, Ergebnis: Erlaubt sind 'Start', 'Fehler' mit einer "
                         u"Nummer und 'unbestimmt', nicht '" +
                         std::u16string(value) + u"'."}));
    }
    EXPECT_EQ(ProblemsOf(u"[Erwartet]\nBit = 32\n"),
              Texts({u"fall/a.pc, Zeile 4: 'Bit' gehört in den Abschnitt [PC].",
                     u"fall/a.pc, Zeile 3: Der Abschnitt [Erwartet] ist leer."}));
    EXPECT_EQ(ProblemsOf(u"[Erwartet]\nProtokoll = x.txt\n"),
              Texts({u"fall/a.pc, Zeile 4, Protokoll: x.txt: Die Datei ist nicht vorhanden."}));
}

TEST_F(PcFileTest, ValueBeforeTheFirstSectionIsAnError) {
    EXPECT_EQ(ProblemLines(Read(u"Bit = 32\n" + std::u16string(kStart)).problems),
              Texts({u"fall/a.pc, Zeile 1: Vor der Zeile fehlt der Abschnitt, [PC] oder "
                     u"[Erwartet]."}));
}

TEST_F(PcFileTest, LinesOfAWrongSectionAreNotErrorsThemselves) {
    EXPECT_EQ(ProblemsOf(u"[Sonst]\nx = 1\n").size(), 1U);
}

TEST_F(PcFileTest, ErrorsInNamedFilesNameThem) {
    AddFile(u"fall/b.reg", "REGEDIT4\n\nx\n");
    AddFile(u"fall/b.txt", "C:\\a\nC:\\?\n");
    EXPECT_EQ(ProblemsOf(u"Registrierung = b.reg\nDateien = b.txt\n"),
              Texts({u"fall/b.reg, Zeile 3: Die Zeile ist weder Schlüssel noch Wert noch "
                     u"Kommentar.",
                     u"fall/b.txt, Zeile 2: 'C:\\?' enthält ein '?': Die Konsole hat ein Zeichen "
                     u"verloren. Mit 'cmd /u /c dir /s /b /a-d' oder nach 'chcp 65001' bleibt es "
                     u"erhalten."}));
}

TEST_F(PcFileTest, FileThatDescribesNoPcIsOneError) {
    const std::u16string problem =
        u"fall/a.pc: Die Datei beschreibt keinen PC: Der Abschnitt [PC] fehlt.";
    for (const std::string& bytes :
         {std::string(), std::string("MZ\x90\0\3\0\0\0\n\n=\n", 11), std::string("AppName = x\n"),
          std::string("[Erwartet]\nErgebnis = Start\n"), std::string("a\0b\0", 4),
          std::string("\xFF\xFE\xFF")}) {
        EXPECT_EQ(ProblemLines(ReadBytes(bytes).problems), Texts({problem}));
    }
}

TEST_F(PcFileTest, DamagedFileIsAnErrorWithItsLine) {
    EXPECT_EQ(ProblemLines(ReadBytes("[PC]\nStartprogramm = C:\\\xFF\n").problems),
              Texts({u"fall/a.pc, Zeile 2: Die Zeile ist kein gültiges UTF-8."}));
    EXPECT_EQ(ProblemsOf(std::u16string(u"Schalter = \0\n", 13)),
              Texts({u"fall/a.pc, Zeile 3: Die Zeile enthält das Zeichen mit dem Code 0."}));
}

TEST_F(PcFileTest, FileThatCannotBeReadIsAnError) {
    EXPECT_EQ(ProblemLines(ReadPcFile(store_, u"b.pc").problems),
              Texts({u"b.pc: Die Datei ist nicht vorhanden."}));
    EXPECT_FALSE(ReadPcFile(store_, u"b.pc").file);
}

TEST_F(PcFileTest, ComputerAnswersWhereverItIsMovedTo) {
    ReadPc read = Read(std::u16string(kStart) + u"Datei = D:\\x.mdb\n");
    ASSERT_TRUE(read.file);
    const DescribedPc moved = std::move(read.file->pc);
    EXPECT_TRUE(moved.Files().FileExists(u"D:\\x.mdb"));
    EXPECT_EQ(moved.RegistryView().ReadText(kHKeyCurrentUser, u"X", u"x"), std::nullopt);
}

}  // namespace
}  // namespace tarvex
