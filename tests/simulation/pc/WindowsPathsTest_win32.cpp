#include <gtest/gtest.h>

#include <array>
#include <random>

#include "platform/win32/SystemPath.h"
#include "simulation/pc/WindowsPaths.h"
#include "text/Text.h"

namespace tarvex {
namespace {

/// As FullWindowsPath gives paths: a separator at the end stays only at a root.
std::u16string WithoutOpenEnd(std::u16string path) {
    if (path.size() > 3 && path.ends_with(u'\\')) {
        path.pop_back();
    }
    return path;
}

TEST(WindowsPathsOnWindowsTest, PathsAreReadAsTheSystemReadsThem) {
    constexpr std::array<std::u16string_view, 14> kPieces = {u"\\",    u"/",   u"a",  u"b.",  u"c ",
                                                             u"x.mdb", u".",   u"..", u"\\",  u"d",
                                                             u".e",    u"f. ", u"\\", u"g..h"};
    constexpr std::array<std::u16string_view, 6> kStarts = {
        u"a", u"C:", u"C:\\", u"Z:\\a\\", u"\\\\srv\\daten\\x", u"Q:"};
    const std::u16string current = WithoutOpenEnd(SystemPath(u"."));
    std::mt19937 random(7);
    const auto below = [&random](std::size_t count) { return random() % count; };
    for (int i = 0; i < 5000; ++i) {
        std::u16string path(kStarts[below(kStarts.size())]);
        for (std::size_t pieces = below(7); pieces > 0; --pieces) {
            path += kPieces[below(kPieces.size())];
        }
        if (path.find(u"...") != std::u16string::npos) {
            continue;  // Wine makes ".." of a folder of this name
        }
        if (const auto full = FullWindowsPath(path, current)) {
            EXPECT_EQ(*full, WithoutOpenEnd(SystemPath(path))) << text::ToUtf8(path);
        }
    }
}

}  // namespace
}  // namespace tarvex
