#include "platform/win32/PictureBitmap.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "tests/support/BitmapFile.h"
#include "tests/support/GdiLedger_win32.h"
#include "tests/support/TestFolder.h"

namespace tarvex {
namespace {

COLORREF PixelAt(const PictureBitmap& picture, int x, int y) {
    const HDC screen = GetDC(nullptr);
    const HDC canvas = CreateCompatibleDC(screen);
    const HGDIOBJ before = SelectObject(canvas, picture.bitmap.Get());
    const COLORREF colour = GetPixel(canvas, x, y);
    SelectObject(canvas, before);
    DeleteDC(canvas);
    ReleaseDC(nullptr, screen);
    return colour;
}

TEST(PictureBitmapTest, HasThePicturesSizeAndColoursTheRightWayUp) {
    const TestFolder folder;
    folder.MakeFile(u"Bild.bmp", BitmapFile(37, 22));
    const PictureBitmap picture = LoadPictureBitmap(folder.Path(u"Bild.bmp"));
    ASSERT_TRUE(picture.bitmap);
    EXPECT_EQ(37, picture.size.cx);
    EXPECT_EQ(22, picture.size.cy);
    EXPECT_EQ(RGB(255, 0, 0), PixelAt(picture, 0, 0));
    EXPECT_EQ(RGB(255, 0, 0), PixelAt(picture, 36, 9));
    EXPECT_EQ(RGB(0, 0, 255), PixelAt(picture, 0, 21));
    EXPECT_EQ(RGB(0, 0, 255), PixelAt(picture, 36, 12));
}

TEST(PictureBitmapTest, ContentCountsNotTheName) {
    const TestFolder folder;
    folder.MakeFile(u"Пиктура.jpg", BitmapFile(5, 4));
    EXPECT_TRUE(LoadPictureBitmap(folder.Path(u"Пиктура.jpg")).bitmap);
}

/// Header of a .bmp file of that size in pixels, the table of colours or masks, and the pixels.
std::string Bitmap(std::uint32_t width, std::uint32_t height, std::uint32_t bitsPerPixel,
                   std::uint32_t compression, std::string_view table, std::string_view pixels) {
    const auto start = static_cast<std::uint32_t>(54 + table.size());
    const auto length = static_cast<std::uint32_t>(pixels.size());
    std::string file = "BM";
    for (const auto& [value, bytes] : {std::pair{start + length, 4U},
                                       {0U, 4U},
                                       {start, 4U},
                                       {40U, 4U},
                                       {width, 4U},
                                       {height, 4U},
                                       {1U, 2U},
                                       {bitsPerPixel, 2U},
                                       {compression, 4U},
                                       {length, 4U},
                                       {0U, 16U}}) {
        for (unsigned i = 0; i < bytes; ++i) {
            file += i < 4 ? static_cast<char>(value >> 8 * i & 0xFFU) : '\0';
        }
    }
    return file.append(table).append(pixels);
}

class PictureFileTest : public testing::Test {
protected:
    PictureBitmap Load(std::string_view bytes) {
        folder_.MakeFile(u"Bild.bmp", bytes);
        return LoadPictureBitmap(folder_.Path(u"Bild.bmp"));
    }

    /// The file is shown, its upper row red and its lower one blue; without its last bytes it is
    /// not.
    void ExpectShownOnlyWhole(const std::string& file) {
        const PictureBitmap picture = Load(file);
        ASSERT_TRUE(picture.bitmap);
        EXPECT_EQ(RGB(255, 0, 0), PixelAt(picture, 0, 0));
        EXPECT_EQ(RGB(255, 0, 0), PixelAt(picture, 3, 0));
        EXPECT_EQ(RGB(0, 0, 255), PixelAt(picture, 0, 1));
        EXPECT_EQ(RGB(0, 0, 255), PixelAt(picture, 3, 1));
        EXPECT_FALSE(Load(std::string_view(file).substr(0, file.size() - 1)).bitmap);
    }

private:
    TestFolder folder_;
};

std::string Repeated(std::string_view bytes, int count) {
    std::string result;
    for (int i = 0; i < count; ++i) {
        result += bytes;
    }
    return result;
}

/// Colours 0 to 2 of a table of colours: black, red, blue.
const std::string kColours = std::string("\0\0\0\0\0\0\xFF\0\xFF\0\0\0", 12);

TEST_F(PictureFileTest, BitFieldsOf32BitsAreShownOnlyWhole) {
    const std::string masks("\0\0\xFF\0\0\xFF\0\0\xFF\0\0\0", 12);
    ExpectShownOnlyWhole(Bitmap(4, 2, 32, BI_BITFIELDS, masks,
                                Repeated({"\xFF\0\0\0", 4}, 4) + Repeated({"\0\0\xFF\0", 4}, 4)));
}

TEST_F(PictureFileTest, BitFieldsOf16BitsAreShownOnlyWhole) {
    const std::string masks("\0\xF8\0\0\xE0\x07\0\0\x1F\0\0\0", 12);
    ExpectShownOnlyWhole(Bitmap(4, 2, 16, BI_BITFIELDS, masks,
                                Repeated({"\x1F\0", 2}, 4) + Repeated({"\0\xF8", 2}, 4)));
}

TEST_F(PictureFileTest, RunLengthBitmapsAreShownOnlyWhole) {
    const std::string colours8 = kColours + std::string(253 * 4, '\0');
    const std::string colours4 = kColours + std::string(13 * 4, '\0');
    ExpectShownOnlyWhole(Bitmap(4, 2, 8, BI_RLE8, colours8, {"\x04\x02\0\0\x04\x01\0\x01", 8}));
    ExpectShownOnlyWhole(
        Bitmap(4, 2, 8, BI_RLE8, colours8, {"\0\x04\x02\x02\x02\x02\0\0\x04\x01\0\x01", 12}));
    ExpectShownOnlyWhole(Bitmap(4, 2, 4, BI_RLE4, colours4, {"\x04\x22\0\0\x04\x11\0\x01", 8}));
}

TEST_F(PictureFileTest, FillBytesOfTheLastRowMayBeMissing) {
    const std::string row = Repeated({"\xFF\0\0", 3}, 5) + '\0';
    const std::string file = Bitmap(5, 2, 24, BI_RGB, {}, row + Repeated({"\0\0\xFF", 3}, 5));
    const PictureBitmap picture = Load(file);
    ASSERT_TRUE(picture.bitmap);
    EXPECT_EQ(RGB(255, 0, 0), PixelAt(picture, 0, 0));
    EXPECT_EQ(RGB(255, 0, 0), PixelAt(picture, 4, 0));
    EXPECT_EQ(RGB(0, 0, 255), PixelAt(picture, 4, 1));
    EXPECT_FALSE(Load(std::string_view(file).substr(0, file.size() - 1)).bitmap);
}

TEST(PictureBitmapTest, LoadsLeaveNoGdiObjectsBehind) {
    const TestFolder folder;
    folder.MakeFile(u"a.bmp", BitmapFile(5, 4));
    folder.MakeFile(u"b.bmp", "BMkaputt");
    const GdiLedger ledger;
    for (int i = 0; i < 5; ++i) {
        EXPECT_TRUE(LoadPictureBitmap(folder.Path(u"a.bmp")).bitmap);
        EXPECT_FALSE(LoadPictureBitmap(folder.Path(u"b.bmp")).bitmap);
    }
    EXPECT_EQ(ledger.Open(), "");
    EXPECT_EQ(ledger.Taken(), 5 * 3) << "bitmap, its context and the screen's";
}

}  // namespace
}  // namespace tarvex
