#include "platform/posix/PosixFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "text/Text.h"

namespace tarvex {

namespace {

bool FolderExists(const std::string& path) {
    const std::string folder = FolderPrefix(path);
    struct stat status {};
    return folder.empty() || stat(folder.c_str(), &status) == 0;
}

}  // namespace

PosixFile::PosixFile(const std::string& path, int flags)
    // Without O_NONBLOCK a pipe would keep the program waiting.
    : descriptor_(open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK)) {
    if (descriptor_ < 0) {
        throw PosixFailure(errno, path);
    }
    struct stat status {};
    if (fstat(descriptor_, &status) != 0 || !S_ISREG(status.st_mode)) {
        close(descriptor_);
        throw FileFailure{FileProblem::AccessDenied};
    }
}

std::optional<PosixFile> PosixFile::CreateNew(const std::string& path) {
    const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor >= 0) {
        return PosixFile(descriptor);
    }
    if (errno == EEXIST) {
        return std::nullopt;
    }
    throw PosixFailure(errno, path);
}

PosixFile::PosixFile(PosixFile&& other) noexcept : descriptor_(other.descriptor_) {
    other.descriptor_ = -1;
}

PosixFile::~PosixFile() {
    if (descriptor_ >= 0) {
        close(descriptor_);
    }
}

std::string PosixFile::ReadUpTo(std::size_t count) const {
    constexpr std::size_t kLargestPiece = std::size_t{1} << 20;
    std::string bytes;
    while (bytes.size() < count) {
        const std::size_t had = bytes.size();
        bytes.resize(had + std::min(count - had, kLargestPiece));
        const ssize_t got = read(descriptor_, bytes.data() + had, bytes.size() - had);
        bytes.resize(had + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
        if (got < 0 && errno != EINTR) {
            throw PosixFailure(errno);
        }
        if (got == 0) {
            break;
        }
    }
    return bytes;
}

void PosixFile::WriteAll(std::string_view bytes) const {
    while (!bytes.empty()) {
        const ssize_t written = write(descriptor_, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) {
            throw PosixFailure(errno);
        }
        bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
    }
}

void PosixFile::Flush() const {
    if (fsync(descriptor_) != 0) {
        throw PosixFailure(errno);
    }
}

std::string PosixPath(std::u16string_view path) {
    if (path.empty() || path.find(u'\0') != std::u16string_view::npos) {
        throw FileFailure{FileProblem::PathNotFound};
    }
    return text::ToUtf8(path);
}

std::string FolderPrefix(const std::string& path) {
    return path.substr(0, path.find_last_of('/') + 1);
}

FileFailure PosixFailure(int error, const std::string& path) {
    switch (error) {
        case ENOENT:
            return {FolderExists(path) ? FileProblem::NotFound : FileProblem::PathNotFound};
        case ENOTDIR:
        case ENAMETOOLONG:
        case ELOOP:
            return {FileProblem::PathNotFound};
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
            return {FileProblem::AccessDenied};
        case ETXTBSY:
        case EBUSY:
            return {FileProblem::InUse};
        case ENOSPC:
        case EDQUOT:
            return {FileProblem::DiskFull};
        default:
            return {FileProblem::Device};
    }
}

}  // namespace tarvex
