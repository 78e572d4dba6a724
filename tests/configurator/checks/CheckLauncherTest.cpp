#include "tests/configurator/checks/CheckTesting.h"
#include "tests/support/SyntheticLauncher.h"

namespace tarvex {
namespace {

Texts CheckBytes(const std::string& bytes) {
    Texts lines;
    for (const Finding& finding : CheckLauncher(LauncherImage::Read(bytes, u"K.exe"), u"K.exe")) {
        lines.push_back(FindingLine(finding));
    }
    return lines;
}

SyntheticLauncher Branded() {
    SyntheticLauncher launcher;
    launcher.marker = u"@#BRANDED1#@";
    return launcher;
}

TEST(CheckLauncherTest, NothingIsWrongWithAConfiguredLauncher) {
    EXPECT_EQ(CheckBytes(Branded().Build()), Texts());
}

TEST(CheckLauncherTest, LauncherThatIsNotConfigured) {
    EXPECT_EQ(CheckBytes(SyntheticLauncher().Build()),
              Texts({u"K.exe: Fehler: Das Startprogramm ist noch nicht konfiguriert. "
                     u"[not-branded]"}));
}

TEST(CheckLauncherTest, SignatureOfAConfiguredLauncherIsANoteAndOfATemplateAnError) {
    SyntheticLauncher launcher = Branded();
    launcher.signatureSize = 4096;
    const std::u16string text =
        u"Die Datei trägt eine Signatur; erst konfigurieren, dann signieren. ";
    EXPECT_EQ(CheckBytes(launcher.Build()),
              Texts({u"K.exe: Hinweis: " + text + u"[not-changeable]"}));
    launcher.marker = u"@#BRANDED0#@";
    EXPECT_EQ(CheckBytes(launcher.Build()),
              Texts({u"K.exe: Fehler: " + text + u"[launcher-file]",
                     u"K.exe: Fehler: Das Startprogramm ist noch nicht konfiguriert. "
                     u"[not-branded]"}));
}

TEST(CheckLauncherTest, ProgramThatIsNoLauncherIsOneError) {
    SyntheticLauncher launcher;
    launcher.marks.clear();
    EXPECT_EQ(CheckBytes(launcher.Build()),
              Texts({u"K.exe: Fehler: Die Datei ist kein Startprogramm: Sie enthält keine Marken. "
                     u"[launcher-file]"}));
}

TEST(CheckLauncherTest, MarksOfAnotherVersionAreNotes) {
    SyntheticLauncher launcher = Branded();
    std::erase_if(launcher.marks, [](const SyntheticMark& mark) {
        return mark.name == u"Cmd" || mark.name == u"AccPath";
    });
    launcher.marks.push_back({70, 20, u"Neu", {}, 0});
    launcher.marks.push_back({50, 20, u"Alt", {}, 0});
    EXPECT_EQ(
        CheckBytes(launcher.Build()),
        Texts({u"K.exe: Hinweis: Das Startprogramm ist von einer anderen Version und hat diese "
               u"Felder nicht: AccPath, Cmd. [mark-missing]",
               u"K.exe: Hinweis: Das Startprogramm ist von einer anderen Version und hat "
               u"Felder, die hier unbekannt sind und bleiben, wie sie sind: 070 Neu, 050 Alt. "
               u"[mark-unknown]"}));
}

}  // namespace
}  // namespace tarvex
