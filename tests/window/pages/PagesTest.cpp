#include "window/pages/Pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>

#include "configurator/FieldTexts.h"
#include "configurator/Model.h"
#include "text/Text.h"
#include "window/keylist/KeyListPart.h"
#include "window/pages/Questions.h"

namespace tarvex {
namespace {

std::string Utf8(std::u16string_view text) {
    return text::ToUtf8(text);
}

/// The access key of a label in lower case; 0 when it has none.
char16_t AccessKey(std::u16string_view label) {
    const std::size_t mark = label.find(u'&');
    return mark < label.size() - 1 ? text::Fold(label[mark + 1]) : u'\0';
}

bool NeedsAccessKey(const FormRow& row) {
    return row.id != 0 && row.kind != RowKind::Text;
}

TEST(PagesTest, NinePagesStandInTheOrderOfTheList) {
    std::vector<std::u16string_view> titles;
    for (const Page& page : Pages()) {
        titles.push_back(page.title);
    }
    EXPECT_EQ(titles, (std::vector<std::u16string_view>{
                          u"Anwendung", u"Access", u"Datenbank", u"Arbeitsgruppe", u"Startoptionen",
                          u"Startbild", u"Fehlermeldungen", u"Diagnose", u"Programmdatei"}));
}

TEST(PagesTest, EveryPageBeginsWithItsTitleAndHasHelp) {
    for (const Page& page : Pages()) {
        ASSERT_FALSE(page.rows.empty());
        EXPECT_EQ(page.rows.front().kind, RowKind::Heading) << Utf8(page.title);
        EXPECT_EQ(page.rows.front().label, page.title);
        EXPECT_FALSE(page.help.empty()) << Utf8(page.title);
    }
}

// A field without a row fails here: give it one in window/pages/PagesOf....cpp.
TEST(PagesTest, EveryFieldCanBeReachedExactlyOnce) {
    std::map<std::int32_t, int> rows;
    for (const Page& page : Pages()) {
        for (const FormRow& row : page.rows) {
            ++rows[row.id];
        }
    }
    for (const BrandField* field : FieldsByNumber()) {
        EXPECT_EQ(rows[RowOfField(field->number)], 1) << Utf8(field->name);
    }
}

TEST(PagesTest, RowOfAListIsThatOfItsFields) {
    EXPECT_EQ(RowOfField(kFieldAccPath), kFieldAccPath);
    EXPECT_EQ(RowOfField(kAccRegList.Field(1)), 6000);
    EXPECT_EQ(RowOfField(kAccRegList.Field(10)), 6000);
    EXPECT_EQ(RowOfField(kDBRegList.Field(5)), 6100);
    EXPECT_EQ(RowOfField(kPicRegList.Field(5)), 6200);
    EXPECT_EQ(RowOfField(kSysDBRegList.Field(5)), 6300);
    EXPECT_EQ(RowOfField(kFieldDBPath), kFieldDBPath);
}

TEST(PagesTest, PageOfAFieldIsTheOneWithItsRow) {
    EXPECT_EQ(PageOfField(kFieldAppName), 0U);
    EXPECT_EQ(PageOfField(kAccRegList.Field(7)), 1U);
    EXPECT_EQ(PageOfField(kFieldDBFilename), 2U);
    EXPECT_EQ(PageOfField(kFieldPwd), 3U);
    EXPECT_EQ(PageOfField(kFieldHCID), 6U);
    EXPECT_EQ(PageOfField(1011), 8U);
}

TEST(PagesTest, NumbersOfRowsAndButtonsAreUniqueOnTheirPage) {
    for (const Page& page : Pages()) {
        std::set<std::int32_t> seen;
        for (const FormRow& row : page.rows) {
            EXPECT_TRUE(row.id == 0 || seen.insert(row.id).second) << row.id;
            for (const FormButton& button : row.buttons) {
                EXPECT_TRUE(seen.insert(button.id).second) << button.id;
            }
        }
    }
}

TEST(PagesTest, AccessKeysAreUniqueOnTheirPageAndNotThoseOfTheMenus) {
    for (const Page& page : Pages()) {
        std::map<char16_t, std::string> taken;
        for (const char16_t menu : std::u16string_view(u"dbawh")) {
            taken[menu] = "menu";
        }
        const auto take = [&taken, &page](std::u16string_view label) {
            const char16_t key = AccessKey(label);
            ASSERT_NE(key, u'\0') << Utf8(page.title) << ": " << Utf8(label);
            EXPECT_TRUE(taken.emplace(key, Utf8(label)).second)
                << Utf8(page.title) << ": " << Utf8(label) << " and " << taken[key];
        };
        for (const FormRow& row : page.rows) {
            if (NeedsAccessKey(row)) {
                take(row.label);
            }
            for (const FormButton& button : row.buttons) {
                if (button.caption != u"...") {
                    take(button.caption);
                }
            }
        }
    }
}

TEST(PagesTest, RowOfAFieldShowsItsNameAndWhatItIsFor) {
    for (const Page& page : Pages()) {
        for (const FormRow& row : page.rows) {
            if (const std::int32_t number = FieldOfRow(row.id)) {
                const BrandField& field = *FindField(number);
                EXPECT_EQ(row.name, field.name);
                EXPECT_TRUE(text::EqualsIgnoreCase(row.hint, FieldPurpose(field)));
            }
        }
    }
}

TEST(PagesTest, ExplanationsBeginWithACapitalLetter) {
    std::vector<std::u16string> small;
    for (const Page& page : Pages()) {
        for (const FormRow& row : page.rows) {
            if (!row.hint.empty() && row.hint.front() == text::Fold(row.hint.front())) {
                small.push_back(row.hint);
            }
        }
    }
    EXPECT_EQ(small, std::vector<std::u16string>());
}

TEST(PagesTest, KindOfAFieldDecidesItsControl) {
    for (const Page& page : Pages()) {
        for (const FormRow& row : page.rows) {
            const BrandField* field = FindField(FieldOfRow(row.id));
            if (field == nullptr) {
                continue;
            }
            EXPECT_EQ(row.kind == RowKind::Check, field->kind == FieldKind::Flag)
                << Utf8(field->name);
            EXPECT_EQ(row.kind == RowKind::Secret, field->kind == FieldKind::Credential)
                << Utf8(field->name);
            EXPECT_EQ(row.buttons.size(), field->kind == FieldKind::Path ? 1U : 0U)
                << Utf8(field->name);
            const bool isLong =
                field->number == kFieldErrBoxText || field->number == kFieldErrDebugText;
            EXPECT_EQ(row.kind == RowKind::Lines, isLong) << Utf8(field->name);
        }
    }
}

TEST(PagesTest, BrowseButtonKnowsItsRow) {
    EXPECT_EQ(BrowseButton(kFieldDBPath), 2013);
    EXPECT_EQ(BrowseButton(1001), 3001);
    EXPECT_EQ(SecondRow(kFieldDBFilename), 4514);
    EXPECT_EQ(BrowseButton(4514), 5514);
    EXPECT_EQ(FieldOfRow(4514), kFieldDBFilename);
    EXPECT_EQ(FieldOfRow(kFieldDBFilename), kFieldDBFilename);
    EXPECT_EQ(FieldOfRow(kDatabasePlace), 0);
    EXPECT_EQ(FieldOfRow(kRowProgram), 0);
}

}  // namespace
}  // namespace tarvex
