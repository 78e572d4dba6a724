#include "platform/win32/SystemFile.h"

#include <algorithm>
#include <cstdint>

#include "platform/win32/Handles.h"
#include "platform/win32/WideText.h"
#include "platform/win32/WindowsApi.h"

namespace tarvex {

namespace {

/// Much larger pieces fail on network drives for want of system memory.
constexpr std::size_t kLargestPiece = std::size_t{1} << 20;

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
UniqueFile CreateNewFile(std::u16string& path, DWORD& error, void* security) {
    const std::u16string target = path;
    const DWORD access = security == nullptr ? GENERIC_WRITE : GENERIC_WRITE | WRITE_DAC;
    std::uint32_t number = GetTickCount() ^ (GetCurrentProcessId() << 16);
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        path = TemporaryName(target, number++);
        UniqueFile file(CreateFileW(Wide(path), access, 0,
                                    static_cast<SECURITY_ATTRIBUTES*>(security), CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
        error = file ? ERROR_SUCCESS : GetLastError();
        if (error != ERROR_FILE_EXISTS) {
            return file;
        }
    }
    return {};
}

}  // namespace

FileFailure FileFailureOf(unsigned long error) {
    switch (error) {
        case ERROR_FILE_NOT_FOUND:
            return {FileProblem::NotFound};
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_DRIVE:
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME:
        case ERROR_BAD_NETPATH:
        case ERROR_BAD_NET_NAME:
        case ERROR_DIRECTORY:
            return {FileProblem::PathNotFound};
        case ERROR_ACCESS_DENIED:
        case ERROR_NETWORK_ACCESS_DENIED:
            return {FileProblem::AccessDenied};
        case ERROR_WRITE_PROTECT:
            return {FileProblem::ReadOnlyMedium};
        case ERROR_FILE_EXISTS:
        case ERROR_ALREADY_EXISTS:
            return {FileProblem::Exists};
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_USER_MAPPED_FILE:
            return {FileProblem::InUse};
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
            return {FileProblem::DiskFull};
        default:
            return {FileProblem::Device};
    }
}

void ThrowLastFileFailure() {
    throw FileFailureOf(GetLastError());
}

std::string ReadUpTo(void* file, std::size_t count) {
    std::string bytes;
    while (bytes.size() < count) {
        const std::size_t had = bytes.size();
        bytes.resize(had + std::min(count - had, kLargestPiece));
        DWORD got = 0;
        if (!ReadFile(file, bytes.data() + had, static_cast<DWORD>(bytes.size() - had), &got,
                      nullptr)) {
            ThrowLastFileFailure();
        }
        bytes.resize(had + got);
        if (got == 0) {
            break;
        }
    }
    return bytes;
}

bool WriteAll(void* file, std::string_view bytes) {
    while (!bytes.empty()) {
        const std::string_view piece = bytes.substr(0, kLargestPiece);
        DWORD written = 0;
        if (!WriteFile(file, piece.data(), static_cast<DWORD>(piece.size()), &written, nullptr)) {
            return false;
        }
        if (written == 0) {
            SetLastError(ERROR_DISK_FULL);
            return false;
        }
        bytes.remove_prefix(written);
    }
    return true;
}

std::u16string WriteNewFileBeside(const std::u16string& path, std::string_view bytes,
                                  unsigned long& error, void* security) {
    std::u16string result = path;
    UniqueFile file = CreateNewFile(result, error, security);
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
