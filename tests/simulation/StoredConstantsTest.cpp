#include "simulation/StoredConstants.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "branding/BrandFields.h"
#include "configurator/BrandWriter.h"
#include "configurator/program/ProgramFields.h"
#include "tests/configurator/ConfiguratorWorld.h"
#include "tests/support/FakeBrandConstants.h"

namespace tarvex {
namespace {

class StoredConstantsTest : public ::testing::Test, protected ConfiguratorWorld {
protected:
    static Settings Kunden() {
        Settings settings;
        settings.Set(kFieldDBFilename, u"Größe €.mdb", 3);
        settings.Set(kFieldPwd, u"a/b");
        return settings;
    }

    static const FakeBrandConstants& Expected() {
        static const FakeBrandConstants constants(
            {{kFieldDBFilename, u"Größe €.mdb"}, {kFieldPwd, u"a/b"}});
        return constants;
    }
};

TEST_F(StoredConstantsTest, SettingsGiveTheMarksOfALauncherBrandedWithThem) {
    Problems problems;
    const StoredConstants constants =
        StoredConstants::FromSettings(Kunden(), u"K.ini", codec, problems);
    EXPECT_TRUE(problems.empty());
    EXPECT_EQ(constants.Marks(), Expected().marks);
    EXPECT_EQ(constants.Marker(), u"@#BRANDED1#@");
    EXPECT_EQ(constants.BrandedMarker(), u"@#BRANDED1#@");
}

TEST_F(StoredConstantsTest, ValueThatItsFieldCannotHoldIsAProblem) {
    Settings settings;
    settings.Set(kFieldFileID, u"12345678901", 7);
    Problems problems;
    StoredConstants::FromSettings(settings, u"K.ini", codec, problems);
    ASSERT_EQ(problems.size(), 1u);
    EXPECT_EQ(problems.front().place, u"K.ini");
    EXPECT_EQ(problems.front().line, 7);
    EXPECT_EQ(problems.front().field, u"FileID");
}

TEST_F(StoredConstantsTest, TextsOfTheProgramFileHaveNoMarks) {
    Settings settings = Kunden();
    settings.Set(kFieldIconFile, u"Kunden.ico");
    settings.Set(kFieldCompanyName, u"Muster");
    Problems problems;
    EXPECT_EQ(StoredConstants::FromSettings(settings, u"K.ini", codec, problems).Marks(),
              Expected().marks);
    EXPECT_TRUE(problems.empty());
}

TEST_F(StoredConstantsTest, FileGivesTheMarksThatStandInIt) {
    BrandWriter writer(store, codec);
    ASSERT_TRUE(writer.Brand(u"T.exe", u"K.exe", Kunden(), {}).empty());
    const LauncherImage image = LauncherImage::Read(store.ReadAll(u"K.exe"), u"K.exe");
    const StoredConstants constants = StoredConstants::FromImage(image);
    std::vector<std::u16string> marks = constants.Marks();
    std::vector<std::u16string> expected = Expected().marks;
    EXPECT_EQ(marks, expected);
    EXPECT_EQ(constants.Marker(), u"@#BRANDED1#@");
}

TEST_F(StoredConstantsTest, FileThatIsNotBrandedGivesItsMarker) {
    const LauncherImage image = LauncherImage::Read(store.ReadAll(u"T.exe"), u"T.exe");
    EXPECT_EQ(StoredConstants::FromImage(image).Marker(), u"@#BRANDED0#@");
}

}  // namespace
}  // namespace tarvex
