#include "platform/win32/Win32Dialogs.h"

#include <cstddef>

#include "platform/win32/Com.h"

namespace tarvex {

namespace {

// The record without the fields that Windows 2000 added, which every version takes.
constexpr DWORD kRecordSize =
    offsetof(OPENFILENAMEA, lpTemplateName) + sizeof(OPENFILENAMEA::lpTemplateName);
static_assert(kRecordSize == 76);

FileDialogEnd ShowFileDialog(const char* function, FileDialogCall& call) {
    const SystemLibrary library(u"comdlg32.dll");
    auto* const show = library.Function<decltype(GetSaveFileNameA)>(function);
    auto* const failure = library.Function<decltype(CommDlgExtendedError)>("CommDlgExtendedError");
    if (show == nullptr || failure == nullptr) {
        return {false, ERROR_PROC_NOT_FOUND};
    }
    OPENFILENAMEA record{};
    record.lStructSize = kRecordSize;
    record.hwndOwner = static_cast<HWND>(call.owner);
    record.lpstrFilter = call.filter.c_str();
    record.nFilterIndex = 1;
    record.lpstrFile = call.file.data();
    record.nMaxFile = static_cast<DWORD>(call.file.size());
    record.lpstrFileTitle = call.fileTitle.data();
    record.nMaxFileTitle = static_cast<DWORD>(call.fileTitle.size());
    record.lpstrInitialDir = call.folder.c_str();
    record.lpstrTitle = call.title.c_str();
    record.lpstrDefExt = call.defaultExtension.empty() ? nullptr : call.defaultExtension.c_str();
    record.Flags = call.flags;
    if (show(&record) != FALSE) {
        return {true, 0};
    }
    return {false, failure()};
}

int CALLBACK SelectStartFolder(HWND dialog, UINT message, LPARAM, LPARAM startFolder) {
    if (message == BFFM_INITIALIZED) {
        SendMessageA(dialog, BFFM_SETSELECTIONA, TRUE, startFolder);
    }
    return 0;
}

}  // namespace

FileDialogEnd Win32CommonDialogs::ShowOpen(FileDialogCall& call) {
    return ShowFileDialog("GetOpenFileNameA", call);
}

FileDialogEnd Win32CommonDialogs::ShowSave(FileDialogCall& call) {
    return ShowFileDialog("GetSaveFileNameA", call);
}

std::string Win32CommonDialogs::BrowseForFolder(WindowHandle owner, const std::string& title,
                                                const std::string& startFolder,
                                                std::uint32_t flags) {
    const SystemLibrary shell(u"shell32.dll");
    const SystemLibrary ole(u"ole32.dll");
    auto* const browse = shell.Function<decltype(SHBrowseForFolderA)>("SHBrowseForFolderA");
    auto* const pathOf = shell.Function<decltype(SHGetPathFromIDListA)>("SHGetPathFromIDListA");
    auto* const release = ole.Function<decltype(CoTaskMemFree)>("CoTaskMemFree");
    if (browse == nullptr || pathOf == nullptr || release == nullptr) {
        return {};
    }
    const ComApartment apartment(ole);
    char displayName[MAX_PATH] = {};
    BROWSEINFOA info{};
    info.hwndOwner = static_cast<HWND>(owner);
    info.pszDisplayName = displayName;
    info.lpszTitle = title.c_str();
    info.ulFlags = flags;
    info.lpfn = SelectStartFolder;
    info.lParam = reinterpret_cast<LPARAM>(startFolder.c_str());
    auto* const items = browse(&info);
    if (items == nullptr) {
        return {};
    }
    char path[MAX_PATH] = {};
    const bool isFolder = pathOf(items, path) != FALSE;
    release(items);
    return isFolder ? path : std::string();
}

}  // namespace tarvex
