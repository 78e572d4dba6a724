#include "platform/posix/PosixFileStore.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>

#include "platform/posix/PosixFile.h"
#include "text/Text.h"

namespace tarvex {

namespace {

constexpr mode_t kPermissionBits = 07777;
constexpr mode_t kAllWriteBits = 0222;

/// The file that a symbolic link names; other paths, also of a file that does not exist yet, as
/// they are.
std::string Resolve(std::u16string_view path) {
    const std::string name = PosixPath(path);
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(name.c_str(), nullptr),
                                                           &std::free);
    return real == nullptr ? name : std::string(real.get());
}

/// Deletes the new file unless the work on it came to its end.
class Unfinished {
public:
    explicit Unfinished(const std::string& path) : path_(path) {}
    Unfinished(const Unfinished&) = delete;
    Unfinished& operator=(const Unfinished&) = delete;
    ~Unfinished() {
        if (!kept_) {
            unlink(path_.c_str());
        }
    }
    void Keep() { kept_ = true; }

private:
    const std::string& path_;
    bool kept_ = false;
};

/// Creates a file of a name of its own in the target's folder; the path is left in `path`.
PosixFile CreateBeside(const std::string& target, std::string& path) {
    for (int attempt = 0; attempt < 100; ++attempt) {
        path =
            FolderPrefix(target) + "~tv" + std::to_string(getpid()) + "-" + std::to_string(attempt);
        if (std::optional<PosixFile> file = PosixFile::CreateNew(path)) {
            return std::move(*file);
        }
    }
    throw FileFailure{FileProblem::Device};
}

/// Gives an open file the owner and the permission bits of the file whose place it will take.
void TakeOver(const struct stat& old, const PosixFile& file) {
    // Only the superuser can give a file away; for others it is theirs, as when they had copied it.
    if (fchown(file.Get(), old.st_uid, old.st_gid) != 0 && errno != EPERM) {
        throw PosixFailure(errno);
    }
    if (fchmod(file.Get(), old.st_mode & kPermissionBits) != 0) {
        throw PosixFailure(errno);
    }
}

void RefuseReadOnly(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) {
        return;  // there is none
    }
    // Renaming would only need the right to change the folder, and the superuser may do everything:
    // whoever protects a file means it to stay as it is.
    if ((status.st_mode & kAllWriteBits) == 0 || access(path.c_str(), W_OK) != 0) {
        throw FileFailure{FileProblem::AccessDenied};
    }
}

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

bool PosixFileStore::FileExists(std::u16string_view path) const {
    try {
        struct stat status {};
        return stat(PosixPath(path).c_str(), &status) == 0 && S_ISREG(status.st_mode);
    } catch (const FileFailure&) {
        return false;
    }
}

std::unique_ptr<BinaryFile> PosixFileStore::Open(std::u16string_view path) {
    PosixFile file(PosixPath(path), O_RDWR);
    // A file system without locks only loses the protection against a second writer.
    if (flock(file.Get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        throw FileFailure{FileProblem::InUse};
    }
    return std::make_unique<PosixBinaryFile>(std::move(file));
}

std::string PosixFileStore::ReadAll(std::u16string_view path) {
    return PosixFile(PosixPath(path), O_RDONLY).ReadUpTo(SIZE_MAX);
}

std::u16string PosixFileStore::WriteNewBeside(std::u16string_view path, std::string_view bytes) {
    const std::string target = Resolve(path);
    std::string temp;
    const PosixFile file = CreateBeside(target, temp);
    Unfinished unfinished(temp);
    file.WriteAll(bytes);
    struct stat status {};
    if (stat(target.c_str(), &status) == 0 && S_ISREG(status.st_mode)) {
        TakeOver(status, file);
    }
    file.Flush();
    unfinished.Keep();
    return text::FromUtf8(temp);
}

void PosixFileStore::ReplaceWith(std::u16string_view temp, std::u16string_view path) {
    const std::string source = PosixPath(temp);
    const std::string target = Resolve(path);
    RefuseReadOnly(target);
    PosixFile(source, O_RDONLY).Flush();
    if (std::rename(source.c_str(), target.c_str()) != 0) {
        throw PosixFailure(errno, target);
    }
    // The new name is safe only when the folder is on the disk too; some file systems cannot do
    // that, and the replacement has happened by then.
    const std::string folder = FolderPrefix(target);
    const int descriptor = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor >= 0) {
        fsync(descriptor);
        close(descriptor);
    }
}

void PosixFileStore::Remove(std::u16string_view path) {
    const std::string name = PosixPath(path);
    if (unlink(name.c_str()) != 0) {
        throw PosixFailure(errno, name);
    }
}

}  // namespace tarvex
