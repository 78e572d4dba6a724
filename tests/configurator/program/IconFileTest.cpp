#include "configurator/program/IconFile.h"

#include <gtest/gtest.h>

#include "tests/support/IconBytes.h"

namespace tarvex {
namespace {

using Texts = std::vector<std::u16string>;

std::vector<std::int32_t> Widths(const IconImages& images) {
    std::vector<std::int32_t> widths;
    for (const IconImage& image : images) {
        widths.push_back(image.width);
    }
    return widths;
}

using Sizes = std::vector<std::int32_t>;

std::string Replaced(std::string bytes, std::size_t at, std::string_view with) {
    return bytes.replace(at, with.size(), with);
}

TEST(IconFileTest, ImagesAreWhatTheyThemselvesSay) {
    const std::string small = BitmapImage(16, 16);
    const std::string wide = BitmapImage(48, 20);
    const std::string large = PngImage(256, 256);
    const ReadIcon icon = ReadIconFile(IconBytes({small, wide, large}));
    EXPECT_EQ(icon.problem, u"");
    EXPECT_EQ(icon.leftOut, Texts());
    EXPECT_EQ(icon.images, IconImages({{16, 16, small}, {48, 20, wide}, {256, 256, large}}));
}

TEST(IconFileTest, BytesAfterAnImageDoNotBelongToIt) {
    const std::string image = BitmapImage(16, 16);
    const std::string png = PngImage(256, 256);
    const ReadIcon icon = ReadIconFile(IconBytes({image + "rest", png + "rest"}));
    ASSERT_EQ(icon.problem, u"");
    EXPECT_EQ(icon.images[0].bytes, image);
    EXPECT_EQ(icon.images[1].bytes, png);
}

TEST(IconFileTest, PaletteOfADeepImageBelongsToIt) {
    std::string image = Replaced(BitmapImage(16, 16), 32, "\x02");
    const std::string whole = image + "palette.";
    EXPECT_EQ(ReadIconFile(IconBytes({image})).problem,
              u"Bild 1 der Symboldatei ist abgeschnitten.");
    ASSERT_EQ(ReadIconFile(IconBytes({whole})).problem, u"");
    EXPECT_EQ(ReadIconFile(IconBytes({whole})).images[0].bytes, whole);
}

TEST(IconFileTest, ImagesThatOldWindowsDoesNotShowAreLeftOutAndNamed) {
    std::string newHeader = BitmapImage(32, 32);
    newHeader[0] = 124;
    const ReadIcon icon = ReadIconFile(
        IconBytes({BitmapImage(48, 48, 8), BitmapImage(16, 16), BitmapImage(32, 32, 4), newHeader,
                   PngImage(48, 48), PngImage(256, 256, 3), BitmapImage(300, 300),
                   BitmapImage(16, 16, 1), BitmapImage(24, 24, 24)}));
    EXPECT_EQ(icon.problem, u"");
    EXPECT_EQ(Widths(icon.images), Sizes({16}));
    EXPECT_EQ(icon.leftOut, Texts({u"Bild 1: 48 x 48 mit 8 Bit Farbtiefe statt 32",
                                   u"Bild 3: 32 x 32 mit 4 Bit Farbtiefe statt 32",
                                   u"Bild 4: Kopf von 124 statt 40 Bytes",
                                   u"Bild 5: 48 x 48 als PNG; nur 256 x 256 darf so gepackt sein",
                                   u"Bild 6: 256 x 256 als PNG ohne 32 Bit Farbtiefe",
                                   u"Bild 7: 300 x 300 ist größer als 256 x 256",
                                   u"Bild 8: 16 x 16 mit 1 Bit Farbtiefe statt 32",
                                   u"Bild 9: 24 x 24 mit 24 Bit Farbtiefe statt 32"}));
}

TEST(IconFileTest, FileWithoutAnyUsableImageIsRefused) {
    const ReadIcon icon = ReadIconFile(IconBytes({BitmapImage(48, 48, 8), PngImage(64, 64)}));
    EXPECT_EQ(icon.problem,
              u"Die Symboldatei enthält kein Bild mit 32 Bit Farbtiefe, das jedes Windows zeigt: "
              u"Bild 1: 48 x 48 mit 8 Bit Farbtiefe statt 32; "
              u"Bild 2: 64 x 64 als PNG; nur 256 x 256 darf so gepackt sein.");
}

TEST(IconFileTest, OtherFilesAreRefused) {
    const std::u16string refused = u"Die Datei ist keine Symboldatei (.ico).";
    EXPECT_EQ(ReadIconFile("").problem, refused);
    EXPECT_EQ(ReadIconFile(PngImage(256, 256)).problem, refused);
    EXPECT_EQ(ReadIconFile(std::string("\0\0\1\0\1", 5)).problem, refused);
    const std::string pointer = Replaced(IconBytes({BitmapImage(16, 16)}), 2, "\x02");
    EXPECT_EQ(ReadIconFile(pointer).problem, refused);
}

TEST(IconFileTest, FileWithoutImagesIsRefused) {
    EXPECT_EQ(ReadIconFile(IconBytes({})).problem, u"Die Symboldatei enthält kein Bild.");
}

TEST(IconFileTest, CutDirectoryIsRefused) {
    EXPECT_EQ(ReadIconFile(IconBytes({BitmapImage(16, 16)}).substr(0, 21)).problem,
              u"Das Verzeichnis der Symboldatei ist abgeschnitten.");
}

TEST(IconFileTest, ImageOutsideOfTheFileIsRefused) {
    const std::u16string refused = u"Bild 2 der Symboldatei liegt nicht ganz in der Datei.";
    const std::string whole = IconBytes({BitmapImage(16, 16), BitmapImage(32, 32)});
    EXPECT_EQ(ReadIconFile(whole).problem, u"");
    EXPECT_EQ(ReadIconFile(whole.substr(0, whole.size() - 1)).problem, refused);
    EXPECT_EQ(ReadIconFile(Replaced(whole, 22 + 12, "\xff\xff\xff\xff")).problem, refused);
    EXPECT_EQ(ReadIconFile(Replaced(whole, 22 + 8, "\xff\xff\xff\xff")).problem, refused);
    // Inside the directory.
    EXPECT_EQ(ReadIconFile(Replaced(whole, 22 + 12, std::string("\x25\0", 2))).problem, refused);
}

TEST(IconFileTest, DamagedImageMakesTheWholeFileUnusable) {
    const std::string image = BitmapImage(16, 16);
    const std::string png = PngImage(256, 256);
    const auto problem = [](const std::string& second) {
        return ReadIconFile(IconBytes({BitmapImage(32, 32), second})).problem;
    };
    const std::u16string neither =
        u"Bild 2 der Symboldatei ist weder ein Bitmap noch ein PNG-Bild.";
    EXPECT_EQ(problem(""), neither);
    EXPECT_EQ(problem("BM" + image), neither);
    EXPECT_EQ(problem(Replaced(image, 0, "\x29")), neither);
    const std::u16string cut = u"Bild 2 der Symboldatei ist abgeschnitten.";
    EXPECT_EQ(problem(image.substr(0, 39)), cut);
    EXPECT_EQ(problem(image.substr(0, image.size() - 1)), cut);
    const std::u16string sizes = u"Bild 2 der Symboldatei hat unmögliche Maße.";
    EXPECT_EQ(problem(Replaced(image, 4, std::string(1, '\0'))), sizes);
    EXPECT_EQ(problem(Replaced(image, 8, std::string(1, '\0'))), sizes);
    EXPECT_EQ(problem(Replaced(image, 8, "\x21")), sizes);
    EXPECT_EQ(problem(Replaced(image, 7, "\x80")), sizes);
    EXPECT_EQ(problem(Replaced(image, 8, "\xe0\xff\xff\xff")), sizes);
    const std::u16string depth =
        u"Bild 2 der Symboldatei hat eine unmögliche Farbtiefe oder ist gepackt.";
    EXPECT_EQ(problem(Replaced(image, 14, "\x21")), depth);
    EXPECT_EQ(problem(Replaced(image, 16, "\x01")), depth);
    EXPECT_EQ(problem(Replaced(image, 34, "\x01")), depth);
    const std::u16string damaged =
        u"Bild 2 der Symboldatei ist ein beschädigtes oder abgeschnittenes PNG-Bild.";
    EXPECT_EQ(problem(png.substr(0, png.size() - 1)), damaged);
    EXPECT_EQ(problem(png.substr(0, png.size() - 12)), damaged);
    EXPECT_EQ(problem(Replaced(png, 19, "\x02")), damaged);  // its checksum is wrong then
    EXPECT_EQ(problem(Replaced(png, 33, "\x7f")), damaged);  // a length beyond the end
    EXPECT_EQ(problem(png.substr(0, 8) + PngChunk("IEND", "")), damaged);
    EXPECT_EQ(problem(png.substr(0, 8) + PngChunk("IHDR", "too short") + png.substr(33)), damaged);
    EXPECT_EQ(problem(png.substr(0, 33) + png.substr(8)), damaged);  // a second header
    const std::u16string empty = u"Bild 2 der Symboldatei ist ein PNG-Bild ohne Inhalt.";
    EXPECT_EQ(problem(PngImage(0, 256)), empty);
    EXPECT_EQ(problem(PngImage(256, 0)), empty);
    EXPECT_EQ(problem(png.substr(0, 33) + PngChunk("IEND", "")), empty);
}

IconImages Images(const std::vector<std::string>& images) {
    return ReadIconFile(IconBytes(images)).images;
}

TEST(IconFileTest, WholeIconKeepsItsOrder) {
    Texts leftOut;
    const IconImages all =
        Images({PngImage(256, 256), BitmapImage(20, 20), BitmapImage(48, 48), BitmapImage(16, 16)});
    EXPECT_EQ(ChooseImages(all, 32768, 12, leftOut), all);
    EXPECT_EQ(leftOut, Texts());
}

TEST(IconFileTest, MostWantedSizesComeFirstWhenThereIsNotEnoughRoom) {
    const IconImages all =
        Images({BitmapImage(64, 64), BitmapImage(20, 20), BitmapImage(24, 24), BitmapImage(48, 48),
                BitmapImage(32, 16), BitmapImage(32, 32), BitmapImage(16, 16), PngImage(256, 256)});
    const auto chosen = [&all](std::size_t entries, std::size_t room = 65536) {
        Texts leftOut;
        return Widths(ChooseImages(all, room, entries, leftOut));
    };
    EXPECT_EQ(chosen(1), Sizes({16}));
    EXPECT_EQ(chosen(2), Sizes({32, 16}));
    EXPECT_EQ(chosen(3), Sizes({48, 32, 16}));
    EXPECT_EQ(chosen(4), Sizes({24, 48, 32, 16}));
    EXPECT_EQ(chosen(5), Sizes({24, 48, 32, 16, 256}));
    EXPECT_EQ(chosen(6), Sizes({64, 24, 48, 32, 16, 256}));
    EXPECT_EQ(chosen(0), Sizes());
    EXPECT_EQ(chosen(12, 1128), Sizes({16}));
    EXPECT_EQ(chosen(12, 1127), Sizes({256}));
    EXPECT_EQ(chosen(12, 1128 + 4264), Sizes({32, 16}));
}

TEST(IconFileTest, WhatIsLeftOutForLackOfRoomIsNamed) {
    Texts leftOut = {u"earlier"};
    const IconImages all = Images({BitmapImage(64, 64), BitmapImage(16, 16), BitmapImage(20, 10)});
    ChooseImages(all, 1128, 12, leftOut);
    EXPECT_EQ(leftOut, Texts({u"earlier", u"64 x 64: kein Platz im Programm",
                              u"20 x 10: kein Platz im Programm"}));
}

TEST(IconFileTest, EveryImageBeginsAtAMultipleOfEight) {
    Texts leftOut;
    const std::string odd = PngImage(256, 256);
    ASSERT_EQ(odd.size() % 8, 3U);
    const IconImages two = Images({odd, odd});
    EXPECT_EQ(ChooseImages(two, 2 * odd.size() + 5, 12, leftOut).size(), 2U);
    EXPECT_EQ(ChooseImages(two, 2 * odd.size() + 4, 12, leftOut).size(), 1U);
}

TEST(IconFileTest, WrittenFileIsReadBack) {
    const IconImages images =
        Images({BitmapImage(16, 16), BitmapImage(48, 20), PngImage(256, 256)});
    const std::string bytes = WriteIconFile(images);
    EXPECT_EQ(ReadIconFile(bytes).images, images);
    EXPECT_EQ(bytes.substr(0, 6 + 16), std::string("\0\0\1\0\3\0"
                                                   "\x10\x10\0\0\1\0\x20\0\x68\4\0\0\x36\0\0\0",
                                                   22));
    EXPECT_EQ(bytes.substr(6 + 32, 8), std::string("\0\0\0\0\1\0\x20\0", 8));
}

TEST(IconFileTest, ListNamesTheImagesByTheirNumbers) {
    const std::string list = IconList(Images({BitmapImage(16, 16), PngImage(256, 256)}));
    EXPECT_EQ(list, std::string("\0\0\1\0\2\0"
                                "\x10\x10\0\0\1\0\x20\0\x68\4\0\0\1\0"
                                "\0\0\0\0\1\0\x20\0\x3b\0\0\0\2\0",
                                34));
}

}  // namespace
}  // namespace tarvex
