#include "platform/win32/NewFile.h"

#include <cstdint>

#include "platform/win32/FileBytes.h"
#include "platform/win32/Handles.h"
#include "platform/win32/WideText.h"

namespace tarvex {

namespace {

constexpr int kAttempts = 100;

/// "~tv" and eight digits: short, since the ordinary path has room for little more than the name
/// that the caller gave.
std::u16string TemporaryName(const std::u16string& path, std::uint32_t number) {
    std::u16string name = path.substr(0, path.find_last_of(u"\\/") + 1) + u"~tv";
    for (int shift = 28; shift >= 0; shift -= 4) {
        name.push_back(u"0123456789abcdef"[(number >> shift) & 0xF]);
    }
    return name;
}

/// Creates the file; its path is left in `path`.
UniqueFile CreateNewFile(std::u16string& path, DWORD& error) {
    const std::u16string target = path;
    std::uint32_t number = GetTickCount() ^ (GetCurrentProcessId() << 16);
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        path = TemporaryName(target, number++);
        UniqueFile file(CreateFileW(Wide(path), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
        error = file ? ERROR_SUCCESS : GetLastError();
        if (error != ERROR_FILE_EXISTS) {
            return file;
        }
    }
    return {};
}

}  // namespace

std::u16string WriteNewFileBeside(const std::u16string& path, std::string_view bytes,
                                  unsigned long& error) {
    std::u16string result = path;
    UniqueFile file = CreateNewFile(result, error);
    if (!file) {
        return {};
    }
    if (!WriteAll(file.Get(), bytes) || !FlushFileBuffers(file.Get())) {
        error = GetLastError();
        file.Reset();
        DeleteFileW(Wide(result));
        return {};
    }
    return result;
}

}  // namespace tarvex
