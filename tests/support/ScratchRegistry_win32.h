#pragma once

#include <string>
#include <string_view>

#include "platform/Registry.h"
#include "platform/win32/Win32System.h"
#include "platform/win32/Win32TextCodec.h"
#include "platform/win32/WindowsApi.h"

namespace tarvex {

/// For this process HKEY_LOCAL_MACHINE and HKEY_CURRENT_USER are empty keys of the test's own while
/// the object lives; the real ones are not touched.
class ScratchRegistry {
public:
    ScratchRegistry();
    ScratchRegistry(const ScratchRegistry&) = delete;
    ScratchRegistry& operator=(const ScratchRegistry&) = delete;
    ~ScratchRegistry();

    void SetText(std::int32_t root, std::u16string_view key, std::u16string_view valueName,
                 const std::string& bytes) {
        SetValue(root, key, valueName, REG_SZ, bytes);
    }
    void SetOther(std::int32_t root, std::u16string_view key, std::u16string_view valueName,
                  std::size_t size) {
        SetValue(root, key, valueName, REG_BINARY, std::string(size, '\1'));
    }
    void SetValue(std::int32_t root, std::u16string_view key, std::u16string_view valueName,
                  DWORD type, const std::string& bytes);
    void AddKey(std::int32_t root, std::u16string_view key) { CloseKey(CreateKey(root, key)); }

    const Registry& registry() const { return registry_; }

private:
    HKEY CreateKey(std::int32_t root, std::u16string_view key) const;
    static void CloseKey(HKEY key) { RegCloseKey(key); }

    SystemTextCodec codec_;
    Win32Registry registry_{codec_};
    std::string scratchName_;
    HKEY machine_ = nullptr;
    HKEY user_ = nullptr;
};

}  // namespace tarvex
