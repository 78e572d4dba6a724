#include "window/pages/Questions.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "text/TextCodec1252.h"
#include "window/pages/Pages.h"

namespace tarvex {
namespace {

using Numbers = std::vector<std::int32_t>;

constexpr std::int32_t kList1 = kDBRegList.Field(1);

Document Make(const Settings& saved, bool readOnly = false) {
    static const TextCodec1252 codec;
    return {{u"C:\\Prog\\Kunden.exe", {}, readOnly, {}}, saved, codec};
}

Document With(const std::map<std::int32_t, std::u16string_view>& values, bool readOnly = false) {
    Settings saved;
    for (const auto& [number, value] : values) {
        saved.Set(number, value);
    }
    return Make(saved, readOnly);
}

/// The answer to the question that the field belongs to.
std::int32_t Chosen(const Document& document, std::int32_t field = kFieldDBPath) {
    return ChosenOption(document, *QuestionOfField(field)).row;
}

/// Numbers of the fields that would be saved with a text.
Numbers Filled(const Document& document) {
    Numbers numbers;
    const Settings values = document.Values();
    for (const auto& [number, entry] : values.Entries()) {
        if (!entry.value.empty()) {
            numbers.push_back(number);
        }
    }
    return numbers;
}

// What a file that was opened says.

TEST(QuestionsTest, AnswerOfAFileFollowsFromItsTexts) {
    EXPECT_EQ(Chosen(With({})), kDatabaseOwnName);
    EXPECT_EQ(Chosen(With({{kFieldDBFilename, u"a.mdb"}})), kDatabaseBeside);
    EXPECT_EQ(Chosen(With({{kFieldDBPath, u"D"}, {kFieldDBFilename, u"a.mdb"}})), kDatabasePlace);
    EXPECT_EQ(Chosen(With({{kFieldDBPath, u"D"}})), kDatabasePlace);
    EXPECT_EQ(Chosen(With({{kDBRegList.Field(10), u"HKLM\\a\\b"}})), kDatabaseRegistry);
}

TEST(QuestionsTest, ListGoesBeforePathAsForTheLauncher) {
    const Document document = With({{kList1, u"HKLM\\a\\b"}, {kFieldDBPath, u"D"}});
    EXPECT_EQ(Chosen(document), kDatabaseRegistry);
    EXPECT_FALSE(document.IsParked(kFieldDBPath));
    EXPECT_EQ(Filled(document), (Numbers{kFieldDBPath, kList1}));
}

TEST(QuestionsTest, TextOfBlanksIsNone) {
    Document document = With({});
    document.SetText(kFieldDBPath, u"  ");
    EXPECT_EQ(Chosen(document), kDatabaseOwnName);
}

TEST(QuestionsTest, AnswersOfTheOtherQuestions) {
    EXPECT_EQ(Chosen(With({}), kFieldAccPath), kAccessUnset);
    EXPECT_EQ(Chosen(With({{kFieldAccPath, u"C:\\A"}}), kFieldAccPath), kAccessPlace);
    EXPECT_EQ(Chosen(With({{kFieldAccPath, u"C:\\A"}, {kAccRegList.Field(2), u"HKLM\\a\\b"}}),
                     kFieldAccPath),
              kAccessRegistry);
    EXPECT_EQ(Chosen(With({{kFieldUser, u"Chef"}}), kFieldSysDBPath), kWorkgroupNone);
    EXPECT_EQ(Chosen(With({{kFieldSysDBFilename, u"a.mdw"}}), kFieldSysDBPath), kWorkgroupBeside);
    EXPECT_EQ(Chosen(With({{kFieldSysDBPath, u"D"}}), kFieldSysDBPath), kWorkgroupPlace);
    EXPECT_EQ(Chosen(With({{kSysDBRegList.Field(1), u"HKLM\\a\\b"}}), kFieldSysDBPath),
              kWorkgroupRegistry);
    EXPECT_EQ(Chosen(With({{kFieldPicDelay, u"1500"}}), kFieldPicPath), kPictureNone);
    EXPECT_EQ(Chosen(With({{kFieldPicFilename, u"a.bmp"}}), kFieldPicPath), kPictureBeside);
    EXPECT_EQ(Chosen(With({{kFieldPicPath, u"D"}}), kFieldPicPath), kPicturePlace);
    EXPECT_EQ(Chosen(With({{kPicRegList.Field(1), u"HKLM\\a\\b"}}), kFieldPicPath),
              kPictureRegistry);
}

// Giving an answer.

TEST(QuestionsTest, EachAnswerCanBeGivenAfterEachOther) {
    const std::map<std::int32_t, Numbers> expected = {
        {kDatabaseOwnName, {}},
        {kDatabaseBeside, {kFieldDBFilename}},
        {kDatabasePlace, {kFieldDBPath, kFieldDBFilename}},
        {kDatabaseRegistry, {kList1}}};
    for (const auto& [before, unused] : expected) {
        for (const auto& [after, filled] : expected) {
            Document document =
                With({{kList1, u"HKLM\\a\\b"}, {kFieldDBPath, u"D"}, {kFieldDBFilename, u"a.mdb"}});
            ChooseOption(document, before);
            ChooseOption(document, after);
            EXPECT_EQ(Chosen(document), after) << before << " to " << after;
            if (before != after || after != kDatabaseRegistry) {
                EXPECT_EQ(Filled(document), filled) << before << " to " << after;
            }
        }
    }
}

TEST(QuestionsTest, TextsOfOtherAnswersStayAndAreAskedForAtSaving) {
    Document document = With({{kFieldDBPath, u"D"}, {kFieldDBFilename, u"a.mdb"}});
    ChooseOption(document, kDatabaseRegistry);
    EXPECT_EQ(document.Text(kFieldDBPath), u"D");
    EXPECT_EQ(document.ParkedTexts(), (Numbers{kFieldDBPath, kFieldDBFilename}));
    EXPECT_EQ(Filled(document), Numbers());
    EXPECT_TRUE(document.IsDirty());

    ChooseOption(document, kDatabasePlace);
    EXPECT_TRUE(document.ParkedTexts().empty());
    EXPECT_FALSE(document.IsDirty());
}

TEST(QuestionsTest, FileNameIsTakenAlongToTheFixedPlace) {
    Document document = With({{kFieldDBFilename, u"a.mdb"}});
    ChooseOption(document, kDatabasePlace);
    EXPECT_EQ(Filled(document), Numbers{kFieldDBFilename});
    EXPECT_TRUE(document.ParkedTexts().empty());
}

TEST(QuestionsTest, SameAnswerOnceMoreParksNothing) {
    Document document = With({{kList1, u"HKLM\\a\\b"}, {kFieldDBPath, u"D"}});
    ChooseOption(document, kDatabaseRegistry);
    EXPECT_FALSE(document.IsParked(kFieldDBPath));
    ChooseOption(document, 4999);
    EXPECT_FALSE(document.IsDirty());
}

TEST(QuestionsTest, AnswerWithoutTextsHolds) {
    Document document = With({});
    for (const std::int32_t row :
         {kDatabaseRegistry, kDatabasePlace, kDatabaseBeside, kDatabaseOwnName}) {
        ChooseOption(document, row);
        EXPECT_EQ(Chosen(document), row);
        EXPECT_FALSE(document.IsDirty());
    }
}

TEST(QuestionsTest, PictureWithoutAnAnswerHasNoDelay) {
    Document document = With({{kFieldPicFilename, u"a.bmp"}, {kFieldPicDelay, u"1500"}});
    ChooseOption(document, kPictureNone);
    EXPECT_EQ(Filled(document), Numbers());
    EXPECT_EQ(document.ParkedTexts(), (Numbers{kFieldPicFilename, kFieldPicDelay}));
    ChooseOption(document, kPictureRegistry);
    EXPECT_EQ(Filled(document), Numbers{kFieldPicDelay});
}

TEST(QuestionsTest, UserAndPasswordDoNotDependOnTheWorkgroupFile) {
    Document document = With({{kFieldUser, u"Chef"}, {kFieldSysDBFilename, u"a.mdw"}});
    ChooseOption(document, kWorkgroupNone);
    EXPECT_EQ(Filled(document), Numbers{kFieldUser});
}

TEST(QuestionsTest, ReadOnlyDocumentKeepsItsAnswer) {
    Document document = With({{kFieldDBFilename, u"a.mdb"}}, true);
    ChooseOption(document, kDatabaseRegistry);
    EXPECT_EQ(Chosen(document), kDatabaseBeside);
}

// While texts change.

TEST(QuestionsTest, AnswerIsHeldWhileItsTextsAreDeleted) {
    Document document = With({{kFieldDBPath, u"D"}, {kFieldDBFilename, u"a.mdb"}});
    HoldOption(document, kFieldDBPath);
    document.SetText(kFieldDBPath, u"");
    EXPECT_EQ(Chosen(document), kDatabasePlace);
    document.SetText(kFieldDBFilename, u"");
    EXPECT_EQ(Chosen(document), kDatabasePlace);
}

TEST(QuestionsTest, HoldingChangesNoValue) {
    Document document = With({{kList1, u"HKLM\\a\\b"}, {kFieldDBPath, u"D"}});
    HoldOption(document, kList1);
    EXPECT_FALSE(document.IsDirty());
    EXPECT_TRUE(document.ParkedTexts().empty());
    EXPECT_EQ(Chosen(document), kDatabaseRegistry);
    HoldOption(document, kFieldAppName);
    EXPECT_FALSE(document.IsDirty());
}

TEST(QuestionsTest, ImportedTextsGiveTheirAnswer) {
    Document document = With({});
    ChooseOption(document, kDatabasePlace);
    Settings settings;
    settings.Set(kList1, u"HKLM\\a\\b");
    document.Enter(settings);
    EXPECT_EQ(Chosen(document), kDatabaseRegistry);
    // A second entry goes to a field that counts, too.
    HoldOption(document, kList1);
    EXPECT_FALSE(document.IsParked(kDBRegList.Field(2)));
    EXPECT_EQ(Chosen(document), kDatabaseRegistry);
}

TEST(QuestionsTest, AnswerHoldsAfterSaving) {
    Document document = With({{kFieldDBPath, u"D"}, {kFieldDBFilename, u"a.mdb"}});
    ChooseOption(document, kDatabaseOwnName);
    document.SetSaved(document.File(), document.Values());
    EXPECT_EQ(Chosen(document), kDatabaseOwnName);
    EXPECT_TRUE(document.ParkedTexts().empty());
    EXPECT_FALSE(document.IsDirty());
}

TEST(QuestionsTest, RevertedQuestionIsAsTheFileSays) {
    Document document = With({{kFieldDBPath, u"D"}, {kFieldDBFilename, u"a.mdb"}});
    ChooseOption(document, kDatabaseRegistry);
    document.SetText(kList1, u"HKLM\\a\\b");
    RevertQuestion(document, *QuestionOfOption(kDatabaseRegistry));
    EXPECT_EQ(Chosen(document), kDatabasePlace);
    EXPECT_FALSE(document.IsDirty());
}

// Rows.

TEST(QuestionsTest, RowsOfTheAnswerAreInUse) {
    Document document = With({});
    const auto inUse = [&document] {
        Numbers rows;
        for (const std::int32_t row : {14, 13, 4514, 6100, 6110}) {
            if (IsRowInUse(document, row)) {
                rows.push_back(row);
            }
        }
        return rows;
    };
    EXPECT_EQ(inUse(), Numbers());
    ChooseOption(document, kDatabaseBeside);
    EXPECT_EQ(inUse(), Numbers{14});
    ChooseOption(document, kDatabasePlace);
    EXPECT_EQ(inUse(), (Numbers{13, 4514}));
    ChooseOption(document, kDatabaseRegistry);
    EXPECT_EQ(inUse(), (Numbers{6100, 6110}));
    EXPECT_TRUE(IsRowInUse(document, kFieldAppName));
    EXPECT_TRUE(IsRowInUse(document, kDatabaseOwnName));
    EXPECT_FALSE(IsRowInUse(document, kFieldPicDelay));
}

TEST(QuestionsTest, RowToGoToIsWhereTheFieldCanBeEditedOrTheAnswerForIt) {
    Document document = With({});
    EXPECT_EQ(RowToGoTo(document, kFieldAppName), kFieldAppName);
    EXPECT_EQ(RowToGoTo(document, kFieldDBFilename), kDatabaseBeside);
    EXPECT_EQ(RowToGoTo(document, kFieldDBPath), kDatabasePlace);
    EXPECT_EQ(RowToGoTo(document, kList1), kDatabaseRegistry);
    EXPECT_EQ(RowToGoTo(document, kFieldPicDelay), kPictureBeside);
    ChooseOption(document, kDatabaseBeside);
    EXPECT_EQ(RowToGoTo(document, kFieldDBFilename), kFieldDBFilename);
    ChooseOption(document, kDatabasePlace);
    EXPECT_EQ(RowToGoTo(document, kFieldDBFilename), SecondRow(kFieldDBFilename));
    EXPECT_EQ(RowToGoTo(document, kFieldDBPath), kFieldDBPath);
    ChooseOption(document, kDatabaseRegistry);
    EXPECT_EQ(RowToGoTo(document, kList1), 6100);
}

TEST(QuestionsTest, EveryRowOfAQuestionStandsOnItsPage) {
    for (const Question& question : Questions()) {
        std::set<std::size_t> pages;
        for (const QuestionOption& option : question.options) {
            Numbers rows = option.rows;
            rows.push_back(option.row);
            for (const std::int32_t row : rows) {
                bool isFound = false;
                for (std::size_t page = 0; page < Pages().size(); ++page) {
                    for (const FormRow& each : Pages()[page].rows) {
                        if (each.id == row) {
                            pages.insert(page);
                            isFound = true;
                        }
                    }
                }
                EXPECT_TRUE(isFound) << row;
            }
        }
        EXPECT_EQ(pages.size(), 1U);
    }
}

}  // namespace
}  // namespace tarvex
