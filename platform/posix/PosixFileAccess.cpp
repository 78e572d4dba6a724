#include "platform/posix/PosixFileAccess.h"

#include <unistd.h>

#include <cerrno>

namespace tarvex {

namespace {

constexpr mode_t kPermissionBits = 07777;

void SetPermissions(const PosixFile& file, mode_t bits) {
    if (fchmod(file.Get(), bits) != 0) {
        throw PosixFailure(errno);
    }
}

/// Gives an open file the owner of the file whose place it will take; false when that must not be.
bool TakeOwner(const PosixFile& file, const struct stat& old) {
    if (fchown(file.Get(), old.st_uid, old.st_gid) == 0) {
        return true;
    }
    // Only the superuser can give a file away; but a user may name each of the own groups.
    if (errno != EPERM ||
        (fchown(file.Get(), static_cast<uid_t>(-1), old.st_gid) != 0 && errno != EPERM)) {
        throw PosixFailure(errno);
    }
    return file.Status().st_uid == old.st_uid && file.Status().st_gid == old.st_gid;
}

}  // namespace

bool TakeAccess(const PosixFile& file, const struct stat& old, const FileAccess& access) {
    const bool ownerKept = TakeOwner(file, old);
    if (!access.ownerOnly) {
        SetPermissions(file, old.st_mode & kPermissionBits);
    }
    return ownerKept;
}

void SetAccess(const PosixFile& file, const FileAccess& access) {
    if (access.ownerOnly) {
        return;
    }
    if (access.model.empty()) {
        const mode_t withheld = umask(0);
        umask(withheld);
        SetPermissions(file, 0666 & ~withheld);
        return;
    }
    struct stat model {};
    const std::string name = PosixPath(access.model);
    if (stat(name.c_str(), &model) != 0) {
        throw PosixFailure(errno, name);
    }
    SetPermissions(file, model.st_mode & kPermissionBits);
}

}  // namespace tarvex
