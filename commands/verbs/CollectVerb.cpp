#include <utility>

#include "commands/verbs/Verbs.h"
#include "configurator/AccessPresets.h"
#include "configurator/LauncherImage.h"
#include "configurator/OutputFile.h"
#include "simulation/Collector.h"
#include "simulation/StoredConstants.h"
#include "text/Text.h"

namespace tarvex {
namespace {

/// What a vendor can take over into his key list when the answers are known.
std::vector<std::u16string> PresetEntries() {
    std::vector<std::u16string> entries;
    for (const AccessPreset& preset : AccessPresets()) {
        entries.push_back(preset.entry);
    }
    return entries;
}

/// The finished files by their paths in the folder, the description last: it is there only when
/// those are that it names. With `dryRun` nothing is written, only judged.
Problems WriteAll(CommandContext& context, const std::vector<CollectedFile>& files,
                  const std::u16string& folder, const OutputRules& rules, bool dryRun) {
    const auto path = [&folder](const CollectedFile& file) {
        return folder + (folder.ends_with(u'\\') ? u"" : u"\\") + file.name;
    };
    Problems problems;
    for (const CollectedFile& file : files) {
        Append(problems, CheckOutput(context.Store(), path(file), rules));
    }
    if (dryRun) {
        return problems;
    }
    Problems notes;
    for (auto file = files.rbegin(); file != files.rend() && problems.empty(); ++file) {
        problems = WriteOutput(context.Store(), path(*file), file->bytes, rules, notes);
    }
    context.Tell(notes);
    return problems;
}

}  // namespace

int Collect(CommandContext& context, const CommandLine& line) {
    const std::u16string& file = line.arguments[0];
    const std::u16string& folder = line.arguments[1];
    const std::unique_ptr<ThisPc> pc = OpenThisPc();
    if (!pc) {
        return context.Finish(
            {{file, 0, {}, u"'collect' beschreibt den PC, auf dem es läuft, und braucht Windows."}},
            {});
    }
    Problems problems;
    const std::string bytes = context.Read(file, problems).value_or(std::string());
    const LauncherImage image = LauncherImage::Read(bytes, file);
    if (problems.empty()) {
        problems = image.ReadProblems();
    }
    if (problems.empty() && !image.IsBranded()) {
        problems.push_back({file, 0, {}, u"Das Startprogramm ist noch nicht konfiguriert."});
    }
    const bool dryRun = line.Has(Option::DryRun);
    if (problems.empty()) {
        const std::u16string fullFolder = pc->FullPath(folder);
        const std::vector<CollectedFile> files =
            CollectPc(*pc, StoredConstants::FromImage(image), pc->FullPath(file), context.Codec(),
                      PresetEntries());
        OutputRules rules;
        rules.force = line.Has(Option::Force);
        problems = WriteAll(context, files, fullFolder, rules, dryRun);
        if (problems.empty() && dryRun) {
            context.Out(text::FromUtf8(files.front().bytes));
        }
    }
    return context.Finish(problems, folder + (dryRun ? u": Die Beschreibung würde geschrieben."
                                                     : u": Die Beschreibung ist geschrieben."));
}

}  // namespace tarvex
