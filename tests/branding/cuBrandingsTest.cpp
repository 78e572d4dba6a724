#include "branding/cuBrandings.h"

#include <gtest/gtest.h>

#include <type_traits>

#include "tests/branding/BrandTesting.h"

namespace tarvex {
namespace {

template <class T>
concept CanBeCleaned = requires(T item) {
    item.ClearDirty();
}
|| requires(T item) {
    item.SetDirty(false);
};
static_assert(!CanBeCleaned<cuBranding>, "only the collection takes back what was changed");

constexpr std::u16string_view kMissingKey = u"Ungültiger Prozeduraufruf oder ungültiges Argument";

std::u16string Names(const cuBrandings& brandings) {
    std::u16string names;
    for (const cuBranding& item : brandings) {
        names += item.Name() + u";";
    }
    return names;
}

class cuBrandingsTest : public testing::Test {
protected:
    cuBrandingsTest() {
        brandings.Add(u"DBPath", u"", 13, 255);
        brandings.Add(u"AppName", u"Kunden", 1, 50);
        brandings.Add(u"HCID", u"", 66, 5);
    }

    cuBrandings brandings;
};

TEST(cuBrandingTest, NewItemIsEmptyAndClean) {
    const cuBranding item;
    EXPECT_EQ(item.Index(), 0);
    EXPECT_EQ(item.Name(), u"");
    EXPECT_EQ(item.NumChars(), 0);
    EXPECT_EQ(item.StartPosition(), 0);
    EXPECT_EQ(item.Value(), u"");
    EXPECT_FALSE(item.Dirty());
}

TEST(cuBrandingTest, DifferentValueMakesItDirty) {
    cuBranding item;
    item.SetValue(u"");
    EXPECT_FALSE(item.Dirty());
    item.SetValue(u"ABC");
    EXPECT_EQ(item.Value(), u"ABC");
    EXPECT_TRUE(item.Dirty());
}

TEST(cuBrandingTest, OtherPropertiesDoNotMakeItDirty) {
    cuBranding item;
    item.SetIndex(13);
    item.SetName(u"DBPath");
    item.SetNumChars(255);
    item.SetStartPosition(4711);
    EXPECT_FALSE(item.Dirty());
    EXPECT_EQ(item.Index(), 13);
    EXPECT_EQ(item.Name(), u"DBPath");
    EXPECT_EQ(item.NumChars(), 255);
    EXPECT_EQ(item.StartPosition(), 4711);
}

TEST_F(cuBrandingsTest, OtherCaseIsADifferentValue) {
    cuBranding& item = brandings.Item(1);
    item.SetValue(u"ABC");
    brandings.UnDirtyAll();
    item.SetValue(u"ABC");
    EXPECT_FALSE(item.Dirty());
    item.SetValue(u"abc");
    EXPECT_TRUE(item.Dirty());
    EXPECT_EQ(item.Value(), u"abc");
    item.SetValue(u"abc");
    EXPECT_TRUE(item.Dirty());
    item.SetValue(u"ABC");
    EXPECT_TRUE(item.Dirty());
}

TEST_F(cuBrandingsTest, ItemAddedWithAValueIsDirty) {
    EXPECT_TRUE(brandings.Item(1).Dirty());
    EXPECT_FALSE(brandings.Item(13).Dirty());
    EXPECT_TRUE(brandings.Dirty());
    brandings.UnDirtyAll();
    EXPECT_FALSE(brandings.Item(1).Dirty());
    EXPECT_FALSE(brandings.Dirty());
}

TEST_F(cuBrandingsTest, AddReturnsTheStoredItem) {
    cuBranding& item = brandings.Add(u"Cmd", u"x", 48, 100);
    EXPECT_EQ(&item, &brandings.Item(48));
    EXPECT_EQ(item.Index(), 48);
    EXPECT_EQ(item.NumChars(), 100);
    EXPECT_EQ(item.StartPosition(), 0);
}

TEST_F(cuBrandingsTest, SecondItemOfANumberIsRefused) {
    ExpectError(ErrorOf([&] { brandings.Add(u"Zweiter", u"x", 13, 1); }), 457,
                u"Dieser Schlüssel ist bereits einem Element dieser Auflistung zugeordnet",
                u"cuBrandings: Add");
    EXPECT_EQ(Names(brandings), u"DBPath;AppName;HCID;");
    EXPECT_EQ(brandings.Item(13).Value(), u"");
}

TEST_F(cuBrandingsTest, UnknownNumberIsAnError) {
    EXPECT_EQ(brandings.Item(13).Name(), u"DBPath");
    ExpectError(ErrorOf([&] { brandings.Item(14); }), 5, kMissingKey, u"cuBrandings: Item");
    ExpectError(ErrorOf([&] { brandings.Remove(14); }), 5, kMissingKey, u"cuBrandings: Remove");
}

TEST_F(cuBrandingsTest, NumbersAreNotChecked) {
    brandings.Add(u"Null", u"", 0, 0);
    brandings.Add(u"Groß", u"", 123456, 1);
    EXPECT_EQ(brandings.Item(0).Name(), u"Null");
    EXPECT_EQ(brandings.Item(123456).Name(), u"Groß");
}

TEST_F(cuBrandingsTest, ItemStaysUnderTheNumberItWasAddedWith) {
    brandings.Item(13).SetIndex(14);
    EXPECT_EQ(brandings.Item(13).Index(), 14);
    EXPECT_EQ(ErrorOf([&] { brandings.Item(14); }).number, 5);
}

TEST_F(cuBrandingsTest, NameIsFoundInAnyCaseAndFirstInOrder) {
    EXPECT_EQ(brandings.ItemByName(u"dbpath"), &brandings.Item(13));
    EXPECT_EQ(brandings.ItemByName(u"DBPat"), nullptr);
    brandings.Add(u"dbPATH", u"", 99, 1);
    EXPECT_EQ(brandings.ItemByName(u"dbPATH"), &brandings.Item(13));
    brandings.Remove(13);
    EXPECT_EQ(brandings.ItemByName(u"DBPath"), &brandings.Item(99));
}

TEST_F(cuBrandingsTest, EnumerationKeepsTheOrderOfAdding) {
    EXPECT_EQ(brandings.Count(), 3U);
    EXPECT_EQ(Names(brandings), u"DBPath;AppName;HCID;");
    brandings.Remove(1);
    EXPECT_EQ(Names(brandings), u"DBPath;HCID;");
    brandings.Add(u"AppName", u"", 1, 50);
    EXPECT_EQ(Names(brandings), u"DBPath;HCID;AppName;");
}

TEST_F(cuBrandingsTest, ClearEmpties) {
    brandings.Clear();
    EXPECT_EQ(brandings.Count(), 0U);
    EXPECT_FALSE(brandings.Dirty());
    EXPECT_TRUE(brandings.begin() == brandings.end());
}

}  // namespace
}  // namespace tarvex
