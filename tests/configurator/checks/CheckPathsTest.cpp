#include "tests/configurator/checks/CheckTesting.h"

namespace tarvex {
namespace {

/// With a database, so that there is nothing else to say.
Texts CheckFolder(std::u16string_view path) {
    return Check({{kFieldDBPath, path}, {kFieldDBFilename, u"a.mdb"}});
}

Texts CheckFile(std::u16string_view name) {
    return Check({{kFieldDBFilename, name}});
}

TEST(CheckPathsTest, QuotesAroundAPathAreAnError) {
    EXPECT_EQ(CheckFolder(u"\"C:\\x y\""),
              Texts({u"DBPath: Fehler: '\"C:\\x y\"' steht in Anführungszeichen, die als Teil des "
                     u"Namens gelten. Ohne sie schreiben; Leerzeichen stören nicht. "
                     u"[path-quoted]"}));
    for (const std::u16string_view name : {u"\"a.mdb", u"a.mdb\""}) {
        const Texts found = CheckFile(name);
        ASSERT_EQ(found.size(), 1U);
        EXPECT_TRUE(found[0].ends_with(u"[path-quoted]"));
    }
}

TEST(CheckPathsTest, CharactersOfNoFileNameAreAnError) {
    EXPECT_EQ(CheckFile(u"*.mdb"),
              Texts({u"DBFilename: Fehler: '*.mdb' enthält das Zeichen '*', das in keinem Datei- "
                     u"oder Ordnernamen vorkommt. [path-character]"}));
    for (const std::u16string_view path : {u"C:\\a?", u"a<b", u"a>b", u"a|b", u"a\"b"}) {
        const Texts found = CheckFolder(path);
        ASSERT_EQ(found.size(), 1U);
        EXPECT_TRUE(found[0].ends_with(u"[path-character]"));
    }
    EXPECT_EQ(CheckFolder(u"\\\\?\\C:\\Daten"), Texts());
}

TEST(CheckPathsTest, EnvironmentVariablesAreAnError) {
    EXPECT_EQ(CheckFolder(u"%APPDATA%\\Daten"),
              Texts({u"DBPath: Fehler: '%APPDATA%' wird nicht ersetzt; gesucht wird ein Name, in "
                     u"dem es wörtlich so steht. Den Pfad ausschreiben oder mit einer "
                     u"Schlüsselliste aus der Registrierung lesen. [path-variable]"}));
    EXPECT_EQ(CheckFolder(u"50%\\100%"), Texts());
    EXPECT_EQ(CheckFolder(u"a 50% b 100%"), Texts());
}

TEST(CheckPathsTest, SlashInAFullPathIsAnErrorAndElsewhereAWarning) {
    EXPECT_EQ(CheckFolder(u"C:/Daten/x"),
              Texts({u"DBPath: Fehler: 'C:/Daten/x' gilt als Ordner unter dem Startprogramm, weil "
                     u"'/' ihn trennt. Mit '\\' schreiben: 'C:\\Daten\\x'. "
                     u"[path-slash-absolute]"}));
    EXPECT_EQ(CheckFolder(u"//server/x").size(), 1U);
    EXPECT_EQ(CheckFolder(u"Daten/x"),
              Texts({u"DBPath: Warnung: 'Daten/x' enthält '/'; Ordner trennt unter Windows '\\'. "
                     u"Besser: 'Daten\\x'. [path-slash]"}));
}

TEST(CheckPathsTest, FolderWithASingleBackslashInFrontIsRelativeToTheLauncher) {
    EXPECT_EQ(CheckFolder(u"\\Daten"),
              Texts({u"DBPath: Warnung: '\\Daten' gilt vom Ordner des Startprogramms aus, nicht "
                     u"von der Wurzel des Laufwerks. Entweder ohne '\\' am Anfang schreiben oder "
                     u"mit Laufwerk ('C:\\Ordner'). [path-rooted]"}));
}

TEST(CheckPathsTest, ColonWithoutABackslashAfterTheDriveIsAnError) {
    for (const std::u16string_view path : {u"C:", u"C:Daten", u"Daten\\C:\\x", u"C:\\a:b"}) {
        const Texts found = CheckFolder(path);
        ASSERT_EQ(found.size(), 1U);
        EXPECT_EQ(found[0], u"DBPath: Fehler: '" + std::u16string(path) +
                                u"' enthält ':' an falscher Stelle; voll ist ein Pfad nur in der "
                                u"Form 'C:\\Ordner'. [path-drive]");
    }
}

TEST(CheckPathsTest, FullPathInAFileNameFieldIsAnError) {
    EXPECT_EQ(
        CheckFile(u"C:\\Daten\\a.mdb"),
        Texts({u"DBFilename: Fehler: 'C:\\Daten\\a.mdb' ist ein voller Pfad; er wird an "
               u"einen Ordner angehängt und führt so nicht zur Datei. Hier nur den Dateinamen "
               u"angeben, den Ordner in seinem Feld. [file-name-absolute]"}));
    for (const std::u16string_view name : {u"\\\\server\\x\\a.mdb", u"C:/Daten/a.mdb"}) {
        const Texts found = CheckFile(name);
        ASSERT_EQ(found.size(), 1U);
        EXPECT_TRUE(found[0].ends_with(u"[file-name-absolute]"));
    }
    EXPECT_EQ(CheckFile(u"Daten\\a.mdb"), Texts());
}

TEST(CheckPathsTest, EveryPathFieldIsChecked) {
    for (const std::int32_t number : {kFieldDBPath, kFieldDBFilename, kFieldSysDBPath,
                                      kFieldSysDBFilename, kFieldPicPath, kFieldPicFilename}) {
        std::vector<Given> given = {{kFieldDBPath, u"a"},      {kFieldDBFilename, u"a.mdb"},
                                    {kFieldSysDBPath, u"a"},   {kFieldSysDBFilename, u"a.mdw"},
                                    {kFieldPicPath, u"a"},     {kFieldPicFilename, u"a.bmp"},
                                    {kFieldPicDelay, u"1000"}, {number, u"?.bmp"}};
        const Texts found = Check(given);
        ASSERT_EQ(found.size(), 1U) << number;
        EXPECT_TRUE(found[0].ends_with(u"[path-character]"));
    }
    EXPECT_EQ(CheckExactly({{kFieldAccPath, u"C:\\?"}, {kFieldDBFilename, u"a.mdb"}}).size(), 1U);
}

}  // namespace
}  // namespace tarvex
