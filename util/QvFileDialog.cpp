#include "util/QvFileDialog.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "text/Text.h"

namespace tarvex {

namespace {

constexpr std::u16string_view kStartFolder = u"c:\\";
constexpr std::u16string_view kAllFiles = u"Alle Dateien (*.*)|*.*";
constexpr std::uint32_t kOpenFlags = 0x1804;  // file and path must exist, no read-only box
constexpr std::uint32_t kSaveFlags = 0x0806;  // path must exist, overwrite prompt, no read-only box
constexpr std::uint32_t kFileSystemFoldersOnly = 1;

void SetDefault(std::u16string& text, std::u16string_view fallback) {
    if (text.empty()) {
        text = fallback;
    }
}

std::string_view UpToZero(std::string_view buffer) {
    return buffer.substr(0, buffer.find('\0'));
}

}  // namespace

std::u16string QvFileDialog::BrowseForFolder(std::u16string title, std::u16string startFolder,
                                             WindowHandle owner) {
    SetDefault(title, u"Ordner wählen");
    SetDefault(startFolder, kStartFolder);
    return ansi_.FromAnsi(dialogs_.BrowseForFolder(
        owner, ansi_.ToAnsi(title), ansi_.ToAnsi(startFolder), kFileSystemFoldersOnly));
}

ChosenFile QvFileDialog::GetOpenFileName(FileDialogOptions options) {
    SetDefault(options.title, u"Datei öffnen");
    SetDefault(options.startFolder, kStartFolder);
    SetDefault(options.filter, kAllFiles);
    return ShowOpen(options);
}

ChosenFile QvFileDialog::GetSaveFileName(FileDialogOptions options) {
    SetDefault(options.title, u"Datei speichern");
    SetDefault(options.startFolder, kStartFolder);
    SetDefault(options.filter, kAllFiles);
    return ShowSave(options);
}

ChosenFile QvFileDialog::ShowOpen(const FileDialogOptions& options) {
    return ShowDialog(options, u"Open", u"Datei öffnen", &CommonDialogs::ShowOpen);
}

ChosenFile QvFileDialog::ShowSave(const FileDialogOptions& options) {
    return ShowDialog(options, u"Save", u"Datei speichern unter", &CommonDialogs::ShowSave);
}

std::uint32_t QvFileDialog::CheckFlags(std::u16string_view intention) {
    if (text::EqualsIgnoreCase(intention, u"Open")) {
        return kOpenFlags;
    }
    if (text::EqualsIgnoreCase(intention, u"Save")) {
        return kSaveFlags;
    }
    MessageBoxRequest box;
    box.text = std::u16string(u"Unbekannte Intention: ").append(intention);
    box.title = u"Z_CheckFlags";
    box.style = box_style::kStopIcon;
    ui_.ShowMessageBox(box);
    return 0;
}

ChosenFile QvFileDialog::ShowDialog(const FileDialogOptions& options, std::u16string_view intention,
                                    std::u16string_view defaultTitle, Show show) {
    FileDialogCall call;
    call.flags = CheckFlags(intention);
    call.title = ansi_.ToAnsi(options.title.empty() ? defaultTitle : options.title);
    std::u16string failure;
    try {
        failure = RunDialog(options, call, show);
    } catch (const std::exception& exception) {
        failure = text::FromUtf8(exception.what());
    } catch (...) {
        failure = u"Interner Fehler";
    }
    if (!failure.empty()) {
        MessageBoxRequest box;
        box.text = failure;
        box.title = std::u16string(u"Error: Show").append(intention);
        box.style = box_style::kExclamationIcon;
        ui_.ShowMessageBox(box);
        return {};
    }
    return {ansi_.FromAnsi(UpToZero(call.file)), ansi_.FromAnsi(UpToZero(call.fileTitle))};
}

/// Returns what went wrong, empty when nothing did. Both buffers begin with a zero unless the user
/// chose a file.
std::u16string QvFileDialog::RunDialog(const FileDialogOptions& options, FileDialogCall& call,
                                       Show show) {
    call.owner = options.owner;
    call.folder = ansi_.ToAnsi(options.startFolder);
    call.filter = Filter(options.filter);
    call.defaultExtension = ansi_.ToAnsi(options.defaultExtension);
    call.file = ansi_.ToAnsi(options.defaultName);
    if (call.file.size() >= kFileBufferSize) {
        return u"Überlauf";
    }
    call.file.resize(kFileBufferSize);
    call.fileTitle.resize(kFileBufferSize);
    const FileDialogEnd end = (dialogs_.*show)(call);
    if (!end.chosen) {
        call.file.clear();
        call.fileTitle.clear();
    }
    if (end.failure != 0) {
        return u"Der Dialog kann nicht angezeigt werden (Fehler " + text::Hexadecimal(end.failure) +
               u").";
    }
    return {};
}

std::string QvFileDialog::Filter(std::u16string_view filter) const {
    std::u16string list(filter.empty() ? u"Alle Dateien|*.*" : filter);
    std::replace(list.begin(), list.end(), u'|', u'\0');
    list += u'\0';
    list += u'\0';  // an empty entry ends the list
    return ansi_.ToAnsi(list);
}

}  // namespace tarvex
