#include "branding/BrandMark.h"

#include <gtest/gtest.h>

#include "simulation/pc/FileList.h"
#include "tests/simulation/SimulationTexts.h"
#include "text/Text.h"

namespace tarvex {
namespace {

ParsedFileList Parse(std::string_view bytes) {
    return ParseFileList(bytes, u"dateien.txt");
}

constexpr std::u16string_view kTwoFiles = u"C:\\Größe\\a.mdb\r\n\r\n\\\\srv\\x\\b.mdb \r\n";
const Texts kTwoPaths = {u"C:\\Größe\\a.mdb", u"\\\\srv\\x\\b.mdb"};

TEST(FileListTest, ListWithAMarkIsReadByIt) {
    for (const std::string& bytes :
         {"\xEF\xBB\xBF" + text::ToUtf8(kTwoFiles), "\xFF\xFE" + ToUtf16Bytes(kTwoFiles)}) {
        const ParsedFileList parsed = Parse(bytes);
        EXPECT_EQ(ProblemLines(parsed.problems), Texts());
        EXPECT_EQ(parsed.paths, kTwoPaths);
    }
}

TEST(FileListTest, ListWithZeroBytesIsUtf16) {
    EXPECT_EQ(Parse(ToUtf16Bytes(kTwoFiles)).paths, kTwoPaths);
}

TEST(FileListTest, ListOfValidUtf8IsUtf8) {
    EXPECT_EQ(Parse(text::ToUtf8(kTwoFiles)).paths, kTwoPaths);
}

TEST(FileListTest, OtherListsAreOfTheConsolesCodePage) {
    const ParsedFileList parsed = Parse(
        "C:\\Gr\x94\xE1"
        "e\\a.mdb\r\nC:\\\x8E\\b.mdb\r\n");
    EXPECT_EQ(ProblemLines(parsed.problems), Texts());
    EXPECT_EQ(parsed.paths, Texts({u"C:\\Größe\\a.mdb", u"C:\\Ä\\b.mdb"}));
}

TEST(FileListTest, LostCharacterIsAnErrorWithItsLine) {
    const ParsedFileList parsed = Parse("C:\\a.mdb\nC:\\?.mdb\n");
    EXPECT_EQ(ProblemLines(parsed.problems),
              Texts({u"dateien.txt, Zeile 2: 'C:\\?.mdb' enthält ein '?': Die Konsole hat ein "
                     u"Zeichen verloren. Mit 'cmd /u /c dir /s /b /a-d' oder nach 'chcp 65001' "
                     u"bleibt es erhalten."}));
}

TEST(FileListTest, LineThatIsNoFullPathIsAnErrorWithItsLine) {
    const ParsedFileList parsed =
        Parse(" Verzeichnis von C:\\Kunden\nC:\\a|b\nC:\\a.mdb\nC:x.mdb\n\\x.mdb\n");
    EXPECT_EQ(ProblemLines(parsed.problems),
              Texts({u"dateien.txt, Zeile 1: 'Verzeichnis von C:\\Kunden' ist kein vollständiger "
                     u"Pfad.",
                     u"dateien.txt, Zeile 2: 'C:\\a|b' ist kein Pfad, den es unter Windows geben "
                     u"kann."}));
    EXPECT_EQ(parsed.paths, Texts({u"C:\\a.mdb", u"C:x.mdb", u"\\x.mdb"}));
}

TEST(FileListTest, DamagedListIsAnErrorWithItsLine) {
    EXPECT_EQ(ProblemLines(Parse("\xEF\xBB\xBF"
                                 "C:\\a\nC:\\\xFF\n")
                               .problems),
              Texts({u"dateien.txt, Zeile 2: Die Zeile ist kein gültiges UTF-8."}));
    EXPECT_EQ(ProblemLines(Parse("\xFF\xFE" + ToUtf16Bytes(u"C:\\a\r\n") + "C").problems),
              Texts({u"dateien.txt, Zeile 2: Die Datei ist abgeschnitten: Das letzte "
                     u"UTF-16-Zeichen ist nur halb da."}));
    EXPECT_EQ(Parse("\xFF\xFE" + ToUtf16Bytes(std::u16string(u"C:\\a\0b\r\n", 8))).problems.size(),
              1U);
}

TEST(FileListTest, EmptyListSaysNothing) {
    EXPECT_TRUE(Parse("").paths.empty());
    EXPECT_TRUE(Parse("").problems.empty());
}

}  // namespace
}  // namespace tarvex
