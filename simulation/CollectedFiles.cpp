#include "simulation/CollectedFiles.h"

#include "configurator/AccessPresets.h"
#include "launch/PathHelpers.h"

namespace tarvex {

std::vector<std::u16string> KnownAccessEntries() {
    std::vector<std::u16string> entries;
    for (const AccessPreset& preset : AccessPresets()) {
        entries.push_back(preset.entry);
    }
    return entries;
}

std::u16string CollectedPath(const CollectedFile& file, std::u16string_view folder) {
    return JoinPath(folder, file.name);
}

Problems CheckCollected(const FileStore& store, const std::vector<CollectedFile>& files,
                        std::u16string_view folder, const OutputRules& rules) {
    Problems problems;
    for (const CollectedFile& file : files) {
        Append(problems, CheckOutput(store, CollectedPath(file, folder), rules));
    }
    return problems;
}

Problems WriteCollected(FileStore& store, const std::vector<CollectedFile>& files,
                        std::u16string_view folder, const OutputRules& rules, Problems& notes) {
    Problems problems = CheckCollected(store, files, folder, rules);
    for (auto file = files.rbegin(); file != files.rend() && problems.empty(); ++file) {
        problems = WriteOutput(store, CollectedPath(*file, folder), file->bytes, rules, notes);
    }
    return problems;
}

}  // namespace tarvex
