#include "platform/win32/PictureBitmap.h"

#include <gtest/gtest.h>

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
