#include "configurator/program/VersionBlock.h"

#include <gtest/gtest.h>

#include "tests/support/SyntheticRoom.h"

namespace tarvex {
namespace {

using Numbers = VersionBlock::Numbers;

VersionBlock Read(const std::string& bytes) {
    const std::optional<VersionBlock> block = VersionBlock::Read(bytes);
    EXPECT_TRUE(block.has_value());
    return block.value_or(VersionBlock());
}

TEST(VersionBlockTest, TextsAndNumbersAreRead) {
    const VersionBlock block =
        Read(SyntheticVersion({{u"CompanyName", u"Müller & Söhne"}, {u"FileVersion", u"1.2"}}));
    EXPECT_EQ(block.Text(u"CompanyName"), u"Müller & Söhne");
    EXPECT_EQ(block.Text(u"FileVersion"), u"1.2");
    EXPECT_EQ(block.Text(u"Comments"), u"");
    EXPECT_EQ(block.FileNumbers(), Numbers({1, 2, 3, 4}));
    EXPECT_EQ(block.ProductNumbers(), Numbers({5, 6, 7, 65535}));
}

TEST(VersionBlockTest, BuiltBlockIsTheOneThatWasRead) {
    for (const std::u16string text : {u"", u"a", u"ab", u"abc", u"Größe „16“ – 20 €"}) {
        const std::string bytes =
            SyntheticVersion({{u"CompanyName", text}, {u"InternalName", u"x"}, {u"B", text}});
        EXPECT_EQ(Read(bytes).Build(), bytes);
    }
}

TEST(VersionBlockTest, ChangedBlockIsTheOneOfTheChangedTexts) {
    VersionBlock block =
        Read(SyntheticVersion({{u"CompanyName", u"Tarvex"}, {u"Comments", u"lang, sehr lang"}}));
    block.SetText(u"CompanyName", u"Müller & Söhne GmbH");
    block.SetText(u"Comments", u"");
    block.SetText(u"FileVersion", u"2");
    EXPECT_EQ(block.Build(), SyntheticVersion({{u"CompanyName", u"Müller & Söhne GmbH"},
                                               {u"Comments", u""},
                                               {u"FileVersion", u"2"}}));
}

TEST(VersionBlockTest, EmptyTextIsOneZeroAndNeverOfLengthZero) {
    VersionBlock block = Read(SyntheticVersion({{u"Comments", u"x"}}));
    block.SetText(u"Comments", u"");
    const std::string bytes = block.Build();
    const std::string key("C\0o\0m\0m\0e\0n\0t\0s\0\0\0", 18);
    const std::size_t at = bytes.find(key);
    ASSERT_NE(at, std::string::npos);
    // 26 bytes, one character, a text; the key; a zero.
    EXPECT_EQ(bytes.substr(at - 6, 26),
              std::string("\x1a\0\1\0\1\0", 6) + key + std::string(2, '\0'));
    EXPECT_EQ(Read(bytes).Text(u"Comments"), u"");
}

TEST(VersionBlockTest, NumbersArePatchedInTheFixedRecord) {
    VersionBlock block = Read(SyntheticVersion({{u"A", u"a"}}));
    block.SetFileNumbers({65535, 0, 10, 300});
    EXPECT_EQ(block.FileNumbers(), Numbers({65535, 0, 10, 300}));
    EXPECT_EQ(block.ProductNumbers(), Numbers({5, 6, 7, 65535}));
    block.SetProductNumbers({0, 0, 0, 1});
    EXPECT_EQ(block.Build().substr(40 + 8, 16),
              std::string("\0\0\xff\xff\x2c\1\x0a\0\0\0\0\0\1\0\0\0", 16));
}

TEST(VersionBlockTest, EveryOtherBlockIsNotRead) {
    const std::string bytes = SyntheticVersion({{u"CompanyName", u"Tarvex"}, {u"B", u"b"}});
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        EXPECT_FALSE(VersionBlock::Read(bytes.substr(0, size))) << size;
    }
    EXPECT_FALSE(VersionBlock::Read(bytes + std::string(4, '\0')));
    // Keys and texts may be any; all else has one form.
    std::size_t refused = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        std::string changed = bytes;
        changed[i] = static_cast<char>(changed[i] ^ 1);
        refused += VersionBlock::Read(changed) ? 0U : 1U;
    }
    EXPECT_GT(refused, bytes.size() / 3);
}

TEST(VersionBlockTest, TextWithoutItsZeroIsNotRead) {
    std::string bytes = SyntheticVersion({{u"CompanyName", u"Tarvex"}});
    const std::size_t end = bytes.find(std::string("x\0\0", 3));
    ASSERT_NE(end, std::string::npos);
    bytes[end + 2] = '!';
    EXPECT_FALSE(VersionBlock::Read(bytes));
}

TEST(VersionBlockTest, NumbersOfAText) {
    const auto numbers = [](std::u16string_view text) {
        const VersionNumbers read = ReadVersionNumbers(text);
        EXPECT_EQ(read.problem, u"");
        return read.numbers;
    };
    EXPECT_EQ(numbers(u"1.2.3.4"), Numbers({1, 2, 3, 4}));
    EXPECT_EQ(numbers(u"7"), Numbers({7, 0, 0, 0}));
    EXPECT_EQ(numbers(u"1.0.001"), Numbers({1, 0, 1, 0}));
    EXPECT_EQ(numbers(u"1, 2, 3, 4"), Numbers({1, 2, 3, 4}));
    EXPECT_EQ(numbers(u"65535.65535.65535.65535"), Numbers({65535, 65535, 65535, 65535}));
    EXPECT_EQ(numbers(u"2026.11 Beta 3"), Numbers({2026, 11, 0, 0}));
    EXPECT_EQ(numbers(u"1.2b"), Numbers({1, 2, 0, 0}));
    EXPECT_EQ(numbers(u"3.x"), Numbers({3, 0, 0, 0}));
    EXPECT_EQ(numbers(u"3."), Numbers({3, 0, 0, 0}));
    EXPECT_EQ(numbers(u""), Numbers({0, 0, 0, 0}));
}

TEST(VersionBlockTest, TextWithoutUsableNumbersIsRefused) {
    EXPECT_EQ(ReadVersionNumbers(u"Frühling").problem,
              u"Der Text beginnt nicht mit einer Versionsnummer wie 1.2.3.");
    EXPECT_EQ(ReadVersionNumbers(u".5").problem,
              u"Der Text beginnt nicht mit einer Versionsnummer wie 1.2.3.");
    EXPECT_EQ(ReadVersionNumbers(u"1.65536").problem,
              u"Eine Zahl der Versionsnummer ist größer als 65535.");
    EXPECT_EQ(ReadVersionNumbers(u"99999999999999999999").problem,
              u"Eine Zahl der Versionsnummer ist größer als 65535.");
    EXPECT_EQ(ReadVersionNumbers(u"1.2.3.4.5").problem,
              u"Die Versionsnummer hat mehr als vier Zahlen.");
}

}  // namespace
}  // namespace tarvex
