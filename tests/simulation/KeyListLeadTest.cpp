#include "simulation/KeyListLead.h"

#include <gtest/gtest.h>

#include "app/StartPicture.h"
#include "tests/launch/LaunchFixture.h"
#include "text/Text.h"

namespace tarvex {
namespace {

class KeyListLeadTest : public ::testing::Test, protected LaunchWorld {
protected:
    KeyListLeadTest() {
        registry.SetTextZ(kHKeyCurrentUser, u"Software\\Firma", u"Pfad", "C:\\Daten");
        registry.SetTextZ(kHKeyCurrentUser, u"Software\\Firma", u"Leer", "");
        files.AddFile(u"C:\\Daten\\x.mdb");
    }

    /// The path with "+" when the file is there and "-" when not, or the reason why there is none.
    std::string Follow(std::u16string_view entry, const KeyListRules& rules = kDatabaseListRules) {
        const KeyListLead lead = FollowEntry(environment, rules, entry);
        EXPECT_NE(lead.path.empty(), lead.reason.empty());
        return text::ToUtf8(lead.path.empty() ? lead.reason
                                              : lead.path + (lead.exists ? u"+" : u"-"));
    }
};

TEST_F(KeyListLeadTest, EntryLeadsToAFileThatIsThereOrNot) {
    EXPECT_EQ(Follow(u"HKCU\\Software\\Firma\\Pfad%|Filename%|x.mdb"), "C:\\Daten\\x.mdb+");
    EXPECT_EQ(Follow(u"HKCU\\Software\\Firma\\Pfad%|SubDir|%alt%|Filename%|x.mdb"),
              "C:\\Daten\\alt\\x.mdb-");
}

TEST_F(KeyListLeadTest, EachListHasItsOwnRule) {
    EXPECT_EQ(Follow(u"HKCU\\Software\\Firma\\Pfad", kAccessListRules), "C:\\Daten\\msaccess.exe-");
    EXPECT_EQ(Follow(u"HKCU\\Software\\Firma\\Pfad", kSystemDatabaseListRules), "C:\\Daten-");
    EXPECT_EQ(Follow(u"HKCU\\Software\\Firma\\Pfad%|Filename%|x.mdb", kPictureListRules),
              "Fehler: Dateiname ist unzulässig");
}

TEST_F(KeyListLeadTest, ReasonSaysWhyThereIsNoPath) {
    EXPECT_EQ(Follow(u"Unsinn"), "Der Eintrag nennt keinen Registrierungswert.");
    EXPECT_EQ(Follow(u"HKXX\\Software\\Firma\\Pfad"),
              "Der Eintrag nennt keinen Registrierungswert.");
    EXPECT_EQ(Follow(u"HKCU\\Software\\Firma\\Fehlt"),
              "Der Schlüssel oder Wert fehlt oder ist leer.");
    EXPECT_EQ(Follow(u"HKCU\\Software\\Firma\\Leer"),
              "Der Schlüssel oder Wert fehlt oder ist leer.");
    EXPECT_EQ(Follow(u"HKCU\\Software\\Firma\\Pfad%|SubDir|%alt"),
              "Unterpfad (alt) angegeben, aber kein Dateiname. Pfad kann nicht aufgelöst werden.");
}

}  // namespace
}  // namespace tarvex
