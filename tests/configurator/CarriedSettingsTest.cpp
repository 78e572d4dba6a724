#include "configurator/CarriedSettings.h"

#include <gtest/gtest.h>

#include "branding/Scrambling.h"
#include "configurator/BrandWriter.h"
#include "tests/configurator/ConfiguratorWorld.h"

namespace tarvex {
namespace {

class CarriedSettingsTest : public testing::Test {
protected:
    /// The bytes of a configured launcher made from that one.
    std::string Branded(const SyntheticLauncher& launcher) {
        world_.files.AddFile(u"V.exe", launcher.Build());
        Settings settings;
        settings.Set(kFieldAppName, u"Grün");
        settings.Set(kFieldPwd, u"geheim");
        settings.Set(kFieldUser, u"Meier");
        settings.Set(kFieldCmd, u"x");
        EXPECT_TRUE(BrandWriter(world_.store, world_.codec)
                        .Brand(u"V.exe", u"A.exe", settings, {.force = true})
                        .empty());
        return world_.files.Bytes(u"A.exe");
    }

    CarriedSettings Carry(const std::string& old, const std::string& target,
                          const std::vector<std::u16string>& drop = {}) {
        return CarrySettings(old, u"A.exe", target, u"T.exe", drop, world_.codec);
    }

    static std::vector<std::u16string> Lines(const Problems& problems) {
        std::vector<std::u16string> lines;
        for (const Problem& problem : problems) {
            lines.push_back(ProblemLine(problem));
        }
        return lines;
    }

    ConfiguratorWorld world_;
    const std::string target_ = SyntheticLauncher().Build();
};

TEST_F(CarriedSettingsTest, AllThatIsSetGoesAlongWithPasswords) {
    const CarriedSettings carried = Carry(Branded({}), target_);
    EXPECT_TRUE(carried.problems.empty());
    EXPECT_TRUE(carried.misfits.empty());
    EXPECT_EQ(carried.settings.Entries().size(), 4U);
    EXPECT_EQ(carried.settings.Value(kFieldAppName), u"Grün");
    EXPECT_EQ(carried.settings.Value(kFieldPwd), u"geheim");
}

TEST_F(CarriedSettingsTest, SignedLauncherCanBeRead) {
    SyntheticLauncher signedOne;
    signedOne.signatureSize = 512;
    signedOne.marker = u"@#BRANDED1#@";
    signedOne.Mark(u"AppName").value = ScrambleBrandValue(u"alt", world_.codec);
    const CarriedSettings carried = Carry(signedOne.Build(), target_);
    EXPECT_EQ(Lines(carried.problems), std::vector<std::u16string>());
    EXPECT_EQ(carried.settings.Value(kFieldAppName), u"alt");
}

TEST_F(CarriedSettingsTest, FieldThatTheTemplateLacksStopsUnlessItIsDropped) {
    SyntheticLauncher older;
    std::erase_if(older.marks, [](const SyntheticMark& mark) { return mark.name == u"Cmd"; });
    EXPECT_EQ(Lines(Carry(Branded({}), older.Build()).misfits),
              std::vector<std::u16string>({u"A.exe, Cmd: Die Vorlage hat dieses Feld nicht."}));
    const CarriedSettings dropped = Carry(Branded({}), older.Build(), {u"cmd"});
    EXPECT_TRUE(dropped.misfits.empty());
    EXPECT_FALSE(dropped.settings.Has(kFieldCmd));
    EXPECT_EQ(dropped.settings.Value(kFieldUser), u"Meier");
}

TEST_F(CarriedSettingsTest, FieldOfANewerVersionStopsUnlessItIsEmptyOrDropped) {
    SyntheticLauncher newer;
    newer.marks.push_back({50, 20, u"Neu", u"", 0});
    EXPECT_TRUE(Carry(Branded(newer), target_).misfits.empty());
    newer.marks.back().value = u"etwas";
    EXPECT_EQ(Lines(Carry(Branded(newer), target_).misfits),
              std::vector<std::u16string>({u"A.exe, Neu: Diese Version von tarvexcf kennt das Feld "
                                           u"nicht."}));
    EXPECT_TRUE(Carry(Branded(newer), target_, {u"Neu"}).misfits.empty());
}

TEST_F(CarriedSettingsTest, UnknownNameToDropIsAProblem) {
    EXPECT_EQ(Lines(Carry(Branded({}), target_, {u"Kmd"}).problems),
              std::vector<std::u16string>(
                  {u"--drop, Kmd: Unbekannter Name 'Kmd'; gemeint ist vielleicht Cmd."}));
    EXPECT_TRUE(Carry(Branded({}), target_, {u"Macro"}).problems.empty());
}

TEST_F(CarriedSettingsTest, UnconfiguredLauncherAndOtherFilesHaveNothingToCarry) {
    const std::u16string nothing =
        u"A.exe: Die Datei ist kein konfiguriertes Startprogramm; es gibt nichts zu übernehmen.";
    EXPECT_EQ(Lines(Carry(target_, target_).problems), std::vector<std::u16string>({nothing}));
    EXPECT_EQ(Carry("MZ nichts", target_).problems.size(), 1U);
}

}  // namespace
}  // namespace tarvex
