#include "branding/BrandFields.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "branding/BrandMark.h"

namespace tarvex {
namespace {

TEST(BrandFieldsTest, EveryNumberOccursOnce) {
    std::set<std::int32_t> numbers;
    for (const BrandField& field : kBrandFields) {
        numbers.insert(field.number);
    }
    std::set<std::int32_t> expected;
    for (std::int32_t number = 1; number <= 69; ++number) {
        if (number != 50 && number != 51) {
            expected.insert(number);
        }
    }
    EXPECT_EQ(numbers, expected);
}

TEST(BrandFieldsTest, OrderIsNotThatOfTheNumbers) {
    EXPECT_FALSE(std::is_sorted(
        kBrandFields.begin(), kBrandFields.end(),
        [](const BrandField& a, const BrandField& b) { return a.number < b.number; }));
}

TEST(BrandFieldsTest, AllMarksTogetherHaveTheKnownSize) {
    std::int32_t valueCharacters = 0;
    std::size_t recordBytes = 0;
    std::size_t largest = 0;
    for (const BrandField& field : kBrandFields) {
        valueCharacters += field.width;
        const std::size_t record = 4 +
                                   2 * (kMarkHeaderWithoutName + field.name.size() +
                                        static_cast<std::size_t>(field.width)) +
                                   2;
        recordBytes += record;
        largest = std::max(largest, record);
    }
    EXPECT_EQ(valueCharacters, 22947);
    EXPECT_EQ(recordBytes, 50082U);
    EXPECT_EQ(largest, 1070U);
}

TEST(BrandFieldsTest, FieldsAreFoundByNumber) {
    const BrandField* const field = FindBrandField(kFieldDBPath);
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(field->number, 13);
    EXPECT_EQ(field->width, 255);
    EXPECT_EQ(field->name, u"DBPath");
    EXPECT_EQ(field->kind, FieldKind::Path);
    EXPECT_EQ(FindBrandField(50), nullptr);
    EXPECT_EQ(FindBrandField(0), nullptr);
}

TEST(BrandFieldsTest, FieldsAreFoundByNameInAnyCase) {
    const BrandField* const field = FindBrandFieldByName(u"sysdbreglist10");
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(field->number, 63);
    EXPECT_EQ(FindBrandFieldByName(u"DBPat"), nullptr);
    EXPECT_EQ(FindBrandFieldByName(u""), nullptr);
}

TEST(BrandFieldsTest, NamedNumbersAreThoseOfTheFields) {
    const struct {
        std::int32_t number;
        std::u16string_view name;
    } named[] = {{kFieldAppName, u"AppName"},
                 {kAccRegList.Field(10), u"AccRegList10"},
                 {kDBRegList.Field(5), u"DBRegList05"},
                 {kPicRegList.Field(1), u"PicRegList01"},
                 {kFieldUser, u"User"},
                 {kFieldPwd, u"Pwd"},
                 {kFieldNoStartup, u"NoStartup"},
                 {kFieldSysDBFilename, u"SysDBFilename"},
                 {kFieldEditPwd, u"EditPwd"},
                 {kFieldDecompile, u"Decompile"},
                 {kFieldErrDebugText, u"ErrDebugText"}};
    for (const auto& [number, name] : named) {
        ASSERT_NE(FindBrandField(number), nullptr);
        EXPECT_EQ(FindBrandField(number)->name, name);
    }
}

}  // namespace
}  // namespace tarvex
