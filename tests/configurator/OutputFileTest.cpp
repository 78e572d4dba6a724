#include "configurator/OutputFile.h"

#include <gtest/gtest.h>

#include "configurator/FileTexts.h"
#include "tests/configurator/ConfiguratorWorld.h"

namespace tarvex {
namespace {

using Log = std::vector<std::u16string>;

class OutputFileTest : public testing::Test {
protected:
    OutputFileTest() { world_.files.AddFile(u"alt.ini", "alt"); }

    /// The lines of the problems that writing gives.
    std::vector<std::u16string> Write(std::u16string_view path, const OutputRules& rules) {
        return Lines(WriteOutput(world_.store, path, "neu", rules, notes_));
    }

    static std::vector<std::u16string> Lines(const Problems& problems) {
        std::vector<std::u16string> lines;
        lines.reserve(problems.size());
        for (const Problem& problem : problems) {
            lines.push_back(ProblemLine(problem));
        }
        return lines;
    }

    ConfiguratorWorld world_;
    Problems notes_;
};

/// What a name stands for, and what is said of it without and with force.
struct OutputCase {
    const char* name;
    FileEntry entry;
    const char16_t* withoutForce;
    const char16_t* withForce;  ///< null: it is replaced
};

const OutputCase kOutputs[] = {
    {"File",
     {FileKind::Regular},
     u"x: Die Datei ist schon vorhanden; --force ersetzt sie.",
     nullptr},
    {"LinkToAFile",
     {FileKind::Regular, true},
     u"x: Der Name ist ein Link auf eine vorhandene Datei; --force ersetzt die Datei, zu der er "
     u"führt.",
     nullptr},
    {"Folder",
     {FileKind::Folder},
     u"x: Das ist ein Ordner, keine Datei.",
     u"x: Das ist ein Ordner, keine Datei."},
    {"LinkToAFolder",
     {FileKind::Folder, true},
     u"x: Das ist ein Ordner, keine Datei.",
     u"x: Das ist ein Ordner, keine Datei."},
    {"Device",
     {FileKind::Other},
     u"x: Das ist eine Pipe oder ein Gerät, keine Datei.",
     u"x: Das ist eine Pipe oder ein Gerät, keine Datei."},
    {"LinkToNothing",
     {FileKind::None, true},
     u"x: Der Name ist ein Link, der zu keiner Datei führt.",
     u"x: Der Name ist ein Link, der zu keiner Datei führt."},
};

class ExistingOutputTest : public OutputFileTest, public testing::WithParamInterface<OutputCase> {};

TEST_P(ExistingOutputTest, IsRefusedUnlessItIsAFileAndForced) {
    world_.files.AddFile(u"x", "alt");
    world_.store.entries[u"x"] = GetParam().entry;
    EXPECT_EQ(Write(u"x", {}), Log{GetParam().withoutForce});
    EXPECT_EQ(world_.files.Bytes(u"x"), "alt");
    EXPECT_EQ(world_.store.log, Log{});
    if (GetParam().withForce == nullptr) {
        EXPECT_EQ(Write(u"x", {.force = true}), Log{});
        EXPECT_EQ(world_.files.Bytes(u"x"), "neu");
    } else {
        EXPECT_EQ(Write(u"x", {.force = true}), Log{GetParam().withForce});
        EXPECT_EQ(world_.files.Bytes(u"x"), "alt");
    }
    EXPECT_EQ(world_.store.LeftBehind(), 0U);
    EXPECT_TRUE(notes_.empty());
}

INSTANTIATE_TEST_SUITE_P(Kinds, ExistingOutputTest, testing::ValuesIn(kOutputs),
                         [](const auto& kind) { return std::string(kind.param.name); });

TEST_F(OutputFileTest, NewFileIsPlacedWhereNothingIs) {
    EXPECT_EQ(Write(u"neu.ini", {.access = {.ownerOnly = true}}), Log{});
    EXPECT_EQ(world_.files.Bytes(u"neu.ini"), "neu");
    EXPECT_EQ(world_.store.log, (Log{u"new neu.ini", u"place neu.ini from neu.ini.new1"}));
    EXPECT_TRUE(world_.store.lastAccess.ownerOnly);
}

TEST_F(OutputFileTest, FileThatComesMeanwhileIsNotReplaced) {
    Problems notes;
    const std::u16string temp = world_.store.WriteNewBeside(u"neu.ini", "neu");
    world_.files.AddFile(u"neu.ini", "von anderen");
    EXPECT_THROW(PlaceOutput(world_.store, temp, u"neu.ini", {}, notes), FileFailure);
    EXPECT_EQ(world_.files.Bytes(u"neu.ini"), "von anderen");
}

TEST_F(OutputFileTest, DeviceThatComesMeanwhileIsNotReplacedByForce) {
    const std::u16string temp = world_.store.WriteNewBeside(u"neu.ini", "neu");
    world_.store.entries[u"neu.ini"] = {FileKind::Other};
    EXPECT_EQ(Lines(PlaceOutput(world_.store, temp, u"neu.ini", {.force = true}, notes_)),
              Log{u"neu.ini: Das ist eine Pipe oder ein Gerät, keine Datei."});
    EXPECT_FALSE(world_.files.FileExists(u"neu.ini"));
}

TEST_F(OutputFileTest, ExistingFileIsReplacedUnderItsLock) {
    EXPECT_EQ(Write(u"alt.ini", {.force = true}), Log{});
    EXPECT_EQ(world_.store.log, (Log{u"new alt.ini", u"lock alt.ini",
                                     u"replace alt.ini with alt.ini.new1", u"unlock alt.ini"}));
}

TEST_F(OutputFileTest, LockThatTheCallerHasIsNotAskedForAgain) {
    Problems problems;
    const auto lock = LockForChange(world_.store, u"alt.ini", problems);
    ASSERT_TRUE(problems.empty());
    EXPECT_EQ(Write(u"alt.ini", {.force = true, .held = lock.get()}), Log{});
    EXPECT_EQ(world_.files.Bytes(u"alt.ini"), "neu");
}

TEST_F(OutputFileTest, FileThatAnotherProgramChangesIsNotReplaced) {
    world_.store.lockedElsewhere = {u"alt.ini"};
    const Log expected = {
        u"alt.ini: Ein anderes Programm ändert die Datei gerade; nach 10 Sekunden wurde nicht "
        u"länger gewartet."};
    EXPECT_EQ(Write(u"alt.ini", {.force = true}), expected);
    Problems problems;
    EXPECT_EQ(LockForChange(world_.store, u"alt.ini", problems), nullptr);
    EXPECT_EQ(Lines(problems), expected);
    EXPECT_EQ(world_.files.Bytes(u"alt.ini"), "alt");
    EXPECT_EQ(world_.store.LeftBehind(), 0U);
}

TEST_F(OutputFileTest, InputIsNeverTheOutput) {
    for (const bool force : {false, true}) {
        EXPECT_EQ(Write(u"alt.ini", {.force = force, .inputs = {u"T.exe", u"ALT.INI"}}),
                  Log{u"alt.ini: Die Ausgabe wäre dieselbe Datei wie die Eingabe 'ALT.INI'."});
    }
    EXPECT_EQ(world_.files.Bytes(u"alt.ini"), "alt");
}

TEST_F(OutputFileTest, InputThatIsMeantToBeReplacedNeedsForce) {
    OutputRules rules{.inputs = {u"T.exe", u"alt.ini"}, .mayReplace = u"ALT.INI"};
    EXPECT_EQ(Write(u"alt.ini", rules),
              Log{u"alt.ini: Die Datei ist schon vorhanden; --force ersetzt sie."});
    rules.force = true;
    EXPECT_EQ(Write(u"alt.ini", rules), Log{});
    EXPECT_EQ(world_.files.Bytes(u"alt.ini"), "neu");
    EXPECT_EQ(Write(u"T.exe", rules),
              Log{u"T.exe: Die Ausgabe wäre dieselbe Datei wie die Eingabe 'T.exe'."});
}

TEST_F(OutputFileTest, WhatCouldNotBeKeptIsNoted) {
    world_.store.entries[u"alt.ini"] = {FileKind::Regular, false, 3};
    world_.store.keepsOwner = false;
    EXPECT_EQ(Write(u"alt.ini", {.force = true}), Log{});
    EXPECT_EQ(Lines(notes_),
              (Log{u"alt.ini: Besitzer und Gruppe der Datei konnten nicht beibehalten werden; dazu "
                   u"fehlt das Recht.",
                   u"alt.ini: Die Datei hatte 3 Namen (feste Links); die anderen führen noch zum "
                   u"alten Inhalt."}));
}

TEST_F(OutputFileTest, FailureOfTheStoreNamesTheOutputAndLeavesNothing) {
    for (std::size_t call = 1; call <= 3; ++call) {
        ConfiguratorWorld world;
        world.files.AddFile(u"alt.ini", "alt");
        world.store.failCall = call;
        world.store.failure = FileProblem::DiskFull;
        EXPECT_EQ(Lines(WriteOutput(world.store, u"alt.ini", "neu", {.force = true}, notes_)),
                  Log{u"alt.ini: Der Datenträger ist voll."});
        EXPECT_EQ(world.files.Bytes(u"alt.ini"), "alt");
        EXPECT_EQ(world.store.LeftBehind(), 0U);
        EXPECT_EQ(world.store.HeldLocks(), 0U);
    }
}

TEST(FileTextsTest, EveryProblemHasASentenceOfItsOwn) {
    const std::pair<FileProblem, std::u16string_view> texts[] = {
        {FileProblem::NotFound, u"Die Datei ist nicht vorhanden."},
        {FileProblem::PathNotFound,
         u"Der Ordner der Datei ist nicht vorhanden, oder der Pfad ist ungültig."},
        {FileProblem::AccessDenied,
         u"Die Datei ist schreibgeschützt, oder das Recht für den Zugriff fehlt."},
        {FileProblem::InUse, u"Die Datei ist in Benutzung; läuft das Programm noch?"},
        {FileProblem::DiskFull, u"Der Datenträger ist voll."},
        {FileProblem::Device,
         u"Beim Lesen oder Schreiben der Datei ist ein Fehler des Geräts aufgetreten."},
        {FileProblem::IsFolder, u"Das ist ein Ordner, keine Datei."},
        {FileProblem::NotAFile, u"Das ist eine Pipe oder ein Gerät, keine Datei."},
        {FileProblem::ReadOnlyMedium, u"Der Datenträger ist schreibgeschützt."},
        {FileProblem::Exists, u"Die Datei ist schon vorhanden; --force ersetzt sie."},
        {FileProblem::Locked,
         u"Ein anderes Programm ändert die Datei gerade; nach 10 Sekunden wurde nicht länger "
         u"gewartet."},
    };
    for (const auto& [problem, text] : texts) {
        EXPECT_EQ(FileProblemText(problem), text);
    }
}

}  // namespace
}  // namespace tarvex
