#include "tests/launch/LaunchFixture.h"

namespace tarvex {
namespace {

const char* const kNoContent = "Schlüsselinhalt: <nicht vorhanden oder kein Inhalt>";

/// The lines that introduce an entry: its text and its fields.
StringList EntryLines(const std::string& entry, const std::string& root, const std::string& key,
                      const std::string& value, const std::string& subFolder,
                      const std::string& fileName) {
    return {"Gespeicherter Wert: " + entry, " - HKey: " + root,
            " - Schlüssel: " + key,         " - Wertname: " + value,
            " - Unterordner: " + subFolder, " - Dateiname: " + fileName};
}

StringList Join(std::initializer_list<StringList> parts) {
    StringList all;
    for (const StringList& part : parts) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

}  // namespace

/// Key lists of the database: each run's section is compared whole.
class DatabaseListTest : public LaunchFixture {
protected:
    DatabaseListTest() { InstallAccess(); }

    /// The section's lines after "Schlüsselliste wird aufgelöst".
    StringList Resolve() {
        tarvex_.Properties().testMode = true;
        tarvex_.GetCommandLine();
        StringList lines = Section("[Datenbank-Pfad]");
        EXPECT_GE(lines.size(), 2U);
        EXPECT_EQ(lines.at(1), "Schlüsselliste wird aufgelöst");
        lines.erase(lines.begin(), lines.begin() + 2);
        return lines;
    }

