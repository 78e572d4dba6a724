#include "simulation/pc/RegistryNames.h"

#include <gtest/gtest.h>

#include "tests/simulation/SimulationTexts.h"
#include "text/Text.h"

namespace tarvex {
namespace {

constexpr std::u16string_view kUser = u"S-1-5-21-1-2-3-1001";

const RegistryNames k64(true, {10, 0}, kUser);
const RegistryNames kVista64(true, {6, 0}, kUser);
const RegistryNames k32(false, {10, 0}, kUser);

struct Row {
    std::u16string_view name;
    std::u16string_view leadsTo;
};

void ExpectIn32BitView(const RegistryNames& names, std::initializer_list<Row> rows) {
    for (const Row& row : rows) {
        EXPECT_EQ(names.In32BitView(row.name), row.leadsTo) << text::ToUtf8(row.name);
    }
}

TEST(RegistryNamesTest, SoftwareOfA32BitProgramStandsBelowTheNode) {
    ExpectIn32BitView(k64,
                      {{u"HKLM\\SOFTWARE\\Firma\\X", u"HKLM\\SOFTWARE\\WOW6432Node\\Firma\\X"},
                       {u"HKLM\\software\\firma", u"HKLM\\SOFTWARE\\WOW6432Node\\firma"},
                       {u"HKLM\\SOFTWARE", u"HKLM\\SOFTWARE\\WOW6432Node"},
                       {u"HKLM\\SOFTWARE\\Microsoft\\Office\\16.0\\Access\\InstallRoot",
                        u"HKLM\\SOFTWARE\\WOW6432Node\\Microsoft\\Office\\16.0\\Access\\"
                        u"InstallRoot"},
                       {u"HKLM\\SOFTWARE\\ClassesX", u"HKLM\\SOFTWARE\\WOW6432Node\\ClassesX"}});
}

TEST(RegistryNamesTest, KeysThatBothKindsOfProgramsShareAreTheSame) {
    for (const std::u16string_view shared :
         {u"HKLM\\SYSTEM\\CurrentControlSet", u"HKLM", u"HKLM\\SOFTWARE\\Classes\\.mdb",
          u"HKLM\\SOFTWARE\\Policies\\X",
          u"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\MSACCESS.EXE",
          u"HKLM\\SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\Fonts", u"HKCU\\Software\\X",
          u"HKCU\\Software\\Classes\\.mdb", u"HKU\\.DEFAULT\\Software", u"HKCR\\.mdb"}) {
        EXPECT_EQ(k64.In32BitView(shared), shared) << text::ToUtf8(shared);
    }
}

TEST(RegistryNamesTest, ClassesThatAreNotSharedStandBelowANodeOfTheirOwn) {
    ExpectIn32BitView(k64, {{u"HKLM\\SOFTWARE\\Classes\\CLSID\\{1}",
                             u"HKLM\\SOFTWARE\\Classes\\WOW6432Node\\CLSID\\{1}"},
                            {u"HKCU\\Software\\Classes\\Interface",
                             u"HKCU\\Software\\Classes\\WOW6432Node\\Interface"},
                            {u"HKCR\\CLSID\\{1}", u"HKCR\\WOW6432Node\\CLSID\\{1}"}});
}

TEST(RegistryNamesTest, BeforeWindows7OtherKeysAreRedirected) {
    constexpr std::u16string_view kAppPaths =
        u"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\MSACCESS.EXE";
    constexpr std::u16string_view kAppPaths32 =
        u"HKLM\\SOFTWARE\\WOW6432Node\\Microsoft\\Windows\\CurrentVersion\\App Paths\\MSACCESS.EXE";
    ExpectIn32BitView(kVista64, {{kAppPaths, kAppPaths32},
                                 {u"HKLM\\SOFTWARE\\Classes\\.mdb",
                                  u"HKLM\\SOFTWARE\\Classes\\WOW6432Node\\.mdb"},
                                 {u"HKLM\\SOFTWARE\\Policies\\X", u"HKLM\\SOFTWARE\\Policies\\X"}});
    EXPECT_EQ(RegistryNames(true, {6, 1}, {}).In32BitView(kAppPaths), kAppPaths);
    EXPECT_EQ(RegistryNames(true, {5, 2}, {}).In32BitView(kAppPaths), kAppPaths32);
}

TEST(RegistryNamesTest, NameWithTheNodeLeadsA32BitProgramThereAndNoFurther) {
    ExpectIn32BitView(k64, {{u"HKLM\\SOFTWARE\\WOW6432Node\\X", u"HKLM\\SOFTWARE\\WOW6432Node\\X"},
                            {u"HKLM\\SOFTWARE\\Wow6432Node\\Classes\\CLSID",
                             u"HKLM\\SOFTWARE\\Classes\\WOW6432Node\\CLSID"},
                            {u"HKLM\\SOFTWARE\\Classes\\WOW6432Node\\CLSID",
                             u"HKLM\\SOFTWARE\\Classes\\WOW6432Node\\CLSID"}});
}

TEST(RegistryNamesTest, LinksLeadToTheOneKeyThereIs) {
    EXPECT_EQ(k64.In64BitView(u"HKLM\\SOFTWARE\\WOW6432Node\\Classes\\CLSID"),
              u"HKLM\\SOFTWARE\\Classes\\WOW6432Node\\CLSID");
    EXPECT_EQ(k64.In64BitView(u"HKLM\\SOFTWARE\\Classes\\WOW6432Node\\TypeLib\\{1}"),
              u"HKLM\\SOFTWARE\\Classes\\TypeLib\\{1}");
    EXPECT_EQ(kVista64.In64BitView(u"HKLM\\SOFTWARE\\Classes\\WOW6432Node\\TypeLib\\{1}"),
              u"HKLM\\SOFTWARE\\Classes\\WOW6432Node\\TypeLib\\{1}");
    EXPECT_EQ(k64.In64BitView(
                  u"HKLM\\SOFTWARE\\WOW6432Node\\Microsoft\\Windows\\CurrentVersion\\App Paths\\X"),
              u"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\X");
    EXPECT_EQ(k64.In64BitView(u"HKLM\\SOFTWARE\\WOW6432Node\\X"),
              u"HKLM\\SOFTWARE\\WOW6432Node\\X");
}

TEST(RegistryNamesTest, ComputerOf32BitsHasOneView) {
    ExpectIn32BitView(k32, {{u"HKLM\\SOFTWARE\\X", u"HKLM\\SOFTWARE\\X"},
                            {u"HKLM\\SOFTWARE\\WOW6432Node\\Classes\\CLSID",
                             u"HKLM\\SOFTWARE\\WOW6432Node\\Classes\\CLSID"}});
    EXPECT_EQ(k32.In64BitView(u"HKLM\\SOFTWARE\\WOW6432Node\\Classes\\CLSID"),
              u"HKLM\\SOFTWARE\\WOW6432Node\\Classes\\CLSID");
    EXPECT_EQ(k32.NamesOf(u"HKLM\\SOFTWARE\\WOW6432Node\\X", true),
              Texts({u"HKLM\\SOFTWARE\\WOW6432Node\\X"}));
}

TEST(RegistryNamesTest, RootsAreShortenedAndSurplusSeparatorsDropped) {
    EXPECT_EQ(k64.Normalise(u"HKEY_LOCAL_MACHINE\\SOFTWARE\\\\X\\"), u"HKLM\\SOFTWARE\\X");
    EXPECT_EQ(k64.Normalise(u"hkcu\\Software"), u"HKCU\\Software");
    EXPECT_EQ(k64.Normalise(u"HKEY_CLASSES_ROOT"), u"HKCR");
    EXPECT_EQ(k64.Normalise(u"HKLX\\X"), std::nullopt);
    EXPECT_EQ(k64.Normalise(u""), std::nullopt);
}

TEST(RegistryNamesTest, KeysOfTheUserAreThoseOfHkcu) {
    EXPECT_EQ(k64.Normalise(u"HKEY_USERS\\S-1-5-21-1-2-3-1001\\Software\\X"), u"HKCU\\Software\\X");
    EXPECT_EQ(k64.Normalise(u"HKU\\s-1-5-21-1-2-3-1001_CLASSES\\.mdb"),
              u"HKCU\\Software\\Classes\\.mdb");
    EXPECT_EQ(k64.Normalise(u"HKU\\S-1-5-21-1-2-3-1001"), u"HKCU");
    EXPECT_EQ(k64.Normalise(u"HKU\\S-1-5-21-1-2-3-10011\\X"), u"HKU\\S-1-5-21-1-2-3-10011\\X");
    EXPECT_EQ(RegistryNames(true, {10, 0}, {}).Normalise(u"HKU\\S-1-5-21-1-2-3-1001\\X"),
              u"HKU\\S-1-5-21-1-2-3-1001\\X");
}

TEST(RegistryNamesTest, OnlyPeopleOfHkuAreUsers) {
    EXPECT_EQ(UserOfKey(u"HKEY_USERS\\S-1-5-21-1-2-3-1001\\Software"), u"S-1-5-21-1-2-3-1001");
    EXPECT_EQ(UserOfKey(u"HKU\\S-1-12-1-7_Classes"), u"S-1-12-1-7");
    EXPECT_EQ(UserOfKey(u"HKU\\S-1-5-18\\Software"), u"");
    EXPECT_EQ(UserOfKey(u"HKU\\.DEFAULT"), u"");
    EXPECT_EQ(UserOfKey(u"HKLM\\S-1-5-21-1"), u"");
    EXPECT_EQ(UserOfKey(u"HKU"), u"");
}

TEST(RegistryNamesTest, KeyIsReachedByTheNamesThatLeadToIt) {
    EXPECT_EQ(k64.NamesOf(u"HKLM\\SOFTWARE\\X", false), Texts({u"HKLM\\SOFTWARE\\X"}));
    EXPECT_EQ(k64.NamesOf(u"HKLM\\SOFTWARE\\X", true), Texts());
    EXPECT_EQ(k64.NamesOf(u"HKLM\\SOFTWARE\\WOW6432Node\\X", true),
              Texts({u"HKLM\\SOFTWARE\\WOW6432Node\\X", u"HKLM\\SOFTWARE\\X"}));
    EXPECT_EQ(k64.NamesOf(u"HKLM\\SOFTWARE\\WOW6432Node\\X", false),
              Texts({u"HKLM\\SOFTWARE\\WOW6432Node\\X"}));
    EXPECT_EQ(k64.NamesOf(u"HKLM\\SOFTWARE\\Classes\\WOW6432Node\\CLSID", false),
              Texts({u"HKLM\\SOFTWARE\\Classes\\WOW6432Node\\CLSID",
                     u"HKLM\\SOFTWARE\\WOW6432Node\\Classes\\CLSID"}));
    EXPECT_EQ(k64.NamesOf(u"HKLM\\SOFTWARE\\Policies\\X", true),
              Texts({u"HKLM\\SOFTWARE\\Policies\\X"}));
}

}  // namespace
}  // namespace tarvex
