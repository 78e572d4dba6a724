#include "platform/win32/WindowsApi.h"
#include "tests/support/TestFolder.h"

#include <algorithm>
#include <stdexcept>

#include "text/Text.h"

namespace tarvex {

namespace {

/// In the notation that has no limit of length, so that tests can make long paths.
std::wstring Verbatim(std::u16string_view path) {
    const std::wstring wide(path.begin(), path.end());
    return wide.starts_with(L"\\\\") ? wide : L"\\\\?\\" + wide;
}

template <class Visit>
void ForEachEntry(const std::wstring& folder, const Visit& visit) {
    WIN32_FIND_DATAW data;
    HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &data);
    if (search == INVALID_HANDLE_VALUE) {
        return;
    }
    do {
        const std::wstring name = data.cFileName;
        if (name != L"." && name != L"..") {
            visit(name, (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0);
        }
    } while (FindNextFileW(search, &data));
    FindClose(search);
}

void RemoveTree(const std::wstring& folder) {
    ForEachEntry(folder, [&folder](const std::wstring& name, bool isFolder) {
        const std::wstring path = folder + L"\\" + name;
        SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
        if (isFolder) {
            RemoveTree(path);
        } else {
            DeleteFileW(path.c_str());
        }
    });
    RemoveDirectoryW(folder.c_str());
}

}  // namespace

TestFolder::TestFolder() {
    static int count = 0;
    wchar_t temp[MAX_PATH + 1];
    const DWORD length = GetTempPathW(MAX_PATH, temp);
    path_.assign(temp, temp + length);
    path_ += u"tarvex" + text::Decimal(GetCurrentProcessId()) + u"-" + text::Decimal(count++);
    if (!CreateDirectoryW(Verbatim(path_).c_str(), nullptr)) {
        throw std::runtime_error("no temporary folder");
    }
}

TestFolder::~TestFolder() {
    RemoveTree(Verbatim(path_));
}

std::u16string TestFolder::Path(std::u16string_view name) const {
    return name.empty() ? path_ : path_ + u"\\" + std::u16string(name);
}

void TestFolder::MakeFile(std::u16string_view name, std::string_view bytes) const {
    HANDLE file = CreateFileW(Verbatim(Path(name)).c_str(), GENERIC_WRITE, 0, nullptr,
                              CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        throw std::runtime_error("the file cannot be made");
    }
    DWORD written = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    CloseHandle(file);
}

void TestFolder::MakeFolder(std::u16string_view name) const {
    if (!CreateDirectoryW(Verbatim(Path(name)).c_str(), nullptr)) {
        throw std::runtime_error("the folder cannot be made");
    }
}

bool TestFolder::MakeReadOnly(std::u16string_view name) const {
    SetFileAttributesW(Verbatim(Path(name)).c_str(), FILE_ATTRIBUTE_READONLY);
    HANDLE file = CreateFileW(Verbatim(Path(name)).c_str(), GENERIC_WRITE, 0, nullptr,
                              OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    const bool writable = file != INVALID_HANDLE_VALUE;
    if (writable) {
        CloseHandle(file);
    }
    return !writable;
}

std::optional<std::string> TestFolder::Bytes(std::u16string_view name) const {
    HANDLE file =
        CreateFileW(Verbatim(Path(name)).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return std::nullopt;
    }
    std::string bytes(GetFileSize(file, nullptr), '\0');
    DWORD got = 0;
    ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &got, nullptr);
    CloseHandle(file);
    bytes.resize(got);
    return bytes;
}

std::vector<std::u16string> TestFolder::Names() const {
    std::vector<std::u16string> names;
    ForEachEntry(Verbatim(path_), [&names](const std::wstring& name, bool) {
        names.emplace_back(name.begin(), name.end());
    });
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace tarvex
