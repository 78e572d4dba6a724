#include "platform/win32/Win32System.h"

#include <algorithm>

#include "platform/win32/SystemLibrary.h"
#include "platform/win32/WideText.h"
#include "platform/win32/WindowsApi.h"

namespace tarvex {

namespace {

/// VerQueryValueA puts a converted text after the end that the block states for itself, which a
/// damaged block may state as any of 16 bits: a block of up to 64 KiB, a place in it and a text.
constexpr std::size_t kRoomBehindBlock = 3 * 0x10000;

template <class Signature>
Signature* VersionFunction(const char* name) {
    return SystemLibrary(u"version.dll").Function<Signature>(name);
}

/// The part of [data, data + size) that lies in the block: lengths in a version resource are not to
/// be trusted.
std::string_view Within(const std::string& block, const void* data, std::size_t size) {
    const auto* const begin = static_cast<const char*>(data);
    const char* const end = block.data() + block.size();
    if (begin < block.data() || begin >= end) {
        return {};
    }
    return {begin, std::min(size, static_cast<std::size_t>(end - begin))};
}

}  // namespace

std::string Win32VersionResource::AnsiPath(std::u16string_view path) const {
    std::string bytes = ansi_.ToAnsi(path);
    if (ansi_.FromAnsi(bytes) == path) {
        return bytes;
    }
    const std::u16string wide(path);
    return ansi_.ToAnsi(ReadGrowing([&](wchar_t* buffer, DWORD size) {
        const DWORD length = GetShortPathNameW(Wide(wide), buffer, size);
        return GrowingRead{length, length >= size};
    }));
}

std::u16string Win32VersionResource::FullPathName(std::u16string_view path) const {
    constexpr std::size_t kLongestPath = 32768;
    std::string full(kLongestPath, '\0');
    const DWORD length = GetFullPathNameA(AnsiPath(path).c_str(), static_cast<DWORD>(full.size()),
                                          full.data(), nullptr);
    full.resize(length < full.size() ? length : 0);
    return ansi_.FromAnsi(full);
}

std::string Win32VersionResource::ReadBlock(std::u16string_view path) const {
    auto* const sizeOf =
        VersionFunction<decltype(GetFileVersionInfoSizeA)>("GetFileVersionInfoSizeA");
    auto* const read = VersionFunction<decltype(GetFileVersionInfoA)>("GetFileVersionInfoA");
    if (sizeOf == nullptr || read == nullptr) {
        return {};
    }
    const std::string ansiPath = AnsiPath(path);
    DWORD ignored = 0;
    const DWORD size = sizeOf(ansiPath.c_str(), &ignored);
    std::string block(size == 0 ? 0 : size + kRoomBehindBlock, '\0');
    if (size == 0 || read(ansiPath.c_str(), 0, size, block.data()) == FALSE) {
        return {};
    }
    return block;
}

std::optional<std::string> Win32VersionResource::Query(std::string& block,
                                                       std::u16string_view value,
                                                       bool isText) const {
    auto* const query = VersionFunction<decltype(VerQueryValueA)>("VerQueryValueA");
    void* data = nullptr;
    UINT size = 0;
    if (query == nullptr ||
        query(block.data(), ansi_.ToAnsi(value).c_str(), &data, &size) == FALSE ||
        data == nullptr) {
        return std::nullopt;
    }
    if (!isText) {
        return std::string(Within(block, data, size));
    }
    const std::string_view text = Within(block, data, block.size());
    return std::string(text.substr(0, text.find('\0')));
}

std::optional<std::string> Win32VersionResource::QueryBytes(std::string& block,
                                                            std::u16string_view value) const {
    return Query(block, value, false);
}

std::optional<std::u16string> Win32VersionResource::QueryText(std::string& block,
                                                              std::u16string_view value) const {
    const std::optional<std::string> bytes = Query(block, value, true);
    return bytes ? std::optional(ansi_.FromAnsi(*bytes)) : std::nullopt;
}

std::u16string Win32VersionResource::LanguageName(std::uint16_t language) const {
    auto* const nameOf = VersionFunction<decltype(VerLanguageNameA)>("VerLanguageNameA");
    char name[256] = {};
    if (nameOf == nullptr || nameOf(language, name, sizeof(name)) == 0) {
        return {};
    }
    name[sizeof(name) - 1] = '\0';
    return ansi_.FromAnsi(name);
}

}  // namespace tarvex
