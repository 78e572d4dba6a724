#include "window/files/SettingsWriting.h"

#include "configurator/SettingsExport.h"
#include "window/document/FileNames.h"
#include "window/form/BoxTexts.h"

namespace tarvex {
namespace {

/// Which files go; empty: none.
std::u16string WhatIsReplaced(const FileStore& store, const std::u16string& output, bool hasIcon) {
    const std::u16string icon = IconBeside(output);
    std::u16string text;
    if (store.FileExists(output)) {
        text = NameOf(output) +
               u" ist schon vorhanden. Kommentare, die darin stehen, gehen beim Exportieren "
               u"verloren.";
    }
    if (hasIcon && store.FileExists(icon)) {
        text += std::u16string(text.empty() ? u"" : u" ") + NameOf(icon) +
                u" ist schon vorhanden und wird ersetzt.";
    }
    return text;
}

}  // namespace

FileResult WriteSettingsFile(const FileServices& services, const Document& document,
                             const Settings& values, const std::u16string& output,
                             bool withSecrets) {
    const DocumentFile& file = document.File();
    const ExportedSettings exported =
        ExportSettings(values, file.path, output, withSecrets, services.codec);
    Problems problems = exported.problems;
    Problems notes;
    if (problems.empty()) {
        const std::u16string replaced =
            WhatIsReplaced(services.store, output, !exported.icon.empty());
        if (!replaced.empty() &&
            !UserAgrees(services.dialogs, BoxIcon::Warning, replaced, u"&Ersetzen")) {
            return {};
        }
        OutputRules rules{.force = !replaced.empty(), .inputs = {file.path}};
        if (document.IsNew()) {
            rules.inputs.push_back(file.source);
        }
        problems = WriteExport(services.store, exported, output, rules, notes);
    }
    if (!problems.empty()) {
        TellUser(services.dialogs, BoxIcon::Error,
                 NameOf(output) + u" kann nicht geschrieben werden:\n\n" +
                     ProblemList(problems, output));
        return {};
    }
    if (!notes.empty()) {
        TellUser(services.dialogs, BoxIcon::Information,
                 NameOf(output) + u" ist geschrieben. Dazu ist zu sagen:\n\n" +
                     ProblemList(notes, output));
    }
    return {true, NameOf(output) + u" ist geschrieben."};
}

}  // namespace tarvex
