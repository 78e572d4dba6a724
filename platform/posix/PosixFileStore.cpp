#include "platform/posix/PosixFileStore.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <optional>
#include <thread>

#include "platform/posix/PosixCleanup.h"
#include "platform/posix/PosixFile.h"
#include "platform/posix/PosixFileAccess.h"

namespace tarvex {

namespace {

constexpr mode_t kAllWriteBits = 0222;

/// The file that a symbolic link names; other paths, also of a file that does not exist yet, as
/// they are.
std::string Resolve(std::u16string_view path) {
    const std::string name = PosixPath(path);
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(name.c_str(), nullptr),
                                                           &std::free);
    return real == nullptr ? name : std::string(real.get());
}

void RemoveTemporary(const std::string& path) {
    unlink(path.c_str());
    ForgetTemporary(path);
}

/// Deletes the new file unless the work on it came to its end.
class Unfinished {
public:
    explicit Unfinished(const std::string& path) : path_(path) {}
    Unfinished(const Unfinished&) = delete;
    Unfinished& operator=(const Unfinished&) = delete;
    ~Unfinished() {
        if (!kept_) {
            RemoveTemporary(path_);
        }
    }
    void Keep() { kept_ = true; }

private:
    const std::string& path_;
    bool kept_ = false;
};

/// Creates a file of a name of its own in the target's folder; the path is left in `path`.
PosixFile CreateBeside(const std::string& target, std::string& path) {
    // Noted before, it could be the file of another program that an interruption deletes.
    const InterruptPause pause;
    for (int attempt = 0; attempt < 100; ++attempt) {
        path =
            FolderPrefix(target) + "~tv" + std::to_string(getpid()) + "-" + std::to_string(attempt);
        if (std::optional<PosixFile> file = PosixFile::CreateNew(path)) {
            NoteTemporary(path);
            return std::move(*file);
        }
    }
    throw FileFailure{FileProblem::Device};
}

/// The new name is safe only when the folder is on the disk too; some file systems cannot do that,
/// and the file is in its place by then.
void FlushFolderOf(const std::string& path) {
    const std::string folder = FolderPrefix(path);
    const int descriptor = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor >= 0) {
        fsync(descriptor);
        close(descriptor);
    }
}

/// rename(2) to a name that nothing has.
void RenameToNew(const std::string& source, const std::string& target) {
    if (renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0) {
        return;
    }
    if (errno != EINVAL && errno != ENOSYS) {
        throw PosixFailure(errno, target);
    }
    // A file system that cannot do both in one step: who makes the empty file has won the name.
    if (!PosixFile::CreateNew(target)) {
        throw FileFailure{FileProblem::Exists};
    }
    if (std::rename(source.c_str(), target.c_str()) != 0) {
        const int error = errno;
        unlink(target.c_str());
        throw PosixFailure(error, target);
    }
}

class PosixFileLock : public FileLock {
public:
    explicit PosixFileLock(PosixFile file) : file_(std::move(file)) {}

private:
    PosixFile file_;
};

