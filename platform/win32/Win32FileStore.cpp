#include "platform/win32/Win32Files.h"

#include <cstdint>

#include "platform/win32/FileIdentity.h"
#include "platform/win32/FileInUse.h"
#include "platform/win32/FileRights.h"
#include "platform/win32/Handles.h"
#include "platform/win32/SystemFile.h"
#include "platform/win32/SystemPath.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32Cleanup.h"
#include "platform/win32/Win32FileLock.h"

namespace tarvex {

namespace {

void Flush(const std::u16string& path) {
    const UniqueFile file(CreateFileW(Wide(path), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file || !FlushFileBuffers(file.Get())) {
        ThrowLastFileFailure();
    }
}

/// Throws the failure of the open of `path` that was made last.
[[noreturn]] void ThrowOpenFailure(const std::u16string& path) {
    const FileProblem problem = FileFailureOf(GetLastError()).problem;
    const DWORD attributes = GetFileAttributesW(Wide(path));
    // A folder is answered like a missing right.
    if (problem == FileProblem::AccessDenied && attributes != INVALID_FILE_ATTRIBUTES &&
        (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        throw FileFailure{FileProblem::IsFolder};
    }
    throw FileFailure{problem};
}

/// Opens an existing file that others may read meanwhile.
UniqueFile OpenShared(const std::u16string& path, DWORD access, DWORD flags) {
    return AfterTheMoment([&] {
        UniqueFile file(CreateFileW(Wide(path), access, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                    flags, nullptr));
        if (!file) {
            ThrowOpenFailure(path);
        }
        return file;
    });
}

/// True when somebody has the file open in a way that lets nobody replace it.
bool IsHeldOpen(const std::u16string& path) {
    const UniqueFile file(CreateFileW(Wide(path), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    return !file && GetLastError() == ERROR_SHARING_VIOLATION;
}

/// Gives the file `source` the name `target`, in place of the file there.
void Rename(const std::u16string& source, const std::u16string& target) {
    for (bool again = true;; again = false) {
        // ReplaceFileW works in several steps and can stop after the first, when the old file is
        // gone.
        if (MoveFileExW(Wide(source), Wide(target),
                        MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
            return;
        }
        const FileProblem problem = FileFailureOf(GetLastError()).problem;
        if (problem == FileProblem::AccessDenied && IsHeldOpen(target)) {
            throw FileFailure{FileProblem::InUse};
        }
        // Whoever held it may have closed it between the two calls.
        if (problem != FileProblem::AccessDenied || !again) {
            throw FileFailure{problem};
        }
    }
}

class Win32BinaryFile : public BinaryFile {
public:
    explicit Win32BinaryFile(UniqueFile file) : file_(std::move(file)) {}

    std::int64_t Size() const override {
        LARGE_INTEGER size;
        if (!GetFileSizeEx(file_.Get(), &size)) {
            ThrowLastFileFailure();
        }
        return size.QuadPart;
    }

    void Seek(std::int64_t position) override {
        LARGE_INTEGER distance;
        distance.QuadPart = position;
        if (!SetFilePointerEx(file_.Get(), distance, nullptr, FILE_BEGIN)) {
            ThrowLastFileFailure();
        }
    }

    std::string Read(std::size_t count) override { return ReadUpTo(file_.Get(), count); }

    void Write(std::string_view bytes) override {
        if (!WriteAll(file_.Get(), bytes)) {
            ThrowLastFileFailure();
        }
    }

private:
    UniqueFile file_;
};

}  // namespace

bool Win32FileStore::FileExists(std::u16string_view path) const {
    return Win32FileSystem().FileExists(path);
}

std::unique_ptr<BinaryFile> Win32FileStore::Open(std::u16string_view path) {
    return std::make_unique<Win32BinaryFile>(
        OpenShared(FilePath(path), GENERIC_READ | GENERIC_WRITE, FILE_ATTRIBUTE_NORMAL));
}

FileEntry Win32FileStore::Describe(std::u16string_view path) const {
    return DescribeFile(path);
}

bool Win32FileStore::IsSameFile(std::u16string_view a, std::u16string_view b) const {
    return IsSameSystemFile(a, b);
}

std::unique_ptr<FileLock> Win32FileStore::Lock(std::u16string_view path,
                                               std::chrono::milliseconds patience) {
    return LockFileBeside(FollowLink(FilePath(path)), patience);
}

std::string Win32FileStore::ReadAll(std::u16string_view path) {
    const UniqueFile file = OpenShared(FilePath(path), GENERIC_READ, FILE_FLAG_SEQUENTIAL_SCAN);
    return ReadUpTo(file.Get(), SIZE_MAX);
}

std::u16string Win32FileStore::WriteNewBeside(std::u16string_view path, std::string_view bytes) {
    const std::u16string target = FollowLink(FilePath(path));
    DWORD error = ERROR_SUCCESS;
    ProgramGate().Enter();
    OwnerOnlyRights rights;
    std::u16string temp = WriteNewFileBeside(target, bytes, error, rights.Get());
    const bool ownerOnly = !temp.empty() && rights.Get() != nullptr;
    if (temp.empty() && error == ERROR_ACCESS_DENIED) {
        // A share may let its users write, but change no rights, which are the folder's then.
        temp = WriteNewFileBeside(target, bytes, error);
    }
    if (temp.empty()) {
        ProgramGate().Leave();
        throw FileFailureOf(error);
    }
    temporaries_[temp] = ownerOnly;
    return temp;
}

bool Win32FileStore::ReplaceWith(std::u16string_view temp, std::u16string_view path,
                                 const FileAccess& access) {
    const std::u16string source = FilePath(temp);
    const std::u16string target = FollowLink(FilePath(path));
    Flush(source);
    RequireReplaceable(target);
    const DWORD attributes = GetFileAttributesW(Wide(target));
    const bool exists = attributes != INVALID_FILE_ATTRIBUTES;
    if (!access.ownerOnly && IsOwnerOnly(temp)) {
        if (exists) {
            CopyRights(target, source);
        } else {
            InheritRights(source);
        }
    }
    if (exists) {
        SetFileAttributesW(Wide(source), attributes);
    }
    try {
        AfterTheMoment([&] { Rename(source, target); });
    } catch (const FileFailure&) {
        SetFileAttributesW(Wide(source), FILE_ATTRIBUTE_NORMAL);
        throw;
    }
    Settle(temp);
    return true;
}

void Win32FileStore::PlaceNew(std::u16string_view temp, std::u16string_view path,
                              const FileAccess& access) {
    const std::u16string source = FilePath(temp);
    Flush(source);
    if (!access.ownerOnly && IsOwnerOnly(temp)) {
        InheritRights(source);
    }
    if (!MoveFileExW(Wide(source), Wide(FilePath(path)), MOVEFILE_WRITE_THROUGH)) {
        ThrowLastFileFailure();
    }
    Settle(temp);
}

void Win32FileStore::Remove(std::u16string_view path) {
    if (!DeleteFileW(Wide(FilePath(path)))) {
        ThrowLastFileFailure();
    }
    Settle(path);
}

bool Win32FileStore::IsOwnerOnly(std::u16string_view temp) const {
    const auto found = temporaries_.find(temp);
    return found != temporaries_.end() && found->second;
}

void Win32FileStore::Settle(std::u16string_view temp) {
    const auto found = temporaries_.find(temp);
    if (found != temporaries_.end()) {
        temporaries_.erase(found);
        ProgramGate().Leave();
    }
}

}  // namespace tarvex
