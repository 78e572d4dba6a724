#include "window/pages/Search.h"

#include <gtest/gtest.h>

#include "text/Text.h"
#include "text/TextCodec1252.h"
#include "window/keylist/KeyListPart.h"

namespace tarvex {
namespace {

class SearchTest : public testing::Test {
protected:
    SearchTest() {
        pages_ = {{u"Anwendung",
                   {},
                   {{RowKind::Heading, 0, u"Anwendung"},
                    {RowKind::Line, kFieldAppName, u"&Name", u"AppName", u"steht in Meldungen"},
                    {RowKind::Lines, kFieldErrBoxText, u"Te&xt", u"ErrBoxText",
                     u"unter jeder Fehlermeldung"}}},
                  {u"Datenbank",
                   {},
                   {{RowKind::Text, 0, u"So findet das Startprogramm die Datenbank:"},
                    {RowKind::Radio, 4001, u"neben dem Startprogramm"},
                    {RowKind::Line, kFieldDBFilename, u"&Datei", u"DBFilename", u"mit Endung"},
                    {RowKind::Check, kFieldRuntime, u"&Laufzeitmodus", u"Runtime", u""},
                    {RowKind::Buttons, 4010, u"Datenbank suchen"}}},
                  {u"Arbeitsgruppe",
                   {},
                   {{RowKind::Secret, kFieldPwd, u"&Kennwort", u"Pwd", u"zum Benutzer"}}}};
        KeyListPart::AppendRows(pages_[1].rows, kDBRegList, 1);
        document_.SetText(kFieldAppName, u"Kundendatei");
        document_.SetText(kFieldPwd, u"geheim");
        document_.SetText(kFieldRuntime, u"1");
        document_.SetText(kDBRegList.Field(3), u"HKLM\\SOFTWARE\\Firma\\Pfad");
    }

    /// "PAGE/ROW TEXT" of each hit, in UTF-8.
    std::vector<std::string> Find(std::u16string_view searched) const {
        std::vector<std::string> found;
        for (const SearchHit& hit : FindSettings(searched, pages_, document_)) {
            found.push_back(std::to_string(hit.page) + "/" + std::to_string(hit.row) + " " +
                            text::ToUtf8(hit.text));
        }
        return found;
    }

    using Hits = std::vector<std::string>;
    TextCodec1252 codec_;
    Document document_{{u"C:\\Prog\\Kunden.exe", {}, false, {}}, {}, codec_};
    std::vector<Page> pages_;
};

TEST_F(SearchTest, LabelsAndNamesComeBeforeExplanationsAndValues) {
    document_.SetText(kFieldErrBoxText, u"Zur Datei:\r\nsiehe Handbuch");
    EXPECT_EQ(Find(u"datei"), (Hits{"1/14 Datenbank: Datei (DBFilename)",
                                    "1/6100 Datenbank: Schlüsselliste (DBRegList01-10)",
                                    "0/1 Anwendung: Name (AppName) = Kundendatei",
                                    "0/68 Anwendung: Text (ErrBoxText) = Zur Datei: siehe "
                                    "Handbuch"}));
}

TEST_F(SearchTest, NamesThatBeginWithTheTextComeFirst) {
    EXPECT_EQ(Find(u"NAME"),
              (Hits{"0/1 Anwendung: Name (AppName)", "1/14 Datenbank: Datei (DBFilename)"}));
    EXPECT_EQ(Find(u"text"), (Hits{"0/68 Anwendung: Text (ErrBoxText)"}));
    EXPECT_EQ(Find(u"a"),
              (Hits{"0/0 Anwendung", "0/1 Anwendung: Name (AppName)", "2/0 Arbeitsgruppe",
                    "1/0 Datenbank", "1/4001 Datenbank: neben dem Startprogramm",
                    "1/14 Datenbank: Datei (DBFilename)", "1/41 Datenbank: Laufzeitmodus (Runtime)",
                    "1/6100 Datenbank: Schlüsselliste (DBRegList01-10)"}));
}

TEST_F(SearchTest, AccessKeysAreNoPartOfALabel) {
    EXPECT_EQ(Find(u"kennwort"), (Hits{"2/40 Arbeitsgruppe: Kennwort (Pwd)"}));
    EXPECT_EQ(Find(u"&"), Hits());
}

TEST_F(SearchTest, ExplanationIsFound) {
    EXPECT_EQ(Find(u"jeder fehler"), (Hits{"0/68 Anwendung: Text (ErrBoxText)"}));
}

TEST_F(SearchTest, KeyListIsFoundByItsFieldsAndTheirValues) {
    EXPECT_EQ(Find(u"dbreglist07"), (Hits{"1/6100 Datenbank: Schlüsselliste (DBRegList01-10)"}));
    EXPECT_EQ(Find(u"firma\\"), (Hits{"1/6100 Datenbank: Schlüsselliste (DBRegList01-10) = "
                                      "HKLM\\SOFTWARE\\Firma\\Pfad"}));
}

TEST_F(SearchTest, SecretsAreNotFound) {
    EXPECT_EQ(Find(u"geheim"), Hits());
    pages_[2].rows[0].kind = RowKind::Line;
    EXPECT_EQ(Find(u"geheim"), Hits());
}

TEST_F(SearchTest, SwitchIsNotFoundByItsStoredForm) {
    EXPECT_EQ(Find(u"1"), (Hits{"1/6100 Datenbank: Schlüsselliste (DBRegList01-10)"}));
}

TEST_F(SearchTest, PagesAreFound) {
    EXPECT_EQ(Find(u"arbeitsgr"), (Hits{"2/0 Arbeitsgruppe"}));
}

TEST_F(SearchTest, WhatIsOnlyShownIsNoSetting) {
    EXPECT_EQ(Find(u"führt zu"), Hits());
    EXPECT_EQ(Find(u"Datenbank suchen"), Hits());
    EXPECT_EQ(Find(u"so findet"), Hits());
}

TEST_F(SearchTest, BlanksFindNothing) {
    EXPECT_EQ(Find(u" \t"), Hits());
    EXPECT_EQ(Find(u" runtime "), (Hits{"1/41 Datenbank: Laufzeitmodus (Runtime)"}));
}

}  // namespace
}  // namespace tarvex
