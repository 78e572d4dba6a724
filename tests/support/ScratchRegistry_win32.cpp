#include "tests/support/ScratchRegistry_win32.h"

#include <stdexcept>

namespace tarvex {

namespace {

HKEY CreateVolatileKey(HKEY root, const std::string& name) {
    HKEY key = nullptr;
    if (RegCreateKeyExA(root, name.c_str(), 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS,
                        nullptr, &key, nullptr) != ERROR_SUCCESS) {
        throw std::runtime_error("the registry key cannot be made");
    }
    return key;
}

void DeleteTree(HKEY parent, const std::string& name) {
    HKEY key = nullptr;
    if (RegOpenKeyExA(parent, name.c_str(), 0, KEY_ALL_ACCESS, &key) != ERROR_SUCCESS) {
        return;
    }
    char child[256];
    while (RegEnumKeyA(key, 0, child, sizeof child) == ERROR_SUCCESS) {
        DeleteTree(key, child);
    }
    RegCloseKey(key);
    RegDeleteKeyA(parent, name.c_str());
}

}  // namespace

ScratchRegistry::ScratchRegistry()
    : scratchName_("Software\\TarvexTest" + std::to_string(GetCurrentProcessId())) {
    machine_ = CreateVolatileKey(HKEY_CURRENT_USER, scratchName_ + "\\HKLM");
    user_ = CreateVolatileKey(HKEY_CURRENT_USER, scratchName_ + "\\HKCU");
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine_);
    RegOverridePredefKey(HKEY_CURRENT_USER, user_);
}

ScratchRegistry::~ScratchRegistry() {
    RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
    RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    RegCloseKey(machine_);
    RegCloseKey(user_);
    DeleteTree(HKEY_CURRENT_USER, scratchName_);
}

void ScratchRegistry::SetValue(std::int32_t root, std::u16string_view key,
                               std::u16string_view valueName, DWORD type,
                               const std::string& bytes) {
    const HKEY opened = CreateKey(root, key);
    // The system stores a zero that follows the text given, though it is not part of it.
    const std::string data = bytes + '#';
    const LONG result = RegSetValueExA(opened, codec_.ToAnsi(valueName).c_str(), 0, type,
                                       reinterpret_cast<const BYTE*>(data.data()),
                                       static_cast<DWORD>(bytes.size()));
    RegCloseKey(opened);
    if (result != ERROR_SUCCESS) {
        throw std::runtime_error("the registry value cannot be set");
    }
}

HKEY ScratchRegistry::CreateKey(std::int32_t root, std::u16string_view key) const {
    return CreateVolatileKey(root == kHKeyLocalMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER,
                             codec_.ToAnsi(key));
}

}  // namespace tarvex
