#include "platform/win32/SystemLibrary.h"
#include "platform/win32/SystemPath.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/Win32System.h"
#include "platform/win32/Win32TextCodec.h"
#include "platform/win32/WindowsApi.h"
#include "simulation/ThisPc.h"

namespace tarvex {

namespace {

class WindowsPc : public ThisPc {
public:
    const Registry& RegistryView() const override { return registry_; }
    const FileSystem& Files() const override { return files_; }
    const TextCodec& Codec() const override { return codec_; }
    std::int32_t CodePage() const override { return static_cast<std::int32_t>(codec_.CodePage()); }

    // GetVersionEx tells programs without a manifest for them nothing of the newer versions.
    WindowsVersion Version() const override {
        const SystemLibrary library(u"ntdll.dll");
        auto* const getVersion = library.Function<LONG WINAPI(OSVERSIONINFOW*)>("RtlGetVersion");
        OSVERSIONINFOW information{};
        information.dwOSVersionInfoSize = sizeof(information);
        if (getVersion == nullptr || getVersion(&information) != 0) {
            return {};
        }
        return {static_cast<std::int32_t>(information.dwMajorVersion),
                static_cast<std::int32_t>(information.dwMinorVersion)};
    }

    std::u16string FullPath(std::u16string_view path) const override {
        std::u16string full = SystemPath(path);
        return full;
    }

private:
    SystemTextCodec codec_;
    Win32Registry registry_{codec_};
    Win32FileSystem files_;
};

}  // namespace

std::unique_ptr<ThisPc> OpenThisPc() {
    return std::make_unique<WindowsPc>();
}

}  // namespace tarvex
