#include "platform/win32/Win32BinaryFiles.h"

#include "platform/win32/FileBytes.h"
#include "platform/win32/Handles.h"
#include "platform/win32/SystemPath.h"
#include "platform/win32/WideText.h"
#include "platform/win32/Win32FileFailure.h"
#include "platform/win32/Win32FileSystem.h"

namespace tarvex {

namespace {

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

bool Win32BinaryFiles::FileExists(std::u16string_view path) const {
    return Win32FileSystem().FileExists(path);
}

std::unique_ptr<BinaryFile> Win32BinaryFiles::Open(std::u16string_view path) {
    UniqueFile file(CreateFileW(Wide(FilePath(path)), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ,
                                nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) {
        ThrowLastFileFailure();
    }
    return std::make_unique<Win32BinaryFile>(std::move(file));
}

}  // namespace tarvex
