#include "window/pages/PageFindings.h"

#include <gtest/gtest.h>

#include "text/Text.h"
#include "text/TextCodec1252.h"
#include "window/pages/Pages.h"
#include "window/pages/Questions.h"

namespace tarvex {
namespace {

constexpr PageMark kNone = PageMark::None;
using Marks = std::vector<PageMark>;

class PageFindingsTest : public testing::Test {
protected:
    std::vector<std::string> Lines() const {
        std::vector<std::string> lines;
        for (const FindingRow& row : FindingRows(document_, &result_)) {
            lines.push_back(text::ToUtf8(row.text));
        }
        return lines;
    }

    TextCodec1252 codec_;
    Document document_{{u"C:\\Prog\\Kunden.exe"}, {}, codec_};
    PreviewResult result_;
};

TEST_F(PageFindingsTest, PagesWithoutFindingsHaveNoMark) {
    EXPECT_EQ(PageMarks(document_, nullptr), Marks(Pages().size(), kNone));
    EXPECT_TRUE(FindingRows(document_, nullptr).empty());
}

TEST_F(PageFindingsTest, PageHasTheMarkOfItsWorst) {
    document_.SetText(kFieldFileID, u"KD-2004-1-neu");
    result_.findings = {
        {u"password-not-typable", {{}, 0, u"EditPwd", u"A."}},
        {u"not-a-switch", {{}, 0, u"Log", u"B."}},
        {u"path-rooted", {{}, 0, u"DBPath", u"C."}},
        {u"delay-without-picture", {{}, 0, u"PicDelay", u"D."}},
        {u"not-branded", {u"Kunden.exe", 0, {}, u"E."}},
        {u"trailing-comment", {{}, 0, u"AppName", u"F."}},
    };
    EXPECT_EQ(PageMarks(document_, &result_),
              (Marks{PageMark::Problem, kNone, PageMark::Warning, kNone, kNone, kNone, kNone,
                     PageMark::Error, kNone}));
}

TEST_F(PageFindingsTest, ParkedTextIsNoProblem) {
    document_.SetText(kFieldDBFilename, std::u16string(200, u'x'));
    EXPECT_EQ(PageMarks(document_, nullptr).at(2), PageMark::Problem);
    ChooseOption(document_, kDatabaseRegistry);
    EXPECT_EQ(PageMarks(document_, nullptr).at(2), kNone);
}

TEST_F(PageFindingsTest, ListHasProblemsFirstAndNamesNoFile) {
    document_.SetText(kFieldFileID, u"KD-2004-1-neu");
    result_.findings = {{u"path-rooted", {u"Kunden.exe", 0, u"DBPath", u"Beginnt mit '\\'."}},
                        {u"not-branded", {u"Kunden.exe", 0, {}, u"Nicht konfiguriert."}}};
    EXPECT_EQ(Lines(),
              (std::vector<std::string>{
                  "FileID: Der Wert ist zu lang: Er braucht 13 Zeichen, das Feld fasst 10.",
                  "DBPath: Warnung: Beginnt mit '\\'. [path-rooted]",
                  "Fehler: Nicht konfiguriert. [not-branded]"}));
}

TEST_F(PageFindingsTest, LineKnowsWhereToGo) {
    result_.findings = {{u"path-rooted", {{}, 0, u"DBPath", u"A."}},
                        {u"key-separator", {{}, 0, u"AccRegList02", u"B."}},
                        {u"not-branded", {{}, 0, {}, u"C."}}};
    document_.SetText(kAccRegList.Field(2), u"HKLM\\a\\\\b");
    const std::vector<FindingRow> rows = FindingRows(document_, &result_);
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0].severity, Severity::Warning);
    EXPECT_EQ(rows[0].field, kFieldDBPath);
    EXPECT_EQ(rows[0].page, 2U);
    EXPECT_EQ(rows[0].row, kDatabasePlace);
    EXPECT_EQ(rows[1].page, 1U);
    EXPECT_EQ(rows[1].row, 6000);
    EXPECT_EQ(rows[2].severity, Severity::Error);
    EXPECT_EQ(rows[2].field, 0);
    EXPECT_EQ(rows[2].row, 0);
}

}  // namespace
}  // namespace tarvex
