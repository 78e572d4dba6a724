#include "platform/win32/SystemPath.h"

#include "platform/FileStore.h"
#include "platform/win32/WideText.h"
#include "platform/win32/WindowsApi.h"

namespace tarvex {

namespace {

/// Folders may be no longer than this in the ordinary notation, since a name of the old 8.3 form
/// must fit after them; files could be twelve characters longer.
constexpr std::size_t kLongestOrdinaryPath = 247;

}  // namespace

std::u16string SystemPath(std::u16string_view path) {
    if (path.empty() || path.find(u'\0') != std::u16string_view::npos) {
        return {};
    }
    const std::u16string given(path);
    std::u16string full = ReadGrowing([&given](wchar_t* buffer, DWORD size) {
        const DWORD length = GetFullPathNameW(Wide(given), size, buffer, nullptr);
        return length < size ? GrowingRead{length, false} : GrowingRead{0, true};
    });
    const bool verbatim = full.starts_with(u"\\\\?\\") || IsDevicePath(full);
    if (verbatim || full.size() <= kLongestOrdinaryPath) {
        return full;
    }
    if (full.starts_with(u"\\\\")) {
        return u"\\\\?\\UNC" + full.substr(1);
    }
    return u"\\\\?\\" + full;
}

bool IsDevicePath(std::u16string_view systemPath) {
    return systemPath.starts_with(u"\\\\.\\");
}

std::u16string FilePath(std::u16string_view path) {
    std::u16string name = SystemPath(path);
    if (name.empty()) {
        throw FileFailure{FileProblem::PathNotFound};
    }
    if (IsDevicePath(name)) {
        throw FileFailure{FileProblem::NotAFile};
    }
    return name;
}

}  // namespace tarvex
