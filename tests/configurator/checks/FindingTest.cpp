#include "configurator/checks/Finding.h"

#include <gtest/gtest.h>

#include <set>

#include "text/Text.h"

namespace tarvex {
namespace {

TEST(FindingTest, LineNamesPlaceSeverityTextAndIdentifier) {
    EXPECT_EQ(FindingLine({u"path-rooted", {u"K.ini", 12, u"DBPath", u"Eins\r\nZwei."}}),
              u"K.ini, Zeile 12, DBPath: Warnung: Eins Zwei. [path-rooted]");
    EXPECT_EQ(FindingLine({u"path-quoted", {{}, 0, {}, u"Nein."}}), u"Fehler: Nein. [path-quoted]");
    EXPECT_EQ(FindingLine({u"mark-unknown", {u"K.exe", 0, {}, u"Ja."}}),
              u"K.exe: Hinweis: Ja. [mark-unknown]");
}

TEST(FindingTest, EveryKindHasAnIdentifierOfItsOwnAndOneLineOfMeaning) {
    std::set<std::u16string_view> seen;
    for (const FindingKind& kind : kFindingKinds) {
        EXPECT_TRUE(seen.insert(kind.id).second) << text::ToUtf8(kind.id);
        EXPECT_EQ(kind.id.find_first_not_of(u"abcdefghijklmnopqrstuvwxyz0123456789-"),
                  std::u16string_view::npos)
            << text::ToUtf8(kind.id);
        EXPECT_TRUE(kind.meaning.ends_with(u'.')) << text::ToUtf8(kind.id);
        EXPECT_EQ(kind.meaning.find(u'\n'), std::u16string_view::npos);
    }
}

TEST(FindingTest, KindIsFoundByItsExactIdentifier) {
    ASSERT_NE(FindFindingKind(u"access-default"), nullptr);
    EXPECT_EQ(FindFindingKind(u"access-default")->severity, Severity::Warning);
    EXPECT_EQ(FindFindingKind(u"Access-Default"), nullptr);
    EXPECT_EQ(FindFindingKind(u""), nullptr);
}

TEST(FindingTest, ProblemsBecomeFindingsInTheirOrder) {
    const Findings findings =
        AsFindings(u"settings-file", {{u"a", 1, {}, u"x"}, {u"a", 2, {}, u"y"}});
    ASSERT_EQ(findings.size(), 2U);
    EXPECT_EQ(FindingLine(findings[1]), u"a, Zeile 2: Fehler: y [settings-file]");
}

}  // namespace
}  // namespace tarvex
