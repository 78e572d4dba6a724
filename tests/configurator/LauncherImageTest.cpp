#include "configurator/LauncherImage.h"

#include <gtest/gtest.h>

#include "branding/BrandFields.h"
#include "tests/support/SyntheticLauncher.h"
#include "text/Text.h"

namespace tarvex {
namespace {

using Texts = std::vector<std::u16string>;

Texts Lines(const Problems& problems) {
    Texts lines;
    for (const Problem& problem : problems) {
        lines.push_back(ProblemLine(problem));
    }
    return lines;
}

LauncherImage Read(const std::string& bytes) {
    return LauncherImage::Read(bytes, u"T.exe");
}

TEST(LauncherImageTest, CompleteFileHasNoProblemsAndAllValues) {
    SyntheticLauncher launcher;
    launcher.Mark(u"DBPath").value = u"abc";
    const LauncherImage image = Read(launcher.Build());
    EXPECT_EQ(Lines(image.ReadProblems()), Texts());
    EXPECT_EQ(Lines(image.ChangeProblems()), Texts());
    EXPECT_FALSE(image.IsBranded());
    EXPECT_EQ(image.MarkerDigit(), 1024U + 18U);
    EXPECT_EQ(image.StoredText(kFieldDBPath), u"abc");
    EXPECT_EQ(image.Find(kFieldDBPath)->area.size(), 255U);
    EXPECT_EQ(image.Find(kFieldHCID)->valueStart, image.Find(kFieldHCID)->start + 44);
}

TEST(LauncherImageTest, BrandedMarkerIsRecognised) {
    SyntheticLauncher launcher;
    launcher.marker = u"@#BRANDED1#@";
    EXPECT_TRUE(Read(launcher.Build()).IsBranded());
}

TEST(LauncherImageTest, OtherFilesAreNoPrograms) {
    const Texts refused({u"T.exe: Die Datei ist kein 32-Bit-Programm für Windows."});
    EXPECT_EQ(Lines(Read("").ReadProblems()), refused);
    EXPECT_EQ(Lines(Read("MZ").ReadProblems()), refused);
    SyntheticLauncher launcher;
    launcher.machine = 0x8664;
    EXPECT_EQ(Lines(Read(launcher.Build()).ReadProblems()), refused);
    std::string farHeader = SyntheticLauncher().Build();
    farHeader.replace(0x3c, 4, "\xff\xff\xff\xff");
    EXPECT_EQ(Lines(Read(farHeader).ReadProblems()), refused);
    const std::string library = [] {
        std::string bytes = SyntheticLauncher().Build();
        bytes[0x80 + 23] = '\x21';
        return bytes;
    }();
    EXPECT_EQ(Lines(Read(library).ReadProblems()), refused);
}

TEST(LauncherImageTest, EveryShorterFileIsReadWithoutFailing) {
    const std::string bytes = SyntheticLauncher().Build();
    for (std::size_t size = 0; size < bytes.size(); size += size < 4096 ? 7 : 613) {
        EXPECT_FALSE(Read(bytes.substr(0, size)).ReadProblems().empty() &&
                     Read(bytes.substr(0, size)).ChangeProblems().empty() && size < 40000)
            << size;
    }
}

TEST(LauncherImageTest, SignatureForbidsChangesOnly) {
    SyntheticLauncher launcher;
    launcher.signatureSize = 4096;
    const LauncherImage image = Read(launcher.Build());
    EXPECT_EQ(Lines(image.ReadProblems()), Texts());
    EXPECT_EQ(
        Lines(image.ChangeProblems()),
        Texts({u"T.exe: Die Datei trägt eine Signatur; erst konfigurieren, dann signieren."}));
}

TEST(LauncherImageTest, DamagedMarksAreNamed) {
    SyntheticLauncher launcher;
    launcher.Mark(u"HCID").width = 6;
    launcher.Mark(u"Macro").name = u"Makro";
    EXPECT_EQ(
        Lines(Read(launcher.Build()).ReadProblems()),
        Texts({u"T.exe, HCID: Die Marke 066 ist beschädigt: sie heißt 'HCID' mit 6 Zeichen "
               u"statt 'HCID' mit 5.",
               u"T.exe, Macro: Die Marke 049 ist beschädigt: sie heißt 'Makro' mit 100 Zeichen "
               u"statt 'Macro' mit 100."}));
}

SyntheticLauncher OfOtherVersion() {
    SyntheticLauncher launcher;
    std::erase_if(launcher.marks, [](const SyntheticMark& mark) {
        return mark.name == u"Cmd" || mark.name == u"AccPath";
    });
    launcher.marks.push_back({70, 20, u"Neu", u"x", 0});
    launcher.marks.push_back({50, 1, u"Alt", {}, 0});
    return launcher;
}

TEST(LauncherImageTest, MarksOfAnotherVersionAreNamedAndReadingGoesOn) {
    const LauncherImage image = Read(OfOtherVersion().Build());
    EXPECT_EQ(Lines(image.ReadProblems()), Texts());
    EXPECT_EQ(Lines(image.ChangeProblems()), Texts());
    ASSERT_EQ(image.MissingMarks().size(), 2U);
    EXPECT_EQ(image.MissingMarks()[0]->number, kFieldAccPath);
    EXPECT_EQ(image.MissingMarks()[1]->number, kFieldCmd);
    ASSERT_EQ(image.UnknownMarks().size(), 2U);
    EXPECT_EQ(image.UnknownMarks()[0].number, 70);
    EXPECT_EQ(image.UnknownMarks()[0].width, 20U);
    EXPECT_EQ(image.UnknownMarks()[0].name, u"Neu");
    EXPECT_EQ(image.UnknownMarks()[1].number, 50);
    EXPECT_EQ(image.StoredText(kFieldCmd), u"");
}

TEST(LauncherImageTest, OnlyAValueForAMissingMarkCannotBeWritten) {
    const LauncherImage image = Read(OfOtherVersion().Build());
    Settings settings;
    settings.Set(kFieldAppName, u"x");
    settings.Set(kFieldAccPath, u"");
    EXPECT_EQ(Lines(image.ProblemsOfSetting(settings)), Texts());
    settings.Set(kFieldCmd, u"y");
    EXPECT_EQ(Lines(image.ProblemsOfSetting(settings)),
              Texts({u"T.exe, Cmd: Das Startprogramm ist von einer anderen Version und hat dieses "
                     u"Feld nicht."}));
    EXPECT_EQ(Lines(Read(SyntheticLauncher().Build()).ProblemsOfSetting(settings)), Texts());
}

TEST(LauncherImageTest, ProgramThatIsNoLauncherIsOneError) {
    const Texts refused({u"T.exe: Die Datei ist kein Startprogramm: Sie enthält keine Marken."});
    SyntheticLauncher launcher;
    launcher.marks.clear();
    launcher.signatureSize = 1;
    EXPECT_EQ(Lines(Read(launcher.Build()).ReadProblems()), refused);
    EXPECT_EQ(Lines(Read(launcher.Build()).ChangeProblems()), Texts());
    EXPECT_TRUE(Read(launcher.Build()).MissingMarks().empty());
    launcher.marker = launcher.comparison = u"";
    std::string bytes = launcher.Build();
    PutText(bytes, 1536, u"@#BRD#@|");  // as a program holds it that looks for marks
    EXPECT_EQ(Lines(Read(bytes).ReadProblems()), refused);
}

TEST(LauncherImageTest, WrongByteCountAndBrokenHeaderAreDamage) {
    const std::string good = SyntheticLauncher().Build();
    const std::size_t start = Read(good).Find(kFieldAppName)->start;
    std::string badCount = good;
    badCount[start - 4] = '\x02';
    EXPECT_EQ(
        Lines(Read(badCount).ReadProblems()),
        Texts({u"T.exe, AppName: Die Marke 001 ist beschädigt: Länge oder Ende stimmen nicht."}));
    std::string badNumber = good;
    PutText(badNumber, start + 16, u"0x1");
    EXPECT_EQ(Lines(Read(badNumber).ReadProblems()),
              Texts({u"T.exe: Die Marke an Position 0x810 ist beschädigt."}));
}

TEST(LauncherImageTest, EachByteOfTheZeroAfterAMarkIsChecked) {
    const std::string good = SyntheticLauncher().Build();
    const LauncherImage image = Read(good);
    const LauncherImage::Mark& mark = *image.Find(kFieldAppName);
    const std::size_t end = mark.valueStart + 2 * mark.area.size();
    for (const std::size_t at : {end, end + 1}) {
        std::string bad = good;
        bad[at] = '\1';
        EXPECT_EQ(Lines(Read(bad).ReadProblems()),
                  Texts({u"T.exe, AppName: Die Marke 001 ist beschädigt: Länge oder Ende stimmen "
                         u"nicht."}));
    }
}

TEST(LauncherImageTest, SecondMarkOfANumberInAnyCaseIsRefused) {
    SyntheticLauncher launcher;
    launcher.marks.push_back({48, 100, u"Cmd", {}, 98304});
    EXPECT_EQ(Lines(Read(launcher.Build()).ReadProblems()),
              Texts({u"T.exe, Cmd: Die Marke 048 kommt mehrfach vor, noch einmal an Position "
                     u"0x18000."}));
    std::string lowerCase = SyntheticLauncher().Build();
    PutText(lowerCase, 1536, u"@#brd#@|048|0100|cmd|");
    EXPECT_EQ(Lines(Read(lowerCase).ReadProblems()),
              Texts({u"T.exe: Die Marke an Position 0x600 ist beschädigt."}));
}

TEST(LauncherImageTest, BothMarkersMustBeThereOnce) {
    const auto problems = [](std::u16string_view marker, std::u16string_view comparison,
                             std::u16string_view further = {}) {
        SyntheticLauncher launcher;
        launcher.marker = marker;
        launcher.comparison = comparison;
        std::string bytes = launcher.Build();
        PutText(bytes, 1536, further);
        bytes[1532] = static_cast<char>(2 * further.size());
        return Lines(Read(bytes).ReadProblems());
    };
    const std::u16string_view zero = u"@#BRANDED0#@";
    const std::u16string_view one = u"@#BRANDED1#@";
    const std::u16string_view bad = u"@#BRANDED2#@";
    const std::u16string oneIsMissing =
        u"T.exe: Von den zwei Kennungen, die ein Startprogramm vergleicht, fehlt eine.";
    EXPECT_EQ(problems(zero, one), Texts());
    EXPECT_EQ(problems(one, one), Texts());
    EXPECT_EQ(problems(bad, bad), Texts({u"T.exe: Die Kennung (konfiguriert oder nicht) fehlt."}));
    EXPECT_EQ(problems(zero, bad), Texts({oneIsMissing}));
    EXPECT_EQ(problems(bad, one), Texts({oneIsMissing}));
    EXPECT_EQ(problems(zero, one, u"@#branded0#@"),
              Texts({u"T.exe: Die Kennung steht mehrfach in der Datei, an Position 0x400 und an "
                     u"Position 0x600."}));
    EXPECT_EQ(problems(zero, zero),
              Texts({u"T.exe: Die Kennung steht mehrfach in der Datei, an Position 0x400 und an "
                     u"Position 0x500."}));
    EXPECT_EQ(problems(zero, one, one),
              Texts({u"T.exe: Die Vergleichskennung steht mehrfach in der Datei, an Position 0x500 "
                     u"und an Position 0x600."}));
    EXPECT_EQ(problems(one, one, one),
              Texts({u"T.exe: Die Vergleichskennung steht mehrfach in der Datei, an Position 0x500 "
                     u"und an Position 0x600."}));
}

TEST(LauncherImageTest, LengthAndEndOfBothMarkersAreChecked) {
    const std::string good = SyntheticLauncher().Build();
    for (const std::size_t start : {1024U, 1280U}) {
        for (const std::size_t at : {start - 4, start + 24}) {
            std::string bad = good;
            bad[at] = '\2';
            EXPECT_EQ(Lines(Read(bad).ReadProblems()),
                      Texts({u"T.exe: Die Kennung an Position 0x" + text::Hexadecimal(start) +
                             u" ist beschädigt: Länge oder Ende stimmen nicht."}))
                << at;
        }
    }
}

TEST(LauncherImageTest, SearchGoesUpToTheLastByte) {
    SyntheticLauncher launcher;
    launcher.marker = u"";
    std::string bytes = launcher.Build();
    PutText(bytes, bytes.size() - 24, u"@#BRANDED0#@");
    EXPECT_EQ(Lines(Read(bytes).ReadProblems()),
              Texts({u"T.exe: Die Kennung an Position 0xFFE8 ist beschädigt: Länge oder Ende "
                     u"stimmen nicht."}));
    bytes = SyntheticLauncher().Build();
    PutText(bytes, bytes.size() - 16, u"@#BRD#@|");
    EXPECT_EQ(Lines(Read(bytes).ReadProblems()),
              Texts({u"T.exe: Die Marke an Position 0xFFF0 ist beschädigt."}));
}

TEST(LauncherImageTest, MarkAndMarkerThatEndWithTheLastWholeBlockAreFoundByTheWriter) {
    const auto changeProblems = [](std::size_t cmdStart, std::size_t markerStart) {
        SyntheticLauncher launcher;
        launcher.multiple = 16;
        launcher.Mark(u"Cmd").start = cmdStart;
        launcher.markerStart = markerStart;
        return Read(launcher.Build()).ChangeProblems().size();
    };
    const std::size_t header = 42;  // 21 characters
    EXPECT_EQ(changeProblems(98304 - header, 1024), 0U);
    EXPECT_EQ(changeProblems(98304 - header + 2, 1024), 1U);
    EXPECT_EQ(changeProblems(0, 98304 - 24), 0U);
    SyntheticLauncher launcher;
    launcher.multiple = 16;
    launcher.markerStart = 98304 - 22;
    EXPECT_EQ(Lines(Read(launcher.Build()).ChangeProblems()),
              Texts({u"T.exe: Die Kennung liegt an Position 0x17FEA im letzten, unvollständigen "
                     u"Block der Datei und würde an falscher Stelle geschrieben."}));
}

TEST(LauncherImageTest, PrefixAcrossTwoBlocksIsRefusedAtEveryOffset) {
    for (std::size_t before = 0; before <= 16; ++before) {
        SyntheticLauncher launcher;
        launcher.Mark(u"Cmd").start = 98304 - before;
        const LauncherImage image = Read(launcher.Build());
        EXPECT_EQ(Lines(image.ReadProblems()), Texts());
        EXPECT_EQ(image.ChangeProblems().empty(), before == 0 || before == 16) << before;
    }
    SyntheticLauncher launcher;
    launcher.Mark(u"Cmd").start = 98304 - 2;
    EXPECT_EQ(Lines(Read(launcher.Build()).ChangeProblems()),
              Texts({u"T.exe, Cmd: Die Marke 048 liegt an Position 0x17FFE auf der Grenze zweier "
                     u"Blöcke und würde nicht gefunden."}));
}

TEST(LauncherImageTest, MarkAndMarkerInTheLastPartialBlockAreRefused) {
    SyntheticLauncher launcher;
    launcher.multiple = 16;
    launcher.Mark(u"Cmd").start = 98304 - 16;  // the header goes on in the partial block
    launcher.markerStart = 98304 + 1024;
    const LauncherImage image = Read(launcher.Build());
    EXPECT_EQ(Lines(image.ReadProblems()), Texts());
    EXPECT_EQ(
        Lines(image.ChangeProblems()),
        Texts({u"T.exe: Die Kennung liegt an Position 0x18400 im letzten, unvollständigen "
               u"Block der Datei und würde an falscher Stelle geschrieben.",
               u"T.exe, Cmd: Die Marke 048 liegt an Position 0x17FF0 im letzten, "
               u"unvollständigen Block der Datei und würde an falscher Stelle geschrieben."}));
}

}  // namespace
}  // namespace tarvex
