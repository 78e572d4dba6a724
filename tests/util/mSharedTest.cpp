#include "util/mShared.h"

#include <gtest/gtest.h>

namespace tarvex {
namespace {

std::u16string Appended(std::u16string target, std::u16string_view item, bool skipEmpty = false) {
    AppendWithSeparator(target, item, u" | ", skipEmpty);
    return target;
}

TEST(AppendWithSeparatorTest, ItemBecomesAnEmptyText) {
    EXPECT_EQ(Appended(u"", u"zwei"), u"zwei");
    EXPECT_EQ(Appended(u"", u""), u"");
}

TEST(AppendWithSeparatorTest, ItemFollowsTheSeparator) {
    EXPECT_EQ(Appended(u"eins", u"zwei"), u"eins | zwei");
}

TEST(AppendWithSeparatorTest, AnEmptyItemStillAddsTheSeparator) {
    EXPECT_EQ(Appended(u"eins", u""), u"eins | ");
}

TEST(AppendWithSeparatorTest, AnEmptyItemIsSkippedOnDemand) {
    EXPECT_EQ(Appended(u"eins", u"", true), u"eins");
    EXPECT_EQ(Appended(u"eins", u"zwei", true), u"eins | zwei");
    EXPECT_EQ(Appended(u"", u"zwei", true), u"zwei");
}

}  // namespace
}  // namespace tarvex
