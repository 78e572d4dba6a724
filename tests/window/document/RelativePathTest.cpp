#include "window/document/RelativePath.h"

#include <gtest/gtest.h>

#include "launch/PathHelpers.h"
#include "text/Text.h"

namespace tarvex {
namespace {

using Relative = std::optional<std::u16string>;

TEST(RelativePathTest, FolderBelowTheLaunchersIsNamedFromThere) {
    EXPECT_EQ(RelativeFolder(u"C:\\Prog\\Daten", u"C:\\Prog\\"), Relative(u"Daten"));
    EXPECT_EQ(RelativeFolder(u"C:\\Prog\\Daten\\Alt\\", u"C:\\Prog"), Relative(u"Daten\\Alt"));
    EXPECT_EQ(RelativeFolder(u"C:\\Daten", u"C:\\"), Relative(u"Daten"));
}

TEST(RelativePathTest, LaunchersOwnFolderIsADot) {
    EXPECT_EQ(RelativeFolder(u"C:\\Prog", u"C:\\Prog\\"), Relative(u"."));
    EXPECT_EQ(RelativeFolder(u"C:\\", u"C:\\"), Relative(u"."));
}

TEST(RelativePathTest, CaseIsIgnoredAsWindowsDoes) {
    EXPECT_EQ(RelativeFolder(u"c:\\PROG\\Daten", u"C:\\Prog\\"), Relative(u"Daten"));
    EXPECT_EQ(RelativeFolder(u"C:\\büro\\Daten", u"C:\\BÜRO\\"), Relative(u"Daten"));
}

TEST(RelativePathTest, FolderOfASimilarNameIsNoneBelow) {
    EXPECT_EQ(RelativeFolder(u"C:\\Prog2\\Daten", u"C:\\Prog\\"), std::nullopt);
    EXPECT_EQ(RelativeFolder(u"C:\\Prog2", u"C:\\Prog"), std::nullopt);
    EXPECT_EQ(RelativeFolder(u"C:\\Pro", u"C:\\Prog"), std::nullopt);
}

TEST(RelativePathTest, FolderElsewhereHasNoRelativePath) {
    EXPECT_EQ(RelativeFolder(u"D:\\Prog\\Daten", u"C:\\Prog\\"), std::nullopt);
    EXPECT_EQ(RelativeFolder(u"C:\\Daten", u"C:\\Prog\\"), std::nullopt);
    EXPECT_EQ(RelativeFolder(u"C:\\", u"C:\\Prog\\"), std::nullopt);
    EXPECT_EQ(RelativeFolder(u"C:\\Daten", u""), std::nullopt);
}

TEST(RelativePathTest, ShareOfANetworkIsAFolderLikeOthers) {
    EXPECT_EQ(RelativeFolder(u"\\\\Server\\Prog\\Daten", u"\\\\server\\prog\\"),
              Relative(u"Daten"));
    EXPECT_EQ(RelativeFolder(u"\\\\Server\\Prog", u"\\\\Server\\Prog\\"), Relative(u"."));
    EXPECT_EQ(RelativeFolder(u"\\\\Server\\Prog2\\Daten", u"\\\\Server\\Prog\\"), std::nullopt);
    EXPECT_EQ(RelativeFolder(u"\\\\Anderer\\Prog\\Daten", u"\\\\Server\\Prog\\"), std::nullopt);
}

TEST(RelativePathTest, PathThatASettingWouldNotKeepIsNotOffered) {
    EXPECT_EQ(RelativeFolder(u"C:\\Prog\\ Daten", u"C:\\Prog\\"), std::nullopt);
    EXPECT_EQ(RelativeFolder(u"C:\\Prog\\\\Daten", u"C:\\Prog\\"), std::nullopt);
    EXPECT_EQ(RelativeFolder(u"C:\\Prog\\..\\Daten", u"C:\\Prog\\"), std::nullopt);
}

TEST(RelativePathTest, LauncherComesBackToTheChosenFolder) {
    const std::u16string_view parts[] = {
        u"C:\\", u"c:\\PROG\\", u"\\\\S\\F\\", u"Prog",           u"Prog2",   u"\\",
        u"..",   u"x.y",        u"Daten ",     u"..Daten\\Jahr.", u"Äpfel\\", u""};
    std::size_t offered = 0;
    for (const std::u16string_view base : parts) {
        for (const std::u16string_view a : parts) {
            for (const std::u16string_view b : parts) {
                for (const std::u16string_view c : parts) {
                    const std::u16string folder = std::u16string(base).append(b).append(c);
                    const std::u16string launcher = std::u16string(base).append(a);
                    const Relative relative = RelativeFolder(folder, launcher);
                    if (!relative) {
                        continue;
                    }
                    ++offered;
                    std::u16string back = RelToAbs(*relative, AddSep(launcher));
                    if (*relative == u".") {
                        back.erase(back.size() - 2);
                    }
                    EXPECT_TRUE(text::EqualsIgnoreCase(back, AddSep(folder)))
                        << text::ToUtf8(folder) << " from " << text::ToUtf8(launcher);
                }
            }
        }
    }
    EXPECT_GT(offered, 500U);
}

}  // namespace
}  // namespace tarvex
