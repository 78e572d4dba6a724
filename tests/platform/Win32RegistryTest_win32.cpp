#include <algorithm>

#include "platform/win32/WindowsApi.h"
#include "tests/platform/RegistryContract.h"
#include "tests/platform/ScratchRegistry_win32.h"

namespace tarvex {

INSTANTIATE_TYPED_TEST_SUITE_P(Win32, RegistryContract, ScratchRegistry);

namespace {

TEST(Win32RegistryTest, ExpandableAndMultipleTextsAreOfAnotherType) {
    ScratchRegistry scratch;
    const std::string text("%SystemRoot%\0\0", 14);
    scratch.SetValue(kHKeyCurrentUser, u"Schlüssel", u"Erweitert", REG_EXPAND_SZ, text);
    scratch.SetValue(kHKeyCurrentUser, u"Schlüssel", u"Mehrfach", REG_MULTI_SZ, text);
    scratch.SetValue(kHKeyCurrentUser, u"Schlüssel", u"Text", REG_SZ, text);
    const Registry& registry = scratch.registry();
    EXPECT_EQ(registry.ReadText(kHKeyCurrentUser, u"Schlüssel", u"Erweitert"), std::nullopt);
    EXPECT_EQ(registry.ReadText(kHKeyCurrentUser, u"Schlüssel", u"Mehrfach"), std::nullopt);
    EXPECT_EQ(registry.ReadText(kHKeyCurrentUser, u"Schlüssel", u"Text"), text);
}

/// The highest of some handles opened at once. The system hands out the lowest free ones, so that
/// it rises with the number of handles left open.
ULONG_PTR HighestNextHandle() {
    HKEY keys[16] = {};
    for (HKEY& key : keys) {
        RegOpenKeyExA(HKEY_CURRENT_USER, "Schl\xFCssel", 0, KEY_QUERY_VALUE, &key);
    }
    ULONG_PTR highest = 0;
    for (const HKEY key : keys) {
        highest = std::max(highest, reinterpret_cast<ULONG_PTR>(key));
        RegCloseKey(key);
    }
    return highest;
}

TEST(Win32RegistryTest, TenThousandReadsLeaveNoHandleOpen) {
    ScratchRegistry scratch;
    scratch.SetText(kHKeyCurrentUser, u"Schlüssel", u"Pfad", "C:\\Daten");
    const Registry& registry = scratch.registry();
    const ULONG_PTR before = HighestNextHandle();
    ASSERT_NE(before, 0u);
    for (int i = 0; i < 2500; ++i) {
        registry.ReadText(kHKeyCurrentUser, u"Schlüssel", u"Pfad");
        registry.ReadText(kHKeyCurrentUser, u"Schlüssel", u"Fehlt");
        registry.ReadText(kHKeyCurrentUser, u"Fehlt", u"Pfad");
        registry.ListValueNames(kHKeyCurrentUser, u"Schlüssel", 255, 4096);
    }
    EXPECT_EQ(HighestNextHandle(), before);
}

}  // namespace

}  // namespace tarvex
