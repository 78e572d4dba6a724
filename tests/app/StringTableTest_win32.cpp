#include <gtest/gtest.h>

#include "errors/MessageTable.h"
#include "platform/win32/Win32System.h"

namespace tarvex {
namespace {

TEST(StringTableTest, TheResourcesHoldTheMessageTexts) {
    const Win32StringTable resources;
    const MessageTable texts;
    EXPECT_EQ(resources.Load(107), u"Die Ausführung der Befehlszeile '##' ist fehlgeschlagen.");
    for (std::int32_t id = 0; id <= 400; ++id) {
        EXPECT_EQ(resources.Load(id), texts.Load(id)) << id;
    }
}

}  // namespace
}  // namespace tarvex
