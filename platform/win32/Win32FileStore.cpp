#include "platform/win32/Win32Files.h"

#include <cstdint>

#include "platform/win32/Handles.h"
#include "platform/win32/SystemFile.h"
#include "platform/win32/SystemPath.h"
#include "platform/win32/WideText.h"

namespace tarvex {

namespace {

void Flush(const std::u16string& path) {
    const UniqueFile file(CreateFileW(Wide(path), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file || !FlushFileBuffers(file.Get())) {
        ThrowLastFileFailure();
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
    UniqueFile file(CreateFileW(Wide(FilePath(path)), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ,
                                nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) {
        ThrowLastFileFailure();
    }
    return std::make_unique<Win32BinaryFile>(std::move(file));
}

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
