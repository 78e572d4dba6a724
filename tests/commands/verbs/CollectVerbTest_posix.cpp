#include <gtest/gtest.h>

#include "tests/commands/CommandsWorld.h"

namespace tarvex {
namespace {

TEST(CollectVerbTest, SaysThatItNeedsWindows) {
    CommandsWorld world;
    EXPECT_EQ(world.Run({u"collect", u"T.exe", u"Ordner"}), 1);
    EXPECT_EQ(world.console.err,
              u"tarvexcf: T.exe: 'collect' beschreibt den PC, auf dem es läuft, und braucht "
              u"Windows.\n");
}

}  // namespace
}  // namespace tarvex
