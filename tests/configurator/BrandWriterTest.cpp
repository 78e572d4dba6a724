#include "configurator/BrandWriter.h"

#include <gtest/gtest.h>

#include <random>

#include "branding/Scrambling.h"
#include "tests/configurator/ConfiguratorWorld.h"
#include "text/Text.h"

namespace tarvex {
namespace {

class BrandWriterTest : public testing::Test {
protected:
    Settings Written(std::u16string_view file) {
        Problems problems;
        const LauncherImage image = LauncherImage::Read(world_.files.Bytes(file), file);
        Settings settings = ReadSettings(image, file, world_.codec, problems);
        EXPECT_TRUE(problems.empty());
        EXPECT_TRUE(image.IsBranded());
        return settings;
    }

    BrandWriter Writer() { return {world_.store, world_.codec}; }

    ConfiguratorWorld world_;
};

TEST_F(BrandWriterTest, ValuesAreStoredScrambledAndTheTemplateStays) {
    const std::string before = world_.files.Bytes(u"T.exe");
    Settings settings;
    settings.Set(kFieldDBFilename, u"Daten.mdt");
    settings.Set(kFieldPwd, u"ab");
    EXPECT_TRUE(Writer().Brand(u"T.exe", u"K.exe", settings, {.force = true}).empty());
    EXPECT_EQ(world_.files.Bytes(u"T.exe"), before);
    const std::string& after = world_.files.Bytes(u"K.exe");
    EXPECT_EQ(after.size(), before.size());
    const LauncherImage image = LauncherImage::Read(after, u"K.exe");
    EXPECT_EQ(ScrambleBrandValue(image.StoredText(kFieldPwd), world_.codec), u"30#29");
    EXPECT_EQ(image.StoredText(kFieldDBFilename), u";\x1e\v\x1a\x11Q\x12\x1b\v");
    EXPECT_EQ(Written(u"K.exe").Value(kFieldDBFilename), u"Daten.mdt");
}

TEST_F(BrandWriterTest, SameInputGivesSameBytes) {
    Settings settings;
    settings.Set(kFieldAppName, u"Kunden");
    Writer().Brand(u"T.exe", u"A.exe", settings, {.force = true});
    Writer().Brand(u"T.exe", u"B.exe", settings, {.force = true});
    EXPECT_EQ(world_.files.Bytes(u"A.exe"), world_.files.Bytes(u"B.exe"));
}

TEST_F(BrandWriterTest, CopyHasTheChangesAndItsSourceStays) {
    Settings settings;
    settings.Set(kFieldAppName, u"Kunden");
    settings.Set(kFieldCmd, u"alt");
    Writer().Brand(u"T.exe", u"A.exe", settings, {});
    const std::string before = world_.files.Bytes(u"A.exe");
    Settings changes;
    changes.Set(kFieldCmd, u"neu");
    EXPECT_TRUE(Writer().Copy(u"A.exe", u"B.exe", changes, {}).empty());
    EXPECT_EQ(world_.files.Bytes(u"A.exe"), before);
    EXPECT_EQ(Written(u"B.exe").Value(kFieldAppName), u"Kunden");
    EXPECT_EQ(Written(u"B.exe").Value(kFieldCmd), u"neu");
    EXPECT_EQ(world_.store.lastAccess.model, u"A.exe");
}

TEST_F(BrandWriterTest, CopyNeverTakesThePlaceOfItsSource) {
    Writer().Brand(u"T.exe", u"A.exe", {}, {});
    const Problems problems = Writer().Copy(u"A.exe", u"a.EXE", {}, {.force = true});
    ASSERT_EQ(problems.size(), 1U);
    EXPECT_EQ(ProblemLine(problems[0]),
              u"a.EXE: Die Ausgabe wäre dieselbe Datei wie die Eingabe 'A.exe'.");
}

TEST_F(BrandWriterTest, ChangeUsesTheLockThatItsCallerHas) {
    Writer().Brand(u"T.exe", u"A.exe", {}, {});
    const std::unique_ptr<FileLock> lock = world_.store.Lock(u"A.exe", kLockPatience);
    Settings changes;
    changes.Set(kFieldCmd, u"neu");
    EXPECT_TRUE(Writer().Change(u"A.exe", changes, *lock).empty());
    EXPECT_EQ(Written(u"A.exe").Value(kFieldCmd), u"neu");
    EXPECT_EQ(world_.store.HeldLocks(), 1U);
}

TEST_F(BrandWriterTest, BrandEmptiesWhatATemplateHolds) {
    SyntheticLauncher launcher;
    launcher.Mark(u"Cmd").value = u"rest";
    world_.files.AddFile(u"T.exe", launcher.Build());
    EXPECT_TRUE(Writer().Brand(u"T.exe", u"K.exe", {}, {.force = true}).empty());
    EXPECT_EQ(Written(u"K.exe").Value(kFieldCmd), u"");
}

TEST_F(BrandWriterTest, ChangeTouchesOnlyTheGivenFields) {
    SyntheticLauncher launcher;
    launcher.marker = u"@#BRANDED1#@";
    launcher.Mark(u"Cmd").value = u" \x201e strange";
    launcher.marks.push_back({50, 20, u"Neu", u" unbekannt", 0});
    const std::string before = launcher.Build();
    world_.files.AddFile(u"K.exe", before);
    Settings changes;
    changes.Set(kFieldFileID, u"42");
    EXPECT_TRUE(Writer().Change(u"K.exe", changes).empty());
    std::string expected = before;
    PutText(expected, LauncherImage::Read(before, {}).Find(kFieldFileID)->valueStart,
            ScrambleBrandValue(u"42", world_.codec));
    EXPECT_EQ(world_.files.Bytes(u"K.exe"), expected);
}

TEST_F(BrandWriterTest, LauncherOfAnotherVersionIsWrittenAndItsOwnMarksStay) {
    SyntheticLauncher launcher;
    std::erase_if(launcher.marks, [](const SyntheticMark& mark) { return mark.name == u"Cmd"; });
    launcher.marks.push_back({70, 20, u"Neu", u"bleibt", 0});
    const std::string before = launcher.Build();
    world_.files.AddFile(u"T.exe", before);
    Settings settings;
    settings.Set(kFieldFileID, u"42");
    settings.Set(kFieldCmd, u"");
    EXPECT_TRUE(Writer().Brand(u"T.exe", u"K.exe", settings, {.force = true}).empty());
    EXPECT_EQ(Written(u"K.exe").Value(kFieldFileID), u"42");
    EXPECT_FALSE(Written(u"K.exe").Has(kFieldCmd));
    std::string expected = before;
    PutText(expected, LauncherImage::Read(before, {}).Find(kFieldFileID)->valueStart,
            ScrambleBrandValue(u"42", world_.codec));
    expected[LauncherImage::Read(before, {}).MarkerDigit()] = '1';
    EXPECT_EQ(world_.files.Bytes(u"K.exe"), expected);
}

TEST_F(BrandWriterTest, ValueForAFieldThatTheLauncherDoesNotHaveIsRefused) {
    SyntheticLauncher launcher;
    std::erase_if(launcher.marks, [](const SyntheticMark& mark) { return mark.name == u"Cmd"; });
    const std::string before = launcher.Build();
    world_.files.AddFile(u"T.exe", before);
    Settings settings;
    settings.Set(kFieldCmd, u"x");
    for (const Problems& problems :
         {Writer().CheckChange(u"T.exe", settings), Writer().CheckBrand(u"T.exe", settings),
          Writer().Change(u"T.exe", settings)}) {
        ASSERT_EQ(problems.size(), 1U);
        EXPECT_EQ(
            ProblemLine(problems[0]),
            u"T.exe, Cmd: Das Startprogramm ist von einer anderen Version und hat dieses Feld "
            u"nicht.");
    }
    EXPECT_EQ(world_.files.Bytes(u"T.exe"), before);
}

// cuBrand loads "abcd" of such a value, and would see no change when that is the new value.
TEST_F(BrandWriterTest, ValueAcrossTwoBlocksIsReplacedWhole) {
    SyntheticLauncher launcher;
    SyntheticMark& mark = launcher.Mark(u"Cmd");
    mark.start = 98304 - 2 * (18 + 3) - 8;
    mark.value = ScrambleBrandValue(u"abcdefgh", world_.codec);
    launcher.marker = u"@#BRANDED1#@";
    world_.files.AddFile(u"K.exe", launcher.Build());
    EXPECT_EQ(Written(u"K.exe").Value(kFieldCmd), u"abcdefgh");
    Settings changes;
    changes.Set(kFieldCmd, u"abcd");
    EXPECT_TRUE(Writer().Change(u"K.exe", changes).empty());
    EXPECT_EQ(Written(u"K.exe").Value(kFieldCmd), u"abcd");
}

TEST_F(BrandWriterTest, BrandedTemplateIsRefused) {
    SyntheticLauncher launcher;
    launcher.marker = u"@#BRANDED1#@";
    world_.files.AddFile(u"T.exe", launcher.Build());
    const Problems problems = Writer().Brand(u"T.exe", u"K.exe", {}, {.force = true});
    ASSERT_EQ(problems.size(), 1U);
    EXPECT_EQ(ProblemLine(problems[0]),
              u"T.exe: Das Startprogramm ist bereits konfiguriert; 'brand' braucht ein "
              u"unkonfiguriertes. Einzelne Werte ändert 'set'.");
    EXPECT_FALSE(world_.files.FileExists(u"K.exe"));
}

TEST_F(BrandWriterTest, FileThatWouldBeDamagedIsNotWritten) {
    SyntheticLauncher launcher;
    launcher.multiple = 16;
    const std::string before = launcher.Build();
    ASSERT_NE(before.size() % 32768, 0U);
    world_.files.AddFile(u"K.exe", before);
    Settings changes;
    changes.Set(kFieldFileID, u"42");
    EXPECT_FALSE(Writer().Change(u"K.exe", changes).empty());
    EXPECT_EQ(world_.files.Bytes(u"K.exe"), before);
    EXPECT_EQ(world_.store.log,
              std::vector<std::u16string>({u"lock K.exe", u"read K.exe", u"unlock K.exe"}));
}

TEST_F(BrandWriterTest, FileIsLockedFromReadingToReplacing) {
    Settings changes;
    changes.Set(kFieldFileID, u"42");
    EXPECT_TRUE(Writer().Change(u"T.exe", changes).empty());
    ASSERT_EQ(world_.store.log.size(), 6U);
    EXPECT_EQ(world_.store.log.front(), u"lock T.exe");
    EXPECT_EQ(world_.store.log[1], u"read T.exe");
    EXPECT_EQ(world_.store.log[4], u"replace T.exe with T.exe.new1");
    EXPECT_EQ(world_.store.log.back(), u"unlock T.exe");
}

TEST_F(BrandWriterTest, NewOutputIsMadeOnlyWhereNothingIsAndLikeTheTemplate) {
    EXPECT_TRUE(Writer().Brand(u"T.exe", u"K.exe", {}, {}).empty());
    EXPECT_EQ(world_.store.log.back(), u"place K.exe from K.exe.new1");
    EXPECT_EQ(world_.store.lastAccess.model, u"T.exe");
    const Problems problems = Writer().Brand(u"T.exe", u"K.exe", {}, {});
    ASSERT_EQ(problems.size(), 1U);
    EXPECT_EQ(ProblemLine(problems[0]),
              u"K.exe: Die Datei ist schon vorhanden; --force ersetzt sie.");
}

TEST_F(BrandWriterTest, TemplateIsNeverReplaced) {
    const std::string before = world_.files.Bytes(u"T.exe");
    const Problems problems = Writer().Brand(u"T.exe", u"t.EXE", {}, {.force = true});
    ASSERT_EQ(problems.size(), 1U);
    EXPECT_EQ(ProblemLine(problems[0]),
              u"t.EXE: Die Ausgabe wäre dieselbe Datei wie die Eingabe 'T.exe'.");
    EXPECT_EQ(world_.files.Bytes(u"T.exe"), before);
}

TEST_F(BrandWriterTest, HardLinksThatBreakAreNoted) {
    world_.store.entries[u"T.exe"] = {FileKind::Regular, false, 2};
    Settings changes;
    changes.Set(kFieldFileID, u"42");
    BrandWriter writer = Writer();
    EXPECT_TRUE(writer.Change(u"T.exe", changes).empty());
    ASSERT_EQ(writer.Notes().size(), 1U);
    EXPECT_EQ(ProblemLine(writer.Notes()[0]),
              u"T.exe: Die Datei hatte 2 Namen (feste Links); die anderen führen noch zum alten "
              u"Inhalt.");
}

TEST_F(BrandWriterTest, WhateverCallFailsTheOldFileStaysAndNoCopyIsLeft) {
    Settings settings;
    settings.Set(kFieldAppName, u"Neu");
    std::size_t failures = 0;
    for (const bool inStore : {true, false}) {
        for (std::size_t call = 1;; ++call) {
            ConfiguratorWorld world;
            world.files.AddFile(u"K.exe", "alt");
            (inStore ? world.store.failCall : world.files.failCall) = call;
            const Problems problems = BrandWriter(world.store, world.codec)
                                          .Brand(u"T.exe", u"K.exe", settings, {.force = true});
            EXPECT_EQ(world.store.LeftBehind(), 0U) << call;
            const std::size_t calls = inStore ? world.store.log.size() : world.files.log.size();
            if (calls < call) {
                EXPECT_TRUE(problems.empty());
                EXPECT_NE(world.files.Bytes(u"K.exe"), "alt");
                break;
            }
            if (problems.empty()) {
                continue;  // closing a file and asking for one cannot fail
            }
            ++failures;
            ASSERT_EQ(problems.size(), 1U);
            EXPECT_FALSE(problems[0].text.empty());
            EXPECT_EQ(world.files.Bytes(u"K.exe"), "alt") << call;
        }
    }
    EXPECT_GT(failures, 20U);
}

TEST_F(BrandWriterTest, ComparisonFindsEveryDamage) {
    Settings settings;
    settings.Set(kFieldFileID, u"42");
    ASSERT_TRUE(Writer().Brand(u"T.exe", u"K.exe", settings, {.force = true}).empty());
    const std::string before = world_.files.Bytes(u"T.exe");
    const std::string good = world_.files.Bytes(u"K.exe");
    const LauncherImage image = LauncherImage::Read(good, {});
    EXPECT_TRUE(CompareBranded(before, good, settings, u"K.exe", world_.codec).empty());
    const std::size_t places[] = {image.Find(kFieldFileID)->valueStart,
                                  image.Find(kFieldCmd)->valueStart + 100,
                                  1024 + 18,
                                  1900,
                                  good.size() - 1,
                                  image.Find(kFieldAppName)->start + 4};
    for (const std::size_t place : places) {
        std::string damaged = good;
        damaged[place] = static_cast<char>(damaged[place] ^ 1);
        EXPECT_FALSE(CompareBranded(before, damaged, settings, u"K.exe", world_.codec).empty())
            << place;
    }
    EXPECT_FALSE(CompareBranded(before, good + ' ', settings, u"K.exe", world_.codec).empty());
}

/// Random values of all characters of the code page, some of them too long.
class RandomValues {
public:
    explicit RandomValues(unsigned seed) : random_(seed) {}

