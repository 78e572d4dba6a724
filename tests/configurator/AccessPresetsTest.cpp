#include "configurator/AccessPresets.h"

#include "tests/configurator/checks/CheckTesting.h"

namespace tarvex {
namespace {

TEST(AccessPresetsTest, PlacesByVersionFromTheNewestOn) {
    std::vector<std::pair<std::u16string, std::u16string>> places;
    for (const AccessPreset& preset : AccessPresets()) {
        places.emplace_back(preset.version, preset.entry);
        EXPECT_FALSE(preset.meaning.empty());
    }
    const std::vector<std::pair<std::u16string, std::u16string>> expected = {
        {u"16.0", u"HKLM\\SOFTWARE\\Microsoft\\Office\\16.0\\Access\\InstallRoot\\Path"},
        {u"15.0", u"HKLM\\SOFTWARE\\Microsoft\\Office\\15.0\\Access\\InstallRoot\\Path"},
        {u"14.0", u"HKLM\\SOFTWARE\\Microsoft\\Office\\14.0\\Access\\InstallRoot\\Path"},
        {u"12.0", u"HKLM\\SOFTWARE\\Microsoft\\Office\\12.0\\Access\\InstallRoot\\Path"},
        {u"11.0", u"HKLM\\SOFTWARE\\Microsoft\\Office\\11.0\\Access\\InstallRoot\\Path"},
        {u"11.0", u"HKLM\\SOFTWARE\\Microsoft\\Office\\11.0\\Common\\InstallRoot\\Path"},
        {u"10.0", u"HKLM\\SOFTWARE\\Microsoft\\Office\\10.0\\Access\\InstallRoot\\Path"},
        {u"10.0", u"HKLM\\SOFTWARE\\Microsoft\\Office\\10.0\\Common\\InstallRoot\\Path"},
        {u"9.0", u"HKLM\\SOFTWARE\\Microsoft\\Office\\9.0\\Access\\InstallRoot\\Path"},
        {u"9.0", u"HKLM\\SOFTWARE\\Microsoft\\Office\\9.0\\Common\\InstallRoot\\Path"},
        {u"8.0", u"HKLM\\SOFTWARE\\Microsoft\\Office\\8.0\\Common\\InstallRoot\\OfficeBin"},
        {u"", u"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\MSACCESS.EXE\\"},
        {u"", u"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\MSACCESS.EXE\\Path"},
    };
    EXPECT_EQ(places, expected);
}

TEST(AccessPresetsTest, FieldsHoldThePlacesOfAVersion) {
    std::vector<std::u16string> entries;
    for (const AccessPreset& field : AccessPresetFields()) {
        entries.push_back(field.entry);
    }
    ASSERT_EQ(entries.size(), 10U);
    EXPECT_EQ(entries[0], u"HKLM\\SOFTWARE\\Microsoft\\Office\\16.0\\Access\\InstallRoot\\Path");
    EXPECT_EQ(entries[5],
              u"HKLM\\SOFTWARE\\Microsoft\\Office\\10.0\\Access\\InstallRoot\\Path%|%"
              u"HKLM\\SOFTWARE\\Microsoft\\Office\\10.0\\Common\\InstallRoot\\Path");
    EXPECT_EQ(entries[9],
              u"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\MSACCESS.EXE\\Path");
}

TEST(AccessPresetsTest, NothingIsWrongWithThem) {
    for (const AccessPreset& preset : AccessPresets()) {
        EXPECT_EQ(
            CheckExactly({{kAccRegList.Field(1), preset.entry}, {kFieldDBFilename, u"a.mdb"}}),
            Texts());
    }
}

}  // namespace
}  // namespace tarvex
