#include <gtest/gtest.h>

#include "platform/win32/Win32TextCodec.h"
#include "text/CodePages.h"

namespace tarvex {

namespace {

/// A code page as the system converts it.
class SystemCodePage : public Win32TextCodec {
public:
    explicit SystemCodePage(unsigned number) : Win32TextCodec(number) {}
};

TEST(CodePagesTest, EveryByteAndCharacterIsConvertedAsTheSystemDoes) {
    for (const int number : kCodePages) {
        const auto codec = MakeCodePage(number);
        const SystemCodePage system(static_cast<unsigned>(number));
        for (int code = 0; code < 256; ++code) {
            const std::string byte(1, static_cast<char>(code));
            EXPECT_EQ(codec->FromAnsi(byte), system.FromAnsi(byte)) << number << ' ' << code;
        }
        std::u16string all;
        for (char16_t unit = 0; unit < 0xD800; ++unit) {
            all += unit;
        }
        for (char16_t unit = 0xE000; unit < 0xFFFF; ++unit) {
            all += unit;
        }
        const std::string mine = codec->ToAnsi(all);
        const std::string theirs = system.ToAnsi(all);
        ASSERT_EQ(mine.size(), theirs.size()) << number;
        for (std::size_t i = 0; i < all.size(); ++i) {
            EXPECT_EQ(mine[i], theirs[i]) << number << ' ' << std::hex << int{all[i]};
        }
    }
}

}  // namespace

}  // namespace tarvex
