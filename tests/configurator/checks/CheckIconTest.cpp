#include <gtest/gtest.h>

#include "configurator/checks/Checks.h"
#include "configurator/checks/FileCheck.h"
#include "configurator/program/ProgramFields.h"
#include "tests/configurator/ConfiguratorWorld.h"
#include "tests/support/IconBytes.h"

namespace tarvex {
namespace {

using Texts = std::vector<std::u16string>;

/// The findings about the icon.
Texts Found(const Settings& settings) {
    Texts lines;
    for (const Finding& finding : CheckSettings(settings, u"K.ini")) {
        if (finding.id.starts_with(u"icon")) {
            lines.push_back(FindingLine(finding));
        }
    }
    return lines;
}

Settings With(std::string icon) {
    Settings settings;
    settings.Set(kFieldIconFile, u"a.ico", 3);
    settings.SetIcon(std::move(icon));
    return settings;
}

TEST(CheckIconTest, IconWithTheThreeSizesIsRight) {
    EXPECT_EQ(
        Found(With(IconBytes({BitmapImage(16, 16), BitmapImage(32, 32), BitmapImage(48, 48)}))),
        Texts());
    EXPECT_EQ(Found({}), Texts());
}

TEST(CheckIconTest, EachMissingSizeIsAWarning) {
    EXPECT_EQ(
        Found(With(IconBytes({BitmapImage(32, 32), BitmapImage(48, 20), BitmapImage(24, 24)}))),
        Texts({u"K.ini, Zeile 3, IconFile: Warnung: Dem Symbol fehlt ein Bild von 16 x 16 mit 32 "
               u"Bit Farbtiefe; Windows zeigt an dessen Stelle ein anderes, verkleinert oder "
               u"vergrößert. [icon-size-missing]",
               u"K.ini, Zeile 3, IconFile: Warnung: Dem Symbol fehlt ein Bild von 48 x 48 mit 32 "
               u"Bit Farbtiefe; Windows zeigt an dessen Stelle ein anderes, verkleinert oder "
               u"vergrößert. [icon-size-missing]"}));
    EXPECT_EQ(Found(With(IconBytes({BitmapImage(16, 16), BitmapImage(48, 48)}))).size(), 1U);
}

TEST(CheckIconTest, ImagesThatAreLeftOutAreNotes) {
    EXPECT_EQ(Found(With(IconBytes({BitmapImage(16, 16), BitmapImage(32, 32), BitmapImage(48, 48),
                                    BitmapImage(16, 16, 4), BitmapImage(128, 128)}))),
              Texts({u"K.ini, Zeile 3, IconFile: Hinweis: Nicht ins Programm kommt Bild 4: 16 x 16 "
                     u"mit 4 Bit Farbtiefe statt 32. [icon-left-out]",
                     u"K.ini, Zeile 3, IconFile: Hinweis: Nicht ins Programm kommt 128 x 128: kein "
                     u"Platz im Programm. [icon-left-out]"}));
}

TEST(CheckIconTest, MissingIconFileIsAnError) {
    ConfiguratorWorld world;
    Texts lines;
    for (const Finding& finding :
         CheckFile("IconFile = a.ico\n", u"v/K.ini", world.codec, {&world.store, u"v"})) {
        if (finding.id == u"icon-file") {
            lines.push_back(FindingLine(finding));
        }
    }
    EXPECT_EQ(lines, Texts({u"v/K.ini, Zeile 1, IconFile: Fehler: v/a.ico: Die Datei ist nicht "
                            u"vorhanden. [icon-file]"}));
}

TEST(CheckIconTest, TextsOfTheProgramMayHoldWhatOtherValuesShouldNot) {
    Settings settings;
    settings.Set(kFieldLegalCopyright, u"©\u00a02026 Firma ; alle Rechte");
    for (const Finding& finding : CheckSettings(settings, u"K.ini")) {
        EXPECT_NE(finding.problem.field, u"LegalCopyright") << testing::PrintToString(finding.id);
    }
}

}  // namespace
}  // namespace tarvex
