#include "window/document/IconField.h"

#include <utility>

#include "configurator/SettingsSource.h"
#include "configurator/program/ProgramFields.h"
#include "text/Text.h"

namespace tarvex {

IconContent ReadIcon(FileStore& files, std::u16string_view folder, std::u16string_view path) {
    const std::u16string start = text::Replace(folder, u"\\", u"/");
    Settings settings;
    settings.Set(kFieldIconFile, path);
    const Problems problems = LoadIconFile(files, start, {}, settings);
    if (problems.empty()) {
        return {settings.Icon(), {}};
    }
    // The path as the user knows it.
    return {{}, text::Replace(problems.front().text, IconPath(start, path), path, 1)};
}

std::u16string LoadIcon(Document& document, FileStore& files) {
    const std::u16string path(text::Trim(document.Text(kFieldIconFile)));
    if (path.empty() || !document.Icon().empty()) {
        return {};
    }
    IconContent icon = ReadIcon(files, document.Folder(), path);
    if (icon.problem.empty()) {
        document.SetIcon(std::move(icon.bytes));
    }
    return icon.problem;
}

std::u16string EnterIcon(Document& document, FileStore& files, std::u16string_view path) {
    IconContent icon = ReadIcon(files, document.Folder(), path);
    if (icon.problem.empty()) {
        document.SetText(kFieldIconFile, path);
        document.SetIcon(std::move(icon.bytes));
    }
    return icon.problem;
}

}  // namespace tarvex
