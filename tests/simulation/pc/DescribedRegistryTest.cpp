#include "simulation/pc/DescribedRegistry.h"

#include <gtest/gtest.h>

#include "tests/simulation/SimulationTexts.h"
#include "tests/simulation/pc/PcListenerLog.h"
#include "text/Text.h"
#include "text/TextCodec1252.h"

namespace tarvex {
namespace {

class DescribedRegistryTest : public testing::Test {
protected:
    /// The lines of a registry file after its header.
    void Export(std::u16string_view lines, bool of32BitView = false) {
        const ParsedRegFile parsed = ParseRegFile(
            "Windows Registry Editor Version 5.00\n\n" + text::ToUtf8(lines), u"a.reg", codec_);
        EXPECT_EQ(ProblemLines(parsed.problems), Texts());
        description.registry.push_back({of32BitView, parsed.keys});
    }

    /// The text that the launcher gets, without its closing zero; nothing when it gets none.
    std::optional<std::string> Read(std::int32_t root, std::u16string_view key,
                                    std::u16string_view value) {
        DescribedRegistry registry(description, codec_);
        registry.listener = &log_;
        log_.lines.clear();
        const auto bytes = registry.ReadText(root, key, value);
        return bytes ? std::optional(std::string(CountingBytes(*bytes))) : std::nullopt;
    }
    std::vector<std::u16string> List(std::int32_t root, std::u16string_view key) {
        DescribedRegistry registry(description, codec_);
        registry.listener = &log_;
        log_.lines.clear();
        return registry.ListValueNames(root, key, 255, 4096);
    }
    const Texts& Told() const { return log_.lines; }

