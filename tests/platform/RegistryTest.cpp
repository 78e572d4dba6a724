#include "platform/Registry.h"

#include <gtest/gtest.h>

#include "tests/support/FakeRegistry.h"

namespace tarvex {

namespace {

constexpr std::u16string_view kKey = u"SOFTWARE\\Firma";

/// The two views of one registry. They belong to a 64-bit system unless a test takes one away.
class RegistryViewsTest : public testing::Test {
protected:
    using Log = std::vector<std::u16string>;

    RegistryViewsTest() { own.view64 = &view64; }

    std::optional<std::string> Read() const {
        return own.ReadText(kHKeyLocalMachine, kKey, u"Pfad");
    }
    static void Store(FakeRegistry& view, std::string bytes) {
        view.SetText(kHKeyLocalMachine, kKey, u"Pfad", std::move(bytes));
    }

    const Log oneRead{u"read HKLM\\SOFTWARE\\Firma\\Pfad"};
    FakeRegistry own;
    FakeRegistry view64;
};

}  // namespace

TEST_F(RegistryViewsTest, TextOfTheOwnViewWinsAndIsTheOnlyRead) {
    Store(own, std::string("32\0", 3));
    Store(view64, std::string("64\0", 3));
    EXPECT_EQ(Read(), std::string("32\0", 3));
    EXPECT_EQ(own.log, oneRead);
    EXPECT_EQ(view64.log, Log());
    EXPECT_EQ(own.timesAsked, 0);
}

TEST_F(RegistryViewsTest, MissingTextIsReadOnceInThe64BitView) {
    Store(view64, std::string("64\0", 3));
    EXPECT_EQ(Read(), std::string("64\0", 3));
    EXPECT_EQ(own.log, oneRead);
    EXPECT_EQ(view64.log, oneRead);
}

TEST_F(RegistryViewsTest, TextMissingInBothViewsIsMissingAfterTwoReads) {
    EXPECT_EQ(Read(), std::nullopt);
    EXPECT_EQ(own.log, oneRead);
    EXPECT_EQ(view64.log, oneRead);
}

TEST_F(RegistryViewsTest, TextOfWhichNothingCountsIsReadInThe64BitView) {
    Store(view64, std::string("64\0", 3));
    for (const std::string& bytes :
         {std::string(), std::string(1, '\0'), std::string("\0Rest\0", 6), std::string("   ")}) {
        Store(own, bytes);
        EXPECT_EQ(Read(), std::string("64\0", 3)) << bytes;
    }
}

TEST_F(RegistryViewsTest, BlanksBeforeAZeroAreAText) {
    Store(own, std::string("  \0", 3));
    Store(view64, std::string("64\0", 3));
    EXPECT_EQ(Read(), std::string("  \0", 3));
    EXPECT_EQ(view64.log, Log());
}

TEST_F(RegistryViewsTest, ValueOfAnotherTypeIsReadInThe64BitView) {
    own.SetOther(kHKeyLocalMachine, kKey, u"Pfad");
    Store(view64, std::string("64\0", 3));
    EXPECT_EQ(Read(), std::string("64\0", 3));
}

TEST_F(RegistryViewsTest, EveryRootIsReadInTheOtherViewWithTheSameArguments) {
    for (const std::int32_t root :
         {kHKeyClassesRoot, kHKeyCurrentUser, kHKeyLocalMachine, kHKeyUsers}) {
        own.ReadText(root, u"A\\B", u"");
    }
    EXPECT_EQ(view64.log, (Log{u"read HKCR\\A\\B\\", u"read HKCU\\A\\B\\", u"read HKLM\\A\\B\\",
                               u"read HKU\\A\\B\\"}));
    EXPECT_EQ(own.log, view64.log);
}

TEST_F(RegistryViewsTest, NamesAreListedFromTheOwnViewAlone) {
    Store(view64, std::string("64\0", 3));
    EXPECT_TRUE(own.ListValueNames(kHKeyLocalMachine, kKey, 256, 4096).empty());
    EXPECT_EQ(own.log, Log{u"list HKLM\\SOFTWARE\\Firma"});
    EXPECT_EQ(view64.log, Log());
    EXPECT_EQ(own.timesAsked, 0);
}

TEST_F(RegistryViewsTest, A32BitSystemIsReadOnceWhateverIsThere) {
    own.view64 = nullptr;
    EXPECT_EQ(Read(), std::nullopt);
    EXPECT_EQ(own.log, oneRead);
    Store(own, std::string(1, '\0'));
    EXPECT_EQ(Read(), std::string(1, '\0'));
    EXPECT_EQ(own.log.size(), 2u);
}

TEST_F(RegistryViewsTest, SystemIsAskedOnceForAllMissingTexts) {
    for (int i = 0; i < 3; ++i) {
        Read();
    }
    EXPECT_EQ(own.timesAsked, 1);
    EXPECT_EQ(view64.log.size(), 3u);
}

TEST_F(RegistryViewsTest, A32BitSystemIsAskedOnceToo) {
    own.view64 = nullptr;
    for (int i = 0; i < 3; ++i) {
        Read();
    }
    EXPECT_EQ(own.timesAsked, 1);
}

TEST(CountingBytesTest, EndBeforeTheFirstZeroAndKeepBlanks) {
    EXPECT_EQ(CountingBytes(std::string_view(" a \0b\0", 6)), " a ");
    EXPECT_EQ(CountingBytes(std::string_view("\0b", 2)), "");
}

TEST(CountingBytesTest, WithoutAZeroBlanksAroundThemDoNotCount) {
    EXPECT_EQ(CountingBytes("  \ta b "), "\ta b");
    EXPECT_EQ(CountingBytes("  "), "");
    EXPECT_EQ(CountingBytes(""), "");
}

}  // namespace tarvex
