#include "platform/win32/Win32FileFailure.h"

#include "platform/win32/SystemPath.h"
#include "platform/win32/WindowsApi.h"

namespace tarvex {

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
        case ERROR_WRITE_PROTECT:
        case ERROR_NETWORK_ACCESS_DENIED:
            return {FileProblem::AccessDenied};
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

std::u16string FilePath(std::u16string_view path) {
    std::u16string name = SystemPath(path);
    if (name.empty()) {
        throw FileFailure{FileProblem::PathNotFound};
    }
    if (IsDevicePath(name)) {
        throw FileFailure{FileProblem::AccessDenied};
    }
    return name;
}

}  // namespace tarvex
