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

constexpr std::uint32_t kRunLength8 = 1;
constexpr std::uint32_t kRunLength4 = 2;
constexpr std::uint32_t kBitFields = 3;

/// Header of a bitmap, uncompressed at first, and as many bytes of pixels.
std::string Bitmap(std::int32_t width, std::int32_t height, std::uint32_t bitsPerPixel,
                   std::size_t pixelBytes, std::uint32_t compression = 0) {
    const auto raw = [](std::int32_t n) { return static_cast<std::uint32_t>(n); };
    return "BM" + Bytes(0, 4) + Bytes(0, 4) + Bytes(54, 4) + Bytes(40, 4) + Bytes(raw(width), 4) +
           Bytes(raw(height), 4) + Bytes(1, 2) + Bytes(bitsPerPixel, 2) + Bytes(compression, 4) +
           std::string(20, '\0') + std::string(pixelBytes, 'x');
}

/// A bitmap of 4 by 2 pixels in run-length codes.
std::string RunLengthBitmap(std::uint32_t compression, std::string_view codes) {
    return Bitmap(4, 2, compression == kRunLength8 ? 8 : 4, 0, compression).append(codes);
}

TEST(BitmapFileTest, CompleteBitmapIsNotTruncated) {
    EXPECT_FALSE(IsTruncatedBitmap(Bitmap(3, 2, 24, 24)));  // rows of 9 bytes take 12
    EXPECT_FALSE(IsTruncatedBitmap(Bitmap(3, -2, 24, 24)));
    EXPECT_FALSE(IsTruncatedBitmap(Bitmap(9, 5, 1, 20)));
    EXPECT_FALSE(IsTruncatedBitmap(Bitmap(3, 2, 24, 100)));
}

TEST(BitmapFileTest, OneMissingByteIsNoticed) {
    EXPECT_TRUE(IsTruncatedBitmap(Bitmap(4, 2, 24, 23)));
    EXPECT_TRUE(IsTruncatedBitmap(Bitmap(4, -2, 24, 23)));
    EXPECT_TRUE(IsTruncatedBitmap(Bitmap(32, 5, 1, 19)));
    EXPECT_TRUE(IsTruncatedBitmap(Bitmap(4, 2, 24, 0)));
}

TEST(BitmapFileTest, OnlyTheFillBytesOfTheLastRowMayBeMissing) {
    EXPECT_FALSE(IsTruncatedBitmap(Bitmap(3, 2, 24, 21)));
    EXPECT_TRUE(IsTruncatedBitmap(Bitmap(3, 2, 24, 20)));
    EXPECT_FALSE(IsTruncatedBitmap(Bitmap(3, -2, 24, 21)));
    EXPECT_TRUE(IsTruncatedBitmap(Bitmap(3, -2, 24, 20)));
    EXPECT_FALSE(IsTruncatedBitmap(Bitmap(9, 5, 1, 18)));
    EXPECT_TRUE(IsTruncatedBitmap(Bitmap(9, 5, 1, 17)));
    EXPECT_FALSE(IsTruncatedBitmap(Bitmap(1, 1, 8, 1)));
    EXPECT_TRUE(IsTruncatedBitmap(Bitmap(1, 1, 8, 0)));
}

TEST(BitmapFileTest, RowsOfAWideBitmapAreCounted) {
    EXPECT_FALSE(IsTruncatedBitmap(Bitmap(1001, 3, 24, 3 * 3004 - 1)));
    EXPECT_TRUE(IsTruncatedBitmap(Bitmap(1001, 3, 24, 3 * 3004 - 2)));
}

TEST(BitmapFileTest, PixelsBeginWhereTheHeaderSays) {
    std::string file = Bitmap(4, 2, 24, 24);
    file[10] = 55;
    EXPECT_TRUE(IsTruncatedBitmap(file));
    EXPECT_FALSE(IsTruncatedBitmap(file + "x"));
    file[13] = 1;  // far behind the end
    EXPECT_TRUE(IsTruncatedBitmap(file));
}

TEST(BitmapFileTest, BitFieldsCountAsUncompressed) {
    EXPECT_FALSE(IsTruncatedBitmap(Bitmap(4, 2, 32, 32, kBitFields)));
    EXPECT_TRUE(IsTruncatedBitmap(Bitmap(4, 2, 32, 31, kBitFields)));
    EXPECT_FALSE(IsTruncatedBitmap(Bitmap(3, 2, 16, 14, kBitFields)));
    EXPECT_TRUE(IsTruncatedBitmap(Bitmap(3, 2, 16, 13, kBitFields)));
}