    void Store(std::u16string_view valueName, const std::string& text) {
        registry.SetTextZ(kHKeyLocalMachine, u"SOFTWARE\\Firma", valueName, text);
    }
};

TEST_F(DatabaseListTest, SecondEntryIsTakenWhenTheFirstIsMissing) {
    registry.SetTextZ(kHKeyLocalMachine, u"SOFTWARE\\Firma\\Programm", u"InstallPath", "C:\\Prog");
    files.AddFile(u"C:\\Prog\\Daten\\Kunden.mdb");
    tarvex_.RegListAdd(1, u"HKCU\\Software\\Firma\\Alt%|Filename%|Kunden.mdb");
    tarvex_.RegListAdd(1,
                       u"HKLM\\SOFTWARE\\Firma\\Programm\\InstallPath%|SubDir|%Daten%|Filename%|"
                       u"Kunden.mdb");
    ASSERT_TRUE(tarvex_.GetCommandLine());
    EXPECT_EQ(Section("[Datenbank-Pfad]"),
              (StringList{
                  "[Datenbank-Pfad]",
                  "Schlüsselliste wird aufgelöst",
                  "Gespeicherter Wert: HKCU\\Software\\Firma\\Alt%|Filename%|Kunden.mdb",
                  " - HKey: HKCU",
                  " - Schlüssel: Software\\Firma",
                  " - Wertname: Alt",
                  " - Unterordner: -",
                  " - Dateiname: Kunden.mdb",
                  "Schlüsselinhalt: <nicht vorhanden oder kein Inhalt>",
                  "Gespeicherter Wert: HKLM\\SOFTWARE\\Firma\\Programm\\InstallPath%|SubDir|%Daten%"
                  "|Filename%|Kunden.mdb",
                  " - HKey: HKLM",
                  " - Schlüssel: SOFTWARE\\Firma\\Programm",
                  " - Wertname: InstallPath",
                  " - Unterordner: Daten",
                  " - Dateiname: Kunden.mdb",
                  "Schlüsselinhalt: C:\\Prog",
                  "Schlüsselinhalt um Unterpfad ergänzt: C:\\Prog\\Daten\\Kunden.mdb",
                  "Datenbank: C:\\Prog\\Daten\\Kunden.mdb",
                  "Datenbank: OK",
              }));
    EXPECT_EQ(CommandLine(), "\"C:\\Office\\msaccess.exe\" \"C:\\Prog\\Daten\\Kunden.mdb\"");
}

TEST_F(DatabaseListTest, NothingIsReadOrLoggedBehindAHit) {
    Store(u"Eins", "D:\\a.mdb");
    Store(u"Zwei", "D:\\b.mdb");
    files.AddFile(u"D:\\a.mdb");
    files.AddFile(u"D:\\b.mdb");
    tarvex_.RegListAdd(1, u"HKLM\\SOFTWARE\\Firma\\Eins");
    tarvex_.RegListAdd(1, u"HKLM\\SOFTWARE\\Firma\\Zwei");
    EXPECT_EQ(Resolve(),
              Join({EntryLines("HKLM\\SOFTWARE\\Firma\\Eins", "HKLM", "SOFTWARE\\Firma", "Eins",
                               "-", "-"),
                    {"Schlüsselinhalt: D:\\a.mdb", "Datenbank: D:\\a.mdb", "Datenbank: OK"}}));
    EXPECT_EQ(registry.log, (std::vector<std::u16string>{u"read HKLM\\SOFTWARE\\Firma\\Eins"}));
}

TEST_F(DatabaseListTest, FileNameIsAppendedToTheStoredFolder) {
    files.AddFile(u"D:\\Daten\\k.mdb");
    tarvex_.RegListAdd(1, u"HKLM\\SOFTWARE\\Firma\\Pfad%|Filename%|k.mdb");
    for (const char* folder : {"D:\\Daten", "D:\\Daten\\"}) {
        Store(u"Pfad", folder);
        EXPECT_EQ(Resolve(), Join({EntryLines("HKLM\\SOFTWARE\\Firma\\Pfad%|Filename%|k.mdb",
                                              "HKLM", "SOFTWARE\\Firma", "Pfad", "-", "k.mdb"),
                                   {std::string("Schlüsselinhalt: ") + folder,
                                    "Datenbank: D:\\Daten\\k.mdb", "Datenbank: OK"}}));
    }
}

TEST_F(DatabaseListTest, SubFolderGetsOneSeparator) {
    files.AddFile(u"D:\\Daten\\k.mdb");
    Store(u"Pfad", "D:\\");
    tarvex_.RegListAdd(1, u"HKLM\\SOFTWARE\\Firma\\Pfad%|SubDir|%Daten\\%|Filename%|k.mdb");
    EXPECT_EQ(Resolve().at(7), "Schlüsselinhalt um Unterpfad ergänzt: D:\\Daten\\k.mdb");
}

TEST_F(DatabaseListTest, SlashAtTheEndMakesNoFolder) {
    files.AddFile(u"D:\\Daten\\k.mdb");
    Store(u"Pfad", "D:/Daten/");
    tarvex_.RegListAdd(1, u"HKLM\\SOFTWARE\\Firma\\Pfad");
    EXPECT_EQ(Resolve(), Join({EntryLines("HKLM\\SOFTWARE\\Firma\\Pfad", "HKLM", "SOFTWARE\\Firma",
                                          "Pfad", "-", "-"),
                               {"Schlüsselinhalt: D:/Daten/", "Datenbank: D:/Daten/",
                                "Datenbank: : Nicht vorhanden an dieser Position",
                                "Pfad konnte nicht ermittelt werden"}}));
    tarvex_.Properties().dbRegListString = u"HKLM\\SOFTWARE\\Firma\\Pfad%|Filename%|k.mdb";
    EXPECT_EQ(Resolve().at(7), "Datenbank: D:/Daten/\\k.mdb");
}

TEST_F(DatabaseListTest, SubFolderWithoutFileNameFails) {
    Store(u"Pfad", "D:\\");
    tarvex_.RegListAdd(1, u"HKLM\\SOFTWARE\\Firma\\Pfad%|SubDir|%Daten");
    EXPECT_EQ(Resolve(),
              Join({EntryLines("HKLM\\SOFTWARE\\Firma\\Pfad%|SubDir|%Daten", "HKLM",
                               "SOFTWARE\\Firma", "Pfad", "Daten", "-"),
                    {"Schlüsselinhalt: D:\\",
                     "Unterpfad (Daten) angegeben, aber kein Dateiname. Pfad kann nicht aufgelöst "
                     "werden.",
                     "Pfad konnte nicht ermittelt werden"}}));
}

TEST_F(DatabaseListTest, FolderWithoutFileNameFails) {
    Store(u"", "D:\\Daten\\");
    tarvex_.RegListAdd(1, u"HKEY_LOCAL_MACHINE\\SOFTWARE\\Firma\\");
    EXPECT_EQ(Resolve(),
              Join({EntryLines("HKEY_LOCAL_MACHINE\\SOFTWARE\\Firma\\", "HKLM", "SOFTWARE\\Firma",
                               "-", "-", "-"),
                    {"Schlüsselinhalt: D:\\Daten\\",
                     "Schlüsselinhalt enthält einen Pfad und es ist kein Dateiname angegeben. Der "
                     "Datenbankname kann nicht aufgelöst werden.",
                     "Pfad konnte nicht ermittelt werden"}}));
}

TEST_F(DatabaseListTest, FolderNameWithoutSeparatorIsTakenAsAFile) {
    files.AddFolder(u"D:\\Daten");
    Store(u"Pfad", "D:\\Daten");
    tarvex_.RegListAdd(1, u"HKLM\\SOFTWARE\\Firma\\Pfad");
    StringList lines = Resolve();
    lines.erase(lines.begin(), lines.begin() + 6);
    EXPECT_EQ(lines, (StringList{"Schlüsselinhalt: D:\\Daten", "Datenbank: D:\\Daten",
                                 "Datenbank: : Nicht vorhanden an dieser Position",
                                 "Pfad konnte nicht ermittelt werden"}));
}

TEST_F(DatabaseListTest, EntryThatCannotBeReadIsLoggedAndPassedOver) {
    files.AddFile(u"D:\\k.mdb");
    Store(u"Pfad", "D:\\k.mdb");
    ui.pointerDefault = false;
    tarvex_.Properties().dbRegListString = u"HKLM\\P%|%%|%FOO\\A\\B%|%HKLM\\SOFTWARE\\Firma\\Pfad";
    EXPECT_EQ(
        Resolve(),
        Join(
            {{"Gespeicherter Wert: HKLM\\P",
              "Der Schlüssellisten-Eintrag 'HKLM\\P' ist fehlerhaft bzw. kann nicht "
              "interpretiert werden.",
              "Gespeicherter Wert: ",
              "Der Schlüssellisten-Eintrag '' ist fehlerhaft bzw. kann nicht interpretiert "
              "werden.",
              "Gespeicherter Wert: FOO\\A\\B",
              "Der Schlüssellisten-Eintrag 'FOO\\A\\B' enthält keinen Verweis auf den HKey."},
             EntryLines("HKLM\\SOFTWARE\\Firma\\Pfad", "HKLM", "SOFTWARE\\Firma", "Pfad", "-", "-"),
             {"Schlüsselinhalt: D:\\k.mdb", "Datenbank: D:\\k.mdb", "Datenbank: OK"}}));
    EXPECT_FALSE(ui.pointerDefault) << "a failed entry is not an error";
    EXPECT_FALSE(tarvex_.TestModeError());
}

TEST_F(DatabaseListTest, EmptyTextAndOtherTypesCountAsMissing) {
    Store(u"Leer", "");
    registry.SetOther(kHKeyLocalMachine, u"SOFTWARE\\Firma", u"Zahl");
    tarvex_.RegListAdd(1, u"HKLM\\SOFTWARE\\Firma\\Leer");
    tarvex_.RegListAdd(1, u"HKLM\\SOFTWARE\\Firma\\Zahl");
    EXPECT_EQ(
        Resolve(),
        Join(
            {EntryLines("HKLM\\SOFTWARE\\Firma\\Leer", "HKLM", "SOFTWARE\\Firma", "Leer", "-", "-"),
             {kNoContent},
             EntryLines("HKLM\\SOFTWARE\\Firma\\Zahl", "HKLM", "SOFTWARE\\Firma", "Zahl", "-", "-"),
             {kNoContent, "Pfad konnte nicht ermittelt werden"}}));
}

TEST_F(DatabaseListTest, AllRootsAreRead) {
    files.AddFile(u"D:\\k.mdb");
    const std::pair<std::int32_t, const char16_t*> roots[] = {
        {kHKeyClassesRoot, u"HKCR"},  {kHKeyClassesRoot, u"HKEY_CLASSES_ROOT"},
        {kHKeyCurrentUser, u"HKCU"},  {kHKeyCurrentUser, u"HKEY_CURRENT_USER"},
        {kHKeyLocalMachine, u"HKLM"}, {kHKeyLocalMachine, u"HKEY_LOCAL_MACHINE"},
        {kHKeyUsers, u"HKU"},         {kHKeyUsers, u"HKEY_USERS"}};
    for (const auto& [root, name] : roots) {
        registry = FakeRegistry();
        registry.SetTextZ(root, u"Firma", u"Pfad", "D:\\k.mdb");
        tarvex_.Properties().dbRegListString = std::u16string(name) + u"\\Firma\\Pfad";
        EXPECT_EQ(Resolve().back(), "Datenbank: OK") << text::ToUtf8(name);
    }
}

TEST_F(DatabaseListTest, BlanksOfAStoredPathStay) {
    files.AddFile(u"D:\\Daten \\k.mdb");
    Store(u"Pfad", "D:\\Daten ");
    tarvex_.RegListAdd(1, u"HKLM\\SOFTWARE\\Firma\\Pfad%|Filename%|k.mdb");
    EXPECT_EQ(Resolve().at(7), "Datenbank: D:\\Daten \\k.mdb");
}

/// Key lists of the Access executable.
class AccessListTest : public LaunchFixture {
protected:
    /// The section's lines after the entry's fields, for one entry and its stored text.
    StringList Resolve(std::u16string_view entry, const std::string& stored) {
        registry.SetTextZ(kHKeyLocalMachine, u"SOFTWARE\\Firma", u"Pfad", stored);
        tarvex_.Properties().accRegListString = std::u16string(entry);
        RunError();
        StringList lines = Section("[Access-Pfad]");
        EXPECT_GE(lines.size(), 8U);
        lines.erase(lines.begin(), lines.begin() + 8);
        return lines;
    }
};

TEST_F(AccessListTest, WholeSectionIsLogged) {
    files.AddFile(u"C:\\Office\\msaccess.exe");
    registry.SetTextZ(kHKeyLocalMachine, u"SOFTWARE\\Firma", u"Pfad", "C:\\Office");
    tarvex_.Properties().accRegListString = u"HKLM\\SOFTWARE\\Firma\\Pfad";
    ASSERT_TRUE(tarvex_.GetCommandLine());
    EXPECT_EQ(Section("[Access-Pfad]"),
              Join({{"[Access-Pfad]", "Schlüsselliste wird aufgelöst"},
                    EntryLines("HKLM\\SOFTWARE\\Firma\\Pfad", "HKLM", "SOFTWARE\\Firma", "Pfad",
                               "-", "-"),
                    {"Schlüsselinhalt: C:\\Office", "Access-EXE: C:\\Office\\msaccess.exe",
                     "Access-EXE: OK"}}));
}

TEST_F(AccessListTest, FullPathIsUsedAsItStandsAndSubFolderIgnored) {
    files.AddFile(u"C:\\Office\\MSACCESS.EXE");
    EXPECT_EQ(
        Resolve(u"HKLM\\SOFTWARE\\Firma\\Pfad%|SubDir|%x%|Filename%|y", "C:\\Office\\MSACCESS.EXE"),
        (StringList{"Schlüsselinhalt: C:\\Office\\MSACCESS.EXE",
                    "Access-EXE: C:\\Office\\MSACCESS.EXE", "Access-EXE: OK"}));
    EXPECT_EQ(CommandLine(), "\"C:\\Office\\MSACCESS.EXE\"");
}

TEST_F(AccessListTest, SubFolderIsAppendedAndLogged) {
    files.AddFile(u"C:\\Office\\Bin\\msaccess.exe");
    EXPECT_EQ(Resolve(u"HKLM\\SOFTWARE\\Firma\\Pfad%|SubDir|%Bin", "C:\\Office"),
              (StringList{"Schlüsselinhalt: C:\\Office",
                          "Schlüssel um Unterpfad ergänzt: C:\\Office\\Bin\\",
                          "Access-EXE: C:\\Office\\Bin\\msaccess.exe", "Access-EXE: OK"}));
}

TEST_F(AccessListTest, FileNameFieldIsIgnored) {
    files.AddFile(u"C:\\Office\\msaccess.exe");
    EXPECT_EQ(Resolve(u"HKLM\\SOFTWARE\\Firma\\Pfad%|Filename%|anders.exe", "C:\\Office\\"),
              (StringList{"Schlüsselinhalt: C:\\Office\\", "Access-EXE: C:\\Office\\msaccess.exe",
                          "Access-EXE: OK"}));
}

TEST_F(AccessListTest, MissingExecutableIsLoggedWithOneColon) {
    EXPECT_EQ(Resolve(u"HKLM\\SOFTWARE\\Firma\\Pfad", "C:\\Office"),
              (StringList{"Schlüsselinhalt: C:\\Office", "Access-EXE: C:\\Office\\msaccess.exe",
                          "Access-EXE: Nicht vorhanden an dieser Position",
                          "Pfad konnte nicht ermittelt werden"}));
}

TEST_F(AccessListTest, EmptyListMarkerMakesTheListIndivisible) {
    tarvex_.Properties().markers.list = u"";
    tarvex_.Properties().accRegListString = u"HKLM\\SOFTWARE\\Firma\\Pfad";
    EXPECT_THAT(RunError(), IsError(-2147220470, "Tarvex/cuTarvex: GetAccessPath: : GetCommandLine",
                                    "Die Liste der Registryschlüssel für den Access-Pfad konnte "
                                    "nicht analysiert werden."));
    EXPECT_EQ(DebugLines(), (StringList{"[Access-Pfad]", "Schlüsselliste wird aufgelöst",
                                        "Schlüsselliste konnte nicht aufgelöst werden"}));
}

/// Key lists of the workgroup database, where they differ from those of the database.
TEST_F(DatabaseListTest, WorkgroupListHasItsOwnPrefix) {
    Store(u"Eins", "D:\\fehlt.mdw");
    Store(u"Zwei", "D:\\");
    files.AddFile(u"D:\\Sys\\System.mdw");
    tarvex_.RegListAdd(2, u"HKLM\\SOFTWARE\\Firma\\Eins");
    tarvex_.RegListAdd(2, u"HKLM\\SOFTWARE\\Firma\\Zwei");
    tarvex_.RegListAdd(2, u"HKLM\\SOFTWARE\\Firma\\Zwei%|SubDir|%Sys%|Filename%|System.mdw");
    ASSERT_TRUE(tarvex_.GetCommandLine());
    EXPECT_EQ(
        Section("[SysDB-Pfad]"),
        Join(
            {{"[SysDB-Pfad]", "Schlüsselliste wird aufgelöst"},
             EntryLines("HKLM\\SOFTWARE\\Firma\\Eins", "HKLM", "SOFTWARE\\Firma", "Eins", "-", "-"),
             {"Schlüsselinhalt: D:\\fehlt.mdw", "SysDB: D:\\fehlt.mdw",
              "SysDB: : Nicht vorhanden an dieser Position"},
             EntryLines("HKLM\\SOFTWARE\\Firma\\Zwei", "HKLM", "SOFTWARE\\Firma", "Zwei", "-", "-"),
             {"Schlüsselinhalt: D:\\",
              "Schlüsselinhalt enthält einen Pfad und es ist kein Dateiname angegeben. Der "
              "Datenbankname kann nicht aufgelöst werden."},
             EntryLines("HKLM\\SOFTWARE\\Firma\\Zwei%|SubDir|%Sys%|Filename%|System.mdw", "HKLM",
                        "SOFTWARE\\Firma", "Zwei", "Sys", "System.mdw"),
             {"Schlüsselinhalt: D:\\", "Schlüsselinhalt um Unterpfad ergänzt: D:\\Sys\\System.mdw",
              "SysDB: D:\\Sys\\System.mdw", "SysDB: OK"}}));
    EXPECT_EQ(CommandLine(), "\"C:\\Office\\msaccess.exe\" /wrkgrp \"D:\\Sys\\System.mdw\"");
}

}  // namespace tarvex
