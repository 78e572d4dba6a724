#include "platform/win32/Win32FileStore.h"

#include <cstdint>

#include "platform/win32/FileBytes.h"
#include "platform/win32/Handles.h"
#include "platform/win32/NewFile.h"
#include "platform/win32/SystemPath.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32FileFailure.h"

namespace tarvex {

namespace {

void Flush(const std::u16string& path) {
    const UniqueFile file(CreateFileW(Wide(path), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file || !FlushFileBuffers(file.Get())) {
        ThrowLastFileFailure();
    }
}

}  // namespace

std::string Win32FileStore::ReadAll(std::u16string_view path) {
    const std::u16string name = FilePath(path);
    const UniqueFile file(CreateFileW(Wide(name), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!file) {
        ThrowLastFileFailure();
    }
    return ReadUpTo(file.Get(), SIZE_MAX);
}

std::u16string Win32FileStore::WriteNewBeside(std::u16string_view path, std::string_view bytes) {
    DWORD error = ERROR_SUCCESS;
    std::u16string temp = WriteNewFileBeside(FilePath(path), bytes, error);
    if (temp.empty()) {
        throw FileFailureOf(error);
    }
    return temp;
}

void Win32FileStore::ReplaceWith(std::u16string_view temp, std::u16string_view path) {
    const std::u16string source = FilePath(temp);
    const std::u16string target = FilePath(path);
    Flush(source);
    const DWORD attributes = GetFileAttributesW(Wide(target));
    const bool exists = attributes != INVALID_FILE_ATTRIBUTES;
    if (exists && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
        throw FileFailure{FileProblem::AccessDenied};
    }
    if (exists) {
        SetFileAttributesW(Wide(source), attributes);
    }
    // ReplaceFileW would keep the access rights as well, but it works in several steps and can stop
    // after the first, when the old file is gone.
    if (!MoveFileExW(Wide(source), Wide(target),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
        const DWORD error = GetLastError();
        SetFileAttributesW(Wide(source), FILE_ATTRIBUTE_NORMAL);
        throw FileFailureOf(error);
    }
}

void Win32FileStore::Remove(std::u16string_view path) {
    if (!DeleteFileW(Wide(FilePath(path)))) {
        ThrowLastFileFailure();
    }
}

}  // namespace tarvex