    std::u16string Next(const BrandField& field, const TextCodec& codec) {
        if (field.kind == FieldKind::Flag) {
            const char16_t* const values[] = {u"1", u"0", u"ja", u"nein", u"", u"x"};
            return values[random_() % 6];
        }
        const auto longest = static_cast<unsigned>(UsableWidth(field, codec)) + 3;
        std::string bytes;
        for (auto left = random_() % longest; left > 0; --left) {
            bytes += static_cast<char>(random_() % 4 == 0 ? random_() % 256 : 32 + random_() % 224);
        }
        return codec.FromAnsi(bytes);
    }

private:
    std::mt19937 random_;
};

TEST_F(BrandWriterTest, EveryValueIsReadBackEqualOrRefusedWithAReason) {
    std::size_t accepted = 0;
    std::size_t refused = 0;
    for (unsigned seed = 1; seed <= 40; ++seed) {
        RandomValues random(seed);
        Settings settings;
        for (const BrandField& field : kBrandFields) {
            const std::u16string value = random.Next(field, world_.codec);
            const AcceptedValue result = AcceptValue(field, value, world_.codec);
            if (!result.problem.empty()) {
                EXPECT_EQ(result.value, u"");
                ++refused;
                continue;
            }
            if (field.kind != FieldKind::Flag) {
                EXPECT_EQ(result.value, TrimBlanksAndTabs(value)) << seed << ' ' << field.number;
            }
            settings.Set(field.number, result.value);
            ++accepted;
        }
        ASSERT_TRUE(Writer().Brand(u"T.exe", u"K.exe", settings, {.force = true}).empty()) << seed;
        const Settings written = Written(u"K.exe");
        for (const BrandField& field : kBrandFields) {
            EXPECT_EQ(written.Value(field.number), settings.Value(field.number))
                << "seed " << seed << ", field " << field.number;
        }
    }
    EXPECT_GT(accepted, 500U);
    EXPECT_GT(refused, 100U);
}

TEST_F(BrandWriterTest, ValuesThatBeginAndEndWithAnyCharacterComeBack) {
    std::vector<const BrandField*> fields;
    for (const BrandField& field : kBrandFields) {
        if (field.width >= 100) {
            fields.push_back(&field);
        }
    }
    // More fields than the 16 characters that a round goes on: every character is tried.
    ASSERT_GT(fields.size(), 16U);
    for (int round = 0; round < 16; ++round) {
        Settings settings;
        for (std::size_t i = 0; i < fields.size(); ++i) {
            const int code = (round * 16 + static_cast<int>(i)) % 256;
            const std::u16string edge =
                world_.codec.FromAnsi(std::string(1, static_cast<char>(code)));
            const bool isCredential = fields[i]->kind == FieldKind::Credential;
            const AcceptedValue value = AcceptValue(
                *fields[i], std::u16string(edge).append(u"mitte").append(edge), world_.codec);
            const bool isRefused = code == 0 || code == 10 || code == 13 ||
                                   (isCredential ? code == 32 || code == 9 : code == 127);
            EXPECT_EQ(value.problem.empty(), !isRefused) << code << ' ' << fields[i]->number;
            settings.Set(fields[i]->number, value.value);
        }
        ASSERT_TRUE(Writer().Brand(u"T.exe", u"K.exe", settings, {.force = true}).empty()) << round;
        const Settings written = Written(u"K.exe");
        for (const BrandField* field : fields) {
            EXPECT_EQ(written.Value(field->number), settings.Value(field->number))
                << round << ' ' << field->number;
        }
    }
}

}  // namespace
}  // namespace tarvex
