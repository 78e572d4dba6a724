#include <algorithm>

#include "platform/win32/Handles.h"
#include "platform/win32/WindowsApi.h"
#include "tests/platform/RegistryContract.h"
#include "tests/support/ScratchRegistry_win32.h"

namespace tarvex {

INSTANTIATE_TYPED_TEST_SUITE_P(Win32, RegistryContract, ScratchRegistry);

namespace {

const SystemTextCodec codec;

/// Shows what the interface keeps for its own use.
struct OpenRegistry : Win32Registry {
    using Win32Registry::Has64BitView;
    using Win32Registry::ReadTextInView;
    using Win32Registry::View;
    using Win32Registry::Win32Registry;
};

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

/// A key that everybody may ask for its values and nobody may do anything else with.
class QueryOnlyKey {
public:
    explicit QueryOnlyKey(const char* name) {
        RegOpenKeyExA(HKEY_LOCAL_MACHINE, name, 0, KEY_ALL_ACCESS, key_.Receive());
        SID_IDENTIFIER_AUTHORITY world = SECURITY_WORLD_SID_AUTHORITY;
        PSID everybody = nullptr;
        AllocateAndInitializeSid(&world, 1, SECURITY_WORLD_RID, 0, 0, 0, 0, 0, 0, 0, &everybody);
        alignas(ACL) char bytes[256];
        auto* const rights = reinterpret_cast<ACL*>(bytes);
        InitializeAcl(rights, sizeof bytes, ACL_REVISION);
        AddAccessAllowedAce(rights, ACL_REVISION, KEY_QUERY_VALUE, everybody);
        Protect(rights);
        FreeSid(everybody);
    }
    ~QueryOnlyKey() { Protect(nullptr); }  // null: everybody may do everything

private:
    void Protect(ACL* rights) const {
        SECURITY_DESCRIPTOR descriptor;
        InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION);
        SetSecurityDescriptorDacl(&descriptor, TRUE, rights, FALSE);
        RegSetKeySecurity(key_.Get(), DACL_SECURITY_INFORMATION, &descriptor);
    }

    UniqueRegistryKey key_;
};

TEST(Win32RegistryTest, KeyThatMayOnlyBeQueriedIsRead) {
    ScratchRegistry scratch;
    scratch.SetText(kHKeyLocalMachine, u"Firma", u"Pfad", "C:\\Daten");
    const QueryOnlyKey key("Firma");
    HKEY opened = nullptr;
    ASSERT_EQ(RegOpenKeyExA(HKEY_LOCAL_MACHINE, "Firma", 0, KEY_READ, &opened),
              ERROR_ACCESS_DENIED);
    const OpenRegistry registry(codec);
    EXPECT_EQ(registry.ListValueNames(kHKeyLocalMachine, u"Firma", 255, 4096).size(), 1u);
    for (const auto view : {OpenRegistry::View::kOwn, OpenRegistry::View::k64Bit}) {
        EXPECT_EQ(registry.ReadTextInView(view, kHKeyLocalMachine, u"Firma", u"Pfad"), "C:\\Daten");
    }
}

TEST(Win32RegistryTest, SystemHasA64BitViewWhenItHasAFolderOf32BitPrograms) {
    wchar_t folder[MAX_PATH];
    EXPECT_EQ(OpenRegistry(codec).Has64BitView(), GetSystemWow64DirectoryW(folder, MAX_PATH) != 0);
}

}  // namespace

}  // namespace tarvex
