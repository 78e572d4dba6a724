#include "platform/win32/Win32Files.h"

#include "platform/win32/Handles.h"
#include "platform/win32/SystemFile.h"
#include "platform/win32/SystemPath.h"
#include "platform/win32/WideText.h"

namespace tarvex {

namespace {

/// Puts `temp` in the place of `path`. Windows refuses to replace a read-only file, so that it
/// loses this attribute for the moment.
bool Replace(const std::u16string& temp, const std::u16string& path) {
    const DWORD attributes = GetFileAttributesW(Wide(path));
    const bool readOnly = attributes != INVALID_FILE_ATTRIBUTES &&
                          (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0 &&
                          (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    if (readOnly && !SetFileAttributesW(Wide(path), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY})) {
        return false;
    }
    const bool replaced =
        MoveFileExW(Wide(temp), Wide(path), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
    if (!replaced && readOnly) {
        SetFileAttributesW(Wide(path), attributes);
    }
    return replaced;
}

/// A place in a file that nobody reads; whoever has it locked is the one who appends.
constexpr DWORD kTurn = 0x7FFFFFFF;

/// Without the right to write elsewhere each write goes to the end that the file has then.
UniqueFile OpenForAppending(const std::u16string& path, DWORD access) {
    return UniqueFile(CreateFileW(Wide(path), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                  OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
}

/// Locks the file against other writers of this kind: where it lies on a server, two writes may
/// find the same end. One who does not give up the turn within a second is not waited for.
void WaitForTurn(HANDLE file) {
    for (int attempt = 0; attempt < 100 && LockFile(file, kTurn, 0, 1, 0) == FALSE &&
                          GetLastError() == ERROR_LOCK_VIOLATION;
         ++attempt) {
        Sleep(10);
    }
}

}  // namespace

bool Win32FileSystem::FileExists(std::u16string_view path) const {
    if (path.empty() || path.ends_with(u'\\') || path.ends_with(u'/') ||
        path.find_first_of(u"*?", path.starts_with(u"\\\\?\\") ? 4 : 0) !=
            std::u16string_view::npos) {
        return false;
    }
    const std::u16string file = SystemPath(path);
    if (file.empty() || IsDevicePath(file)) {
        return false;
    }
    const DWORD attributes = GetFileAttributesW(Wide(file));
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool Win32FileSystem::Append(std::u16string_view path, std::string_view bytes) {
    const std::u16string name = SystemPath(path);
    if (name.empty()) {
        return false;
    }
    // Only a file opened for reading can be locked; an administrator may have left the users
    // nothing but the right to append.
    UniqueFile file = OpenForAppending(name, FILE_APPEND_DATA | FILE_READ_DATA);
    if (!file) {
        file = OpenForAppending(name, FILE_APPEND_DATA);
    }
    if (!file) {
        return false;
    }
    WaitForTurn(file.Get());
    DWORD written = 0;
    const bool complete = WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()),
                                    &written, nullptr) != FALSE &&
                          written == bytes.size();
    UnlockFile(file.Get(), kTurn, 0, 1, 0);
    return complete;
}

bool Win32FileSystem::Write(std::u16string_view path, std::string_view bytes, bool overwrite) {
    const std::u16string name = SystemPath(path);
    if (name.empty() || IsDevicePath(name)) {
        return false;
    }
    DWORD error = ERROR_SUCCESS;
    const std::u16string temp = WriteNewFileBeside(name, bytes, error);
    if (temp.empty()) {
        return false;
    }
    const bool done = overwrite ? Replace(temp, name)
                                : MoveFileExW(Wide(temp), Wide(name), MOVEFILE_WRITE_THROUGH) != 0;
    if (!done) {
        DeleteFileW(Wide(temp));
    }
    return done;
}

}  // namespace tarvex
