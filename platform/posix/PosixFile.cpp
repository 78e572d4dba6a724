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

/// The bytes from 0x80 to 0xFF, as PosixText writes them where they are not UTF-8.
constexpr char16_t kFirstByte = 0xDC80;
constexpr char16_t kLastByte = 0xDCFF;

/// Length of the character that the bytes begin with, 0 when that is not UTF-8.
std::size_t LengthOfCharacter(std::string_view bytes) {
    const auto first = static_cast<unsigned char>(bytes[0]);
    const std::size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    const std::string_view character = bytes.substr(0, length);
    return text::ToUtf8(text::FromUtf8(character)) == character ? length : 0;
}

}  // namespace

PosixFile::PosixFile(const std::string& path, int flags) : descriptor_(-1) {
    // Opening alone can start something in a device.
    struct stat status {};
    if (stat(path.c_str(), &status) == 0) {
        RequireRegular(status);
    }
    // Without O_NONBLOCK a pipe that has come meanwhile would keep the program waiting.
    descriptor_ = open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK);
    if (descriptor_ < 0) {
        throw PosixFailure(errno, path);
    }
}

std::optional<PosixFile> PosixFile::CreateNew(const std::string& path) {
    const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
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

struct stat PosixFile::Status() const {
    struct stat status {};
    if (fstat(descriptor_, &status) != 0) {
        throw PosixFailure(errno);
    }
    return status;
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

std::string ReadUpTo(int descriptor, std::size_t count) {
    constexpr std::size_t kLargestPiece = std::size_t{1} << 20;
    std::string bytes;
    while (bytes.size() < count) {
        const std::size_t had = bytes.size();
        bytes.resize(had + std::min(count - had, kLargestPiece));
        const ssize_t got = read(descriptor, bytes.data() + had, bytes.size() - had);
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

std::string PosixPath(std::u16string_view path) {
    if (path.empty() || path.find(u'\0') != std::u16string_view::npos) {
        throw FileFailure{FileProblem::PathNotFound};
    }
    std::string bytes;
    bool afterHigh = false;
    std::size_t start = 0;
    for (std::size_t i = 0; i < path.size(); ++i) {
        const char16_t unit = path[i];
        if (!afterHigh && unit >= kFirstByte && unit <= kLastByte) {
            bytes += text::ToUtf8(path.substr(start, i - start));
            bytes += static_cast<char>(unit - kFirstByte + 0x80);
            start = i + 1;
        }
        afterHigh = unit >= 0xD800 && unit <= 0xDBFF;
    }
    return bytes + text::ToUtf8(path.substr(start));
}

std::u16string PosixText(std::string_view bytes) {
    std::u16string text;
    while (!bytes.empty()) {
        const std::size_t length = LengthOfCharacter(bytes);
        if (length > 0) {
            text += text::FromUtf8(bytes.substr(0, length));
        } else {
            text += static_cast<char16_t>(kFirstByte + static_cast<unsigned char>(bytes[0]) - 0x80);
        }
        bytes.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return text;
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
            return {FileProblem::AccessDenied};
        case EROFS:
            return {FileProblem::ReadOnlyMedium};
        case EISDIR:
            return {FileProblem::IsFolder};
        case ENXIO:
        case ENODEV:
            return {FileProblem::NotAFile};
        case EEXIST:
            return {FileProblem::Exists};
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

void RequireRegular(const struct stat& status) {
    if (S_ISDIR(status.st_mode)) {
        throw FileFailure{FileProblem::IsFolder};
    }
    if (!S_ISREG(status.st_mode)) {
        throw FileFailure{FileProblem::NotAFile};
    }
}

}  // namespace tarvex
