#include "configurator/LauncherImage.h"

#include <gtest/gtest.h>

#include "branding/BrandFields.h"
#include "tests/support/SyntheticLauncher.h"

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

TEST(LauncherImageTest, MissingAndDamagedMarksAreNamed) {
    SyntheticLauncher launcher;
    std::erase_if(launcher.marks, [](const SyntheticMark& mark) { return mark.name == u"Cmd"; });
    launcher.Mark(u"HCID").width = 6;
    launcher.Mark(u"Macro").name = u"Makro";
    EXPECT_EQ(
        Lines(Read(launcher.Build()).ReadProblems()),
        Texts({u"T.exe, HCID: Die Marke 066 ist beschädigt: sie heißt 'HCID' mit 6 Zeichen "
               u"statt 'HCID' mit 5.",
               u"T.exe, Macro: Die Marke 049 ist beschädigt: sie heißt 'Makro' mit 100 Zeichen "
               u"statt 'Macro' mit 100.",
               u"T.exe, Cmd: Die Marke 048 fehlt."}));
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
              Texts({u"T.exe: Die Marke an Position 0x810 ist beschädigt.",
                     u"T.exe, AppName: Die Marke 001 fehlt."}));
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

TEST(LauncherImageTest, MarkOfAnUnknownFieldIsLeftAlone) {
    SyntheticLauncher launcher;
    launcher.marks.push_back({50, 20, u"Neu", u"x", 0});
    EXPECT_EQ(Lines(Read(launcher.Build()).ReadProblems()), Texts());
}

TEST(LauncherImageTest, MarkerMissingOrTwice) {
    SyntheticLauncher launcher;
    launcher.marker = u"@#BRANDED2#@";
    EXPECT_EQ(Lines(Read(launcher.Build()).ReadProblems()),
              Texts({u"T.exe: Die Kennung (konfiguriert oder nicht) fehlt."}));
    std::string twice = SyntheticLauncher().Build();
    PutText(twice, 1536, u"@#branded0#@");
    EXPECT_EQ(Lines(Read(twice).ReadProblems()),
              Texts({u"T.exe: Die Kennung steht mehrfach in der Datei, an Position 0x400 und an "
                     u"Position 0x600."}));
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
