#include "window/formviews/Win32UserDialogs_win32.h"

#include <cstring>

#include "platform/win32/WideText.h"
#include "util/QvFileDialog.h"
#include "window/formviews/FormDialog_win32.h"
#include "window/formviews/QuestionBox_win32.h"

namespace tarvex {

namespace {

HWND Owner() {
    return GetActiveWindow();
}

/// Keeps the process's current folder, which file dialogs make that of the chosen file.
class KeptCurrentFolder {
public:
    KeptCurrentFolder()
        : folder_(ReadGrowing([](wchar_t* buffer, DWORD size) {
              const DWORD length = GetCurrentDirectoryW(size, buffer);
              return length < size ? GrowingRead{length, false} : GrowingRead{0, true};
          })) {}
    KeptCurrentFolder(const KeptCurrentFolder&) = delete;
    KeptCurrentFolder& operator=(const KeptCurrentFolder&) = delete;
    ~KeptCurrentFolder() { SetCurrentDirectoryW(Wide(folder_)); }

private:
    std::u16string folder_;
};

FileDialogOptions OptionsOf(const FileQuestion& question) {
    FileDialogOptions options;
    options.title = question.title;
    options.startFolder = question.folder;
    options.filter = question.filter;
    options.defaultName = question.name;
    options.defaultExtension = question.extension;
    options.owner = Owner();
    return options;
}

/// The clipboard for the time of a block.
class OpenedClipboard {
public:
    OpenedClipboard() {
        // Another program may hold it for a moment.
        constexpr int kTries = 10;
        for (int i = 0; i < kTries && !open_; ++i) {
            open_ = OpenClipboard(Owner()) != FALSE;
            if (!open_) {
                Sleep(10);
            }
        }
    }
    OpenedClipboard(const OpenedClipboard&) = delete;
    OpenedClipboard& operator=(const OpenedClipboard&) = delete;
    ~OpenedClipboard() {
        if (open_) {
            CloseClipboard();
        }
    }
    explicit operator bool() const { return open_; }

private:
    bool open_ = false;
};

}  // namespace

std::int32_t Win32UserDialogs::Ask(const BoxQuestion& question) {
    return QuestionBox(Owner(), title_, question).Ask();
}

std::u16string Win32UserDialogs::ChooseFile(const FileQuestion& question) {
    const KeptCurrentFolder kept;
    return QvFileDialog(dialogs_, ansi_, ui_).ShowOpen(OptionsOf(question)).path;
}

std::u16string Win32UserDialogs::ChooseNewFile(const FileQuestion& question) {
    const KeptCurrentFolder kept;
    return QvFileDialog(dialogs_, ansi_, ui_).ShowSave(OptionsOf(question)).path;
}

std::u16string Win32UserDialogs::ChooseFolder(std::u16string_view title,
                                              std::u16string_view folder) {
    const KeptCurrentFolder kept;
    return QvFileDialog(dialogs_, ansi_, ui_)
        .BrowseForFolder(std::u16string(title), std::u16string(folder), Owner());
}

bool Win32UserDialogs::ShowForm(FormModel& form, const FormDialogTexts& texts) {
    return FormDialog(Owner(), form, texts).ShowModal();
}

void Win32UserDialogs::CopyToClipboard(std::u16string_view text) {
    const OpenedClipboard clipboard;
    if (!clipboard) {
        return;
    }
    EmptyClipboard();
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(char16_t));
    if (memory == nullptr) {
        return;
    }
    auto* const target = static_cast<char16_t*>(GlobalLock(memory));
    text.copy(target, text.size());
    target[text.size()] = u'\0';
    GlobalUnlock(memory);
    if (SetClipboardData(CF_UNICODETEXT, memory) == nullptr) {
        GlobalFree(memory);
    }
}

std::u16string Win32UserDialogs::Clipboard() {
    const OpenedClipboard clipboard;
    const HANDLE memory = clipboard ? GetClipboardData(CF_UNICODETEXT) : nullptr;
    const auto* const text =
        memory == nullptr ? nullptr : static_cast<const char16_t*>(GlobalLock(memory));
    if (text == nullptr) {
        return {};
    }
    const std::size_t most = GlobalSize(memory) / sizeof(char16_t);
    std::u16string_view whole(text, most);
    std::u16string copy(whole.substr(0, whole.find(u'\0')));
    GlobalUnlock(memory);
    return copy;
}

}  // namespace tarvex
