#include "platform/win32/Win32FolderListing.h"

#include "platform/win32/Handles.h"
#include "platform/win32/SystemPath.h"
#include "platform/win32/WideText.h"

namespace tarvex {

std::optional<std::vector<std::u16string>> Win32FolderListing::FilesIn(
    std::u16string_view folder) const {
    if (folder.find_first_of(u"*?") != std::u16string_view::npos) {
        return std::nullopt;
    }
    std::u16string pattern = SystemPath(folder);
    if (pattern.empty() || IsDevicePath(pattern)) {
        return std::nullopt;
    }
    pattern += pattern.ends_with(u'\\') ? u"*" : u"\\*";
    WIN32_FIND_DATAW entry;
    const UniqueHandle<HANDLE, FindClose> search(FindFirstFileW(Wide(pattern), &entry));
    if (!search) {
        // The root of a drive is the one folder without "." in it.
        if (GetLastError() == ERROR_FILE_NOT_FOUND) {
            return std::vector<std::u16string>();
        }
        return std::nullopt;
    }
    std::vector<std::u16string> names;
    do {
        if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
            names.emplace_back(FromWide(entry.cFileName));
        }
    } while (FindNextFileW(search.Get(), &entry) != FALSE);
    return names;
}

}  // namespace tarvex