    PcDescription description;

private:
    TextCodec1252 codec_;
    PcListenerLog log_;
};

constexpr std::u16string_view kFirma = u"SOFTWARE\\Firma";

TEST_F(DescribedRegistryTest, ValueOfThe32BitViewIsFoundThereAndReadOnce) {
    Export(u"[HKEY_LOCAL_MACHINE\\SOFTWARE\\WOW6432Node\\Firma]\n\"Pfad\"=\"C:\\\\x\"\n");
    EXPECT_EQ(Read(kHKeyLocalMachine, kFirma, u"Pfad"), "C:\\x");
    EXPECT_EQ(Told(), Texts({u"+ HKLM\\SOFTWARE\\WOW6432Node\\Firma\\Pfad"}));
}

TEST_F(DescribedRegistryTest, ValueOfThe64BitViewIsFoundByTheSecondLookAndSaidToBeThereOnly) {
    Export(
        u"[HKEY_LOCAL_MACHINE\\SOFTWARE\\WOW6432Node\\Firma]\n"
        u"[HKEY_LOCAL_MACHINE\\SOFTWARE\\Firma]\n\"Pfad\"=\"C:\\\\x\"\n");
    EXPECT_EQ(Read(kHKeyLocalMachine, kFirma, u"Pfad"), "C:\\x");
    EXPECT_EQ(Told(), Texts({u"- HKLM\\SOFTWARE\\WOW6432Node\\Firma\\Pfad",
                             u"+ HKLM\\SOFTWARE\\Firma\\Pfad",
                             u"HKLM\\SOFTWARE\\Firma\\Pfad only, not "
                             u"HKLM\\SOFTWARE\\WOW6432Node\\Firma\\Pfad"}));
}

TEST_F(DescribedRegistryTest, EmptyTextInTheOwnViewLetsTheOtherOneCount) {
    Export(
        u"[HKEY_LOCAL_MACHINE\\SOFTWARE\\WOW6432Node\\Firma]\n\"Pfad\"=\"\"\n"
        u"[HKEY_LOCAL_MACHINE\\SOFTWARE\\Firma]\n\"Pfad\"=\"C:\\\\x\"\n");
    EXPECT_EQ(Read(kHKeyLocalMachine, kFirma, u"Pfad"), "C:\\x");
}

TEST_F(DescribedRegistryTest, EmptyTextOfThe64BitViewIsNotSaidToBeThereOnly) {
    Export(u"[HKEY_LOCAL_MACHINE\\SOFTWARE\\Firma]\n\"Pfad\"=\"\"\n");
    EXPECT_EQ(Read(kHKeyLocalMachine, kFirma, u"Pfad"), "");
    EXPECT_EQ(Told(), Texts({u"? HKLM\\SOFTWARE\\WOW6432Node\\Firma\\Pfad",
                             u"+ HKLM\\SOFTWARE\\Firma\\Pfad"}));
}

TEST_F(DescribedRegistryTest, ExportOfOneViewDoesNotDescribeTheOther) {
    Export(u"[HKEY_LOCAL_MACHINE\\SOFTWARE\\Firma]\n\"Pfad\"=\"C:\\\\x\"\n");
    EXPECT_EQ(Read(kHKeyLocalMachine, kFirma, u"Pfad"), "C:\\x");
    EXPECT_EQ(Told().at(0), u"? HKLM\\SOFTWARE\\WOW6432Node\\Firma\\Pfad");
}

TEST_F(DescribedRegistryTest, ExportOfA32BitProgramIsOfItsOwnView) {
    Export(u"[HKEY_LOCAL_MACHINE\\SOFTWARE\\Firma]\n\"Pfad\"=\"C:\\\\x\"\n", true);
    EXPECT_EQ(Read(kHKeyLocalMachine, kFirma, u"Pfad"), "C:\\x");
    EXPECT_EQ(Told(), Texts({u"+ HKLM\\SOFTWARE\\WOW6432Node\\Firma\\Pfad"}));
    EXPECT_EQ(Read(kHKeyLocalMachine, kFirma, u"Fehlt"), std::nullopt);
    EXPECT_EQ(Told(), Texts({u"- HKLM\\SOFTWARE\\WOW6432Node\\Firma\\Fehlt",
                             u"? HKLM\\SOFTWARE\\Firma\\Fehlt"}));
}

TEST_F(DescribedRegistryTest, ExportOfA32BitProgramHoldsSharedKeysToo) {
    Export(u"[HKEY_LOCAL_MACHINE\\SOFTWARE\\Policies\\X]\n\"a\"=\"b\"\n", true);
    EXPECT_EQ(Read(kHKeyLocalMachine, u"SOFTWARE\\Policies\\X", u"a"), "b");
    EXPECT_EQ(Told(), Texts({u"+ HKLM\\SOFTWARE\\Policies\\X\\a"}));
    EXPECT_EQ(Read(kHKeyLocalMachine, u"SOFTWARE\\Policies\\X", u"c"), std::nullopt);
    EXPECT_EQ(Told(),
              Texts({u"- HKLM\\SOFTWARE\\Policies\\X\\c", u"- HKLM\\SOFTWARE\\Policies\\X\\c"}));
}

TEST_F(DescribedRegistryTest, ComputerOf32BitsIsReadOnce) {
    description.is64Bit = false;
    Export(u"[HKEY_LOCAL_MACHINE\\SOFTWARE\\Firma]\n\"Pfad\"=\"C:\\\\x\"\n");
    EXPECT_EQ(Read(kHKeyLocalMachine, kFirma, u"Pfad"), "C:\\x");
    EXPECT_EQ(Told(), Texts({u"+ HKLM\\SOFTWARE\\Firma\\Pfad"}));
    EXPECT_EQ(Read(kHKeyLocalMachine, kFirma, u"Fehlt"), std::nullopt);
    EXPECT_EQ(Told(), Texts({u"- HKLM\\SOFTWARE\\Firma\\Fehlt"}));
}

TEST_F(DescribedRegistryTest, AppPathsAreSharedSinceWindows7AndTwoKeysBefore) {
    constexpr std::u16string_view kAppPaths =
        u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\MSACCESS.EXE";
    Export(
        u"[HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App "
        u"Paths\\MSACCESS.EXE]\n@=\"C:\\\\A\\\\MSACCESS.EXE\"\n");
    EXPECT_EQ(Read(kHKeyLocalMachine, kAppPaths, u""), "C:\\A\\MSACCESS.EXE");
    EXPECT_EQ(Told(), Texts({u"+ HKLM\\" + std::u16string(kAppPaths) + u"\\"}));
    description.windows = {6, 0};
    EXPECT_EQ(Read(kHKeyLocalMachine, kAppPaths, u""), "C:\\A\\MSACCESS.EXE");
    ASSERT_EQ(Told().size(), 3U);
    EXPECT_EQ(Told()[0],
              u"? HKLM\\SOFTWARE\\WOW6432Node\\Microsoft\\Windows\\CurrentVersion\\App "
              u"Paths\\MSACCESS.EXE\\");
}

TEST_F(DescribedRegistryTest, ExportDescribesItsTopmostKeysWithEverythingBelow) {
    description.is64Bit = false;
    Export(u"[HKEY_CURRENT_USER\\Software\\X\\Tief]\n[HKEY_CURRENT_USER\\Software\\X]\n");
    Read(kHKeyCurrentUser, u"Software\\X\\Anders\\Y", u"a");
    EXPECT_EQ(Told(), Texts({u"- HKCU\\Software\\X\\Anders\\Y\\a"}));
    Read(kHKeyCurrentUser, u"Software", u"X");
    EXPECT_EQ(Told(), Texts({u"? HKCU\\Software\\X"}));
    Read(kHKeyCurrentUser, u"Software\\XY", u"a");
    EXPECT_EQ(Told(), Texts({u"? HKCU\\Software\\XY\\a"}));
}

TEST_F(DescribedRegistryTest, LaterExportAddsToAnEarlierOneAndItsDeletionsTakeAway) {
    description.is64Bit = false;
    Export(
        u"[HKEY_CURRENT_USER\\A]\n\"x\"=\"1\"\n\"y\"=\"1\"\n[HKEY_CURRENT_USER\\A\\B]\n\"z\"="
        u"\"1\"\n");
    Export(u"[HKEY_CURRENT_USER\\A]\n\"x\"=\"2\"\n\"y\"=-\n[-HKEY_CURRENT_USER\\A\\B]\n");
    EXPECT_EQ(Read(kHKeyCurrentUser, u"A", u"x"), "2");
    EXPECT_EQ(Read(kHKeyCurrentUser, u"A", u"y"), std::nullopt);
    EXPECT_EQ(Read(kHKeyCurrentUser, u"A\\B", u"z"), std::nullopt);
    EXPECT_EQ(Told(), Texts({u"- HKCU\\A\\B\\z"}));
}

TEST_F(DescribedRegistryTest, DeletionAloneSaysThatNothingIsThere) {
    description.is64Bit = false;
    Export(u"[-HKEY_CURRENT_USER\\A]\n");
    Read(kHKeyCurrentUser, u"A\\B", u"x");
    EXPECT_EQ(Told(), Texts({u"- HKCU\\A\\B\\x"}));
}

TEST_F(DescribedRegistryTest, MissingValueIsNotThereWhateverAnExportSays) {
    description.is64Bit = false;
    Export(u"[HKEY_CURRENT_USER\\A]\n\"x\"=\"1\"\n@=\"2\"\n");
    description.missing = {u"HKEY_CURRENT_USER\\a\\X", u"HKCU\\A\\", u"HKCU\\B\\y"};
    EXPECT_EQ(Read(kHKeyCurrentUser, u"A", u"x"), std::nullopt);
    EXPECT_EQ(Told(), Texts({u"- HKCU\\A\\x"}));
    EXPECT_EQ(Read(kHKeyCurrentUser, u"A", u""), std::nullopt);
    EXPECT_TRUE(List(kHKeyCurrentUser, u"A").empty());
    Read(kHKeyCurrentUser, u"B", u"y");
    EXPECT_EQ(Told(), Texts({u"- HKCU\\B\\y"}));
    Read(kHKeyCurrentUser, u"B", u"z");
    EXPECT_EQ(Told(), Texts({u"? HKCU\\B\\z"}));
}

TEST_F(DescribedRegistryTest, CompleteKeyHasNothingThatIsNotDescribed) {
    description.complete = {u"HKLM\\SOFTWARE\\WOW6432Node\\Firma"};
    Read(kHKeyLocalMachine, u"SOFTWARE\\Firma\\X", u"a");
    EXPECT_EQ(Told(), Texts({u"- HKLM\\SOFTWARE\\WOW6432Node\\Firma\\X\\a",
                             u"? HKLM\\SOFTWARE\\Firma\\X\\a"}));
    description.complete = {u"*"};
    Read(kHKeyLocalMachine, u"SOFTWARE\\Firma\\X", u"a");
    EXPECT_EQ(Told(), Texts({u"- HKLM\\SOFTWARE\\WOW6432Node\\Firma\\X\\a",
                             u"- HKLM\\SOFTWARE\\Firma\\X\\a"}));
}

TEST_F(DescribedRegistryTest, ValueThatIsNoTextIsNotThere) {
    description.is64Bit = false;
    Export(u"[HKEY_CURRENT_USER\\A]\n\"x\"=hex(2):43,00,00,00\n\"n\"=dword:1\n");
    EXPECT_EQ(Read(kHKeyCurrentUser, u"A", u"x"), std::nullopt);
    EXPECT_EQ(Told(), Texts({u"- HKCU\\A\\x"}));
    EXPECT_EQ(Read(kHKeyCurrentUser, u"A", u"n"), std::nullopt);
}

TEST_F(DescribedRegistryTest, TextsAndNamesPassThroughTheCodePage) {
    description.is64Bit = false;
    Export(u"[HKEY_CURRENT_USER\\Größe]\n\"\x3A9\"=\"1\"\n\"a\"=\"ä\x3A9\"\n");
    EXPECT_EQ(Read(kHKeyCurrentUser, u"GRÖßE", u"a"), "\xE4?");
    EXPECT_EQ(Read(kHKeyCurrentUser, u"Größe", u"\x3A9"), std::nullopt);
    EXPECT_EQ(List(kHKeyCurrentUser, u"Größe"), Texts({u"?", u"a"}));
}

TEST_F(DescribedRegistryTest, NameOfAKeyEndsBeforeAZeroAndMayNotBeginWithASeparator) {
    description.is64Bit = false;
    Export(u"[HKEY_CURRENT_USER\\A]\n\"x\"=\"1\"\n[HKEY_CLASSES_ROOT\\A]\n\"x\"=\"2\"\n");
    EXPECT_EQ(Read(kHKeyCurrentUser, std::u16string(u"A\0B", 3), u"x"), "1");
    EXPECT_EQ(Read(kHKeyCurrentUser, u"A\\\\", u"x"), "1");
    EXPECT_EQ(Read(kHKeyCurrentUser, u"\\A", u"x"), std::nullopt);
    EXPECT_EQ(Read(kHKeyClassesRoot, u"\\A", u"x"), "2");
}

TEST_F(DescribedRegistryTest, ClassesAreTheUsersOverTheComputers) {
    Export(
        u"[HKEY_LOCAL_MACHINE\\SOFTWARE\\Classes\\.mdb]\n@=\"computer\"\n\"b\"=\"computer\"\n"
        u"[HKEY_CURRENT_USER\\Software\\Classes\\.mdb]\n@=\"user\"\n");
    EXPECT_EQ(Read(kHKeyClassesRoot, u".mdb", u""), "user");
    EXPECT_EQ(Told(), Texts({u"+ HKCU\\Software\\Classes\\.mdb\\"}));
    EXPECT_EQ(Read(kHKeyClassesRoot, u".mdb", u"b"), "computer");
    EXPECT_EQ(Told(), Texts({u"- HKCU\\Software\\Classes\\.mdb\\b",
                             u"+ HKLM\\SOFTWARE\\Classes\\.mdb\\b"}));
    EXPECT_EQ(List(kHKeyClassesRoot, u".mdb"), Texts({u"", u"b"}));
    EXPECT_EQ(Told(), Texts({u"+ HKCU\\Software\\Classes\\.mdb\\*",
                             u"+ HKLM\\SOFTWARE\\Classes\\.mdb\\*"}));
}

TEST_F(DescribedRegistryTest, ClassesThatNobodyDescribedAreAskedForInBothPlaces) {
    description.is64Bit = false;
    Read(kHKeyClassesRoot, u".mdb", u"");
    EXPECT_EQ(Told(),
              Texts({u"? HKCU\\Software\\Classes\\.mdb\\", u"? HKLM\\SOFTWARE\\Classes\\.mdb\\"}));
}

TEST_F(DescribedRegistryTest, ExportedClassesAreTheAnswerThemselves) {
    description.is64Bit = false;
    Export(u"[HKEY_CLASSES_ROOT\\.mdb]\n@=\"Access\"\n");
    EXPECT_EQ(Read(kHKeyClassesRoot, u".mdb", u""), "Access");
    EXPECT_EQ(Told(), Texts({u"+ HKCR\\.mdb\\"}));
    Read(kHKeyClassesRoot, u".mdb", u"x");
    EXPECT_EQ(Told(), Texts({u"- HKCR\\.mdb\\x"}));
    EXPECT_EQ(List(kHKeyClassesRoot, u".mdb"), Texts({u""}));
    EXPECT_EQ(Told(), Texts({u"+ HKCR\\.mdb\\*"}));
}

TEST_F(DescribedRegistryTest, KeysOfTheOnePersonOfHkuAreTheUsers) {
    description.is64Bit = false;
    Export(u"[HKEY_USERS\\S-1-5-21-7-1001\\Software\\X]\n\"a\"=\"1\"\n");
    EXPECT_EQ(Read(kHKeyCurrentUser, u"Software\\X", u"a"), "1");
    EXPECT_EQ(Read(kHKeyUsers, u"S-1-5-21-7-1001\\Software\\X", u"a"), "1");
    Export(u"[HKEY_USERS\\S-1-5-21-7-1002\\Software\\X]\n\"a\"=\"2\"\n");
    EXPECT_EQ(Read(kHKeyCurrentUser, u"Software\\X", u"a"), std::nullopt);
    EXPECT_EQ(Told(), Texts({u"? HKCU\\Software\\X\\a"}));
    EXPECT_EQ(Read(kHKeyUsers, u"S-1-5-21-7-1002\\Software\\X", u"a"), "2");
}

TEST_F(DescribedRegistryTest, NamesOfValuesAreLookedUpInTheOwnViewOnly) {
    Export(
        u"[HKEY_LOCAL_MACHINE\\SOFTWARE\\Firma]\n\"eins\"=\"\"\n"
        u"[HKEY_LOCAL_MACHINE\\SOFTWARE\\WOW6432Node\\Firma]\n");
    EXPECT_EQ(List(kHKeyLocalMachine, kFirma), Texts());
    EXPECT_EQ(Told(), Texts({u"- HKLM\\SOFTWARE\\WOW6432Node\\Firma\\*",
                             u"HKLM\\SOFTWARE\\Firma only, not HKLM\\SOFTWARE\\WOW6432Node\\Firma "
                             u"(not read)"}));
    List(kHKeyLocalMachine, u"SOFTWARE\\Y");
    EXPECT_EQ(Told(), Texts({u"? HKLM\\SOFTWARE\\WOW6432Node\\Y\\*"}));
}

}  // namespace
}  // namespace tarvex
