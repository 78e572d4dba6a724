#include "platform/win32/FileIdentity.h"

#include <optional>

#include "platform/win32/FileInUse.h"
#include "platform/win32/Handles.h"
#include "platform/win32/SystemFile.h"
#include "platform/win32/SystemLibrary.h"
#include "platform/win32/SystemPath.h"
#include "platform/win32/WideText.h"
#include "text/Text.h"

namespace tarvex {

namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Opens a file or folder without any right to its content, so that nobody who has it open is in
/// the way. A symbolic link is followed.
UniqueFile OpenForInformation(const std::u16string& path) {
    return UniqueFile(CreateFileW(Wide(path), 0, kShareAll, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

std::optional<BY_HANDLE_FILE_INFORMATION> InformationOf(const std::u16string& path) {
    const UniqueFile file = OpenForInformation(path);
    BY_HANDLE_FILE_INFORMATION information;
    if (!file || !GetFileInformationByHandle(file.Get(), &information)) {
        return std::nullopt;
    }
    return information;
}

bool IsMissing(DWORD error) {
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

/// True for a symbolic link to a file; there are other reparse points, which are no links.
bool IsLink(const std::u16string& path, DWORD attributes) {
    if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
        return false;
    }
    WIN32_FIND_DATAW data;
    const HANDLE search = FindFirstFileW(Wide(path), &data);
    if (search == INVALID_HANDLE_VALUE) {
        return false;
    }
    FindClose(search);
    return data.dwReserved0 == IO_REPARSE_TAG_SYMLINK;
}

FileKind KindOf(DWORD attributes) {
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? FileKind::Folder : FileKind::Regular;
}

}  // namespace

FileEntry DescribeFile(std::u16string_view path) {
    const std::u16string name = SystemPath(path);
    if (name.empty()) {
        throw FileFailure{FileProblem::PathNotFound};
    }
    if (IsDevicePath(name)) {
        return {FileKind::Other};
    }
    const DWORD attributes = GetFileAttributesW(Wide(name));
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        if (!IsMissing(GetLastError())) {
            ThrowLastFileFailure();
        }
        return {};
    }
    const bool isLink = IsLink(name, attributes);
    if (const auto information = InformationOf(name)) {
        return {KindOf(information->dwFileAttributes), isLink, information->nNumberOfLinks};
    }
    return {isLink ? FileKind::None : KindOf(attributes), isLink};
}

bool IsSameSystemFile(std::u16string_view a, std::u16string_view b) {
    const std::u16string nameA = SystemPath(a);
    const std::u16string nameB = SystemPath(b);
    const auto first = InformationOf(nameA);
    const auto second = InformationOf(nameB);
    if (!first || !second) {
        return false;
    }
    // Some servers number their files with 0.
    const bool isNumbered = first->nFileIndexHigh != 0 || first->nFileIndexLow != 0;
    return (isNumbered && first->dwVolumeSerialNumber == second->dwVolumeSerialNumber &&
            first->nFileIndexHigh == second->nFileIndexHigh &&
            first->nFileIndexLow == second->nFileIndexLow) ||
           text::EqualsIgnoreCase(nameA, nameB);
}

std::u16string FollowLink(const std::u16string& path) {
    const DWORD attributes = GetFileAttributesW(Wide(path));
    if (attributes == INVALID_FILE_ATTRIBUTES || !IsLink(path, attributes)) {
        return path;
    }
    using FinalPath = DWORD WINAPI(HANDLE, LPWSTR, DWORD, DWORD);
    // Windows without this function has no such links.
    FinalPath* const finalPath =
        SystemLibrary(u"kernel32.dll").Function<FinalPath>("GetFinalPathNameByHandleW");
    const UniqueFile file = OpenForInformation(path);
    if (finalPath == nullptr || !file) {
        return path;
    }
    const std::u16string target = ReadGrowing([&file, finalPath](wchar_t* buffer, DWORD size) {
        const DWORD length = finalPath(file.Get(), buffer, size, 0);
        return length < size ? GrowingRead{length, false} : GrowingRead{0, true};
    });
    return target.empty() ? path : target;
}

void RequireReplaceable(const std::u16string& path) {
    const DWORD attributes = GetFileAttributesW(Wide(path));
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        return;
    }
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        throw FileFailure{FileProblem::IsFolder};
    }
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) {
        throw FileFailure{FileProblem::AccessDenied};
    }
    // Replacing a program that runs is answered like a missing right, opening it for writing is
    // not.
    AfterTheMoment([&path] {
        const UniqueFile file(CreateFileW(Wide(path), GENERIC_WRITE, kShareAll, nullptr,
                                          OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
        if (!file) {
            ThrowLastFileFailure();
        }
    });
}

}  // namespace tarvex
