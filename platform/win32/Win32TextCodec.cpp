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

std::string Convert(const std::u16string& text, UINT codePage, DWORD flags) {
    const int length = static_cast<int>(text.size());
    const int size =
        WideCharToMultiByte(codePage, flags, Wide(text), length, nullptr, 0, nullptr, nullptr);
    if (size <= 0) {
        return {};
    }
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(codePage, flags, Wide(text), length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

/// Whether the code page holds the character or one that the system takes for it.
bool HasLikeness(wchar_t unit, UINT codePage) {
    char bytes[8];
    BOOL lost = FALSE;
    // UTF-8 holds every character and refuses the question.
    return WideCharToMultiByte(codePage, 0, &unit, 1, bytes, sizeof(bytes), nullptr, &lost) <= 0 ||
           lost == FALSE;
}

/// The letter without its accents.
wchar_t BaseLetter(wchar_t unit) {
    if (unit == L'\u00DF') {
        return L's';
    }
    wchar_t parts[8];
    return FoldStringW(MAP_COMPOSITE, &unit, 1, parts, 8) > 0 ? parts[0] : unit;
}

}  // namespace

std::string ToNearestAnsi(std::u16string_view text, unsigned codePage) {
    std::u16string nearest(text);
    wchar_t* const units = Wide(nearest);
    for (std::size_t i = 0; i < nearest.size(); ++i) {
        if (!HasLikeness(units[i], codePage)) {
            units[i] = BaseLetter(units[i]);
        }
    }
    return Convert(nearest, codePage, 0);
}

std::string Win32TextCodec::ToAnsi(std::u16string_view text) const {
    // UTF-8 holds every character and refuses the flag.
    return Convert(std::u16string(text), codePage_,
                   codePage_ == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS);
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
