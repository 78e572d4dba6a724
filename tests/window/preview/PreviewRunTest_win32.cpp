#include <gtest/gtest.h>

#include <array>
#include <random>

#include "branding/BrandFields.h"
#include "launch/RegistryKeyList.h"
#include "platform/win32/WideText.h"
#include "platform/win32/WindowsApi.h"
#include "simulation/LauncherRun.h"
#include "simulation/StoredConstants.h"
#include "simulation/ThisPc.h"
#include "tests/support/TestFolder.h"
#include "text/Text.h"
#include "window/views/PreviewWorker_win32.h"

namespace tarvex {
namespace {

constexpr wchar_t kKey[] = L"Software\\TarvexPreviewTest";

/// A folder with files and a key of the registry whose texts lead there, also by relative paths.
class PreviewOnThisPcTest : public testing::Test {
protected:
    PreviewOnThisPcTest() {
        folder_.MakeFolder(u"Prog");
        folder_.MakeFolder(u"Prog\\Daten");
        folder_.MakeFile(u"Prog\\Kunden.exe", "x");
        folder_.MakeFile(u"Prog\\Bild.bmp", "x");
        folder_.MakeFile(u"Prog\\msaccess.exe", "x");
        folder_.MakeFile(u"Prog\\Daten\\Kunden.mdb", "x");
        folder_.MakeFile(u"Prog\\Daten\\msaccess.exe", "x");
        folder_.MakeFile(u"Prog\\Daten\\System.mdw", "x");
        folder_.MakeFile(u"Kunden.mdb", "x");
        HKEY key = nullptr;
        RegCreateKeyExW(HKEY_CURRENT_USER, kKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                        nullptr);
        const std::array<std::u16string, 4> texts = {u"Daten", u"..", u".", Program(u"Daten\\")};
        for (std::size_t i = 0; i < texts.size(); ++i) {
            const std::u16string name = text::Decimal(static_cast<int>(i));
            const std::size_t bytes = (texts[i].size() + 1) * sizeof(char16_t);
            RegSetValueExW(key, Wide(name), 0, REG_SZ,
                           reinterpret_cast<const BYTE*>(texts[i].c_str()),
                           static_cast<DWORD>(bytes));
        }
        RegCloseKey(key);
    }
    ~PreviewOnThisPcTest() override { RegDeleteKeyW(HKEY_CURRENT_USER, kKey); }

    std::u16string Program(std::u16string_view name) const {
        return folder_.Path(u"Prog\\" + std::u16string(name));
    }

    /// Settings that look for files in all ways.
    Settings Draw(std::uint32_t seed) const {
        std::mt19937 random(seed);
        const auto below = [&random](std::size_t count) { return random() % count; };
        const auto maybe = [&](std::u16string_view text) {
            return below(2) == 0 ? std::u16string() : std::u16string(text);
        };
        const auto entry = [&](std::u16string_view file) {
            return u"HKCU\\Software\\TarvexPreviewTest\\" +
                   text::Decimal(static_cast<int>(below(5))) +
                   (below(3) == 0 ? u"%|SubDir|%Daten" : u"") + u"%|Filename%|" +
                   std::u16string(file);
        };
        const std::array<std::u16string, 5> folders = {u"Daten", u"..\\", u".", u"..\\Prog",
                                                       Program(u"Daten")};
        Settings settings;
        settings.Set(kAccRegList.Field(1), entry(u""));
        settings.Set(kAccRegList.Field(2), maybe(entry(u"")));
        settings.Set(kFieldAccPath, maybe(folders[below(folders.size())]));
        settings.Set(kDBRegList.Field(1), maybe(entry(u"Kunden.mdb")));
        settings.Set(kFieldDBPath, maybe(folders[below(folders.size())]));
        settings.Set(kFieldDBFilename, maybe(u"Kunden.mdb"));
        settings.Set(kSysDBRegList.Field(1), maybe(entry(u"System.mdw")));
        settings.Set(kPicRegList.Field(1), maybe(entry(u"Bild.bmp")));
        settings.Set(kFieldPicDelay, maybe(u"300"));
        settings.Set(kFieldPicFilename, maybe(u"Bild.bmp"));
        settings.Set(kFieldUser, maybe(u"Meier"));
        settings.Set(kFieldPwd, maybe(u"Geheim"));
        return settings;
    }

    /// What the launcher shows that stands in its folder.
    std::u16string Shown(const Settings& settings) const {
        const std::unique_ptr<ThisPc> pc = OpenThisPc();
        wchar_t before[MAX_PATH];
        GetCurrentDirectoryW(MAX_PATH, before);
        const std::u16string folder = folder_.Path(u"Prog");
        EXPECT_TRUE(SetCurrentDirectoryW(Wide(folder)));
        Problems problems;
        const StoredConstants constants =
            StoredConstants::FromSettings(settings, {}, pc->Codec(), problems);
        LauncherRun run(
            constants,
            {pc->RegistryView(), pc->Files(), pc->Codec(), pc->Codec(), {folder, u"Kunden", {}}});
        std::u16string text = run.Run().text;
        SetCurrentDirectoryW(before);
        return text;
    }

    TestFolder folder_;
};

TEST_F(PreviewOnThisPcTest, TextIsThatOfTheLauncherInItsFolder) {
    int started = 0;
    for (std::uint32_t seed = 0; seed < 100; ++seed) {
        const Settings settings = Draw(seed);
        const PreviewResult result = RunSystemPreview({settings, Program(u"Kunden.exe"), {}});
        EXPECT_EQ(result.text, Shown(settings)) << "seed " << seed;
        started += result.starts ? 1 : 0;
    }
    EXPECT_GT(started, 10);
}

TEST_F(PreviewOnThisPcTest, CurrentFolderOfTheProgramStays) {
    wchar_t before[MAX_PATH];
    GetCurrentDirectoryW(MAX_PATH, before);
    RunSystemPreview({Draw(1), Program(u"Kunden.exe"), {}});
    wchar_t after[MAX_PATH];
    GetCurrentDirectoryW(MAX_PATH, after);
    EXPECT_STREQ(before, after);
}

}  // namespace
}  // namespace tarvex
