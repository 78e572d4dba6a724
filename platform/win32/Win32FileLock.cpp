#include "platform/win32/Win32FileLock.h"

#include "platform/win32/FileIdentity.h"
#include "platform/win32/Handles.h"
#include "platform/win32/SystemFile.h"
#include "platform/win32/SystemPath.h"
#include "platform/win32/WideText.h"

namespace tarvex {

namespace {

constexpr DWORD kPause = 20;

/// So long a missing right is taken for the moment in which the system deletes the file of the one
/// who had the lock before: both are answered alike.
constexpr DWORD kLongestDeletion = 500;

/// Two names of one file, of which one has the form 8.3, have the same lock.
std::u16string LockPath(const std::u16string& path) {
    constexpr std::size_t kLongestName = 200;  // those that are longer share their locks
    const std::u16string longPath = ReadGrowing([&path](wchar_t* buffer, DWORD size) {
        const DWORD length = GetLongPathNameW(Wide(path), buffer, size);
        return length < size ? GrowingRead{length, false} : GrowingRead{0, true};
    });
    const std::u16string& full = longPath.empty() ? path : longPath;
    const std::size_t name = full.find_last_of(u"\\/") + 1;
    return FilePath(full.substr(0, name) + u"~" + full.substr(name, kLongestName) + u".lock");
}

class Win32FileLock : public FileLock {
public:
    explicit Win32FileLock(UniqueFile file) : file_(std::move(file)) {}

private:
    UniqueFile file_;
};

}  // namespace

std::unique_ptr<FileLock> LockFileBeside(const std::u16string& path,
                                         std::chrono::milliseconds patience) {
    if (GetFileAttributesW(Wide(path)) == INVALID_FILE_ATTRIBUTES) {
        ThrowLastFileFailure();
    }
    RequireReplaceable(path);
    const std::u16string lock = LockPath(path);
    const DWORD start = GetTickCount();
    for (;;) {
        UniqueFile file(CreateFileW(Wide(lock), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                                    FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
        if (file) {
            return std::make_unique<Win32FileLock>(std::move(file));
        }
        const DWORD error = GetLastError();
        const DWORD waited = GetTickCount() - start;
        if (error != ERROR_SHARING_VIOLATION &&
            (error != ERROR_ACCESS_DENIED || waited >= kLongestDeletion)) {
            throw FileFailureOf(error);
        }
        if (waited >= static_cast<DWORD>(patience.count())) {
            throw FileFailure{FileProblem::Locked};
        }
        Sleep(kPause);
    }
}

}  // namespace tarvex