TEST(BitmapFileTest, RunLengthCodesMustComeToTheEndOfTheBitmap) {
    for (const std::uint32_t compression : {kRunLength8, kRunLength4}) {
        const std::string rows = RunLengthBitmap(compression, {"\x04\x07\0\0\x04\x07", 6});
        EXPECT_FALSE(IsTruncatedBitmap(rows + std::string("\0\x01", 2)));
        EXPECT_FALSE(IsTruncatedBitmap(rows + std::string("\0\0\0\x01", 4)));
        EXPECT_FALSE(IsTruncatedBitmap(rows + std::string("\0\x01\x04", 3)));
        EXPECT_TRUE(IsTruncatedBitmap(rows + std::string("\0", 1)));
        EXPECT_TRUE(IsTruncatedBitmap(rows + std::string("\0\0", 2)));
        EXPECT_TRUE(IsTruncatedBitmap(rows));
        EXPECT_TRUE(IsTruncatedBitmap(RunLengthBitmap(compression, "")));
    }
}

TEST(BitmapFileTest, ColourOneOfARunIsNotTheEnd) {
    EXPECT_TRUE(IsTruncatedBitmap(RunLengthBitmap(kRunLength8, "\x04\x01\x04\x01")));
}

TEST(BitmapFileTest, SinglePixelsAndMovesAreNoCodes) {
    // What looks like the end stands in the pixels, which fill whole 2-byte words.
    const std::string end("\0\x01", 2);
    EXPECT_TRUE(IsTruncatedBitmap(RunLengthBitmap(kRunLength8, {"\0\x04\0\x01\0\x01", 6})));
    EXPECT_TRUE(IsTruncatedBitmap(RunLengthBitmap(kRunLength8, {"\0\x03\0\x01\0\x01", 6})));
    EXPECT_FALSE(IsTruncatedBitmap(RunLengthBitmap(kRunLength8, {"\0\x03\0\x01\0\x01", 6}) + end));
    EXPECT_TRUE(IsTruncatedBitmap(RunLengthBitmap(kRunLength4, {"\0\x04\0\x01", 4})));
    EXPECT_FALSE(IsTruncatedBitmap(RunLengthBitmap(kRunLength4, {"\0\x04\0\x01", 4}) + end));
    EXPECT_TRUE(IsTruncatedBitmap(RunLengthBitmap(kRunLength4, {"\0\x05\0\x01\0\x01", 6})));
    EXPECT_TRUE(IsTruncatedBitmap(RunLengthBitmap(kRunLength8, {"\0\x02\0\x01", 4})));
    EXPECT_FALSE(IsTruncatedBitmap(RunLengthBitmap(kRunLength8, {"\0\x02\0\x01", 4}) + end));
    // Read as codes, the pixels would lead behind the end.
    std::string pixels;
    for (int i = 0; i < 64; ++i) {
        pixels += std::string("\0\xFF", 2);
    }
    const std::string many("\x04\x07\0\xFF", 4);
    EXPECT_FALSE(IsTruncatedBitmap(RunLengthBitmap(kRunLength8, many + pixels + pixels + end)));
    EXPECT_FALSE(IsTruncatedBitmap(RunLengthBitmap(kRunLength4, many + pixels + end)));
    EXPECT_TRUE(IsTruncatedBitmap(RunLengthBitmap(kRunLength8, {"\0\xFF", 2})));
    EXPECT_TRUE(IsTruncatedBitmap(RunLengthBitmap(kRunLength8, {"\0\x02", 2})));
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
    EXPECT_FALSE(IsTruncatedBitmap(Bitmap(300, 200, 24, 10, 4)));  // a JPEG picture inside
    EXPECT_FALSE(IsTruncatedBitmap(Bitmap(300, 200, 1, 10, 3)));   // compressed like a fax
    EXPECT_FALSE(IsTruncatedBitmap(Bitmap(3, 0, 24, 0)));
    // The header of 12 bytes that OS/2 introduced; read as the other it would want more pixels.
    EXPECT_FALSE(IsTruncatedBitmap("BM" + Bytes(0, 8) + Bytes(26, 4) + Bytes(12, 4) + Bytes(4, 2) +
                                   Bytes(2, 2) + Bytes(1, 2) + Bytes(24, 2) + Bytes(0, 2) +
                                   Bytes(24, 2) + Bytes(0, 4) + std::string(20, 'x')));
}

}  // namespace
}  // namespace tarvex
