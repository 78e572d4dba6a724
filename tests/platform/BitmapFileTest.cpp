#include "platform/BitmapFile.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace tarvex {
namespace {

std::string Bytes(std::uint32_t number, int count) {
    std::string bytes;
    for (int i = 0; i < count; ++i, number >>= 8U) {
        bytes.push_back(static_cast<char>(number & 0xFFU));
    }
    return bytes;
}

/// Header of an uncompressed bitmap and as many bytes of pixels.
std::string Bitmap(std::int32_t width, std::int32_t height, std::uint32_t bitsPerPixel,
                   std::size_t pixelBytes, std::uint32_t compression = 0) {
    const auto raw = [](std::int32_t n) { return static_cast<std::uint32_t>(n); };
    return "BM" + Bytes(0, 4) + Bytes(0, 4) + Bytes(54, 4) + Bytes(40, 4) + Bytes(raw(width), 4) +
           Bytes(raw(height), 4) + Bytes(1, 2) + Bytes(bitsPerPixel, 2) + Bytes(compression, 4) +
           std::string(20, '\0') + std::string(pixelBytes, 'x');
}

TEST(BitmapFileTest, CompleteBitmapIsNotTruncated) {
    EXPECT_FALSE(IsTruncatedBitmap(Bitmap(3, 2, 24, 24)));  // rows of 9 bytes take 12
    EXPECT_FALSE(IsTruncatedBitmap(Bitmap(3, -2, 24, 24)));
    EXPECT_FALSE(IsTruncatedBitmap(Bitmap(9, 5, 1, 20)));
    EXPECT_FALSE(IsTruncatedBitmap(Bitmap(3, 2, 24, 100)));
}

TEST(BitmapFileTest, OneMissingByteIsNoticed) {
    EXPECT_TRUE(IsTruncatedBitmap(Bitmap(3, 2, 24, 23)));
    EXPECT_TRUE(IsTruncatedBitmap(Bitmap(3, -2, 24, 23)));
    EXPECT_TRUE(IsTruncatedBitmap(Bitmap(9, 5, 1, 19)));
    EXPECT_TRUE(IsTruncatedBitmap(Bitmap(3, 2, 24, 0)));
}

TEST(BitmapFileTest, IncompleteHeaderIsNoticed) {
    EXPECT_TRUE(IsTruncatedBitmap("BM"));
    EXPECT_TRUE(IsTruncatedBitmap(Bitmap(3, 2, 24, 24).substr(0, 53)));
}

TEST(BitmapFileTest, SizesOfADamagedHeaderDoNotOverflow) {
    EXPECT_TRUE(IsTruncatedBitmap(Bitmap(INT32_MIN, INT32_MIN, 0xFFFF, 100)));
    EXPECT_TRUE(IsTruncatedBitmap(Bitmap(-1, INT32_MAX, 32, 100)));
}

TEST(BitmapFileTest, OtherContentIsLeftToThePictureLoader) {
    EXPECT_FALSE(IsTruncatedBitmap(""));
    EXPECT_FALSE(IsTruncatedBitmap("\xFF\xD8\xFF"));
    EXPECT_FALSE(IsTruncatedBitmap(Bitmap(300, 200, 8, 10, 1)));  // run-length encoded
    EXPECT_FALSE(IsTruncatedBitmap(Bitmap(3, 0, 24, 0)));
    // The header of 12 bytes that OS/2 introduced.
    EXPECT_FALSE(IsTruncatedBitmap("BM" + Bytes(0, 8) + Bytes(26, 4) + Bytes(12, 4) + Bytes(4, 2) +
                                   Bytes(2, 2) + Bytes(1, 2) + Bytes(24, 2) +
                                   std::string(28, 'x')));
}

}  // namespace
}  // namespace tarvex
