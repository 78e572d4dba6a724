#include "window/model/DocumentIcon.h"

#include "configurator/SettingsSource.h"
#include "configurator/program/ProgramFields.h"
#include "launch/PathHelpers.h"

namespace tarvex {

Problems ReadIcon(FileStore& store, Document& document) {
    if (document.IsParked(kFieldIconFile) || !document.Icon().empty()) {
        return {};
    }
    const std::u16string& path = document.File().path;
    Settings named;
    named.Set(kFieldIconFile, TrimBlanksAndTabs(document.Text(kFieldIconFile)));
    Problems problems = LoadIconFile(store, FolderPart(path), path, named);
    if (problems.empty() && !named.Icon().empty()) {
        document.SetIcon(named.Icon());
    }
    return problems;
}

}  // namespace tarvex
