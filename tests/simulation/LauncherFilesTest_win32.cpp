#include <gtest/gtest.h>

#include <array>
#include <random>

#include "platform/win32/SystemPath.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/WindowsApi.h"
#include "simulation/LauncherFiles.h"
#include "tests/support/TestFolder.h"
#include "text/Text.h"

namespace tarvex {
namespace {

/// Another current folder as long as it lives.
class InFolder {
public:
    explicit InFolder(const std::u16string& folder) : before_(SystemPath(u".")) {
        EXPECT_TRUE(SetCurrentDirectoryW(Wide(folder)));
    }
    InFolder(const InFolder&) = delete;
    InFolder& operator=(const InFolder&) = delete;
    ~InFolder() { SetCurrentDirectoryW(Wide(before_)); }

private:
    std::u16string before_;
};

TEST(LauncherFilesOnWindowsTest, AnswersAreThoseOfALauncherInItsFolder) {
    const TestFolder folder;
    folder.MakeFolder(u"a");
    folder.MakeFolder(u"a\\b");
    folder.MakeFile(u"x.mdb", "x");
    folder.MakeFile(u"a\\x.mdb", "x");
    folder.MakeFile(u"a\\b\\y", "x");
    const std::u16string program = folder.Path(u"a");
    const std::u16string drive = program.substr(0, 2);
    const std::u16string rooted = program.substr(2) + u"\\";
    const std::array<std::u16string, 8> starts = {
        u"", drive, drive + rooted, rooted, u"\\\\?\\" + drive + rooted, u"//?/", u"Q:", u"..\\"};
    constexpr std::array<std::u16string_view, 18> kPieces = {
        u"\\", u"/",  u"a",  u"b",    u"b.",  u"x.mdb", u"x.mdb", u"X.MDB", u"y",
        u".",  u"..", u"\\", u"..\\", u".\\", u" ",     u"NUL",   u"*",     u"b\\"};
    std::mt19937 random(11);
    const auto below = [&random](std::size_t count) { return random() % count; };
    const Win32FileSystem system;
    int found = 0;
    for (int i = 0; i < 5000; ++i) {
        std::u16string path = starts[below(starts.size())];
        for (std::size_t pieces = below(6); pieces > 0; --pieces) {
            path += kPieces[below(kPieces.size())];
        }
        bool expected = false;
        {
            const InFolder inFolder(program);
            expected = system.FileExists(path);
        }
        found += expected ? 1 : 0;
        EXPECT_EQ(LauncherFiles(system, {program, u"Start", {}}).FileExists(path), expected)
            << text::ToUtf8(path);
    }
    EXPECT_GT(found, 100);
}

}  // namespace
}  // namespace tarvex
