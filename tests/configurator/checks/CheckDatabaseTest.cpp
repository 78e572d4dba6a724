#include "tests/configurator/checks/CheckTesting.h"

namespace tarvex {
namespace {

constexpr Given kNeedsDatabase[] = {
    {kFieldMacro, u"x"},   {kFieldCmd, u"x"},    {kFieldRuntime, u"1"},  {kFieldReadOnly, u"1"},
    {kFieldCompact, u"1"}, {kFieldRepair, u"1"}, {kFieldDecompile, u"1"}};

TEST(CheckDatabaseTest, DatabaseNamedLikeTheLauncherServesEveryOption) {
    for (const Given& option : kNeedsDatabase) {
        EXPECT_EQ(Check({option}), Texts()) << option.number;
    }
}

TEST(CheckDatabaseTest, FolderWithoutAFileNameIsNotUsed) {
    const std::u16string alone =
        u"DBPath: Warnung: Der Pfad wird nicht verwendet, solange DBFilename leer ist; es wird "
        u"ohne Datenbank gestartet. [database-path-alone]";
    EXPECT_EQ(Check({{kFieldDBPath, u"Daten"},
                     {kFieldExclusive, u"1"},
                     {kFieldNoStartup, u"1"},
                     {kFieldRuntime, u"0"},
                     {kFieldProfile, u"x"}}),
              Texts({alone}));
    for (const Given& option : kNeedsDatabase) {
        EXPECT_EQ(Check({{kFieldDBPath, u"Daten"}, option}),
                  Texts({alone,
                         std::u16string(FindBrandField(option.number)->name) +
                             u": Fehler: Die Einstellung braucht eine Datenbank, es ist aber keine "
                             u"auffindbar, solange DBPath ohne DBFilename steht. "
                             u"[option-needs-database]"}))
            << option.number;
    }
}

TEST(CheckDatabaseTest, SearchByNameFindsNoAccdb) {
    const Texts note(
        {u"DBFilename: Hinweis: Gesucht wird eine Datenbank, die wie das Startprogramm "
         u"heißt, mit den Endungen .mdb, .mde und .mda; eine .accdb-Datei wird so nie "
         u"gefunden. Für eine solche den Dateinamen angeben. "
         u"[database-search-accdb]"});
    EXPECT_EQ(CheckExactly({{kFieldAccPath, u"C:\\Office16"}}), note);
    EXPECT_EQ(Check({{kAccRegList.Field(1),
                      u"HKLM\\SOFTWARE\\Microsoft\\Office\\16.0\\Access\\InstallRoot\\Path"}}),
              note);
    EXPECT_EQ(Check({{kAccRegList.Field(1),
                      u"HKLM\\SOFTWARE\\Microsoft\\Office\\8.0\\Common\\InstallRoot\\OfficeBin"}}),
              Texts());
}

TEST(CheckDatabaseTest, AccdbHasNoWorkgroup) {
    const std::u16string text =
        u": Warnung: Eine Datenbank dieses Formats kennt keine Arbeitsgruppen; "
        u"Arbeitsgruppendatei, User und Pwd wirken bei ihr nicht. [accdb-workgroup]";
    EXPECT_EQ(Check({{kFieldDBFilename, u"a.accdb"}}), Texts());
    for (const Given& workgroup : {Given{kFieldSysDBFilename, u"s.mdw"}, Given{kFieldUser, u"x"},
                                   Given{kSysDBRegList.Field(2), u"HKLM\\A\\B"}}) {
        EXPECT_EQ(Check({{kFieldDBFilename, u"a.ACCDE"}, workgroup}),
                  Texts({u"DBFilename" + text}));
        EXPECT_EQ(Check({{kDBRegList.Field(2), u"HKLM\\A\\B%|Filename%|a.accdr"}, workgroup}),
                  Texts({u"DBRegList02" + text}));
    }
}

TEST(CheckDatabaseTest, FileNameThatAKeyListReplacesHasNoFormat) {
    const Texts found = Check({{kDBRegList.Field(1), u"HKLM\\A\\B%|Filename%|a.mdb"},
                               {kFieldDBFilename, u"a.accdb"},
                               {kFieldUser, u"x"}});
    ASSERT_EQ(found.size(), 1U);
    EXPECT_TRUE(found[0].ends_with(u"[key-list-before-path]"));
}

TEST(CheckDatabaseTest, WorkgroupFolderWithoutAFileNameIsNotUsed) {
    EXPECT_EQ(Check({{kFieldSysDBPath, u"Daten"}}),
              Texts({u"SysDBPath: Warnung: Der Pfad wird nicht verwendet, solange SysDBFilename "
                     u"leer ist. [workgroup-path-alone]"}));
}

TEST(CheckDatabaseTest, PasswordWithoutUserIsNotUsed) {
    EXPECT_EQ(Check({{kFieldPwd, u"x"}}),
              Texts({u"Pwd: Warnung: Das Kennwort wird nicht verwendet, solange User leer ist. "
                     u"[password-without-user]"}));
}

TEST(CheckDatabaseTest, DiagnosisPasswordThatCannotBeTyped) {
    for (const std::u16string_view password : {u"a b", u"a/b"}) {
        EXPECT_EQ(
            Check({{kFieldEditPwd, password}}),
            Texts({u"EditPwd: Fehler: Das Kennwort enthält ein Leerzeichen oder '/' und lässt "
                   u"sich nach /D nicht eingeben. Ein anderes wählen. "
                   u"[password-not-typable]"}));
    }
}

}  // namespace
}  // namespace tarvex
