#include "configurator/checks/PictureSize.h"
#include "tests/configurator/checks/CheckTesting.h"
#include "tests/support/FakeBinaryFiles.h"
#include "tests/support/FakeFileStore.h"
#include "text/Text.h"

namespace tarvex {
namespace {

std::string Bitmap(std::uint32_t width, std::uint32_t height) {
    std::string bytes(54, '\0');
    bytes.replace(0, 2, "BM");
    bytes[14] = 40;
    for (std::size_t i = 0; i < 4; ++i) {
        bytes[18 + i] = static_cast<char>(width >> 8 * i & 0xFFU);
        bytes[22 + i] = static_cast<char>(height >> 8 * i & 0xFFU);
    }
    return bytes;
}

TEST(CheckPictureTest, FolderWithoutAFileNameIsNotUsed) {
    EXPECT_EQ(Check({{kFieldPicPath, u"Bilder"}}),
              Texts({u"PicPath: Warnung: Der Pfad wird nicht verwendet, solange PicFilename leer "
                     u"ist. [picture-path-alone]"}));
}

TEST(CheckPictureTest, DelayWithoutAPictureIsANote) {
    EXPECT_EQ(Check({{kFieldPicDelay, u"3000"}}),
              Texts({u"PicDelay: Hinweis: Eine Anzeigedauer ist angegeben, aber kein Startbild. "
                     u"[delay-without-picture]"}));
}

TEST(CheckPictureTest, PictureWithoutADelayIsNotShown) {
    const Texts text(
        {u"PicDelay: Warnung: Ein Startbild ist angegeben, aber keine Anzeigedauer; es "
         u"wird nicht angezeigt. Die Dauer in Millisekunden angeben, oder 0, wenn das "
         u"so gemeint ist. [picture-without-delay]"});
    EXPECT_EQ(Check({{kFieldPicFilename, u"a.jpg"}}), text);
    EXPECT_EQ(Check({{kPicRegList.Field(2), u"HKLM\\A\\B%|Filename%|a.jpg"}}), text);
}

TEST(CheckPictureTest, PictureSwitchedOffByDelayZeroIsMeant) {
    EXPECT_EQ(Check({{kFieldPicFilename, u"a.jpg"}, {kFieldPicDelay, u"0"}}), Texts());
    EXPECT_EQ(Check({{kFieldPicDelay, u"0"}}), Texts());
}

TEST(CheckPictureTest, UnknownPictureTypesAreAnError) {
    EXPECT_EQ(Check({{kFieldPicFilename, u"a.gif"}, {kFieldPicDelay, u"1"}}),
              Texts({u"PicFilename: Fehler: Der Bildtyp von 'a.gif' ist unbekannt; möglich sind "
                     u".bmp und .jpg. [picture-type]"}));
    EXPECT_EQ(
        Check({{kPicRegList.Field(1), u"HKLM\\A\\B%|Filename%|a.png"}, {kFieldPicDelay, u"1"}}),
        Texts(
            {u"PicRegList01: Fehler: Der Bildtyp von 'a.png' ist unbekannt; möglich sind .bmp und "
             u".jpg. [picture-type]"}));
}

class PictureFileTest : public testing::Test {
protected:
    Texts CheckWith(std::u16string_view file, const std::string& bytes,
                    std::u16string_view delay = u"1000") {
        files_.AddFile(file, bytes);
        return Check({{kFieldPicPath, u"..\\Bilder"},
                      {kFieldPicFilename, u"a.bmp"},
                      {kFieldPicDelay, delay}},
                     {&store_, u"/haus/Kunden"});
    }

    FakeBinaryFiles files_;
    FakeFileStore store_{files_};
};

TEST_F(PictureFileTest, PictureLargerThanCommonScreensIsAWarning) {
    EXPECT_EQ(
        CheckWith(u"/haus/Kunden/../Bilder/a.bmp", Bitmap(2400, 600)),
        Texts({u"PicFilename: Warnung: Das Bild ist 2400 x 600 Bildpunkte groß und wird nicht "
               u"verkleinert; übliche Bildschirme haben höchstens 1920 x 1080. "
               u"[picture-too-large]"}));
    EXPECT_EQ(CheckWith(u"/haus/Kunden/../Bilder/a.bmp", Bitmap(100, 1081)).size(), 1U);
    EXPECT_EQ(CheckWith(u"/haus/Kunden/../Bilder/a.bmp", Bitmap(1920, 1080)), Texts());
}

TEST_F(PictureFileTest, PictureThatIsNotThereOrNotShownIsNotLookedAt) {
    EXPECT_EQ(CheckWith(u"/haus/Kunden/a.bmp", Bitmap(9999, 9999)), Texts());
    EXPECT_EQ(CheckWith(u"/haus/Kunden/../Bilder/a.bmp", Bitmap(9999, 9999), u"0"), Texts());
}

TEST_F(PictureFileTest, PictureIsFoundFromTheCurrentFolder) {
    for (const auto& [path, file] :
         {std::pair(u"..\\Bilder", u"../Bilder/a.bmp"), std::pair(u"Bilder", u"Bilder/a.bmp"),
          std::pair(u"C:\\Bilder", u"C:/Bilder/a.bmp")}) {
        FakeBinaryFiles files;
        FakeFileStore store{files};
        files.AddFile(file, Bitmap(9999, 1));
        EXPECT_EQ(
            Check({{kFieldPicPath, path}, {kFieldPicFilename, u"a.bmp"}, {kFieldPicDelay, u"1"}},
                  {&store, {}})
                .size(),
            1U)
            << text::ToUtf8(file);
    }
}

TEST_F(PictureFileTest, PictureBesideTheLauncherAndOneThatCannotBeRead) {
    files_.AddFile(u"Kunden/a.bmp", Bitmap(9999, 1));
    const std::vector<Given> given = {{kFieldPicFilename, u"a.bmp"}, {kFieldPicDelay, u"1"}};
    EXPECT_EQ(Check(given, {&store_, u"Kunden"}).size(), 1U);
    store_.failCall = store_.log.size() + 1;
    EXPECT_EQ(Check(given, {&store_, u"Kunden"}), Texts());
}

TEST(PictureSizeTest, SizesOfBitmapsAndJpegs) {
    const auto size = [](std::string_view bytes) {
        const auto read = ReadPictureSize(bytes);
        return read ? std::pair(read->width, read->height) : std::pair(0U, 0U);
    };
    EXPECT_EQ(size(Bitmap(70000, 3)), std::pair(70000U, 3U));
    EXPECT_EQ(size(Bitmap(7, 0xFFFFFFFBU)), std::pair(7U, 5U));
    std::string old = Bitmap(0x00090008, 0);
    old[14] = 12;
    EXPECT_EQ(size(old), std::pair(8U, 9U));
    const std::string jpeg("\xFF\xD8\xFF\xE0\0\4ab\xFF\xC4\0\3c\xFF\xFF\xC2\0\x0B\x08\1\2\3\4\1",
                           24);
    EXPECT_EQ(size(jpeg), std::pair(0x304U, 0x102U));
    for (std::size_t length = 0; length < 22; ++length) {
        EXPECT_EQ(size(std::string_view(jpeg).substr(0, length)), std::pair(0U, 0U)) << length;
    }
    EXPECT_EQ(size(Bitmap(9, 9).substr(0, 25)), std::pair(0U, 0U));
    EXPECT_EQ(size("GIF89a"), std::pair(0U, 0U));
}

}  // namespace
}  // namespace tarvex