/// False when another program has the lock. A file system without locks only loses the protection
/// against a second writer.
bool TryLock(const PosixFile& file) {
    return flock(file.Get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

/// False when another file has got the name since the file was opened.
bool IsStillAt(const PosixFile& file, const std::string& path) {
    struct stat now {};
    const struct stat opened = file.Status();
    return stat(path.c_str(), &now) == 0 && now.st_dev == opened.st_dev &&
           now.st_ino == opened.st_ino;
}

/// Status of the file at the path; none when there is nothing. Throws when it must not be replaced.
std::optional<struct stat> StatusToReplace(const std::string& path) {
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) {
        if (lstat(path.c_str(), &status) == 0) {
            throw FileFailure{FileProblem::NotFound};  // a link that leads nowhere
        }
        return std::nullopt;
    }
    RequireRegular(status);
    // Renaming would only need the right to change the folder, and the superuser may do everything:
    // whoever protects a file means it to stay as it is.
    if ((status.st_mode & kAllWriteBits) == 0) {
        throw FileFailure{FileProblem::AccessDenied};
    }
    if (access(path.c_str(), W_OK) != 0) {
        throw PosixFailure(errno, path);
    }
    return status;
}

class PosixBinaryFile : public BinaryFile {
public:
    explicit PosixBinaryFile(PosixFile file) : file_(std::move(file)) {}

    std::int64_t Size() const override { return file_.Status().st_size; }

    void Seek(std::int64_t position) override {
        if (lseek(file_.Get(), position, SEEK_SET) < 0) {
            throw PosixFailure(errno);
        }
    }

    std::string Read(std::size_t count) override { return ReadUpTo(file_.Get(), count); }
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
    if (!TryLock(file)) {
        throw FileFailure{FileProblem::InUse};
    }
    return std::make_unique<PosixBinaryFile>(std::move(file));
}

FileEntry PosixFileStore::Describe(std::u16string_view path) const {
    const std::string name = PosixPath(path);
    struct stat status {};
    FileEntry entry;
    if (lstat(name.c_str(), &status) != 0) {
        if (errno == ENOENT || errno == ENOTDIR) {
            return entry;
        }
        throw PosixFailure(errno, name);
    }
    entry.isLink = S_ISLNK(status.st_mode);
    if (stat(name.c_str(), &status) != 0) {
        if (errno == ENOENT || errno == ENOTDIR || errno == ELOOP) {
            return entry;
        }
        throw PosixFailure(errno, name);
    }
    entry.kind = S_ISREG(status.st_mode)   ? FileKind::Regular
                 : S_ISDIR(status.st_mode) ? FileKind::Folder
                                           : FileKind::Other;
    entry.names = static_cast<std::uint32_t>(status.st_nlink);
    return entry;
}

bool PosixFileStore::IsSameFile(std::u16string_view a, std::u16string_view b) const {
    struct stat first {};
    struct stat second {};
    return stat(PosixPath(a).c_str(), &first) == 0 && stat(PosixPath(b).c_str(), &second) == 0 &&
           first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

std::unique_ptr<FileLock> PosixFileStore::Lock(std::u16string_view path,
                                               std::chrono::milliseconds patience) {
    constexpr std::chrono::milliseconds kPause{20};
    const std::string name = PosixPath(path);
    const auto end = std::chrono::steady_clock::now() + patience;
    for (;;) {
        StatusToReplace(name);
        // Opened for writing although nothing is written: a program that runs is found by that.
        PosixFile file(name, O_RDWR);
        while (!TryLock(file)) {
            if (std::chrono::steady_clock::now() >= end) {
                throw FileFailure{FileProblem::Locked};
            }
            std::this_thread::sleep_for(kPause);
        }
        // The one who had the lock has replaced the file as a rule.
        if (IsStillAt(file, name)) {
            return std::make_unique<PosixFileLock>(std::move(file));
        }
    }
}

std::string PosixFileStore::ReadAll(std::u16string_view path) {
    return ReadUpTo(PosixFile(PosixPath(path), O_RDONLY).Get(), SIZE_MAX);
}

std::u16string PosixFileStore::WriteNewBeside(std::u16string_view path, std::string_view bytes) {
    std::string temp;
    const PosixFile file = CreateBeside(Resolve(path), temp);
    Unfinished unfinished(temp);
    file.WriteAll(bytes);
    file.Flush();
    unfinished.Keep();
    return PosixText(temp);
}

bool PosixFileStore::ReplaceWith(std::u16string_view temp, std::u16string_view path,
                                 const FileAccess& access) {
    const std::string source = PosixPath(temp);
    const std::string target = Resolve(path);
    const std::optional<struct stat> old = StatusToReplace(target);
    const PosixFile file(source, O_RDONLY);
    bool ownerKept = true;
    if (old) {
        ownerKept = TakeAccess(file, *old, access);
    } else {
        SetAccess(file, access);
    }
    file.Flush();
    if (std::rename(source.c_str(), target.c_str()) != 0) {
        throw PosixFailure(errno, target);
    }
    ForgetTemporary(source);
    FlushFolderOf(target);
    return ownerKept;
}

void PosixFileStore::PlaceNew(std::u16string_view temp, std::u16string_view path,
                              const FileAccess& access) {
    const std::string source = PosixPath(temp);
    const std::string target = PosixPath(path);
    const PosixFile file(source, O_RDONLY);
    SetAccess(file, access);
    file.Flush();
    RenameToNew(source, target);
    ForgetTemporary(source);
    FlushFolderOf(target);
}

void PosixFileStore::Remove(std::u16string_view path) {
    const std::string name = PosixPath(path);
    if (unlink(name.c_str()) != 0) {
        throw PosixFailure(errno, name);
    }
    ForgetTemporary(name);
}

}  // namespace tarvex
