#include "platform/posix/PosixBinaryFiles.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/posix/PosixFile.h"

namespace tarvex {

namespace {

class PosixBinaryFile : public BinaryFile {
public:
    explicit PosixBinaryFile(PosixFile file) : file_(std::move(file)) {}

    std::int64_t Size() const override {
        struct stat status {};
        if (fstat(file_.Get(), &status) != 0) {
            throw PosixFailure(errno);
        }
        return status.st_size;
    }

    void Seek(std::int64_t position) override {
        if (lseek(file_.Get(), position, SEEK_SET) < 0) {
            throw PosixFailure(errno);
        }
    }

    std::string Read(std::size_t count) override { return file_.ReadUpTo(count); }
    void Write(std::string_view bytes) override { file_.WriteAll(bytes); }

private:
    PosixFile file_;
};

}  // namespace

bool PosixBinaryFiles::FileExists(std::u16string_view path) const {
    try {
        struct stat status {};
        return stat(PosixPath(path).c_str(), &status) == 0 && S_ISREG(status.st_mode);
    } catch (const FileFailure&) {
        return false;
    }
}

std::unique_ptr<BinaryFile> PosixBinaryFiles::Open(std::u16string_view path) {
    PosixFile file(PosixPath(path), O_RDWR);
    // A file system without locks only loses the protection against a second writer.
    if (flock(file.Get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        throw FileFailure{FileProblem::InUse};
    }
    return std::make_unique<PosixBinaryFile>(std::move(file));
}

}  // namespace tarvex
