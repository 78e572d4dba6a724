#include "tests/configurator/checks/CheckTesting.h"

namespace tarvex {
namespace {

struct TargetFields {
    std::int32_t list;
    std::int32_t path;
    std::int32_t fileName;
};

Texts CheckEntry(std::u16string_view entry) {
    return Check({{kDBRegList.Field(1), entry}});
}

TEST(CheckKeyListsTest, EntriesThatNameNoRegistryValue) {
    EXPECT_EQ(CheckEntry(u"FOO\\Key\\Value"),
              Texts({u"DBRegList01: Fehler: Der Eintrag 'FOO\\Key\\Value' beginnt nicht mit HKLM, "
                     u"HKCU, HKCR oder HKU. [key-list-entry]"}));
    EXPECT_EQ(CheckEntry(u"Pfad"), Texts({u"DBRegList01: Fehler: Der Eintrag 'Pfad' ist kein "
                                          u"Registrierungsschlüssel der Form "
                                          u"HKLM\\Schlüssel\\Wertname. [key-list-entry]"}));
}

TEST(CheckKeyListsTest, SubFolderWithoutAFileLeadsNowhereButToAccess) {
    const std::u16string_view entry = u"HKLM\\A\\B%|SubDir|%x";
    for (const std::int32_t number :
         {kDBRegList.Field(1), kSysDBRegList.Field(10), kPicRegList.Field(3)}) {
        const Texts found =
            Check({{kFieldDBFilename, u""}, {kFieldPicDelay, u"0"}, {number, entry}});
        ASSERT_EQ(found.size(), 1U) << number;
        EXPECT_EQ(
            found[0],
            std::u16string(FindBrandField(number)->name) +
                u": Fehler: Der Eintrag 'HKLM\\A\\B%|SubDir|%x' nennt einen Unterordner, aber "
                u"keinen Dateinamen; er führt nie zu einer Datei. [sub-folder-without-file]");
    }
    EXPECT_EQ(Check({{kAccRegList.Field(1), entry}, {kFieldDBFilename, u"a.mdb"}}), Texts());
    EXPECT_EQ(CheckEntry(u"HKLM\\A\\B%|SubDir|%x%|Filename%|y.mdb"), Texts());
    EXPECT_EQ(CheckEntry(u"HKLM\\A\\B"), Texts());
}

TEST(CheckKeyListsTest, FileNameOfAnAccessEntryIsIgnored) {
    EXPECT_EQ(Check({{kAccRegList.Field(1), u"HKLM\\A\\B%|Filename%|access.exe"},
                     {kFieldDBFilename, u"a.mdb"}}),
              Texts({u"AccRegList01: Warnung: Der Eintrag 'HKLM\\A\\B%|Filename%|access.exe' nennt "
                     u"einen Dateinamen, der hier nicht beachtet wird; gesucht wird immer "
                     u"msaccess.exe. [access-entry-file]"}));
}

TEST(CheckKeyListsTest, SeveralWholeEntriesInAFieldAreMeantSo) {
    EXPECT_EQ(CheckEntry(u"HKLM\\A\\B%|%HKLM\\A\\C"), Texts());
}

TEST(CheckKeyListsTest, ListMarkerInAFileNameDividesAnEntry) {
    const std::u16string divided =
        u"DBRegList01: Warnung: Der Wert enthält die Listenmarke '%|%'; er wird dort in mehrere "
        u"Einträge geteilt. [key-list-divided]";
    EXPECT_EQ(CheckEntry(u"HKLM\\A\\B%|Filename%|%x.mdb"),
              Texts({divided,
                     u"DBRegList01: Fehler: '%|Filename' ist keine Marke; es gibt '%|SubDir|%' vor "
                     u"einem Unterordner, '%|Filename%|' vor einem Dateinamen und '%|%' zwischen "
                     u"Einträgen. [key-list-marker]",
                     u"DBRegList01: Fehler: Der Eintrag 'x.mdb' ist kein Registrierungsschlüssel "
                     u"der Form HKLM\\Schlüssel\\Wertname. [key-list-entry]"}));
}

TEST(CheckKeyListsTest, PictureFieldsHoldOneEntryOnly) {
    EXPECT_EQ(
        Check({{kPicRegList.Field(1), u"HKLM\\A\\B%|Filename%|a%|%x.bmp"}, {kFieldPicDelay, u"1"}})
            .front(),
        u"PicRegList01: Fehler: Der Wert enthält die Listenmarke '%|%'; hier steht nur ein "
        u"Eintrag je Feld. [key-list-not-divided]");
}

TEST(CheckKeyListsTest, MisspeltMarkersAreAnError) {
    const auto wrong = [](std::u16string_view marker) {
        return Texts({u"DBRegList01: Fehler: '" + std::u16string(marker) +
                      u"' ist keine Marke; es gibt '%|SubDir|%' vor einem Unterordner, "
                      u"'%|Filename%|' vor einem Dateinamen und '%|%' zwischen Einträgen. "
                      u"[key-list-marker]"});
    };
    EXPECT_EQ(CheckEntry(u"HKLM\\A\\B%|File%|x.mdb"), wrong(u"%|File%|"));
    EXPECT_EQ(CheckEntry(u"HKLM\\A\\B%|Filename|%x.mdb"), wrong(u"%|Filename|%"));
    EXPECT_EQ(CheckEntry(u"HKLM\\A\\B|SubDir|%y%|Filename%|x.mdb"), wrong(u"|SubDir|%"));
    EXPECT_EQ(CheckEntry(u"HKLM\\A\\B%|SubDir|%y%|Filname%|x.mdb"), wrong(u"%|Filname%|"));
    EXPECT_EQ(CheckEntry(u"HKLM\\A\\B%SubDir%y"), wrong(u"%SubDir%"));
}

TEST(CheckKeyListsTest, BarOutsideAMarkerIsWhatABatchFileLeaves) {
    EXPECT_EQ(
        CheckEntry(u"HKLM\\A\\PfadDaten|Kunden.mdb"),
        Texts({u"DBRegList01: Fehler: Der Eintrag 'HKLM\\A\\PfadDaten|Kunden.mdb' enthält '|' "
               u"außerhalb einer Marke. In einer Stapeldatei (.bat, .cmd) muss "
               u"'%%|SubDir|%%' für '%|SubDir|%' stehen. [key-list-bar]"}));
}

TEST(CheckKeyListsTest, MarkersTwiceOrInTheWrongOrderAreAnError) {
    const std::u16string end =
        u" enthält eine Marke doppelt oder an falscher Stelle; zuerst kommt '%|SubDir|%' mit dem "
        u"Unterordner, dann '%|Filename%|' mit dem Dateinamen. [key-list-marker-order]";
    EXPECT_EQ(CheckEntry(u"HKLM\\A\\B%|Filename%|x.mdb%|SubDir|%y"),
              Texts({u"DBRegList01: Fehler: Der Eintrag 'HKLM\\A\\B%|Filename%|x.mdb%|SubDir|%y'" +
                     end}));
    EXPECT_EQ(CheckEntry(u"HKLM\\A\\B%|SubDir|%x%|SubDir|%y%|Filename%|z.mdb"),
              Texts({u"DBRegList01: Fehler: Der Eintrag "
                     u"'HKLM\\A\\B%|SubDir|%x%|SubDir|%y%|Filename%|z.mdb'" +
                     end}));
}

TEST(CheckKeyListsTest, VariableInAKeyIsAnError) {
    EXPECT_EQ(CheckEntry(u"HKCU\\Software\\%USERNAME%\\Pfad"),
              Texts({u"DBRegList01: Fehler: '%USERNAME%' wird in einem Schlüssel nicht ersetzt. "
                     u"[key-variable]"}));
}

TEST(CheckKeyListsTest, PartsOfAnEntryAreCheckedAsPaths) {
    EXPECT_EQ(
        CheckEntry(u"HKLM\\A\\B%|SubDir|%x/y%|Filename%|C:\\z.mdb"),
        Texts({u"DBRegList01: Warnung: 'x/y' enthält '/'; Ordner trennt unter Windows '\\'. "
               u"Besser: 'x\\y'. [path-slash]",
               u"DBRegList01: Fehler: 'C:\\z.mdb' ist ein voller Pfad; er wird an einen Ordner "
               u"angehängt und führt so nicht zur Datei. Hier nur den Dateinamen angeben, den "
               u"Ordner in seinem Feld. [file-name-absolute]"}));
    EXPECT_EQ(CheckEntry(u"HKLM\\A\\B%|SubDir|%\\x%|Filename%|a%TEMP%.mdb").size(), 1U);
    EXPECT_EQ(
        Check({{kAccRegList.Field(1), u"HKLM\\A\\B%|SubDir|%x?"}, {kFieldDBFilename, u"a.mdb"}})
            .size(),
        1U);
}

TEST(CheckKeyListsTest, DoubledSeparatorsInAKeyAreAWarningThatShowsTheRightForm) {
    EXPECT_EQ(CheckEntry(u"HKLM\\SOFTWARE\\\\Firma\\Pfad"),
              Texts({u"DBRegList01: Warnung: Der Eintrag 'HKLM\\SOFTWARE\\\\Firma\\Pfad' enthält "
                     u"'\\' doppelt; nicht jedes Windows findet ihn so. Besser: "
                     u"'HKLM\\SOFTWARE\\Firma\\Pfad'. [key-separator]"}));
    for (const std::u16string_view entry :
         {u"HKLM\\\\SOFTWARE\\Firma\\Pfad", u"HKLM\\SOFTWARE\\Firma\\\\Pfad"}) {
        const Texts found = CheckEntry(entry);
        ASSERT_EQ(found.size(), 1U);
        EXPECT_TRUE(found[0].ends_with(u"Besser: 'HKLM\\SOFTWARE\\Firma\\Pfad'. [key-separator]"));
    }
}

TEST(CheckKeyListsTest, Wow6432NodeIsAWarningThatShowsTheRightForm) {
    EXPECT_EQ(CheckEntry(u"HKLM\\software\\wow6432node\\Firma\\Pfad%|Filename%|a.mdb"),
              Texts({u"DBRegList01: Warnung: Der Eintrag "
                     u"'HKLM\\software\\wow6432node\\Firma\\Pfad%|Filename%|a.mdb' nennt "
                     u"WOW6432Node. Ein 32-Bit-Programm wird von selbst dorthin geführt, und ein "
                     u"32-Bit-Windows hat den Schlüssel nicht. Besser: "
                     u"'HKLM\\SOFTWARE\\Firma\\Pfad%|Filename%|a.mdb'. [key-wow6432node]"}));
    EXPECT_EQ(CheckEntry(u"HKLM\\SOFTWARE\\Wow6432Nodes\\Pfad"), Texts());
    EXPECT_EQ(CheckEntry(u"HKCU\\SOFTWARE\\Wow6432Node\\Pfad"), Texts());
}

TEST(CheckKeyListsTest, ValuesThatWindowsKeepsAsExpandableTextCountAsMissing) {
    EXPECT_EQ(
        CheckEntry(u"HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\"
                   u"User Shell Folders\\Personal%|Filename%|a.mdb"),
        Texts({u"DBRegList01: Warnung: Der Eintrag "
               u"'HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell "
               u"Folders\\Personal%|Filename%|a.mdb' nennt einen Wert, den Windows als "
               u"erweiterbaren Text (REG_EXPAND_SZ) ablegt; gelesen wird nur einfacher Text "
               u"(REG_SZ), er gilt als fehlend. Der Schlüssel 'Shell Folders' daneben enthält "
               u"dieselben Ordner als einfachen Text. [key-expandable]"}));
    EXPECT_EQ(CheckEntry(u"HKCU\\Environment\\temp").size(), 1U);
    EXPECT_EQ(CheckEntry(u"HKCU\\Environment\\Firma"), Texts());
    EXPECT_EQ(CheckEntry(u"HKLM\\Environment\\TEMP"), Texts());
}

TEST(CheckKeyListsTest, ListsMakePathsUseless) {
    EXPECT_EQ(CheckExactly({{kAccRegList.Field(3), u"HKLM\\A\\B"},
                            {kFieldAccPath, u"C:\\Office"},
                            {kFieldDBFilename, u"a.mdb"}}),
              Texts({u"AccPath: Warnung: Der Wert wird nicht beachtet, weil die Schlüsselliste "
                     u"AccRegList01 bis AccRegList10 Einträge hat. [key-list-before-path]"}));
    for (const TargetFields& target :
         {TargetFields{kDBRegList.Field(1), kFieldDBPath, kFieldDBFilename},
          TargetFields{kSysDBRegList.Field(1), kFieldSysDBPath, kFieldSysDBFilename},
          TargetFields{kPicRegList.Field(1), kFieldPicPath, kFieldPicFilename}}) {
        const Texts found = Check({{target.list, u"HKLM\\A\\B%|Filename%|a.bmp"},
                                   {target.path, u"x"},
                                   {target.fileName, u"y.bmp"},
                                   {kFieldPicDelay, u"0"}});
        ASSERT_EQ(found.size(), 2U);
        EXPECT_TRUE(found[0].ends_with(u"[key-list-before-path]"));
        EXPECT_TRUE(found[1].ends_with(u"[key-list-before-path]"));
    }
}

TEST(CheckKeyListsTest, PictureEntryThatNamesNoFileIsAWarning) {
    EXPECT_EQ(Check({{kPicRegList.Field(1), u"HKLM\\A\\B"}, {kFieldPicDelay, u"1"}}),
              Texts({u"PicRegList01: Warnung: Der Eintrag 'HKLM\\A\\B' nennt keine Datei; er führt "
                     u"nur zu einem Bild, wenn der Wert in der Registrierung dessen voller Pfad "
                     u"ist. Sonst '%|Filename%|' mit dem Dateinamen anhängen. "
                     u"[picture-entry-without-file]"}));
}

}  // namespace
}  // namespace tarvex
