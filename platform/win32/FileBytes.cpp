#include "platform/win32/FileBytes.h"

#include <algorithm>

#include "platform/win32/Win32FileFailure.h"
#include "platform/win32/WindowsApi.h"

namespace tarvex {

namespace {

/// Much larger pieces fail on network drives for want of system memory.
constexpr std::size_t kLargestPiece = std::size_t{1} << 20;

}  // namespace

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

}  // namespace tarvex
