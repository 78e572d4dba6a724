#include "platform/win32/Win32Dialogs.h"

#include <gtest/gtest.h>

#include "platform/win32/Win32TextCodec.h"

namespace tarvex {
namespace {

TEST(Win32HelpApiTest, AMissingFileOpensNoWindow) {
    const SystemTextCodec codec;
    Win32HelpApi api(codec);
    EXPECT_FALSE(api.CallHtmlHelp(nullptr, u"C:\\gibt es nicht\\Übung.chm", 15, 42));
    EXPECT_FALSE(api.CallHtmlHelp(nullptr, u"C:\\gibt es nicht\\Übung.chm", 15, 42));
}

}  // namespace
}  // namespace tarvex
