#include "platform/win32/Win32TextCodec.h"

#include "platform/win32/WideText.h"
#include "platform/win32/WindowsApi.h"

namespace tarvex {

namespace {

constexpr UINT kWesternEuropean = 1252;

UINT SingleByteCodePage() {
    const UINT system = GetACP();
    CPINFO information;
    return GetCPInfo(system, &information) && information.MaxCharSize == 1 ? system
                                                                           : kWesternEuropean;
}

}  // namespace

std::string Win32TextCodec::ToAnsi(std::u16string_view text) const {
    const std::u16string source(text);
    const int length = static_cast<int>(source.size());
    // UTF-8 holds every character and refuses the flag.
    const DWORD flags = codePage_ == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS;
    const int size =
        WideCharToMultiByte(codePage_, flags, Wide(source), length, nullptr, 0, nullptr, nullptr);
    if (size <= 0) {
        return {};
    }
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(codePage_, flags, Wide(source), length, bytes.data(), size, nullptr,
                        nullptr);
    return bytes;
}

std::u16string Win32TextCodec::FromAnsi(std::string_view bytes) const {
    const int length = static_cast<int>(bytes.size());
    const int size = MultiByteToWideChar(codePage_, 0, bytes.data(), length, nullptr, 0);
    if (size <= 0) {
        return {};
    }
    std::u16string text(static_cast<std::size_t>(size), u'\0');
    MultiByteToWideChar(codePage_, 0, bytes.data(), length, Wide(text), size);
    return text;
}

SystemTextCodec::SystemTextCodec() : Win32TextCodec(GetACP()) {}

SingleByteTextCodec::SingleByteTextCodec() : Win32TextCodec(SingleByteCodePage()) {}

}  // namespace tarvex
